#include "search/hit_list.h"

#include "model/site_columns.h"
#include "model/site_record.h"

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

void HitList::setCategory(std::wstring_view title) { category_ = title; }

void HitList::addLine(const RowTexts& line)
{
    rows_.push_back({line});
    const std::size_t units = RowTexts::lengthOf(line.views());
    free_ += units;
    freeUnits_ -= units;
}

void HitList::add(const SiteTexts& site)
{
    const RowTexts::Views texts{site[nameColumn], site[urlColumn], category_, site[descriptionColumn]};
    addLine(RowTexts::written(texts, room(RowTexts::lengthOf(texts))));
}

SiteTexts HitList::decode(const ByteSearch::Site& site, const CodePageLetters& letters)
{
    const std::size_t units = site.name.size() + site.url.size() + category_.size() + site.description.size();
    wchar_t* end = room(units + RowTexts::count - 1);
    const auto decoded = [&](std::string_view bytes) {
        decodeSingleBytes(bytes, end, letters);
        return std::wstring_view(std::exchange(end, end + bytes.size()), bytes.size());
    };
    const auto copied = [&](std::wstring_view text) {
        text.copy(end, text.size());
        return std::wstring_view(std::exchange(end, end + text.size()), text.size());
    };
    RowTexts::Views line;
    line[0] = decoded(site.name);
    *end++ = fieldSeparator;
    line[1] = decoded(site.url);
    *end++ = fieldSeparator;
    line[2] = copied(category_);
    *end++ = fieldSeparator;
    line[3] = decoded(site.description);
    decoded_ = RowTexts::ofLine(line);
    SiteTexts texts;
    texts[nameColumn] = line[0];
    texts[urlColumn] = line[1];
    texts[descriptionColumn] = line[3];
    return texts;
}

void HitList::addDecoded() { addLine(decoded_); }

RowTable::Block HitList::take() { return {texts_, std::exchange(rows_, {})}; }

} // namespace vandrel
