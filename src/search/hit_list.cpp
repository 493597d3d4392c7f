#include "search/hit_list.h"

#include "model/site_columns.h"

#include <utility>

namespace vandrel {

HitList::HitList() : texts_(std::make_shared<TextMemory>()) {}

void HitList::setCategory(std::wstring_view title) { category_ = RowTexts::written({title}, *texts_); }

void HitList::add(const SiteTexts& site)
{
    const RowTexts::Views texts{site[nameColumn], site[urlColumn], category_[0], site[descriptionColumn]};
    rows_.push_back({RowTexts::written(texts, *texts_)});
}

RowTable::Block HitList::take() { return {texts_, std::exchange(rows_, {})}; }

} // namespace vandrel
