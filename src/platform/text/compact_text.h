#pragma once

#include "platform/text/copy_bytes.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vandrel {

// A view of text in Latin-1, a byte a letter (U+0000 to U+00FF), or in UTF-16. Both are the same text to whoever
// reads it; the first takes half the memory. Units count as those of UTF-16 do.
class CompactText {
  public:
    CompactText() = default;
    // Of text in UTF-16, whatever its letters.
    CompactText(std::wstring_view text) : CompactText(text.data(), text.size(), false) {}
    CompactText(const std::wstring& text) : CompactText(std::wstring_view(text)) {}
    CompactText(const wchar_t* text) : CompactText(std::wstring_view(text)) {}
    static CompactText ofLatin(std::string_view text) { return {text.data(), text.size(), true}; }

    bool isLatin() const { return (sizeAndKind_ & 1) != 0; }
    std::string_view latin() const { return {static_cast<const char*>(data_), size()}; } // if it is Latin-1
    std::wstring_view wide() const { return {static_cast<const wchar_t*>(data_), size()}; } // if it is not
    // In UTF-16 whatever it is: a view of it, or of a copy in `memory`.
    std::wstring_view wideIn(std::wstring& memory) const;
    explicit operator std::wstring() const;

    const void* data() const { return data_; }
    std::size_t size() const { return sizeAndKind_ >> 1; }
    bool empty() const { return size() == 0; }
    wchar_t operator[](std::size_t unit) const
    {
        return isLatin() ? static_cast<wchar_t>(static_cast<const unsigned char*>(data_)[unit])
                         : static_cast<const wchar_t*>(data_)[unit];
    }
    // `from` is at most size().
    CompactText substr(std::size_t from, std::size_t most = std::wstring_view::npos) const;

    // So many units at most, as UTF-16. Returns how many there were.
    std::size_t copy(wchar_t* to, std::size_t most) const;
    // Whether every unit is at most U+00FF, and, for such a text, its units as Latin-1.
    bool fitsLatin() const { return isLatin() || wideFitsLatin(); }
    void copyLatin(char* to) const
    {
        if (isLatin()) copyBytes(to, latin());
        else narrow(to);
    }

    // Less than, equal to or greater than 0, by units.
    int compare(const CompactText& other) const;
    friend bool operator==(const CompactText& a, const CompactText& b)
    {
        return a.size() == b.size() && a.compare(b) == 0;
    }
    friend std::wstring& operator+=(std::wstring& text, const CompactText& more);

  private:
    CompactText(const void* data, std::size_t size, bool latin)
        : data_(data), sizeAndKind_(size << 1 | std::size_t{latin})
    {}

    bool wideFitsLatin() const;
    void narrow(char* to) const;

    const void* data_ = nullptr;
    std::size_t sizeAndKind_ = 0; // the lowest bit is set for Latin-1
};

} // namespace vandrel
