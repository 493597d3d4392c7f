#include "scan/scanned_list.h"

#include "model/site_columns.h"
#include "platform/controls/list_view.h"
#include "shared/workspace.h"

namespace vandrel {
ScannedList::ScannedList(const Workspace& workspace, Which which)
    : workspace_(workspace),
      selectedOnly_(which == Which::selected),
      category_(workspace.shown.row),
      block_(workspace.lstInfo.rows().block())
{
    takeDown(which);
    index();
}

// One text for all of them: four strings for each site would take several times the memory.
void ScannedList::takeDown(Which which)
{
    const ListView& list = workspace_.lstInfo;
    const auto rows = list.rows().all();
    std::size_t length = 0;
    for (const ListRows::Row& row : rows) {
        for (const std::size_t column : {nameColumn, urlColumn, descriptionColumn})
            length += row.texts[column].size();
    }
    texts_.reserve(length);
    sites_.reserve(rows.size());
    for (std::size_t number = 0; number < rows.size(); ++number) {
        Site site{rows[number].id, which == Which::all || list.isSelected(number), {}};
        for (const std::size_t column : {nameColumn, urlColumn, descriptionColumn}) {
            const std::wstring_view text = rows[number].texts[column];
            texts_ += text;
            site.texts[column] = std::wstring_view(texts_).substr(texts_.size() - text.size());
        }
        sites_.push_back(site);
    }
}

// ---- the list as it is by now

bool ScannedList::isReadAgain() const
{
    const auto block = workspace_.lstInfo.rows().block();
    return block_.owner_before(block) || block.owner_before(block_);
}

void ScannedList::index()
{
    const ListView& list = workspace_.lstInfo;
    changes_ = list.changes();
    rowsById_.clear();
    rowsByUrl_.clear();
    const bool readAgain = isReadAgain();
    std::size_t number = 0;
    for (const ListRows::Row& row : list.rows().all()) {
        if (readAgain) rowsByUrl_.emplace(row.texts[urlColumn], number);
        rowsById_[row.id] = number++;
    }
}

std::optional<std::size_t> ScannedList::rowOf(ListRows::Id id)
{
    if (workspace_.lstInfo.changes() != changes_) index();
    const auto found = rowsById_.find(id);
    return found == rowsById_.end() ? std::nullopt : std::optional(found->second);
}

ScannedTexts ScannedList::textsAt(std::size_t row) const
{
    const ListView& list = workspace_.lstInfo;
    return {list.text(row, nameColumn), list.text(row, urlColumn), list.text(row, descriptionColumn)};
}

// None in another category, whatever its sites are called.
std::vector<std::size_t> ScannedList::rowsOf(const ScannedTexts& texts)
{
    if (!isReadAgain() || workspace_.shown.row != category_) return {};
    if (workspace_.lstInfo.changes() != changes_) index();
    std::vector<std::size_t> rows;
    const auto [first, last] = rowsByUrl_.equal_range(texts.url);
    for (auto found = first; found != last; ++found)
        if (textsAt(found->second) == texts) rows.push_back(found->second);
    return rows;
}

// ---- one site

std::optional<ScannedSite> ScannedList::next(std::size_t number)
{
    const Site& site = sites_[number];
    const auto row = rowOf(site.id);
    if (selectedOnly_ && !(row ? workspace_.lstInfo.isSelected(*row) : site.selected)) return std::nullopt;
    if (!isReadAgain()) rememberCurrent();
    if (row) return ScannedSite{site.id, textsAt(*row)};
    return ScannedSite{site.id,
                       {std::wstring(site.texts[nameColumn]), std::wstring(site.texts[urlColumn]),
                        std::wstring(site.texts[descriptionColumn])}};
}

void ScannedList::rememberCurrent()
{
    if (const auto current = workspace_.lstInfo.currentRow()) current_ = textsAt(*current);
}

void ScannedList::setImage(const ScannedSite& site, int image)
{
    if (const auto row = rowOf(site.id)) {
        workspace_.lstInfo.setImage(*row, image);
        return;
    }
    for (const std::size_t row : rowsOf(site.texts)) workspace_.lstInfo.setImage(row, image);
}

void ScannedList::setImageOfCurrent(const ScannedSite& site, int image)
{
    ListView& list = workspace_.lstInfo;
    if (!rowOf(site.id) && rowsOf(site.texts).empty()) return;
    if (const auto current = list.currentRow()) {
        list.setImage(*current, image);
    } else if (current_ && isReadAgain()) {
        for (const std::size_t row : rowsOf(*current_)) list.setImage(row, image);
    }
}

} // namespace vandrel
