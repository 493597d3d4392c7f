#include "tests/program/support/day.h"
#include "tests/program/support/real_input.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

constexpr const wchar_t* scanned = L"Links to check";
constexpr int smallestWidth = 9135; // the window's, in twips
constexpr int deadImage = 4;        // the red X in the list's pictures

HWND resultsOf(HWND search) { return FindWindowExW(search, nullptr, WC_LISTVIEWW, nullptr); }

std::size_t countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
    return count;
}

// The copies can be written to even if the originals are read-only.
void copyInto(const fs::path& target, const fs::path& source, const std::wstring& extension)
{
    for (const auto& entry : fs::directory_iterator(source)) {
        if (_wcsicmp(entry.path().extension().c_str(), extension.c_str()) != 0) continue;
        const fs::path copy = target / entry.path().filename();
        fs::copy_file(entry.path(), copy);
        SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

} // namespace

// ---- an empty folder

void Day::startForTheFirstTime()
{
    start();
    EXPECT_EQ(program.caption(), L"Vandrel");
    EXPECT_EQ(program.titles(), Texts{});
    EXPECT_EQ(categoryFiles(), Texts{});
    EXPECT_NEAR(place()[2], smallestWidth * plan_.dpi / 1440.0, 1);
    picture("first-start");
}

void Day::makeCategories()
{
    program.addCategory(plan_.title);
    program.addCategory(plan_.otherTitle);
    EXPECT_SOON(program.titles(), (Texts{plan_.title, plan_.otherTitle}));
    EXPECT_SOON(titlesOnDisk().size(), 2U);
    picture("categories");
}

void Day::typeSite()
{
    program.openCategory(plan_.title);
    program.key(VK_F3);
    program.dialog(L"Add Site...");
    program.type(plan_.name);
    program.key(VK_TAB);
    program.retype(L"http://news.example/?a=1&b=2");
    program.key(VK_TAB);
    program.type(plan_.description);
    EXPECT_SOON(program.focusText(), plan_.description);
    picture("site-editor");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(plan_.title + L".udb"),
                ansi(plan_.name + L"|http://news.example/?a=1&b=2|" + plan_.description + L"|" + dated()) +
                    "\r\n");
}

void Day::dropLink()
{
    RECT area{};
    GetWindowRect(program.sites(), &area);
    const std::string before = folder.read(plan_.title + L".udb");
    {
        const DraggedLink link(L"http://dropped.example/~-~Dropped",
                               {area.right - 30, (area.top + area.bottom) / 2});
        program.dialog(L"Add Site...");
        EXPECT_SOON(link.answer(), std::string("returned copy"));
        EXPECT_EQ(program.focusText(), L"Dropped");
        picture("dropped-link");
        program.key(VK_RETURN);
        program.back();
    }
    EXPECT_SOON(folder.read(plan_.title + L".udb"),
                ansi(L"Dropped|http://dropped.example/||" + dated()) + "\r\n" + before);
    EXPECT_EQ(program.column(0), (Texts{L"Dropped", plan_.name}));
}

void Day::importShortcuts()
{
    if (const auto source = sharedFolder(L"shortcuts")) {
        copyInto(favorites.path(), *source, L".url");
    }
    favorites.write(L"One of my own.url", "[InternetShortcut]\r\nURL=http://own.example/\r\n");
    imported_ = favorites.names().size();
    program.openCategory(plan_.otherTitle);
    const HWND dialog = openImport();
    EXPECT_SOON(entries(files(dialog)).size(), imported_);
    picture("import");
    program.key('A', {VK_MENU});
    EXPECT_EQ(program.answerBox(L"Import All"),
              L"Please remember to edit the description for all imported files.");
    program.back();
    EXPECT_SOON(program.siteCount(), static_cast<int>(imported_));
    EXPECT_EQ(sitesIn(plan_.otherTitle), imported_);
    EXPECT_EQ(countOf(folder.read(plan_.otherTitle + L".udb"), "One of my own|http://own.example/||\r\n"),
              1U);
    EXPECT_SOON(program.panel(1), std::wstring(L"Import succeeded!"));
    picture("imported");
}

// ---- a large collection

void Day::bringCollection()
{
    copyInto(folder.path(), collection_, L".udb");
    std::string lines;
    const auto add = [&](const std::string& name, const std::wstring& address) {
        lines += name + "|" + ansi(address) + "||1/2/2003\r\n";
    };
    add("Answers", server_.address(L"/ok"));
    add("Refuses", server_.refusedAddress());
    add("Answers that it has no such page", server_.address(L"/missing"));
    add("Leads on", server_.address(L"/moved"));
    add("Refuses too", server_.refusedAddress(L"http", L"/too"));
    folder.write(std::wstring(scanned) + L".udb", lines);
}

void Day::startWithCollection()
{
    start();
    EXPECT_EQ(sortedTitles(), titlesOnDisk());
    EXPECT_EQ(program.caption(), L"Vandrel - " + program.titles().at(0));
    picture("second-start");
    program.openCategory(plan_.category);
    EXPECT_SOON(program.siteCount(), static_cast<int>(sitesIn(plan_.category)));
    picture("category");
}

void Day::searchCategoryAndOpen()
{
    const HWND sites = program.sites();
    RECT area{};
    GetWindowRect(program.searchBox(), &area);
    program.clickAt({area.left + 5, (area.top + area.bottom) / 2});
    EXPECT_SOON(program.focus(), program.searchBox());
    EXPECT_SOON(program.focusText(), std::wstring());
    program.type(plan_.quickTerm);
    program.key(VK_RETURN);
    EXPECT_SOON(program.panel(2), L"Name: " + plan_.quickName + L"  ");
    const auto rows = program.controls().selectedRows(sites);
    ASSERT_EQ(rows.size(), 1U);
    found_ = rows[0];
    EXPECT_EQ(program.controls().cell(sites, found_, 0), plan_.quickName);
    picture("quick-search");

    const std::string before = folder.read(plan_.category + L".udb");
    program.click(sites, found_);
    EXPECT_SOON(program.focus(), sites);
    program.key('O', {VK_CONTROL});
    EXPECT_SOON(browser_.opened(),
                (std::vector{BrowserStandIn::opening(program.controls().cell(sites, found_, 1))}));
    EXPECT_SOON(program.controls().cell(sites, found_, 3), dated());
    EXPECT_EQ(countOf(before, ansi(dated()) + "\r\n"), 0U);
    EXPECT_SOON(countOf(folder.read(plan_.category + L".udb"), "|" + ansi(dated()) + "\r\n"), 1U);
}

void Day::searchAllAndOpen()
{
    const std::size_t before = browser_.opened().size();
    program.key('F', {VK_CONTROL});
    const HWND dialog = program.dialog(L"Search All Categories");
    const HWND results = resultsOf(dialog);
    const HWND bar = FindWindowExW(dialog, nullptr, STATUSCLASSNAMEW, nullptr);
    program.type(plan_.term);
    program.key(VK_RETURN);
    EXPECT_SOON(program.controls().panelText(bar, 1), std::to_wstring(sitesInAll()) + L" site(s) searched");
    const Texts names = program.controls().column(results, 0);
    EXPECT_EQ(program.controls().panelText(bar, 0), std::to_wstring(names.size()) + L" site(s) found");
    ASSERT_NE(std::ranges::find(names, plan_.quickName), names.end());
    const auto row = static_cast<int>(std::ranges::find(names, plan_.quickName) - names.begin());
    EXPECT_EQ(program.controls().cell(results, row, 2), plan_.category);
    picture("search-all");

    program.click(results, row); // moves the mouse there
    EXPECT_SOON(program.controls().selectedRows(results), std::vector{row});
    POINT point = program.controls().rowPoint(results, row);
    point.x += 4 * GetSystemMetrics(SM_CXDOUBLECLK);
    input::doubleClick(point);
    EXPECT_SOON(browser_.opened().size(), before + 1);
    EXPECT_EQ(browser_.opened().back(), BrowserStandIn::opening(program.controls().cell(results, row, 1)));
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(program.caption(), L"Vandrel - " + plan_.category);
    EXPECT_EQ(program.siteCount(), static_cast<int>(sitesIn(plan_.category)));
}

void Day::scanLinks()
{
    program.openCategory(scanned);
    EXPECT_SOON(program.siteCount(), 5);
    menu('F', 'S', 'A');
    const HWND box = program.dialog(L"Unavailable Sites");
    EXPECT_TRUE(ProgramDriver::boxText(box).starts_with(L"There were 2 unavailable links.\n"));
    picture("scan-summary");
    program.answerBox(L"Unavailable Sites");
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"Scan complete."));
    std::string log;
    for (int row = 0; row < 5; ++row) {
        const bool dead = program.controls().cell(program.sites(), row, 0).starts_with(L"Refuses");
        EXPECT_EQ(imageOf(row) == deadImage, dead) << row;
        log += ansi(program.controls().cell(program.sites(), row, 0) + L" - " +
                    program.controls().cell(program.sites(), row, 1)) +
               (dead ? " - Failed\r\n" : " - Success\r\n");
    }
    EXPECT_EQ(folder.read(L"scanned.log"), log);
    picture("red-crosses");
}

// ---- backups

void Day::makePage()
{
    const std::size_t opened = browser_.opened().size();
    program.openCategory(plan_.category);
    menu('F', 'H', 'A');
    program.dialog(L"Output an HTML file...");
    const std::wstring path = page_.file(L"page.htm");
    program.retype(path);
    EXPECT_SOON(program.focusText(), path);
    picture("page-file");
    program.key(VK_RETURN);
    program.dialog(L"Success!");
    picture("page-written");
    EXPECT_EQ(program.answerBox(L"Success!", IDNO), L"Output successful! Open file?");
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"HTML Generated."));
    const std::string page = page_.read(L"page.htm");
    EXPECT_EQ(countOf(page, "</td><td><a href=\""), sitesInAll());
    EXPECT_EQ(countOf(page, "<td colspan=3 align=center><b>"), titlesOnDisk().size());
    EXPECT_EQ(program.caption(), L"Vandrel - " + plan_.category);
    EXPECT_EQ(browser_.opened().size(), opened);
}

void Day::backUp()
{
    menu('F', 'B', 'A');
    // The system's own window, in the user's language. Its tree need not have the focus.
    HWND tree = nullptr;
    EXPECT_TRUE(soon([&] {
        const HWND front = GetForegroundWindow();
        tree = front == program.window() ? nullptr : FindWindowExW(front, nullptr, WC_TREEVIEWW, nullptr);
        return tree != nullptr && IsChild(front, program.focus());
    }));
    for (int tabs = 0; tabs < 3 && program.focus() != tree; ++tabs) {
        const HWND before = program.focus();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != before; }));
    }
    EXPECT_EQ(program.focus(), tree);
    program.key(VK_HOME);
    picture("folder-browser");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"Backup successful."));
    for (const auto& [title, bytes] : bytesOnDisk()) {
        EXPECT_TRUE(backup_.has(title + L".udb") && backup_.read(title + L".udb") == bytes)
            << testing::PrintToString(title);
    }
    EXPECT_EQ(backup_.names().size(), titlesOnDisk().size());
    picture("backed-up");
}

// ---- the window as the user likes it

void Day::changeFont()
{
    const int before = rowHeight();
    menu('V', 'O');
    const HWND dialog = program.dialog(L"Options");
    const HWND fonts = program.focus();
    program.key(VK_TAB);
    EXPECT_TRUE(soon([&] { return program.focus() != fonts; }));
    const std::wstring size = preference(L"Options", L"FontSize");
    EXPECT_SOON(program.focusText(), size);
    program.retype(plan_.fontSize);
    EXPECT_SOON(program.focusText(), plan_.fontSize);
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"Bold"));
    program.key(VK_SPACE);
    EXPECT_SOON(ask(program.focus(), BM_GETCHECK), static_cast<LRESULT>(BST_CHECKED));
    picture("options");
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return !IsWindow(dialog); }));
    program.back();
    EXPECT_TRUE(soon([&] { return rowHeight() > before; }));
    picture("larger-font");
}

void Day::changeShape()
{
    // The last column ends under the vertical scroll bar. Its edge can be reached only once the column
    // beside it is narrower.
    const auto before = columnWidths();
    dragColumnEdge(1, -60);
    EXPECT_SOON(columnWidths()[1], before[1] - 60);
    dragColumnEdge(3, 40);
    EXPECT_TRUE(soon([&] { return columnWidths()[3] > 20; })) << columnWidths()[3];

    SetWindowPos(program.window(), nullptr, 40, 30, 1050, 760, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_SOON(place(), (std::vector<LONG>{40, 30, 1050, 760}));
    picture("resized");

    constexpr LONG wider = 60;
    const LONG list = widthOf(program.categories());
    const HWND splitter = FindWindowExW(program.window(), nullptr, L"Vandrel.SplitterBar", nullptr);
    // While the window manager still moves the window, a press may miss the bar.
    for (int attempt = 0; attempt < 3 && widthOf(program.categories()) == list; ++attempt) {
        const POINT bar = middleOf(splitter);
        program.drag(bar, {bar.x + wider, bar.y});
        soon([&] { return widthOf(program.categories()) != list; }, 3000);
    }
    EXPECT_TRUE(soon([&] { return std::abs(widthOf(program.categories()) - list - wider) <= 2; }))
        << widthOf(program.categories()) << " instead of " << list + wider;
    picture("splitter");
}

void Day::startNextDay()
{
    const auto bytes = bytesOnDisk();
    const auto left = place();
    const auto columns = columnWidths();
    const int height = rowHeight();
    const Texts titles = program.titles();
    program.quit();
    EXPECT_EQ(preference(L"Options", L"FontSize"), plan_.fontSize);
    EXPECT_NE(preference(L"Options", L"FontBold"), L"0");
    program.start();
    EXPECT_EQ(place(), left);
    EXPECT_EQ(rowHeight(), height);
    const auto now = columnWidths();
    for (const std::size_t column : {0U, 1U, 3U}) EXPECT_NEAR(now[column], columns[column], 1) << column;
    EXPECT_EQ(program.titles(), titles);
    EXPECT_EQ(program.caption(), L"Vandrel - " + titles.at(0));

    program.openCategory(plan_.title);
    EXPECT_SOON(program.column(3), (Texts{dated(), dated()}));
    EXPECT_EQ(program.column(0), (Texts{L"Dropped", plan_.name}));
    EXPECT_EQ(program.controls().cell(program.sites(), 1, 2), plan_.description);
    program.openCategory(plan_.otherTitle);
    EXPECT_SOON(program.siteCount(), static_cast<int>(imported_));
    program.openCategory(plan_.category);
    EXPECT_SOON(program.controls().cell(program.sites(), found_, 3), dated());
    EXPECT_EQ(program.controls().cell(program.sites(), found_, 0), plan_.quickName);
    picture("next-day");
    program.quit();
    EXPECT_EQ(bytesOnDisk(), bytes);
}

} // namespace vandrel::test
