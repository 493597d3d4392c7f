#include "search/hit_list.h"

#include "model/site_columns.h"

#include <algorithm>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t pieceUnits = 64U << 10;

} // namespace

HitList::HitList() : texts_(std::make_shared<Texts>()) {}

// Memory for that many units. It stays free until free_ moves past what was written.
wchar_t* HitList::room(std::size_t units)
{
    if (units > freeUnits_) {
        const std::size_t size = std::max(units, pieceUnits);
        free_ = texts_->pieces.emplace_back(std::make_unique_for_overwrite<wchar_t[]>(size)).get();
        freeUnits_ = size;
    }
    return free_;
}

std::wstring_view HitList::copy(std::wstring_view text)
{
    wchar_t* const begin = room(text.size());
    free_ = std::ranges::copy(text, begin).out;
    freeUnits_ -= text.size();
    return {begin, text.size()};
}

void HitList::setCategory(std::wstring_view title) { category_ = copy(title); }

void HitList::add(const SiteTexts& site)
{
    rows_.push_back(
        {{copy(site[nameColumn]), copy(site[urlColumn]), category_, copy(site[descriptionColumn])}});
}

SiteTexts HitList::decode(const ByteSearch::Site& site, const CodePageLetters& letters)
{
    wchar_t* end = room(site.name.size() + site.url.size() + site.description.size());
    const auto decoded = [&](std::string_view bytes) {
        wchar_t* const begin = std::exchange(end, end + bytes.size());
        decodeSingleBytes(bytes, begin, letters);
        return std::wstring_view(begin, bytes.size());
    };
    SiteTexts texts;
    texts[nameColumn] = decoded(site.name);
    texts[urlColumn] = decoded(site.url);
    texts[descriptionColumn] = decoded(site.description);
    return texts;
}

void HitList::addDecoded(const SiteTexts& site)
{
    rows_.push_back({{site[nameColumn], site[urlColumn], category_, site[descriptionColumn]}});
    const std::size_t units = site[nameColumn].size() + site[urlColumn].size() +
                              site[descriptionColumn].size();
    free_ += units;
    freeUnits_ -= units;
}

RowTable::Block HitList::take() { return {texts_, std::exchange(rows_, {})}; }

} // namespace vandrel
