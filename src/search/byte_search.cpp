#include "search/byte_search.h"

#include "model/site_count.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view lineEnd = "\r\n";

} // namespace

// Behind the end of the line that has the place.
std::size_t ByteSearch::lineEndFrom(std::size_t place) const
{
    // From the byte before, which may be the CR of the line end.
    const std::size_t end = bytes_.find(lineEnd, std::max(place, at_ + 1) - 1);
    return end == npos ? bytes_.size() : end + lineEnd.size();
}

std::size_t ByteSearch::lineBeginBefore(std::size_t place) const
{
    // A place at the LF of a line end belongs to the line before.
    const std::size_t end = bytes_.substr(at_, place - at_).rfind(lineEnd);
    return end == npos ? at_ : at_ + end + lineEnd.size();
}

std::optional<ByteSearch::Site> ByteSearch::nextOfLine()
{
    if (!reader_) return std::nullopt;
    auto site = reader_->next();
    if (site) ++sites_;
    else reader_.reset();
    return site;
}

void ByteSearch::readLine(std::size_t begin, std::size_t end)
{
    reader_.emplace(bytes_.substr(begin, end - begin));
    at_ = end;
}

std::optional<ByteSearch::Site> ByteSearch::nextCandidate()
{
    if (auto site = nextOfLine()) return site;
    if (at_ == bytes_.size()) return std::nullopt;
    const std::size_t windowEnd = lineEndFrom(std::min(at_ + windowSize, bytes_.size()));
    while (at_ < windowEnd) {
        const std::size_t place = pattern_.candidate(bytes_.substr(0, windowEnd), at_);
        const std::size_t begin = place == npos ? windowEnd : lineBeginBefore(place);
        sites_ += countSites(bytes_.substr(at_, begin - at_));
        if (place == npos) {
            at_ = windowEnd;
            break;
        }
        readLine(begin, lineEndFrom(place));
        if (auto site = nextOfLine()) return site;
    }
    return std::nullopt;
}

std::optional<ByteSearch::Site> ByteSearch::next()
{
    while (true) {
        if (auto site = nextOfLine()) return site;
        if (at_ == bytes_.size()) return std::nullopt;
        readLine(at_, lineEndFrom(at_));
    }
}

} // namespace vandrel
