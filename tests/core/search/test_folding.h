#pragma once

#include "search/match.h"

#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// A small alphabet: "A" folds to "a", twelve letters fold to "z", and "q" and "p" each expand to several.
inline CaseFolding testFolding()
{
    CaseFolding folding;
    for (wchar_t unit = 0; unit < 128; ++unit) folding.units.push_back(unit);
    for (wchar_t capital = L'A'; capital <= L'Z'; ++capital) {
        folding.units[static_cast<std::size_t>(capital)] = static_cast<wchar_t>(capital - L'A' + L'a');
    }
    for (wchar_t digit = L'0'; digit <= L'9'; ++digit) folding.units[static_cast<std::size_t>(digit)] = L'z';
    folding.expansions = {{L'q', L"ab"}, {L'Q', L"ab"}, {L'p', L"aba"}, {L'P', L"aba"}};
    return folding;
}

// Code units in memory that ends where they end, so that reading beyond them is detected.
class ExactText {
  public:
    explicit ExactText(std::wstring_view text) : units_(text.begin(), text.end()) { units_.shrink_to_fit(); }
    std::wstring_view view() const { return {units_.data(), units_.size()}; }

  private:
    std::vector<wchar_t> units_;
};

// The same in Latin-1, for text without other letters.
class ExactLatin {
  public:
    explicit ExactLatin(std::wstring_view text) : letters_(text.size())
    {
        CompactText(text).copyLatin(letters_.data());
        letters_.shrink_to_fit();
    }
    CompactText view() const { return CompactText::ofLatin({letters_.data(), letters_.size()}); }

  private:
    std::vector<char> letters_;
};

inline std::string shown(std::wstring_view text) { return {text.begin(), text.end()}; }

} // namespace vandrel
