#include "search/site_match.h"

#include "model/site_columns.h"

#include <algorithm>
#include <functional>

namespace vandrel {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

bool isWithin(std::wstring_view text, std::wstring_view block)
{
    // The built-in comparison of pointers into different blocks has no defined result; this one orders them
    // all.
    constexpr std::less_equal<> notBehind;
    return notBehind(block.data(), text.data()) &&
           notBehind(text.data() + text.size(), block.data() + block.size());
}

} // namespace

SiteMatcher::SiteMatcher(std::wstring_view term, SearchMode mode, SearchSection section,
                         const CaseFolding& folding)
    : section_(section),
      chosen_(mode == SearchMode::text ? Matcher(term, folding) : Matcher(term)),
      binary_(term)
{}

bool SiteMatcher::matches(const SiteTexts& site) const
{
    switch (section_) {
    case SearchSection::all:
        // Contract: only the name follows the mode; URL and description are always case-sensitive.
        return chosen_.occursIn(site[nameColumn]) || binary_.occursIn(site[urlColumn]) ||
               binary_.occursIn(site[descriptionColumn]);
    case SearchSection::name: return chosen_.occursIn(site[nameColumn]);
    case SearchSection::url: return chosen_.occursIn(site[urlColumn]);
    case SearchSection::description: return chosen_.occursIn(site[descriptionColumn]);
    }
    return false;
}

void SiteSequence::setBlock(std::wstring_view block)
{
    block_ = block;
    candidate_.reset();
}

bool SiteSequence::matches(const SiteTexts& site)
{
    std::size_t begin = npos;
    std::size_t end = 0;
    for (const CompactText& field : site) {
        if (field.empty()) continue;
        if (field.isLatin() || !isWithin(field.wide(), block_)) return matcher_.matches(site);
        const auto start = static_cast<std::size_t>(field.wide().data() - block_.data());
        begin = std::min(begin, start);
        end = std::max(end, start + field.size());
    }
    if (begin == npos) return matcher_.matches(site);                       // a site of empty fields
    if (candidate_ && begin < searchedFrom_) return matcher_.matches(site); // out of order
    if (!candidate_ || *candidate_ < begin) {
        candidate_ = matcher_.widest().candidate(block_, begin);
        searchedFrom_ = begin;
    }
    return *candidate_ < end && matcher_.matches(site);
}

} // namespace vandrel
