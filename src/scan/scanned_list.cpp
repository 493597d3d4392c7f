#include "scan/scanned_list.h"

#include "model/site_columns.h"
#include "platform/controls/list_view.h"
#include "shared/workspace.h"

#include <functional>
#include <string_view>

namespace vandrel {
namespace {

std::size_t hashOf(std::wstring_view text) { return std::hash<std::wstring_view>()(text); }

} // namespace

ScannedList::ScannedList(const Workspace& workspace, Which which)
    : workspace_(workspace),
      selectedOnly_(which == Which::selected),
      category_(workspace.shown.row),
      filling_(workspace.shown.sites.fillings())
{
    takeDown(which);
    index();
}

// One text for all of them: three strings for each site would take several times the memory.
void ScannedList::takeDown(Which which)
{
    const auto rows = workspace_.shown.sites.all();
    std::size_t length = 0;
    for (const RowTable::Row& row : rows) {
        for (const std::size_t column : {nameColumn, urlColumn, descriptionColumn})
            length += row.texts[column].size();
    }
    texts_.reserve(length);
    sites_.reserve(rows.size());
    for (std::size_t number = 0; number < rows.size(); ++number) {
        Site site{rows[number].id, which == Which::all || workspace_.lstInfo.isSelected(number), {}};
        for (const std::size_t column : {nameColumn, urlColumn, descriptionColumn}) {
            const CompactText text = rows[number].texts[column];
            texts_ += text;
            site.texts[column] = std::wstring_view(texts_).substr(texts_.size() - text.size());
        }
        sites_.push_back(site);
    }
}

// ---- the list as it is now

bool ScannedList::isReadAgain() const { return workspace_.shown.sites.fillings() != filling_; }

void ScannedList::index()
{
    const RowTable& list = workspace_.shown.sites;
    rowsById_.clear();
    rowsByUrl_.clear();
    const bool readAgain = isReadAgain();
    std::size_t number = 0;
    std::wstring memory;
    for (const RowTable::Row& row : list.all()) {
        if (readAgain) rowsByUrl_.emplace(hashOf(row.texts[urlColumn].wideIn(memory)), number);
        rowsById_[row.id] = number++;
    }
    changes_ = list.changes(); // now, because memory may run out before
}

std::optional<std::size_t> ScannedList::rowOf(RowTable::Id id)
{
    if (workspace_.shown.sites.changes() != changes_) index();
    const auto found = rowsById_.find(id);
    return found == rowsById_.end() ? std::nullopt : std::optional(found->second);
}

ScannedTexts ScannedList::textsAt(std::size_t row) const
{
    const auto& texts = workspace_.shown.sites[row].texts;
    return {std::wstring(texts[nameColumn]), std::wstring(texts[urlColumn]),
            std::wstring(texts[descriptionColumn])};
}

// None while another category is shown, whatever its sites are called.
std::vector<std::size_t> ScannedList::rowsOf(const ScannedTexts& texts)
{
    if (!isReadAgain() || workspace_.shown.row != category_) return {};
    if (workspace_.shown.sites.changes() != changes_) index();
    std::vector<std::size_t> rows;
    const auto [first, last] = rowsByUrl_.equal_range(hashOf(texts.url));
    for (auto found = first; found != last; ++found)
        if (textsAt(found->second) == texts) rows.push_back(found->second);
    return rows;
}

// ---- one site

bool ScannedList::isWanted(const Site& site, std::optional<std::size_t> row) const
{
    return !selectedOnly_ || (row ? workspace_.lstInfo.isSelected(*row) : site.selected);
}

std::optional<std::wstring> ScannedList::addressToCome(std::size_t number)
{
    const Site& site = sites_[number];
    const auto row = rowOf(site.id);
    if (!isWanted(site, row)) return std::nullopt;
    return std::wstring(row ? workspace_.shown.sites[*row].texts[urlColumn] : site.texts[urlColumn]);
}

std::optional<ScannedSite> ScannedList::next(std::size_t number)
{
    const Site& site = sites_[number];
    const auto row = rowOf(site.id);
    if (!isWanted(site, row)) return std::nullopt;
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
        workspace_.shown.sites.setImage(*row, image);
        return;
    }
    for (const std::size_t row : rowsOf(site.texts)) workspace_.shown.sites.setImage(row, image);
}

void ScannedList::setImageOfCurrent(const ScannedSite& site, int image)
{
    RowTable& list = workspace_.shown.sites;
    if (!rowOf(site.id) && rowsOf(site.texts).empty()) return;
    if (const auto current = workspace_.lstInfo.currentRow()) {
        list.setImage(*current, image);
    } else if (current_ && isReadAgain()) {
        for (const std::size_t row : rowsOf(*current_)) list.setImage(row, image);
    }
}

} // namespace vandrel
