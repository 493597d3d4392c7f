#include "search/byte_pattern.h"

#include "platform/text/simd_bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::string_view::npos;

std::string bytesOf(std::wstring_view units, const CodePageLetters& letters)
{
    std::string bytes;
    for (std::size_t byte = 0; byte < letters.size(); ++byte) {
        if (units.find(letters[byte]) != npos) bytes += static_cast<char>(byte);
    }
    return bytes;
}

// Up to `Count` bytes, each in a vector of its own; what is over repeats the first.
template <std::size_t Count> class ByteSet {
  public:
    explicit ByteSet(std::string_view bytes) : ByteSet(bytes, std::make_index_sequence<Count>{}) {}
    ByteVector in(ByteVector text) const
    {
        ByteVector found = text.equal(bytes_[0]);
        for (std::size_t i = 1; i < Count; ++i) found = found | text.equal(bytes_[i]);
        return found;
    }

  private:
    template <std::size_t... Indices>
    ByteSet(std::string_view bytes, std::index_sequence<Indices...>)
        : bytes_{ByteVector::all(bytes[Indices < bytes.size() ? Indices : 0])...}
    {}

    std::array<ByteVector, Count> bytes_;
};

bool contains(std::string_view bytes, char byte) { return bytes.find(byte) != npos; }

// The first place at or behind `from` that has a byte of `first`, and one of `last` `distance` bytes on.
template <std::size_t Count>
std::size_t findPair(std::string_view text, std::size_t from, std::string_view first, std::string_view last,
                     std::size_t distance)
{
    if (text.size() <= distance) return npos;
    const std::size_t end = text.size() - distance; // of the places to look at
    const ByteSet<Count> firstSet(first);
    const ByteSet<Count> lastSet(last);
    std::size_t at = from;
    for (; at + bytesInVector <= end; at += bytesInVector) {
        const std::uint32_t found = (firstSet.in(ByteVector::load(text.data() + at)) &
                                     lastSet.in(ByteVector::load(text.data() + at + distance)))
                                        .mask();
        if (found != 0) [[unlikely]]
            return at + static_cast<std::size_t>(std::countr_zero(found));
    }
    for (; at < end; ++at) {
        if (contains(first, text[at]) && contains(last, text[at + distance])) return at;
    }
    return npos;
}

constexpr std::size_t mostBytes = 8; // that the fast search knows for one letter

std::size_t findPairOf(std::string_view text, std::size_t from, std::string_view first, std::string_view last,
                       std::size_t distance)
{
    if (first.empty() || last.empty()) return npos; // a letter that the code page lacks
    const std::size_t count = std::max(first.size(), last.size());
    if (count == 1) return findPair<1>(text, from, first, last, distance);
    if (count == 2) return findPair<2>(text, from, first, last, distance);
    if (count <= mostBytes) return findPair<mostBytes>(text, from, first, last, distance);
    return from < text.size() ? from : npos;
}

} // namespace

BytePattern::BytePattern(const Matcher& matcher, const CodePageLetters& letters)
    : length_(matcher.length()),
      first_(bytesOf(matcher.firstUnits(), letters)),
      last_(bytesOf(matcher.lastUnits(), letters)),
      expansions_(bytesOf(matcher.expansionUnits(), letters))
{}

std::size_t BytePattern::candidate(std::string_view bytes, std::size_t from) const
{
    if (length_ == 0) return from < bytes.size() ? from : npos;
    const std::size_t pair = findPairOf(bytes, from, first_, last_, length_ - 1);
    if (expansions_.empty()) return pair;
    return std::min(pair, findPairOf(bytes.substr(0, pair), from, expansions_, expansions_, 0));
}

} // namespace vandrel
