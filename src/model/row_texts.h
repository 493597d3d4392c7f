#pragma once

#include "platform/text/compact_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace vandrel {

class TextMemory;

// The texts of a row: a view of memory in which they follow one another as in a site's line, with one
// separator after each but the last, all in Latin-1 or all in UTF-16. So it takes 24 bytes; four views would
// take 64.
class RowTexts {
  public:
    static constexpr std::size_t count = 4;
    using Views = std::array<CompactText, count>;

    // Without any text.
    RowTexts() = default;
    // Of texts that are a line already. Those that it does not have come last and have no data. This, the next
    // and `written` raise std::bad_alloc for a line of 2^31 - 1 units or more.
    static RowTexts ofLine(const Views& texts);
    // The same, where it is known where each text ends; one that is missing ends where the one before does.
    using Ends = std::array<std::size_t, count>;
    static RowTexts ofLine(const CompactText& line, const Ends& ends)
    {
        if (ends.back() >= mostUnits) refuse();
        RowTexts row(line.data(), line.isLatin());
        for (std::size_t text = 0; text < row.ends_.size(); ++text)
            row.ends_[text] = static_cast<std::uint32_t>(ends[text]);
        row.setLastEnd(static_cast<std::uint32_t>(ends.back()));
        return row;
    }
    // Writes the texts as a line, and is a view of it.
    static RowTexts written(const Views& texts, TextMemory& memory);

    CompactText operator[](std::size_t text) const
    {
        const std::uint32_t begin = text == 0 ? 0 : std::min(endOf(text - 1) + 1, endOf(text));
        return view(begin, endOf(text));
    }
    void clearLast() { setLastEnd(std::min(lastEnd(), ends_.back() + 1)); }
    Views views() const { return {(*this)[0], (*this)[1], (*this)[2], (*this)[3]}; }

    // All of them with the separators between them. Empty where some are missing.
    CompactText line() const;

    bool isLatin() const { return (lastEndAndKind_ & 1U) != 0; }
    // Of the memory from the first text to the end of the last.
    std::size_t bytes() const { return lastEnd() * (isLatin() ? sizeof(char) : sizeof(wchar_t)); }

  private:
    static constexpr std::size_t mostUnits = (std::size_t{1} << 31U) - 1;
    [[noreturn]] static void refuse();
    RowTexts(const void* begin, bool latin) : begin_(begin), lastEndAndKind_(latin ? 1 : 0) {}
    std::uint32_t endOf(std::size_t text) const { return text < ends_.size() ? ends_[text] : lastEnd(); }
    std::uint32_t lastEnd() const { return lastEndAndKind_ >> 1U; }
    void setLastEnd(std::uint32_t end) { lastEndAndKind_ = end << 1U | (lastEndAndKind_ & 1U); }
    CompactText view(std::uint32_t begin, std::uint32_t end) const
    {
        if (isLatin()) return CompactText::ofLatin({static_cast<const char*>(begin_) + begin, end - begin});
        return std::wstring_view(static_cast<const wchar_t*>(begin_) + begin, end - begin);
    }

    const void* begin_ = nullptr;
    // In units from begin_. A text that is missing ends where the one before it does.
    std::array<std::uint32_t, count - 1> ends_{};
    std::uint32_t lastEndAndKind_ = 0; // the lowest bit is set for Latin-1
};

} // namespace vandrel
