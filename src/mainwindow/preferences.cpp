#include "mainwindow/preferences.h"

#include "platform/text/number_text.h"

namespace vandrel {
namespace {

constexpr const wchar_t* config = L"Config";
constexpr const wchar_t* optionsSection = L"Options";

} // namespace

OptionsState Preferences::options() const
{
    return optionsFrom([this](std::wstring_view key) { return store_.get(optionsSection, key); });
}

void Preferences::saveOptions(const OptionsState& options) const
{
    writeOptions(options, [this](std::wstring_view key, std::wstring_view text) {
        store_.save(optionsSection, key, text);
    });
}

int Preferences::flag(const wchar_t* key) const
{
    return static_cast<int>(lenientWhole(store_.get(config, key), -32768, 32767));
}

void Preferences::saveFlag(const wchar_t* key, int flag) const
{
    store_.save(config, key, decimalText(static_cast<long>(flag)));
}

Twips Preferences::length(const std::wstring& key) const
{
    return {static_cast<float>(lenientNumber(store_.get(config, key)))};
}

void Preferences::saveWhole(const std::wstring& key, long twips) const
{
    store_.save(config, key, decimalText(twips));
}

void Preferences::saveLength(const std::wstring& key, Twips length) const
{
    store_.save(config, key, decimalText(length.value));
}

} // namespace vandrel
