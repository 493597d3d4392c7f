#include "search/hit_list.h"

#include "model/site_columns.h"

#include <utility>

namespace vandrel {
namespace {

struct OwnedTexts {
    std::shared_ptr<const void> sites;
    std::wstring text;
};

RowTable::Row resultRow(std::wstring_view name, std::wstring_view url, std::wstring_view category,
                        std::wstring_view description)
{
    return {{name, url, category, description}};
}

} // namespace

HitList::HitList(std::wstring category, std::shared_ptr<const void> sites, std::size_t size)
    : category_(std::move(category)), sites_(std::move(sites)), size_(size)
{}

void HitList::add(const RowTable::Row& site)
{
    rows_.push_back(site);
    for (const SiteColumn column : {nameColumn, urlColumn, descriptionColumn})
        units_ += site.texts[column].size();
}

std::shared_ptr<const void> HitList::copyTexts()
{
    auto owned = std::make_shared<OwnedTexts>();
    std::wstring& text = owned->text;
    text.reserve(category_.size() + units_); // the views stay valid only if it never moves
    text = category_;
    const auto copy = [&text](std::wstring_view part) {
        const std::size_t start = text.size();
        text += part;
        return std::wstring_view(text).substr(start);
    };
    for (RowTable::Row& row : rows_) {
        const std::wstring_view name = copy(row.texts[nameColumn]);
        const std::wstring_view url = copy(row.texts[urlColumn]);
        const std::wstring_view description = copy(row.texts[descriptionColumn]);
        row = resultRow(name, url, std::wstring_view(text).substr(0, category_.size()), description);
    }
    return owned;
}

std::shared_ptr<const void> HitList::shareTexts()
{
    auto owned = std::make_shared<OwnedTexts>();
    owned->sites = sites_;
    owned->text = category_;
    for (RowTable::Row& row : rows_) {
        row = resultRow(row.texts[nameColumn], row.texts[urlColumn], owned->text,
                        row.texts[descriptionColumn]);
    }
    return owned;
}

RowTable::Block HitList::take()
{
    RowTable::Block block;
    block.texts = units_ > size_ / 4 ? shareTexts() : copyTexts();
    block.rows = std::exchange(rows_, {});
    units_ = 0;
    return block;
}

} // namespace vandrel
