#include "store/category_list.h"

#include "model/category_title.h"
#include "model/site_columns.h"
#include "model/unsaved_text.h"
#include "platform/base/program.h"
#include "platform/controls/list_view.h"
#include "platform/controls/status_bar.h"
#include "platform/files/folder.h"
#include "shared/workspace.h"
#include "store/category_file.h"

#include <exception>

namespace vandrel {
namespace {

void readSites(Workspace& workspace, std::size_t item, std::span<const RowTable::Row> behind)
{
    try {
        Category category = readCategory(workspace.dataFolder, titleOf(workspace, item));
        category.sites.addCopies(behind);
        workspace.shown.sites.take(std::move(category.sites));
        workspace.shown.reading = category.reading;
    } catch (const std::exception&) {
        // Contract: a category that cannot be read raises no error.
        // The list stays empty, or as it was, and is not saved over a file whose content nobody has seen.
    }
}

void showOpenCategory(Workspace& workspace, std::optional<std::size_t> open)
{
    RowTable& categories = workspace.categories;
    for (std::size_t row = 0; row < categories.size(); ++row) {
        categories.setImage(row, row == open ? openFolderImage : closedFolderImage);
    }
    // Contract: with no category shown, the caption keeps the last title.
    if (!open) return;
    const std::wstring caption = std::wstring(programTitle) + L" - " + titleOf(workspace, *open);
    SetWindowTextW(workspace.window, caption.c_str());
}

} // namespace

void listCategories(Workspace& workspace)
{
    auto titles = std::make_shared<std::wstring>();
    std::vector<std::size_t> lengths;
    for (const std::wstring& name : fileNamesIn(workspace.dataFolder)) {
        const auto title = titleOfFile(name);
        if (!title) continue;
        *titles += *title;
        lengths.push_back(title->size());
    }
    std::vector<RowTable::Row> rows;
    rows.reserve(lengths.size());
    std::size_t start = 0;
    for (const std::size_t length : lengths) {
        const std::wstring_view title = std::wstring_view(*titles).substr(start, length);
        rows.push_back({RowTexts::ofLine({title}), closedFolderImage});
        start += length;
    }
    workspace.categories.fill(titles, std::move(rows));
    workspace.categoriesListed = true;
}

std::wstring titleOf(const Workspace& workspace, std::size_t item)
{
    return std::wstring(workspace.categories.text(item, 0));
}

std::optional<std::size_t> shownRow(const Workspace& workspace)
{
    return workspace.categories.rowOf(workspace.shown.row);
}

void showCategory(Workspace& workspace, std::size_t item, std::span<const RowTable::Row> behind)
{
    ShownCategory& shown = workspace.shown;
    // What needs no memory comes first: whatever fails after it, the list is never taken for another
    // category's.
    shown.row = workspace.categories.id(item);
    shown.reading = Reading::unreadable;
    if (behind.empty()) {
        shown.sites.clear();
        markSites(workspace, Sites::saved);
    }
    if (workspace.lstCategory.currentRow() != item) workspace.lstCategory.select(item);
    readSites(workspace, item, behind);
    showOpenCategory(workspace, item);
    if (const auto site = workspace.lstInfo.currentRow()) showSiteInStatusBar(workspace, *site);
}

void showAsEmptyCategory(Workspace& workspace, std::size_t item)
{
    workspace.shown.row = workspace.categories.id(item);
    workspace.shown.reading = Reading::read;
    workspace.lstCategory.select(item);
    showOpenCategory(workspace, item);
}

void showNoCategory(Workspace& workspace)
{
    markSites(workspace, Sites::saved);
    workspace.shown.row = 0;
    workspace.shown.reading = Reading::missing;
    workspace.shown.sites.clear();
    workspace.lstCategory.clearSelection();
    showOpenCategory(workspace, std::nullopt);
}

void markSites(Workspace& workspace, Sites sites)
{
    ShownCategory& shown = workspace.shown;
    shown.unsaved = sites == Sites::unsaved;
    if (shown.unsaved) workspace.StatusBar1.setPanelText(1, notSavedText(shown.sites.size()));
    else if (shown.marked) workspace.StatusBar1.setPanelText(1, {});
    shown.marked = shown.unsaved;
}

void showSiteInStatusBar(Workspace& workspace, std::size_t row)
{
    const auto& texts = workspace.shown.sites[row].texts;
    workspace.shown.named = workspace.shown.sites.id(row);
    workspace.StatusBar1.setPanelText(2, L"Name: " + std::wstring(texts[nameColumn]) + L"  ");
    workspace.StatusBar1.setPanelText(3, L"URL: " + std::wstring(texts[urlColumn]) + L"  ");
}

} // namespace vandrel
