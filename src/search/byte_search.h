#pragma once

#include "model/site_record.h"
#include "search/byte_pattern.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace vandrel {

// Goes through the bytes of a category file for the sites that may hold a term, and counts all sites on
// the way. For code pages in which every byte is a letter and ASCII is itself.
class ByteSearch {
  public:
    using Site = BasicSiteRecord<char>;
    static constexpr std::size_t windowSize = 64U << 10; // bytes

    // Both are borrowed.
    ByteSearch(std::string_view bytes, const BytePattern& pattern) : bytes_(bytes), pattern_(pattern) {}

    // The next site that may hold the term. None at the end of some window of the file, so that the caller
    // is never kept waiting, or at that of the file.
    std::optional<Site> nextCandidate();
    // The next site, whatever it holds. None at the end.
    std::optional<Site> next();

    bool atEnd() const { return at_ == bytes_.size() && !reader_; }
    // So many sites were passed, with the one given last.
    std::size_t sites() const { return sites_; }

  private:
    std::optional<Site> nextOfLine();
    void readLine(std::size_t begin, std::size_t end);
    std::size_t lineEndFrom(std::size_t place) const;
    std::size_t lineBeginBefore(std::size_t place) const;

    std::string_view bytes_;
    const BytePattern& pattern_;
    std::size_t at_ = 0; // always where a line begins
    std::size_t sites_ = 0;
    std::optional<BasicSiteRecordReader<char>> reader_; // of the line before `at_`
};

} // namespace vandrel
