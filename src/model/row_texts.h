#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vandrel {

// The texts of a row: a view of memory in which they follow one another as in a site's line, with one
// separator after each but the last. So it takes 24 bytes; four views would take 64.
class RowTexts {
  public:
    static constexpr std::size_t count = 4;
    using Views = std::array<std::wstring_view, count>;

    // Without any text.
    RowTexts() = default;
    // Of texts that are a line already. Those that it does not have come last and have no data. This and
    // `written` raise std::bad_alloc for a line of 2^32 - 1 units or more.
    static RowTexts ofLine(const Views& texts);
    // Writes the texts as a line, which takes `lengthOf` units, and is a view of it.
    static RowTexts written(const Views& texts, wchar_t* memory);
    static std::size_t lengthOf(const Views& texts);

    std::wstring_view operator[](std::size_t text) const
    {
        const std::uint32_t begin = text == 0 ? 0 : std::min(ends_[text - 1] + 1, ends_[text]);
        return {begin_ + begin, ends_[text] - begin};
    }
    void clearLast() { ends_.back() = std::min(ends_.back(), ends_[count - 2] + 1); }
    Views views() const { return {(*this)[0], (*this)[1], (*this)[2], (*this)[3]}; }

    // All of them with the separators between them. Empty where some are missing.
    std::wstring_view line() const;

  private:
    void setEnd(std::size_t text, const wchar_t* end);

    const wchar_t* begin_ = nullptr;
    // Counted from begin_. A text that is missing ends where the one before it does.
    std::array<std::uint32_t, count> ends_{};
};

} // namespace vandrel
