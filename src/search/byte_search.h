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
    ByteSearch(std::string_view bytes, const BytePattern& pattern)
        : bytes_(bytes), pattern_(pattern), reader_(bytes)
    {}

    // The next site that may hold the term. None at the end of some window of the file, so that the caller
    // is never kept waiting, or at that of the file.
    std::optional<Site> nextCandidate();
    // The next site, whatever it holds. None at the end.
    std::optional<Site> next();

    bool atEnd() const { return reader_.rest().empty() && !reader_.withinLine(); }
    // So many sites were passed, with the one given last.
    std::size_t sites() const { return sites_; }

  private:
    std::size_t place() const { return bytes_.size() - reader_.rest().size(); }
    std::size_t lineEndFrom(std::size_t place) const;
    std::size_t lineBeginBefore(std::size_t place) const;

    std::string_view bytes_;
    const BytePattern& pattern_;
    BasicSiteRecordReader<char> reader_;
    std::size_t windowEnd_ = 0; // where a line ends
    std::size_t sites_ = 0;
};

} // namespace vandrel
