#include "model/row_texts.h"

#include "model/site_record.h"

#include <limits>
#include <new>

namespace vandrel {

void RowTexts::setEnd(std::size_t text, const wchar_t* end)
{
    const auto units = static_cast<std::size_t>(end - begin_);
    if (units >= std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
    ends_[text] = static_cast<std::uint32_t>(units);
}

RowTexts RowTexts::ofLine(const Views& texts)
{
    RowTexts row;
    row.begin_ = texts[0].data();
    const wchar_t* end = row.begin_;
    for (std::size_t text = 0; text < count; ++text) {
        if (texts[text].data() != nullptr) end = texts[text].data() + texts[text].size();
        row.setEnd(text, end);
    }
    return row;
}

RowTexts RowTexts::written(const Views& texts, wchar_t* memory)
{
    RowTexts row;
    row.begin_ = memory;
    for (std::size_t text = 0; text < count; ++text) {
        if (text > 0) *memory++ = fieldSeparator;
        memory += texts[text].copy(memory, texts[text].size());
        row.setEnd(text, memory);
    }
    return row;
}

std::size_t RowTexts::lengthOf(const Views& texts)
{
    std::size_t length = count - 1;
    for (const std::wstring_view text : texts) length += text.size();
    return length;
}

std::wstring_view RowTexts::line() const
{
    const bool whole = ends_[0] < ends_[1] && ends_[1] < ends_[2] && ends_[2] < ends_[3];
    return whole ? std::wstring_view(begin_, ends_[3]) : std::wstring_view();
}

} // namespace vandrel
