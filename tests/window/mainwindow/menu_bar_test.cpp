#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

#include <set>

namespace vandrel::test {
namespace {

class MenuBar : public MainWindowTest {};

constexpr const char* expectedBar = R"(&File
  &Find [Ctrl+F]
  &Scan
    Scan Selec&ted
    Scan &All URLs
  -
  &Import [Ctrl+I]
  &Export [Ctrl+E]
  -
  Generate &HTML
    From &Current Category
    From &All Categories
  &Backup
    &Current Category
    &All Categories
  -
  &Quit [Ctrl+Q]
&Edit
  &Add/Remove
    &Add Category [F2]
    &Remove Category [Shift+F2]
    -
    Add &Website [F3]
    Remo&ve Website [Del]
  &Selected
    &Edit...
    Rename Category
    -
    &Copy Selected URL [Ctrl+C]
    &Open Selected URL [Ctrl+O]
&View
  &Properties [Ctrl+P]
  -
  Show &Gridlines
  &Hover Select
  -
  Keep on &Top
  -
  &Options...
&Help
  &View Help [F1]
  -
  &About...
  -
  Check for Updates
)";

// Every entry of the window by the name that the program has for it, in the order of the bar and the pop-ups.
constexpr int barNames[] = {
    mnuFile,
    mnuFind,
    mnuScan,
    mnuScanSelected,
    mnuScanAllURLs,
    sep8,
    mnuImport,
    mnuExport,
    sep15,
    mnuGenerate,
    mnuCurrentCat,
    mnuAllCats,
    mnuBackup,
    mnuBUCurrentCat,
    mnuBUAllCat,
    sep1,
    mnuQuit,
    mnuEdit,
    mnuAdd,
    mnuAddCategory,
    mnuRemoveCategory,
    sep3,
    mnuAddWebsite,
    mnuRemoveWebsite,
    mnuSelected,
    mnuEditSel,
    mnuRenameCat,
    sep4,
    mnuCopyURL,
    mnuOpenURL,
    mnuView,
    mnuProperties,
    sep13,
    mnuGridlines,
    mnuHoverSelect,
    sep10,
    mnuKeepTop,
    sep14,
    mnuOptions,
    mnuHelp,
    mnuViewHelp,
    sep7,
    mnuAbout,
    sep9,
    mnuCheckUpdates,
};

TEST_F(MenuBar, HasEveryCaptionKeySeparatorAndSubmenu)
{
    start();
    EXPECT_EQ(treeOf(GetMenu(main->handle())), expectedBar);
}

TEST_F(MenuBar, EachEntryAnswersToItsOwnName)
{
    start();
    std::vector<int> ids;
    for (const MenuItem& item : allItemsOf(GetMenu(main->handle()))) ids.push_back(static_cast<int>(item.id));
    EXPECT_EQ(ids, std::vector<int>(std::begin(barNames), std::end(barNames)));
}

TEST_F(MenuBar, NoIdOccursTwiceNotEvenInThePopUps)
{
    folder.write(L"A.udb", "");
    folder.write(L"B.udb", "");
    start();
    std::multiset<UINT> ids;
    for (const HMENU menu :
         {GetMenu(main->handle()), main->menus().submenu(mnuPopUp), main->menus().submenu(mnuCatPopUp)}) {
        for (const MenuItem& item : allItemsOf(menu)) ids.insert(item.id);
    }
    for (const UINT id : ids) EXPECT_EQ(ids.count(id), 1U) << id;
    EXPECT_EQ(ids.size(), 45U + 14U + 2U + 4U);
}

TEST_F(MenuBar, NothingIsCheckedAtFirst)
{
    start();
    for (const MenuItem& item : allItemsOf(GetMenu(main->handle()))) {
        EXPECT_FALSE(item.checked()) << testing::PrintToString(item.text);
    }
}

TEST_F(MenuBar, ThePopUpMenusAreNotOnTheBar)
{
    start();
    for (const MenuItem& item : itemsOf(GetMenu(main->handle()))) {
        EXPECT_NE(item.submenu, main->menus().submenu(mnuPopUp));
        EXPECT_NE(item.submenu, main->menus().submenu(mnuCatPopUp));
    }
}

TEST_F(MenuBar, ChoosingAnEntryRunsItsProcedure)
{
    start();
    Answers answers;
    answers.cancelInput(L"Category Name");
    SendMessageW(main->handle(), WM_COMMAND, mnuAddCategory, 0);
    EXPECT_ANSWERED(answers);
}

TEST_F(MenuBar, QuitClosesTheWindow)
{
    start();
    const HWND window = main->handle();
    SendMessageW(window, WM_COMMAND, mnuQuit, 0);
    EXPECT_TRUE(pumpUntil([&] { return !IsWindow(window); }));
}

} // namespace
} // namespace vandrel::test
