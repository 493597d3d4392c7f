#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class Toolbar1 : public MainWindowTest {
  protected:
    HWND bar() { return main->toolBar().handle(); }
    TBBUTTON button(int position)
    {
        TBBUTTON found{};
        SendMessageW(bar(), TB_GETBUTTON, static_cast<WPARAM>(position - 1),
                     reinterpret_cast<LPARAM>(&found));
        return found;
    }
    bool isSeparator(int position) { return (button(position).fsStyle & BTNS_SEP) != 0; }
    // What the tool tip window shows for the button.
    std::wstring toolTip(int position)
    {
        wchar_t text[200]{};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = bar();
        tool.uId = static_cast<UINT_PTR>(button(position).idCommand);
        tool.lpszText = text;
        const auto tips = reinterpret_cast<HWND>(SendMessageW(bar(), TB_GETTOOLTIPS, 0, 0));
        SendMessageW(tips, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
        return text;
    }
    void click(int position, int fromLeft)
    {
        RECT area{};
        SendMessageW(bar(), TB_GETITEMRECT, static_cast<WPARAM>(position - 1),
                     reinterpret_cast<LPARAM>(&area));
        const LPARAM point = MAKELPARAM(area.left + fromLeft, (area.top + area.bottom) / 2);
        PostMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, point);
        PostMessageW(bar(), WM_LBUTTONUP, 0, point);
        pump();
    }
};

TEST_F(Toolbar1, HasTwelvePositionsWithSeparatorsAtThreeSixAndEleven)
{
    start();
    EXPECT_EQ(SendMessageW(bar(), TB_BUTTONCOUNT, 0, 0), 12);
    for (int position = 1; position <= 12; ++position) {
        EXPECT_EQ(isSeparator(position), position == 3 || position == 6 || position == 11) << position;
    }
}

TEST_F(Toolbar1, EachButtonHasItsToolTip)
{
    start();
    const std::pair<int, const wchar_t*> expected[] = {
        {1, L"Add Category"},          {2, L"Remove Category"},
        {4, L"Import IE Favorites"},   {5, L"Export an IE Favorite"},
        {7, L"Add Website"},           {8, L"Remove Website"},
        {9, L"Open Selected Website"}, {10, L"Scan selected or multiple URLs"},
        {12, L"About Vandrel"},
    };
    for (const auto& [position, text] : expected) EXPECT_EQ(toolTip(position), text) << position;
}

TEST_F(Toolbar1, EachButtonHasAPictureOfItsOwnAndNoText)
{
    start();
    std::vector<int> pictures;
    for (int position = 1; position <= 12; ++position) {
        if (!isSeparator(position)) pictures.push_back(button(position).iBitmap);
        EXPECT_LE(SendMessageW(bar(), TB_GETBUTTONTEXTW, static_cast<WPARAM>(button(position).idCommand), 0),
                  0);
    }
    EXPECT_EQ(pictures, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(bar(), TB_GETIMAGELIST, 0, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), 9);
}

TEST_F(Toolbar1, OnlyTheScanButtonHasADropDownMenuAsWellAsACommand)
{
    start();
    for (int position = 1; position <= 12; ++position) {
        EXPECT_EQ((button(position).fsStyle & BTNS_DROPDOWN) != 0, position == 10) << position;
        EXPECT_EQ(button(position).fsStyle & BTNS_WHOLEDROPDOWN & ~BTNS_DROPDOWN, 0) << position;
    }
    EXPECT_NE(SendMessageW(bar(), TB_GETEXTENDEDSTYLE, 0, 0) & TBSTYLE_EX_DRAWDDARROWS, 0);
}

TEST_F(Toolbar1, TheScanMenuHasItsTwoEntries)
{
    start();
    EXPECT_EQ(treeOf(main->toolBar().buttonMenu()), "Scan Selected\nScan All URLs\n");
}

TEST_F(Toolbar1, AClickOnAButtonReportsItsPosition)
{
    folder.write(L"Work.udb", threeSites);
    start();
    std::vector<int> clicked;
    main->toolBar().ButtonClick = [&](int position) { clicked.push_back(position); };
    for (int position = 1; position <= 12; ++position) click(position, 5);
    EXPECT_EQ(clicked, (std::vector<int>{1, 2, 4, 5, 7, 8, 9, 10, 12}));
}

TEST_F(Toolbar1, ADisabledButtonReportsNothing)
{
    folder.write(L"Empty.udb", "");
    start();
    std::vector<int> clicked;
    main->toolBar().ButtonClick = [&](int position) { clicked.push_back(position); };
    for (int position = 1; position <= 12; ++position) click(position, 5);
    EXPECT_EQ(clicked, (std::vector<int>{1, 2, 4, 7, 12}));
}

TEST_F(Toolbar1, TheArrowOfTheScanButtonOpensItsMenuWhoseEntriesReportTheirKeys)
{
    folder.write(L"Work.udb", threeSites);
    start();
    std::vector<int> clicked;
    std::vector<std::wstring> keys;
    main->toolBar().ButtonClick = [&](int position) { clicked.push_back(position); };
    main->toolBar().ButtonMenuClick = [&](const std::wstring& key) { keys.push_back(key); };
    for (const std::vector<WORD>& choice :
         {std::vector<WORD>{VK_DOWN, VK_RETURN}, std::vector<WORD>{VK_DOWN, VK_DOWN, VK_RETURN}}) {
        std::string tree;
        const MenuVisit visit([&tree](HMENU menu) { tree = treeOf(menu); }, choice);
        RECT area{};
        SendMessageW(bar(), TB_GETITEMRECT, 9, reinterpret_cast<LPARAM>(&area));
        click(10, widthOf(area) - 4);
        EXPECT_TRUE(pumpUntil([&] { return visit.opened(); }));
        EXPECT_EQ(tree, "Scan Selected\nScan All URLs\n");
    }
    EXPECT_EQ(keys, (std::vector<std::wstring>{L"selected", L"allurls"}));
    EXPECT_TRUE(clicked.empty());
}

TEST_F(Toolbar1, EachPositionRunsItsCommand)
{
    folder.write(L"Work.udb", threeSites);
    start();
    lstInfo().select(0);
    struct Run {
        int position;
        const wchar_t* dialog;
        int button;
    };
    const Run runs[] = {{1, L"Category Name", IDCANCEL},
                        {2, L"Vandrel", IDNO},
                        {7, L"Add Site...", IDCANCEL},
                        {8, L"Remove site(s)", IDNO}};
    for (const Run& run : runs) {
        Answers answers;
        answers.expect(run.dialog, [&](HWND dialog) { press(dialog, run.button); });
        main->toolBar().ButtonClick(run.position);
        EXPECT_ANSWERED(answers) << run.position;
    }
}

TEST_F(Toolbar1, EachPositionIsTheButtonOfItsCommand)
{
    const std::pair<int, int> expected[] = {{1, mnuAddCategory}, {2, mnuRemoveCategory},
                                            {4, mnuImport},      {5, mnuExport},
                                            {7, mnuAddWebsite},  {8, mnuRemoveWebsite},
                                            {9, mnuOpenURL},     {10, mnuScanSelected},
                                            {12, mnuAbout}};
    for (const auto& [position, entry] : expected) {
        const CommandRow* const row = rowOfButton(frmMain::commands(), position);
        ASSERT_NE(row, nullptr) << position;
        EXPECT_EQ(row->id, entry) << position;
    }
}

TEST_F(Toolbar1, SeparatorsAndOtherPositionsAndKeysRunNothing)
{
    folder.write(L"Work.udb", threeSites);
    start();
    lstInfo().select(0);
    Answers none;
    for (const int position : {3, 6, 11, 0, -1, 13, 1000}) main->toolBar().ButtonClick(position);
    for (const wchar_t* const key : {L"", L"Selected", L"all"}) main->toolBar().ButtonMenuClick(key);
    pump();
    EXPECT_ANSWERED(none);
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(Toolbar1, ItsButtonsAreInsideItAndItIsAboveTheLists)
{
    start();
    for (int position = 1; position <= 12; ++position) {
        RECT area{};
        SendMessageW(bar(), TB_GETITEMRECT, static_cast<WPARAM>(position - 1),
                     reinterpret_cast<LPARAM>(&area));
        EXPECT_LE(area.right, clientOf(bar()).right) << position;
        EXPECT_LE(area.bottom, clientOf(bar()).bottom) << position;
    }
    EXPECT_LE(placeOf(bar()).bottom, placeOf(lstInfo().handle()).top);
}

} // namespace
} // namespace vandrel::test
