#include "search/match.h"

#include "platform/text/simd.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

// Up to `Count` units, each in a vector of its own; unused vectors repeat the first unit.
template <std::size_t Count> class UnitSet {
  public:
    explicit UnitSet(std::wstring_view units) : UnitSet(units, std::make_index_sequence<Count>{}) {}
    UnitVector in(UnitVector text) const
    {
        UnitVector mask = text.equal(units_[0]);
        for (std::size_t i = 1; i < Count; ++i) mask = mask | text.equal(units_[i]);
        return mask;
    }

  private:
    template <std::size_t... Indices>
    UnitSet(std::wstring_view units, std::index_sequence<Indices...>)
        : units_{UnitVector::all(units[Indices < units.size() ? Indices : 0])...}
    {}

    std::array<UnitVector, Count> units_;
};

bool contains(std::wstring_view units, wchar_t unit) { return units.find(unit) != npos; }

// The first position at or after `from` with a unit of `first` there and one of `last` `distance` units on.
template <std::size_t Count>
std::size_t findPair(std::wstring_view text, std::size_t from, std::wstring_view first,
                     std::wstring_view last, std::size_t distance)
{
    if (text.size() <= distance) return npos;
    const std::size_t end = text.size() - distance; // of the positions to try
    const UnitSet<Count> firstSet(first);
    const UnitSet<Count> lastSet(last);
    std::size_t at = from;
    for (; at + unitsInVector <= end; at += unitsInVector) {
        const UnitVector found = firstSet.in(UnitVector::load(text.data() + at)) &
                                 lastSet.in(UnitVector::load(text.data() + at + distance));
        if (const std::size_t unit = found.first(); unit < unitsInVector) [[unlikely]]
            return at + unit;
    }
    for (; at < end; ++at) {
        if (contains(first, text[at]) && contains(last, text[at + distance])) return at;
    }
    return npos;
}

constexpr std::size_t mostUnits = 8; // that the fast search can handle for one letter

std::size_t findPairOf(std::wstring_view text, std::size_t from, std::wstring_view first,
                       std::wstring_view last, std::size_t distance)
{
    const std::size_t count = std::max(first.size(), last.size());
    if (count == 1) return findPair<1>(text, from, first, last, distance);
    if (count == 2) return findPair<2>(text, from, first, last, distance);
    if (count <= mostUnits) return findPair<mostUnits>(text, from, first, last, distance);
    return from < text.size() ? from : npos;
}

std::wstring unitsOf(wchar_t folded, const CaseFolding& folding)
{
    std::wstring units(1, folded);
    for (std::size_t unit = 0; unit < folding.units.size(); ++unit) {
        const auto other = static_cast<wchar_t>(unit);
        if (folding.units[unit] == folded && other != folded) units += other;
    }
    return units;
}

} // namespace

const CaseFolding::Expansion* CaseFolding::expansionOf(wchar_t unit) const
{
    const auto found = std::ranges::find(expansions, unit, &Expansion::unit);
    return found == expansions.end() ? nullptr : &*found;
}

std::wstring CaseFolding::fold(std::wstring_view text) const
{
    std::wstring folded;
    folded.reserve(text.size());
    for (const wchar_t unit : text) {
        if (const Expansion* const expansion = expansionOf(unit)) {
            folded += expansion->text;
        } else {
            folded += (*this)(unit);
        }
    }
    return folded;
}

Matcher::Matcher(std::wstring_view term) : term_(term)
{
    if (term_.empty()) return;
    first_ = term_.front();
    last_ = term_.back();
}

Matcher::Matcher(std::wstring_view term, const CaseFolding& folding)
    : folding_(&folding), term_(folding.fold(term))
{
    if (term_.empty()) return;
    first_ = unitsOf(term_.front(), folding);
    last_ = unitsOf(term_.back(), folding);
    for (const CaseFolding::Expansion& expansion : folding.expansions) {
        if (term_.find(expansion.text) != npos) expansions_ += expansion.unit;
    }
}

std::size_t Matcher::candidate(std::wstring_view text, std::size_t from) const
{
    if (term_.empty()) return from;
    const std::size_t pair = findPairOf(text, from, first_, last_, term_.size() - 1);
    if (expansions_.empty()) return pair;
    return std::min(pair, findPairOf(text.substr(0, pair), from, expansions_, expansions_, 0));
}

bool Matcher::occursAt(std::wstring_view text, std::size_t place) const
{
    const std::wstring_view term = term_;
    if (folding_ == nullptr) return text.substr(place, term.size()) == term;
    std::size_t matched = 0;
    while (matched < term.size() && place < text.size()) {
        const wchar_t unit = text[place++];
        if ((*folding_)(unit) == term[matched]) {
            ++matched;
            continue;
        }
        const auto* const expansion = contains(expansions_, unit) ? folding_->expansionOf(unit) : nullptr;
        if (expansion == nullptr || !term.substr(matched).starts_with(expansion->text)) return false;
        matched += expansion->text.size();
    }
    return matched == term.size();
}

bool Matcher::occursIn(std::wstring_view text) const
{
    if (term_.empty()) return true;
    std::size_t place = candidate(text, 0);
    if (expansions_.empty()) {
        while (place != npos && !occursAt(text, place)) place = candidate(text, place + 1);
        return place != npos;
    }
    if (place == npos) return false;
    // An expansion may be inside an occurrence that begins before it.
    for (place = 0; place < text.size(); ++place) {
        if (occursAt(text, place)) return true;
    }
    return false;
}

} // namespace vandrel
