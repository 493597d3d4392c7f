#include "search/letter_pattern.h"

#include "platform/text/simd_bytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <type_traits>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::string_view::npos;

template <typename Unit> using View = std::basic_string_view<Unit>;
template <typename Unit> using Vector = std::conditional_t<sizeof(Unit) == 1, ByteVector, UnitVector>;
template <typename Unit> constexpr std::size_t inVector = 16 / sizeof(Unit);

// The first unit for which a comparison holds; as many as there are in a vector if there is none.
std::size_t firstOf(UnitVector found) { return found.first(); }
std::size_t firstOf(ByteVector found)
{
    const std::uint32_t mask = found.mask();
    return mask == 0 ? bytesInVector : static_cast<std::size_t>(std::countr_zero(mask));
}

// Up to `Count` units, each in a vector of its own; what is over repeats the first.
template <typename Unit, std::size_t Count> class UnitSet {
  public:
    explicit UnitSet(View<Unit> units) : UnitSet(units, std::make_index_sequence<Count>{}) {}
    Vector<Unit> in(Vector<Unit> text) const
    {
        Vector<Unit> found = text.equal(units_[0]);
        for (std::size_t i = 1; i < Count; ++i) found = found | text.equal(units_[i]);
        return found;
    }

  private:
    template <std::size_t... Indices>
    UnitSet(View<Unit> units, std::index_sequence<Indices...>)
        : units_{Vector<Unit>::all(units[Indices < units.size() ? Indices : 0])...}
    {}

    std::array<Vector<Unit>, Count> units_;
};

// For a few units a loop is faster than the library's search.
template <typename Unit> bool contains(View<Unit> units, Unit unit)
{
    return std::any_of(units.begin(), units.end(), [unit](Unit other) { return other == unit; });
}

// The first place at or behind `from` that has a unit of `first`, and one of `last` `distance` units on.
template <std::size_t Count, typename Unit>
std::size_t findPair(View<Unit> text, std::size_t from, View<Unit> first, View<Unit> last,
                     std::size_t distance)
{
    if (text.size() <= distance) return npos;
    const std::size_t end = text.size() - distance; // of the places to look at
    const UnitSet<Unit, Count> firstSet(first);
    const UnitSet<Unit, Count> lastSet(last);
    const auto firstFrom = [&](std::size_t at) {
        return firstOf(firstSet.in(Vector<Unit>::load(text.data() + at)) &
                       lastSet.in(Vector<Unit>::load(text.data() + at + distance)));
    };
    std::size_t at = from;
    for (; at + inVector<Unit> <= end; at += inVector<Unit>) {
        if (const std::size_t unit = firstFrom(at); unit < inVector<Unit>) [[unlikely]]
            return at + unit;
    }
    // The last places once more with some before them, where these are not before `from`.
    if (at < end && end >= from + inVector<Unit>) {
        const std::size_t unit = firstFrom(end - inVector<Unit>);
        return unit < inVector<Unit> ? end - inVector<Unit> + unit : npos;
    }
    for (; at < end; ++at) {
        if (contains(first, text[at]) && contains(last, text[at + distance])) return at;
    }
    return npos;
}

constexpr std::size_t mostUnits = 8; // that the fast search knows for one letter

template <typename Unit>
std::size_t findPairOf(View<Unit> text, std::size_t from, View<Unit> first, View<Unit> last,
                       std::size_t distance)
{
    if (first.empty() || last.empty()) return npos;
    const std::size_t count = std::max(first.size(), last.size());
    if (count == 1) return findPair<1>(text, from, first, last, distance);
    if (count == 2) return findPair<2>(text, from, first, last, distance);
    if (count <= mostUnits) return findPair<mostUnits>(text, from, first, last, distance);
    return from < text.size() ? from : npos;
}

} // namespace

template <typename Unit>
LetterPattern<Unit>::LetterPattern(std::size_t length, Letters first, Letters last, Letters expansions)
    : length_(length), first_(std::move(first)), last_(std::move(last)), expansions_(std::move(expansions))
{}

template <typename Unit> std::size_t LetterPattern<Unit>::candidate(Text text, std::size_t from) const
{
    const std::size_t pair = findPairOf<Unit>(text, from, first_, last_, length_ - 1);
    if (expansions_.empty()) return pair;
    return std::min(pair, findPairOf<Unit>(text.substr(0, pair), from, expansions_, expansions_, 0));
}

template <typename Unit> bool LetterPattern<Unit>::hasExpansion(Text text) const
{
    return findPairOf<Unit>(text, 0, expansions_, expansions_, 0) != npos;
}

template class LetterPattern<char>;
template class LetterPattern<wchar_t>;

} // namespace vandrel
