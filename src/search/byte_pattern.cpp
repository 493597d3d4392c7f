#include "search/byte_pattern.h"

#include <algorithm>
#include <string>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::string_view::npos;

// So many letters of a term, from the first, are looked at.
constexpr std::size_t mostPlaces = 63;
constexpr std::uint64_t expansion = std::uint64_t{1} << mostPlaces;

std::string bytesOf(std::wstring_view units, const CodePageLetters& letters)
{
    std::string bytes;
    for (std::size_t byte = 0; byte < letters.size(); ++byte) {
        if (units.find(letters[byte]) != npos) bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

BytePattern::BytePattern(const Matcher& matcher, const CodePageLetters& letters)
    : length_(matcher.length()),
      pattern_(length_, bytesOf(matcher.firstUnits(), letters), bytesOf(matcher.lastUnits(), letters),
               bytesOf(matcher.expansionUnits(), letters))
{
    for (std::size_t byte = 0; byte < letters.size(); ++byte) {
        for (std::size_t place = 0; place < std::min(length_, mostPlaces); ++place) {
            if (matcher.isLetterAt(place, letters[byte])) places_[byte] |= std::uint64_t{1} << place;
        }
        if (matcher.expansionUnits().find(letters[byte]) != npos) places_[byte] |= expansion;
    }
}

// An occurrence with a letter that counts as several is found at that letter, so here all count as one.
bool BytePattern::mayOccurAt(std::string_view bytes, std::size_t place) const
{
    const auto placesOf = [&](std::size_t at) { return places_[static_cast<unsigned char>(bytes[at])]; };
    if ((placesOf(place) & expansion) != 0) return true;
    const std::size_t end = std::min({length_, mostPlaces, bytes.size() - place});
    for (std::size_t i = 0; i < end; ++i) {
        if ((placesOf(place + i) >> i & 1U) == 0) return false;
    }
    return true;
}

std::size_t BytePattern::candidate(std::string_view bytes, std::size_t from) const
{
    if (length_ == 0) return from < bytes.size() ? from : npos;
    std::size_t place = pattern_.candidate(bytes, from);
    while (place != npos && !mayOccurAt(bytes, place)) place = pattern_.candidate(bytes, place + 1);
    return place;
}

} // namespace vandrel
