#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vandrel {

// Finds the places in a text that may be part of an occurrence of a term: those with a letter that it may begin
// with, and, as far on as the term is long, one that it may end with; and letters that may count as several of
// it. Sixteen bytes at a time.
template <typename Unit> class LetterPattern {
  public:
    using Letters = std::basic_string<Unit>;
    using Text = std::basic_string_view<Unit>;

    // `length` units. No letter to begin or to end with: such a text has no occurrence.
    LetterPattern(std::size_t length, Letters first, Letters last, Letters expansions);

    // npos when the term, which has units, occurs nowhere at or behind `from`.
    std::size_t candidate(Text text, std::size_t from) const;
    // Whether the text has a letter that may count as several of the term.
    bool hasExpansion(Text text) const;

  private:
    std::size_t length_;
    Letters first_;
    Letters last_;
    Letters expansions_;
};

extern template class LetterPattern<char>;
extern template class LetterPattern<wchar_t>;

} // namespace vandrel
