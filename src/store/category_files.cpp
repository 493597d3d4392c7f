#include "store/category_files.h"

#include "platform/ansi_text_file.h"
#include "platform/ansi_text_writer.h"
#include "platform/file_layer.h"
#include "platform/folder.h"
#include "platform/list_view.h"
#include "platform/message_box.h"
#include "platform/program.h"
#include "platform/runtime_error.h"
#include "platform/status_bar.h"
#include "shared/workspace.h"
#include "store/category_operations.h"
#include "store/category_title.h"
#include "store/site_lines.h"
#include "store/site_record.h"

namespace vandrel {
namespace {

// An estimate that saves growing the rows over and over; a wrong one costs nothing else.
constexpr std::size_t charactersOfASite = 100;

std::vector<ListRows::Row> rowsOf(std::wstring_view text)
{
    std::vector<ListRows::Row> rows;
    rows.reserve(text.size() / charactersOfASite + 1);
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        rows.push_back({{site->name, site->url, site->description, site->date}, siteImage});
    }
    return rows;
}

bool isMissing(const RuntimeError& error)
{
    return error.number() == error_number::fileNotFound || error.number() == error_number::pathNotFound;
}

void readSites(Workspace& workspace, const std::wstring& title)
{
    workspace.unreadCategory.reset();
    workspace.lstInfo.clear();
    try {
        const AnsiTextFile file(categoryPath(workspace, title));
        const DecodedText text = file.read();
        workspace.lstInfo.fill(text.units, rowsOf(text));
    } catch (const RuntimeError& error) {
        if (!isMissing(error)) workspace.unreadCategory = title;
    }
}

void makeFirstCategory(Workspace& workspace)
{
    tell(workspace.window, L"There are no categories. Please make a category before adding a site.",
         L"No Categories", BoxIcon::information);
    AddCategory(workspace);
    if (workspace.lstCategory.empty()) return;
    // The only category there is: the sites in the list are meant for it.
    workspace.lstCategory.select(0);
    showSelectedCategory(workspace);
}

} // namespace

std::wstring categoryPath(const Workspace& workspace, const std::wstring& title)
{
    return categoryPath(workspace.dataFolder, title);
}

std::wstring categoryPath(const std::wstring& folder, const std::wstring& title)
{
    return folder + L"\\" + title + std::wstring(categoryExtension);
}

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
}

void lstCategory_ItemClick(Workspace& workspace, std::size_t item)
{
    readSites(workspace, workspace.lstCategory.text(item));
    showSelectedCategory(workspace);
    if (const auto site = workspace.lstInfo.currentRow()) showSiteInStatusBar(workspace, *site);
}

void selectCategory(Workspace& workspace, std::size_t item)
{
    workspace.lstCategory.select(item);
    workspace.lstCategory.ensureVisible(item);
    lstCategory_ItemClick(workspace, item);
}

void showSelectedCategory(Workspace& workspace)
{
    ListView& categories = workspace.lstCategory;
    const auto selected = categories.currentRow();
    for (std::size_t row = 0; row < categories.count(); ++row) {
        categories.setImage(row, row == selected ? openFolderImage : closedFolderImage);
    }
    if (selected)
        SetWindowTextW(workspace.window,
                       (std::wstring(programTitle) + L" - " + categories.text(*selected)).c_str());
}

void showSiteInStatusBar(Workspace& workspace, std::size_t row)
{
    workspace.StatusBar1.setPanelText(2, L"Name: " + workspace.lstInfo.text(row, 0) + L"  ");
    workspace.StatusBar1.setPanelText(3, L"URL: " + workspace.lstInfo.text(row, 1) + L"  ");
}

void SaveItems(Workspace& workspace) { SaveItems(workspace, systemFiles()); }

void SaveItems(Workspace& workspace, FileLayer& files)
{
    if (workspace.lstCategory.empty()) {
        makeFirstCategory(workspace);
        if (workspace.lstCategory.empty()) return; // none was made, and the user knows
    }
    const auto selected = workspace.lstCategory.currentRow();
    if (!selected) throw RuntimeError(error_number::objectNotSet);
    const std::wstring title = workspace.lstCategory.text(*selected);
    if (workspace.unreadCategory == title) throw RuntimeError(error_number::permissionDenied);
    const auto addLines = [&](AnsiTextWriter& file) {
        SiteLines lines(workspace.lstInfo.rows().all());
        std::wstring_view piece = lines.next();
        while (!piece.empty() && file.add(piece)) piece = lines.next();
    };
    AnsiTextFile(categoryPath(workspace, title)).write(addLines, files);
}

} // namespace vandrel
