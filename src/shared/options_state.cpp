#include "shared/options_state.h"

#include "platform/text/number_text.h"

namespace vandrel {
namespace {

constexpr int defaultFontSize = 8;
constexpr int largestFontSize = 2160; // points; the most that the system's font dialog accepts

std::wstring textOr(const std::wstring& text, std::wstring_view fallback)
{
    // Contract: "0" counts as missing.
    return text.empty() || text == L"0" ? std::wstring(fallback) : text;
}

int fontSizeOf(std::wstring_view text)
{
    const long size = lenientWhole(text, -1, largestFontSize + 1);
    return isFontSize(size) ? static_cast<int>(size) : defaultFontSize;
}

bool flagOf(std::wstring_view text) { return lenientWhole(text, -32768, 32767) != 0; }

std::wstring_view flagText(bool on) { return on ? L"1" : L"0"; }

} // namespace

bool isFontSize(long size) { return size >= 1 && size <= largestFontSize; }

OptionsState optionsFrom(const std::function<std::wstring(std::wstring_view key)>& read)
{
    OptionsState options;
    options.font.name = textOr(read(L"FontName"), L"Arial");
    options.font.color = static_cast<std::uint32_t>(lenientWhole(read(L"FontColor"), 0, 0xFFFFFF));
    options.font.size = fontSizeOf(read(L"FontSize"));
    options.font.bold = flagOf(read(L"FontBold"));
    options.font.italic = flagOf(read(L"FontItalic"));
    options.htmlFont = textOr(read(L"HTMLFont"), L"Arial");
    options.htmlBorder = static_cast<int>(lenientWhole(read(L"HTMLBorder"), -32768, 32767));
    options.htmlTableWidth = textOr(read(L"HTMLTWidth"), L"75%");
    options.generateEmpty = flagOf(read(L"GenEmpty"));
    return options;
}

void writeOptions(const OptionsState& options,
                  const std::function<void(std::wstring_view key, std::wstring_view text)>& write)
{
    write(L"FontName", options.font.name);
    write(L"FontColor", decimalText(static_cast<long>(options.font.color)));
    write(L"FontSize", decimalText(static_cast<long>(options.font.size)));
    write(L"FontBold", flagText(options.font.bold));
    write(L"FontItalic", flagText(options.font.italic));
    write(L"HTMLFont", options.htmlFont);
    // Contract: the width before the border.
    write(L"HTMLTWidth", options.htmlTableWidth);
    write(L"HTMLBorder", decimalText(static_cast<long>(options.htmlBorder)));
    write(L"GenEmpty", flagText(options.generateEmpty));
}

} // namespace vandrel
