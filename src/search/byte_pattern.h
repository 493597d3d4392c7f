#pragma once

#include "platform/text/single_bytes.h"
#include "search/letter_pattern.h"
#include "search/match.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vandrel {

// Finds the places in undecoded text that may be part of an occurrence, as Matcher::candidate does in decoded
// text, but looks at all letters, so that few lines are decoded in vain.
class BytePattern {
  public:
    BytePattern(const Matcher& matcher, const CodePageLetters& letters);

    // npos when the term occurs nowhere at or behind `from`.
    std::size_t candidate(std::string_view bytes, std::size_t from) const;

  private:
    bool mayOccurAt(std::string_view bytes, std::size_t place) const;

    std::size_t length_; // of the term
    LetterPattern<char> pattern_;
    // By byte: a bit for each place in the term, from the first, at which it may be; and the highest bit if it
    // may be several letters.
    std::array<std::uint64_t, 256> places_{};
};

} // namespace vandrel
