#include "search/match.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

bool contains(std::wstring_view units, wchar_t unit) { return units.find(unit) != npos; }

// A letter of Latin-1 has its number as its byte.
wchar_t unitOf(wchar_t unit) { return unit; }
wchar_t unitOf(char letter) { return static_cast<unsigned char>(letter); }

// Those of the units that are in Latin-1.
std::string latinOf(std::wstring_view units)
{
    std::string letters;
    for (const wchar_t unit : units) {
        if (CompactText(std::wstring_view(&unit, 1)).fitsLatin()) letters += static_cast<char>(unit);
    }
    return letters;
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
    makePatterns();
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
    makePatterns();
}

void Matcher::makePatterns()
{
    wide_ = {term_.size(), first_, last_, expansions_};
    latin_ = {term_.size(), latinOf(first_), latinOf(last_), latinOf(expansions_)};
}

std::size_t Matcher::candidate(std::wstring_view text, std::size_t from) const
{
    return term_.empty() ? from : wide_.candidate(text, from);
}

bool Matcher::isLetterAt(std::size_t place, wchar_t unit) const
{
    return (folding_ == nullptr ? unit : (*folding_)(unit)) == term_[place];
}

template <typename Unit> bool Matcher::occursAt(std::basic_string_view<Unit> text, std::size_t place) const
{
    const std::wstring_view term = term_;
    std::size_t matched = 0;
    while (matched < term.size() && place < text.size()) {
        const wchar_t unit = unitOf(text[place++]);
        if (isLetterAt(matched, unit)) {
            ++matched;
            continue;
        }
        const auto* const expansion = contains(expansions_, unit) ? folding_->expansionOf(unit) : nullptr;
        if (expansion == nullptr || !term.substr(matched).starts_with(expansion->text)) return false;
        matched += expansion->text.size();
    }
    return matched == term.size();
}

bool Matcher::occursIn(const CompactText& text) const
{
    return text.isLatin() ? occursIn(text.latin(), latin_) : occursIn(text.wide(), wide_);
}

template <typename Unit>
bool Matcher::occursIn(std::basic_string_view<Unit> text, const LetterPattern<Unit>& pattern) const
{
    if (term_.empty()) return true;
    std::size_t place = pattern.candidate(text, 0);
    if (place == npos) return false;
    if (!pattern.hasExpansion(text)) {
        while (place != npos && !occursAt(text, place)) place = pattern.candidate(text, place + 1);
        return place != npos;
    }
    // An expansion may be inside an occurrence that begins before it.
    for (place = 0; place < text.size(); ++place) {
        if (occursAt(text, place)) return true;
    }
    return false;
}

} // namespace vandrel
