#include "search/byte_search.h"

#include "model/site_count.h"
#include "platform/text/simd_bytes.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view lineEnd = "\r\n";

} // namespace

// The end of the first line that ends at or after the place.
std::size_t ByteSearch::lineEndFrom(std::size_t place) const
{
    const std::size_t end = bytes_.find(lineEnd, place);
    return end == npos ? bytes_.size() : end + lineEnd.size();
}

// Where the line begins that has the byte at that place. An LF still belongs to the line that it ends.
std::size_t ByteSearch::lineBeginBefore(std::size_t place) const
{
    const std::size_t first = this->place();
    const ByteVector lineFeed = ByteVector::all('\n');
    while (place > first) {
        if (place - first >= bytesInVector) {
            const auto found = ByteVector::load(bytes_.data() + place - bytesInVector).equal(lineFeed).mask();
            // Behind the last LF among these bytes, or before all of them.
            place -= static_cast<std::size_t>(std::countl_zero(static_cast<std::uint16_t>(found)));
            if (found == 0) continue;
        }
        if (bytes_[place - 1] == '\n' && place - first > 1 && bytes_[place - 2] == '\r') break;
        --place;
    }
    return place;
}

std::optional<ByteSearch::Site> ByteSearch::nextCandidate()
{
    if (reader_.withinLine()) return next();
    const std::size_t at = place();
    if (at >= windowEnd_) windowEnd_ = lineEndFrom(std::min(at + windowSize, bytes_.size()));
    const std::size_t candidate = pattern_.candidate(bytes_.substr(0, windowEnd_), at);
    const std::size_t begin = candidate == npos ? windowEnd_ : lineBeginBefore(candidate);
    sites_ += countSites(bytes_.substr(at, begin - at));
    reader_.skip(begin - at);
    return candidate == npos ? std::nullopt : next();
}

std::optional<ByteSearch::Site> ByteSearch::next()
{
    auto site = reader_.next();
    if (site) ++sites_;
    return site;
}

} // namespace vandrel
