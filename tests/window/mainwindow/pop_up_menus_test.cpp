#include "tests/support/input.h"
#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

#include <map>

namespace vandrel::test {
namespace {

constexpr const char* expectedSitePopUp = R"(&Open URL
Open in &New Window
&Copy URL
-
&Edit...
-
&Export
&Scan Selected
-
&Add Website
Remo&ve Website
&Move To...
  Home
  Work
-
&Properties
)";

constexpr const char* expectedCategoryPopUp = R"(Add Category
Remove Category
-
Rename Category
)";

class PopUpMenus : public MainWindowTest {
  protected:
    void startWithTwoCategories()
    {
        folder.write(L"Home.udb", threeSites);
        folder.write(L"Work.udb", threeSites);
        start();
        clickCategory(L"Home");
    }
    static void rightClickBelow(const ListView& list)
    {
        RECT area{};
        GetClientRect(list.handle(), &area);
        rightClickAt(list.handle(), {area.right / 2, area.bottom - 20});
    }
    // What the site list's pop-up looks like at a right click.
    std::string sitePopUpTree()
    {
        std::string tree;
        const MenuVisit visit([&](HMENU menu) { tree = treeOf(menu); });
        lstInfo().RightClick({200, 200});
        EXPECT_TRUE(visit.opened());
        return tree;
    }
    std::map<std::wstring, bool> moveEntries()
    {
        std::map<std::wstring, bool> enabled;
        const MenuVisit visit([&](HMENU menu) {
            const HMENU entries = GetSubMenu(menu, 11);
            for (const MenuItem& item : itemsOf(entries)) enabled[item.text] = item.enabled();
        });
        lstInfo().RightClick({200, 200});
        EXPECT_TRUE(visit.opened());
        return enabled;
    }
};

TEST_F(PopUpMenus, TheSiteListsMenuHasEveryEntry)
{
    startWithTwoCategories();
    EXPECT_EQ(sitePopUpTree(), expectedSitePopUp);
}

TEST_F(PopUpMenus, OpenUrlIsTheBoldDefaultOfTheSiteListsMenuOnly)
{
    startWithTwoCategories();
    std::vector<std::wstring> defaults;
    const MenuVisit visit([&](HMENU menu) {
        for (const MenuItem& item : allItemsOf(menu)) {
            if (item.isDefault()) defaults.push_back(item.text);
        }
    });
    lstInfo().RightClick({200, 200});
    EXPECT_TRUE(visit.opened());
    EXPECT_EQ(defaults, std::vector<std::wstring>{L"&Open URL"});
}

TEST_F(PopUpMenus, TheCategoryListsMenuHasItsFourEntriesAndNoDefault)
{
    startWithTwoCategories();
    std::string tree;
    bool anyDefault = false;
    const MenuVisit visit([&](HMENU menu) {
        tree = treeOf(menu);
        for (const MenuItem& item : itemsOf(menu)) anyDefault = anyDefault || item.isDefault();
    });
    lstCategory().RightClick({100, 200});
    EXPECT_TRUE(visit.opened());
    EXPECT_EQ(tree, expectedCategoryPopUp);
    EXPECT_FALSE(anyDefault);
}

TEST_F(PopUpMenus, DismissingOneRunsNothing)
{
    startWithTwoCategories();
    Answers none;
    const MenuVisit visit([](HMENU) {});
    lstCategory().RightClick({100, 200});
    EXPECT_TRUE(visit.opened());
    EXPECT_ANSWERED(none);
    EXPECT_EQ(column(lstCategory()), (std::vector<std::wstring>{L"Home", L"Work"}));
}

TEST_F(PopUpMenus, AnEntryChosenByKeyRuns)
{
    startWithTwoCategories();
    Answers answers;
    answers.cancelInput(L"Category Name");
    const MenuVisit visit([](HMENU) {}, {VK_DOWN, VK_RETURN});
    lstCategory().RightClick({100, 200});
    EXPECT_ANSWERED(answers);
}

TEST_F(PopUpMenus, AReleasedRightButtonOverAListOpensItsMenu)
{
    startWithTwoCategories();
    const std::pair<ListView*, const char*> lists[] = {{&lstInfo(), expectedSitePopUp},
                                                       {&lstCategory(), expectedCategoryPopUp}};
    for (const auto& [list, expected] : lists) {
        std::string tree;
        const MenuVisit visit([&tree](HMENU menu) { tree = treeOf(menu); });
        PostMessageW(list->handle(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(20, 60));
        PostMessageW(list->handle(), WM_RBUTTONUP, 0, MAKELPARAM(20, 60));
        EXPECT_TRUE(pumpUntil([&] { return visit.opened(); }));
        EXPECT_EQ(tree, expected);
    }
}

TEST_F(PopUpMenus, ASiteCannotBeMovedToTheCategoryItIsIn)
{
    startWithTwoCategories();
    EXPECT_EQ(moveEntries(), (std::map<std::wstring, bool>{{L"Home", false}, {L"Work", true}}));
    clickCategory(L"Work");
    EXPECT_EQ(moveEntries(), (std::map<std::wstring, bool>{{L"Home", true}, {L"Work", false}}));
}

TEST_F(PopUpMenus, TitlesAreComparedExactlyForMoveTo)
{
    startWithTwoCategories();
    Answers answers;
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"home page");
    main->run(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(moveEntries(),
              (std::map<std::wstring, bool>{{L"Home", false}, {L"Work", true}, {L"home page", true}}));
}

TEST_F(PopUpMenus, AnAmpersandInATitleIsNotAnAccessKeyInMoveTo)
{
    folder.write(L"R&D.udb", threeSites);
    start();
    EXPECT_EQ(moveEntries(), (std::map<std::wstring, bool>{{L"R&&D", false}}));
}

TEST_F(PopUpMenus, MoveToWithoutAnyCategoryHasOneEntryThatCannotBeChosen)
{
    start();
    EXPECT_EQ(moveEntries(), (std::map<std::wstring, bool>{{L"", false}}));
}

TEST_F(PopUpMenus, ChoosingAMoveEntryMovesTheSiteThere)
{
    startWithTwoCategories();
    clickCategory(L"Work");
    lstInfo().select(1);
    // From the end: Properties, then Move To; its submenu opens on its first entry.
    const MenuVisit visit([](HMENU) {}, {VK_UP, VK_UP, VK_RIGHT, VK_RETURN});
    lstInfo().RightClick({200, 200});
    EXPECT_EQ(folder.read(L"Home.udb"), std::string(threeSites) + "Alpha|http://c.example/|first|\r\n");
    EXPECT_EQ(main->caption(), L"Vandrel - Home");
}

TEST_F(PopUpMenus, TheirEntriesRunTheSameAsThoseOfTheBar)
{
    startWithTwoCategories();
    lstInfo().select(0);
    struct Twins {
        int barEntry;
        int popUpEntry;
        const wchar_t* dialog; // what both open
        int button;            // what leaves everything as it was
    };
    const Twins table[] = {
        {mnuAddCategory, mnuPAddCat, L"Category Name", IDCANCEL},
        {mnuRemoveCategory, mnuPRemoveCat, L"Vandrel", IDNO},
        {mnuAddWebsite, mnuPAddSite, L"Add Site...", IDCANCEL},
        {mnuRemoveWebsite, mnuPRemoveSite, L"Remove site(s)", IDNO},
        {mnuEditSel, mnuPEditSelected, L"Edit selected site...", IDCANCEL},
    };
    for (const Twins& twins : table) {
        for (const int entry : {twins.barEntry, twins.popUpEntry}) {
            Answers answers;
            answers.expect(twins.dialog, [&](HWND dialog) { press(dialog, twins.button); });
            main->run(entry);
            EXPECT_ANSWERED(answers) << entry;
        }
    }
}

TEST_F(PopUpMenus, EachOfTheirEntriesIsACommandOfTheBarButOpenInNewWindow)
{
    const std::map<int, int> expected = {
        {mnuPOpen, mnuOpenURL},
        {mnuPCopyURL, mnuCopyURL},
        {mnuPEditSelected, mnuEditSel},
        {mnuPExport, mnuExport},
        {mnuPScanSel, mnuScanSelected},
        {mnuPAddSite, mnuAddWebsite},
        {mnuPRemoveSite, mnuRemoveWebsite},
        {mnuPProperties, mnuProperties},
        {mnuPAddCat, mnuAddCategory},
        {mnuPRemoveCat, mnuRemoveCategory},
        {mnuPRenameCat, mnuRenameCat},
    };
    std::map<int, int> repeated;
    for (const CommandRow& row : frmMain::commands()) {
        if (row.repeats != noEntry) repeated[row.id] = row.repeats;
    }
    EXPECT_EQ(repeated, expected);
}

TEST_F(PopUpMenus, RenameCategoryOfBothMenusEditsTheSelectedTitle)
{
    startWithTwoCategories();
    for (const int entry : {mnuRenameCat, mnuPRenameCat}) {
        main->run(entry);
        ASSERT_TRUE(lstCategory().editingLabel()) << entry;
        EXPECT_EQ(windowText(
                      reinterpret_cast<HWND>(SendMessageW(lstCategory().handle(), LVM_GETEDITCONTROL, 0, 0))),
                  L"Home");
        pressKey(VK_ESCAPE);
        EXPECT_FALSE(lstCategory().editingLabel());
    }
}

// ---- beside the rows

TEST_F(PopUpMenus, ARightClickBelowTheLastCategoryLeavesTheShownOneSelected)
{
    startWithTwoCategories();
    Answers answers;
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"Third");
    const MenuVisit visit([](HMENU) {}, {VK_DOWN, VK_RETURN});
    rightClickBelow(lstCategory());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(lstCategory().currentRow(), std::optional<std::size_t>(0));
    answers.expect(L"Add Site...", [](HWND dialog) { press(dialog, IDOK); });
    main->run(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Home.udb"), std::string("|http://||11/16/2002\r\n") +
                                            "Gamma|http://a.example/|third|1/15/2003\r\n"
                                            "Beta|http://b.example/|second|9/30/2002\r\n"
                                            "Alpha|http://c.example/|first|10/1/2002\r\n");
}

TEST_F(PopUpMenus, TheCategoryPopUpBelowTheLastRowActsOnTheShownCategory)
{
    startWithTwoCategories();
    Answers answers;
    answers.expectBox(L"Vandrel", L"Remove category and all websites within?", IDYES, MB_ICONASTERISK);
    const MenuVisit visit([](HMENU) {}, {VK_DOWN, VK_DOWN, VK_RETURN});
    rightClickBelow(lstCategory());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Work.udb"});
}

TEST_F(PopUpMenus, RenameFromBelowTheLastRowEditsTheShownCategory)
{
    startWithTwoCategories();
    const MenuVisit visit([](HMENU) {}, {VK_UP, VK_RETURN});
    rightClickBelow(lstCategory());
    ASSERT_TRUE(lstCategory().editingLabel());
    EXPECT_EQ(windowText(
                  reinterpret_cast<HWND>(SendMessageW(lstCategory().handle(), LVM_GETEDITCONTROL, 0, 0))),
              L"Home");
}

// Whatever else the native control may do to its selection, a save goes where the sites came from.
TEST_F(PopUpMenus, ASaveGoesToTheShownCategoryThoughTheNativeListHasNoneSelected)
{
    startWithTwoCategories();
    lstCategory().clearSelection();
    lstInfo().select(0);
    Answers answers;
    answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
    main->run(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Home.udb"),
              std::string(threeSites).substr(std::string(threeSites).find('\n') + 1));
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
}

// Windows reports the right click from within its press; nothing runs there.
TEST_F(PopUpMenus, NoCommandRunsInsideTheNotificationOfARightClick)
{
    startWithTwoCategories();
    NMITEMACTIVATE click{};
    click.hdr = {lstCategory().handle(), static_cast<UINT_PTR>(GetDlgCtrlID(lstCategory().handle())),
                 static_cast<UINT>(NM_RCLICK)};
    click.iItem = -1;
    const MenuVisit visit([](HMENU) {});
    SendMessageW(main->handle(), WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
    EXPECT_FALSE(visit.opened());
    pump();
    EXPECT_TRUE(visit.opened());
}

} // namespace
} // namespace vandrel::test
