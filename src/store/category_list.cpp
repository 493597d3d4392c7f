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

void readSites(Workspace& workspace, std::size_t item, std::span<const ListRows::Row> behind)
{
    try {
        const std::wstring title = workspace.lstCategory.text(item);
        CategorySites sites = readCategory(workspace.dataFolder, title, behind);
        workspace.lstInfo.fill(std::move(sites.texts), std::move(sites.rows));
        workspace.shown.unreadable = false;
    } catch (const std::exception&) {
        // The list stays empty, or as it was, and is not saved over what nobody has seen.
    }
}

// Folder pictures and the window's caption. While none is shown the caption stays.
void showOpenCategory(Workspace& workspace, std::optional<std::size_t> open)
{
    ListView& categories = workspace.lstCategory;
    for (std::size_t row = 0; row < categories.count(); ++row) {
        categories.setImage(row, row == open ? openFolderImage : closedFolderImage);
    }
    if (open)
        SetWindowTextW(workspace.window,
                       (std::wstring(programTitle) + L" - " + categories.text(*open)).c_str());
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
    std::vector<ListRows::Row> rows;
    rows.reserve(lengths.size());
    std::size_t start = 0;
    for (const std::size_t length : lengths) {
        rows.push_back({{std::wstring_view(*titles).substr(start, length)}, closedFolderImage});
        start += length;
    }
    workspace.lstCategory.fill(titles, std::move(rows));
    workspace.categoriesListed = true;
}

std::optional<std::size_t> shownRow(const Workspace& workspace)
{
    return workspace.lstCategory.rowOf(workspace.shown.row);
}

void showCategory(Workspace& workspace, std::size_t item, std::span<const ListRows::Row> behind)
{
    ListView& categories = workspace.lstCategory;
    // First what needs no memory: whatever fails then, the list is never taken for another category's.
    workspace.shown.row = categories.id(item);
    workspace.shown.unreadable = true;
    if (behind.empty()) {
        workspace.lstInfo.clear();
        markSites(workspace, Sites::saved);
    }
    if (categories.currentRow() != item) categories.select(item);
    readSites(workspace, item, behind);
    showOpenCategory(workspace, item);
    if (const auto site = workspace.lstInfo.currentRow()) showSiteInStatusBar(workspace, *site);
}

void showAsEmptyCategory(Workspace& workspace, std::size_t item)
{
    workspace.shown.row = workspace.lstCategory.id(item);
    workspace.shown.unreadable = false;
    workspace.lstCategory.select(item);
    showOpenCategory(workspace, item);
}

void showNoCategory(Workspace& workspace)
{
    markSites(workspace, Sites::saved);
    workspace.shown = {};
    workspace.lstInfo.clear();
    workspace.lstCategory.clearSelection();
    showOpenCategory(workspace, std::nullopt);
}

void markSites(Workspace& workspace, Sites sites)
{
    ShownCategory& shown = workspace.shown;
    shown.unsaved = sites == Sites::unsaved;
    if (shown.unsaved) workspace.StatusBar1.setPanelText(1, notSavedText(workspace.lstInfo.count()));
    else if (shown.marked) workspace.StatusBar1.setPanelText(1, {});
    shown.marked = shown.unsaved;
}

void showSiteInStatusBar(Workspace& workspace, std::size_t row)
{
    workspace.StatusBar1.setPanelText(2, L"Name: " + workspace.lstInfo.text(row, nameColumn) + L"  ");
    workspace.StatusBar1.setPanelText(3, L"URL: " + workspace.lstInfo.text(row, urlColumn) + L"  ");
}

} // namespace vandrel
