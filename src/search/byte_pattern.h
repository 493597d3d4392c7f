#pragma once

#include "platform/text/single_bytes.h"
#include "search/match.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vandrel {

// Finds the places in undecoded text that may be part of an occurrence, as Matcher::candidate does in decoded
// text.
class BytePattern {
  public:
    BytePattern(const Matcher& matcher, const CodePageLetters& letters);

    // npos when the term occurs nowhere at or behind `from`.
    std::size_t candidate(std::string_view bytes, std::size_t from) const;

  private:
    std::size_t length_ = 0; // of the term
    std::string first_;      // the bytes that the first letter of an occurrence may be
    std::string last_;
    std::string expansions_; // those that may be several letters of the term
};

} // namespace vandrel
