#include "model/row_texts.h"

#include "model/site_record.h"
#include "model/text_memory.h"

#include <algorithm>
#include <new>
#include <string_view>

namespace vandrel {
namespace {

bool fitLatin(const RowTexts::Views& texts)
{
    return std::ranges::all_of(texts, [](const CompactText& text) { return text.fitsLatin(); });
}

CompactText lineOf(std::string_view latin) { return CompactText::ofLatin(latin); }
CompactText lineOf(std::wstring_view wide) { return wide; }

template <typename Unit> RowTexts writtenIn(TextMemory& memory, const RowTexts::Views& texts)
{
    std::size_t units = RowTexts::count - 1;
    for (const CompactText& text : texts) units += text.size();
    auto* const line = reinterpret_cast<Unit*>(memory.room(units * sizeof(Unit)));
    RowTexts::Ends ends{};
    std::size_t end = 0;
    for (std::size_t text = 0; text < texts.size(); ++text) {
        if (text > 0) line[end++] = static_cast<Unit>(fieldSeparator);
        if constexpr (sizeof(Unit) == 1) texts[text].copyLatin(line + end);
        else texts[text].copy(line + end, texts[text].size());
        ends[text] = end += texts[text].size();
    }
    const RowTexts row = RowTexts::ofLine(lineOf(std::basic_string_view<Unit>(line, units)), ends);
    memory.take(units * sizeof(Unit));
    return row;
}

} // namespace

void RowTexts::refuse() { throw std::bad_alloc(); }

RowTexts RowTexts::ofLine(const Views& texts)
{
    const CompactText& first = texts[0];
    const std::size_t unit = first.isLatin() ? sizeof(char) : sizeof(wchar_t);
    Ends ends{};
    std::size_t end = 0;
    for (std::size_t text = 0; text < count; ++text) {
        if (texts[text].data() != nullptr) {
            const auto bytes = static_cast<const char*>(texts[text].data()) -
                               static_cast<const char*>(first.data());
            end = static_cast<std::size_t>(bytes) / unit + texts[text].size();
        }
        ends[text] = end;
    }
    return ofLine(first, ends);
}

RowTexts RowTexts::written(const Views& texts, TextMemory& memory)
{
    return fitLatin(texts) ? writtenIn<char>(memory, texts) : writtenIn<wchar_t>(memory, texts);
}

CompactText RowTexts::line() const
{
    const bool whole = ends_[0] < ends_[1] && ends_[1] < ends_[2] && ends_[2] < lastEnd();
    return whole ? view(0, lastEnd()) : CompactText();
}

} // namespace vandrel
