#include "tests/program/support/program_test.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel::test {
namespace {

class Restart : public ProgramTest {
  protected:
    RECT placement() const
    {
        RECT area{};
        GetWindowRect(program.window(), &area);
        return area;
    }
    std::vector<int> columnWidths() const
    {
        std::vector<int> widths;
        for (int column = 0; column < 4; ++column)
            widths.push_back(program.controls().columnWidth(program.sites(), column));
        return widths;
    }
    DWORD listStyles() const
    {
        return static_cast<DWORD>(ask(program.sites(), LVM_GETEXTENDEDLISTVIEWSTYLE));
    }
    // Drags the right edge of a column's header.
    void dragColumn(int column, LONG by) const
    {
        const POINT middle = program.controls().headerPoint(program.sites(), column);
        const LONG edge = middle.x + program.controls().columnWidth(program.sites(), column) / 2 - 1;
        program.drag({edge, middle.y}, {edge + by, middle.y});
    }
    static std::wstring twips(LONG pixels) { return std::to_wstring(pixels * 15); }
};

TEST_F(Restart, CategoriesAndSitesAreAsTheyWereLeft)
{
    start();
    program.addCategory(L"Work");
    program.addCategory(L"Play");
    program.openCategory(L"Work");
    program.addSite(L"One", L"http://1/", L"first");
    program.back();
    restart();
    Texts titles = program.titles(); // in the order of the folder, no longer in which they were added
    std::ranges::sort(titles);
    EXPECT_EQ(titles, (Texts{L"Play", L"Work"}));
    program.openCategory(L"Work");
    const std::string date = today();
    const Texts columns{program.column(0).at(0), program.column(1).at(0), program.column(2).at(0),
                        program.column(3).at(0)};
    EXPECT_EQ(columns, (Texts{L"One", L"http://1/", L"first", std::wstring(date.begin(), date.end())}));
}

TEST_F(Restart, TheWindowComesBackInItsPlaceAndSize)
{
    start();
    SetWindowPos(program.window(), nullptr, 150, 90, 800, 600, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_SOON(placement().right, 950);
    program.quit();
    EXPECT_EQ(preference(L"Config", L"Left"), twips(150));
    EXPECT_EQ(preference(L"Config", L"Top"), twips(90));
    EXPECT_EQ(preference(L"Config", L"Width"), twips(800));
    EXPECT_EQ(preference(L"Config", L"Height"), twips(600));
    program.start();
    const RECT area = placement();
    EXPECT_EQ((std::vector<LONG>{area.left, area.top, area.right, area.bottom}),
              (std::vector<LONG>{150, 90, 950, 690}));
}

TEST_F(Restart, ColumnsKeepTheWidthsThatTheMouseGaveThem)
{
    start();
    const std::vector<int> before = columnWidths();
    EXPECT_EQ(before[3], 0);
    dragColumn(0, 60);
    EXPECT_SOON(columnWidths()[0], before[0] + 60);
    dragColumn(1, -40);
    EXPECT_SOON(columnWidths()[1], before[1] - 40);
    const std::vector<int> dragged = columnWidths();
    restart();
    EXPECT_EQ(columnWidths()[0], dragged[0]);
    EXPECT_EQ(columnWidths()[1], dragged[1]);
    EXPECT_EQ(columnWidths()[3], 0);
}

TEST_F(Restart, GridLinesSurviveAnAbnormalEndAndHoverSelectionDoesNot)
{
    start();
    program.key('V', {VK_MENU});
    program.key('G');
    EXPECT_SOON(listStyles() & LVS_EX_GRIDLINES, static_cast<DWORD>(LVS_EX_GRIDLINES));
    EXPECT_SOON(preference(L"Config", L"GridLines"), std::wstring(L"1"));
    program.key('V', {VK_MENU});
    program.key('H');
    EXPECT_SOON(listStyles() & LVS_EX_TRACKSELECT, static_cast<DWORD>(LVS_EX_TRACKSELECT));
    program.kill();
    program.start();
    EXPECT_EQ(listStyles() & (LVS_EX_GRIDLINES | LVS_EX_TRACKSELECT), static_cast<DWORD>(LVS_EX_GRIDLINES));
}

TEST_F(Restart, HoverSelectionSurvivesAnOrdinaryEnd)
{
    start();
    program.key('V', {VK_MENU});
    program.key('H');
    EXPECT_SOON(listStyles() & LVS_EX_TRACKSELECT, static_cast<DWORD>(LVS_EX_TRACKSELECT));
    restart();
    EXPECT_EQ(listStyles() & LVS_EX_TRACKSELECT, static_cast<DWORD>(LVS_EX_TRACKSELECT));
}

TEST_F(Restart, AWindowClosedWhileMinimisedComesBackAtTheCorner)
{
    start();
    SetWindowPos(program.window(), nullptr, 150, 90, 800, 600, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_SOON(placement().right, 950);
    ShowWindow(program.window(), SW_MINIMIZE);
    EXPECT_TRUE(soon([&] { return IsIconic(program.window()) != 0; }));
    PostMessageW(program.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(program.waitForEnd(), 0U);
    EXPECT_EQ(preference(L"Config", L"Left"), L"0");
    EXPECT_EQ(preference(L"Config", L"Top"), L"0");
    program.start();
    EXPECT_EQ(placement().left, 0);
    EXPECT_EQ(placement().top, 0);
}

TEST_F(Restart, AFirstRunShowsAWindowOfUsableSizeOnTheScreen)
{
    start();
    const RECT area = placement();
    EXPECT_GE(area.left, 0);
    EXPECT_GE(area.top, 0);
    EXPECT_GE(area.right - area.left, 9135 / 15);
    EXPECT_GE(area.bottom - area.top, 5685 / 15);
    EXPECT_LE(area.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(area.bottom, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_EQ(columnWidths()[0], 2160 / 15);
    EXPECT_EQ(columnWidths()[1], 2880 / 15);
}

TEST_F(Restart, AbsurdPreferencesStillGiveAVisibleWindow)
{
    for (const wchar_t* const key : {L"Left", L"Top", L"Width", L"Height"}) {
        setPreference(L"Config", key, L"1000000");
    }
    setPreference(L"Config", L"Col1", L"abc");
    setPreference(L"Options", L"FontSize", L"-3");
    folder.write(L"A.udb", "One|http://1/||\r\n");
    start();
    const RECT area = placement();
    EXPECT_GE(area.left, 0);
    EXPECT_GE(area.top, 0);
    EXPECT_LE(area.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(area.bottom, GetSystemMetrics(SM_CYSCREEN));
    EXPECT_EQ(columnWidths()[0], 2160 / 15);
    EXPECT_EQ(program.column(0), Texts{L"One"});
}

} // namespace
} // namespace vandrel::test
