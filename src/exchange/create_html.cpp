#include "exchange/create_html.h"

#include "exchange/html_page.h"
#include "model/site_columns.h"
#include "model/site_record.h"
#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/window_text.h"
#include "platform/files/file_layer.h"
#include "platform/system/shell.h"
#include "platform/text/ansi_text.h"
#include "platform/windows/file_dialog.h"
#include "platform/windows/message_loop.h"
#include "platform/windows/message_throttle.h"
#include "shared/vendor.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"
#include "store/category_selection.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <span>
#include <vector>

namespace vandrel {
namespace {

// In milliseconds. Showing a category takes longer than adding some to the page, and of a page that is done
// in a moment nobody sees one.
constexpr ULONGLONG firstTurn = 300;

// The bytes of the page; a category is encoded as soon as it is complete. They are in parts: one text would
// be copied again and again as it grows, and copying into new memory takes longer than making the rows.
class PageBytes {
  public:
    explicit PageBytes(const OptionsState& options) : page_(options) {}

    HtmlPage& page() { return page_; }
    // Adds a site whose texts are in the code page already.
    void addSite(const BasicSiteRecord<char>& site)
    {
        if (!page_.text().empty()) encode();
        std::string& row = room(site.name.size() + 2 * site.url.size() + site.description.size() +
                                siteRowMarkup);
        appendSiteRow(row, site.name, site.url, site.description);
    }
    void encode()
    {
        encodeAnsi(page_.text(), room(page_.text().size()));
        page_.clear();
    }
    void end()
    {
        page_.end(makersSite);
        encode();
        room(2) += "\r\n"; // all of it is one record
    }
    bool writeTo(const WritePart& write) const { return std::ranges::all_of(parts_, write); }

  private:
    // The end of the bytes, where so many can be added without moving the others.
    std::string& room(std::size_t bytes)
    {
        constexpr std::size_t partBytes = 1U << 20;
        if (parts_.empty() || parts_.back().capacity() - parts_.back().size() < bytes)
            parts_.emplace_back().reserve(std::max(bytes, partBytes));
        return parts_.back();
    }

    HtmlPage page_;
    std::vector<std::string> parts_;
};

void addSites(std::span<const RowTable::Row> sites, HtmlPage& page)
{
    for (const RowTable::Row& site : sites) {
        page.addSite(site.texts[nameColumn], site.texts[urlColumn], site.texts[descriptionColumn]);
    }
}

void addShownSites(const Workspace& workspace, HtmlPage& page)
{
    if (workspace.shown.unreadable()) throw RuntimeError(error_number::permissionDenied);
    addSites(workspace.shown.sites.all(), page);
}

// A page that silently lacked a category might be published.
template <typename Read> auto readWholly(Read read)
{
    try {
        return read();
    } catch (const RuntimeError&) {
        throw RuntimeError(error_number::permissionDenied);
    }
}

// Whether every byte of a file comes back as it was when it is decoded and encoded.
bool ansiBytesStay()
{
    const CodePageLetters* const letters = ansiLetters();
    if (letters == nullptr) return false;
    std::string bytes(letters->size(), '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    std::string again;
    encodeAnsi({letters->data(), letters->size()}, again);
    return again == bytes;
}

// The page and the file are in the same code page, so where it is one of single bytes nothing is decoded.
class CategoryBytes {
  public:
    void add(const Workspace& workspace, const std::wstring& title, PageBytes& page)
    {
        const auto bytes = readWholly([&] { return categoryBytes(workspace.dataFolder, title, file_); });
        BasicSiteRecordReader<char> sites(bytes.value_or(std::string_view()));
        auto site = sites.next();
        if (workspace.options.generateEmpty || site) page.page().addTitle(title);
        for (; site; site = sites.next()) page.addSite(*site);
    }

  private:
    FileBytes file_;
};

void addDecoded(const Workspace& workspace, const std::wstring& title, PageBytes& page)
{
    const Category read = readWholly([&] { return readCategory(workspace.dataFolder, title); });
    if (workspace.options.generateEmpty || !read.sites.empty()) page.page().addTitle(title);
    addSites(read.sites.all(), page.page());
}

// The window follows now and then, for the user to see the progress.
void addCategories(Workspace& workspace, PageBytes& bytes)
{
    MessageThrottle throttle(MessageThrottle::usualMilliseconds, firstTurn);
    const bool asBytes = ansiBytesStay();
    CategoryBytes file;
    for (std::size_t category = 0; category < workspace.categories.size(); ++category) {
        workspace.PB.setValue(category + 1);
        const std::wstring title = titleOf(workspace, category);
        if (asBytes) file.add(workspace, title, bytes);
        else addDecoded(workspace, title, bytes);
        bytes.encode();
        if (!throttle.due()) continue;
        throttle.take([&] {
            showCategory(workspace, category);
            MessageLoop::current().paintPending();
        });
    }
}

// Restores the window, whether or not the page was made.
void showAgain(Workspace& workspace, std::optional<std::size_t> category, const std::wstring& caption)
{
    if (category) {
        selectCategory(workspace, *category);
    } else {
        showNoCategory(workspace);
        SetWindowTextW(workspace.window, caption.c_str());
    }
}

void addEveryCategory(Workspace& workspace, PageBytes& bytes)
{
    if (!leaveSites(workspace)) throw RuntimeError(error_number::permissionDenied);
    const auto before = shownRow(workspace);
    const std::wstring caption = windowText(workspace.window);
    try {
        addCategories(workspace, bytes);
    } catch (...) {
        showAgain(workspace, before, caption);
        throw;
    }
    showAgain(workspace, before, caption);
}

void writePage(Workspace& workspace, bool AllCat, const std::wstring& path)
{
    // Contract: the maximum is the number of categories even for one; the bar then stands still.
    workspace.PB.begin(workspace.categories.size());
    PageBytes bytes(workspace.options);
    // Contract: a single category gets no title row.
    if (!AllCat) addShownSites(workspace, bytes.page());
    else if (!workspace.categories.empty()) addEveryCategory(workspace, bytes);
    bytes.end();
    writeFile(path, [&](const WritePart& write) { return bytes.writeTo(write); });
    if (askYesNo(workspace.window, L"Output successful! Open file?", L"Success!", BoxIcon::question))
        shellOpen(workspace.window, path);
    workspace.PB.setVisible(false);
    workspace.StatusBar1.setPanelText(1, L"HTML Generated.");
}

void reportFailure(Workspace& workspace, const RuntimeError& error)
{
    tell(workspace.window, std::to_wstring(error.number()) + L" - " + error.description(), L"Error",
         BoxIcon::exclamation);
    workspace.PB.setVisible(false);
    workspace.StatusBar1.setPanelText(1, L"Generation failed.");
}

} // namespace

void CreateHTML(Workspace& workspace, bool AllCat)
{
    try {
        FileDialog CD1;
        CD1.title = L"Output an HTML file...";
        CD1.filter = L"HTML Files (*.htm)|*.htm";
        CD1.showSave(workspace.window);
        if (!CD1.fileName.empty()) writePage(workspace, AllCat, CD1.fileName);
    } catch (const RuntimeError& error) {
        reportFailure(workspace, error);
    } catch (const std::bad_alloc&) {
        reportFailure(workspace, RuntimeError(error_number::outOfMemory));
    }
}

} // namespace vandrel
