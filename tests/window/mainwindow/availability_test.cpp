#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

constexpr int entriesOfSites[] = {
    mnuCopyURL,    mnuOpenURL,     mnuPCopyURL, mnuPEditSelected, mnuEditSel,       mnuExport,
    mnuPExport,    mnuPRemoveSite, mnuPScanSel, mnuPOpen,         mnuRemoveWebsite, mnuMoveTo,
    mnuProperties, mnuPProperties, mnuOpenNew,  mnuScan,
};
constexpr int entriesOfCategories[] = {mnuRemoveCategory, mnuPRemoveCat, mnuRenameCat, mnuPRenameCat};
constexpr int buttonsOfSites[] = {5, 8, 9, 10};

class Availability : public MainWindowTest {
  protected:
    std::optional<MenuItem> entry(int id)
    {
        for (const HMENU menu :
             {GetMenu(main->handle()), main->menus().submenu(mnuPopUp), main->menus().submenu(mnuCatPopUp)}) {
            if (const auto item = itemWithId(menu, id)) return item;
        }
        return std::nullopt;
    }
    bool entryEnabled(int id) { return entry(id).value().enabled(); }
    bool buttonEnabled(int position)
    {
        TBBUTTON button{};
        SendMessageW(main->toolBar().handle(), TB_GETBUTTON, static_cast<WPARAM>(position - 1),
                     reinterpret_cast<LPARAM>(&button));
        return (button.fsState & TBSTATE_ENABLED) != 0;
    }
    // The names of everything that is enabled although `on` is false, and the other way round.
    std::vector<int> siteCommandsThatAreNot(bool on)
    {
        std::vector<int> wrong;
        for (const int id : entriesOfSites) {
            if (entryEnabled(id) != on) wrong.push_back(id);
        }
        for (const int position : buttonsOfSites) {
            if (buttonEnabled(position) != on) wrong.push_back(-position);
        }
        for (const MenuItem& item : itemsOf(main->toolBar().buttonMenu())) {
            if (item.enabled() != on) wrong.push_back(-100);
        }
        const SearchPanel& search = main->searchPanel();
        for (const HWND window : {search.handle(), search.cmbSearch.handle(), search.cmdSearch.handle()}) {
            if ((IsWindowEnabled(window) != 0) != on) wrong.push_back(-200);
        }
        return wrong;
    }
    std::vector<int> categoryCommandsThatAreNot(bool on)
    {
        std::vector<int> wrong;
        for (const int id : entriesOfCategories) {
            if (entryEnabled(id) != on) wrong.push_back(id);
        }
        return wrong;
    }
    bool othersAreEnabled()
    {
        for (const HMENU menu :
             {GetMenu(main->handle()), main->menus().submenu(mnuPopUp), main->menus().submenu(mnuCatPopUp)}) {
            for (const MenuItem& item : allItemsOf(menu)) {
                const int id = static_cast<int>(item.id);
                const bool named = std::ranges::find(entriesOfSites, id) != std::end(entriesOfSites) ||
                                   std::ranges::find(entriesOfCategories, id) !=
                                       std::end(entriesOfCategories);
                if (!named && id < firstMoveEntry && !item.enabled()) return false;
            }
        }
        for (const int position : {1, 2, 4, 7, 12}) {
            if (!buttonEnabled(position)) return false;
        }
        return true;
    }
    void tick() { SendMessageW(main->handle(), WM_TIMER, 1, 0); }
};

const std::vector<int> noCommand;

TEST_F(Availability, WithSitesEverythingIsUsable)
{
    folder.write(L"Work.udb", threeSites);
    start();
    EXPECT_EQ(siteCommandsThatAreNot(true), noCommand);
    EXPECT_EQ(categoryCommandsThatAreNot(true), noCommand);
    EXPECT_TRUE(othersAreEnabled());
}

TEST_F(Availability, WithAnEmptyCategoryTheSiteCommandsAreDisabled)
{
    folder.write(L"Empty.udb", "");
    start();
    EXPECT_EQ(siteCommandsThatAreNot(false), noCommand);
    EXPECT_EQ(categoryCommandsThatAreNot(true), noCommand);
    EXPECT_TRUE(othersAreEnabled());
}

TEST_F(Availability, WithoutCategoriesTheCategoryCommandsAreDisabledToo)
{
    start();
    EXPECT_EQ(siteCommandsThatAreNot(false), noCommand);
    EXPECT_EQ(categoryCommandsThatAreNot(false), noCommand);
    EXPECT_TRUE(othersAreEnabled());
}

TEST_F(Availability, FollowsTheTimerWhenTheCategoryIsChanged)
{
    folder.write(L"Empty.udb", "");
    folder.write(L"Work.udb", threeSites);
    start();
    for (const bool sites : {true, false, true}) {
        clickCategory(sites ? L"Work" : L"Empty");
        EXPECT_TRUE(pumpUntil([&] { return siteCommandsThatAreNot(sites).empty(); }));
    }
}

TEST_F(Availability, OneTickIsEnough)
{
    folder.write(L"Work.udb", threeSites);
    start();
    siteRows().clear();
    tick();
    EXPECT_EQ(siteCommandsThatAreNot(false), noCommand);
    siteRows().add({L"A", L"http://a/", L"", L""}, siteImage);
    tick();
    EXPECT_EQ(siteCommandsThatAreNot(true), noCommand);
}

TEST_F(Availability, AddingASiteEnablesItsCommandsWithoutAnotherAction)
{
    folder.write(L"Empty.udb", "");
    start();
    Answers answers;
    answers.expect(L"Add Site...", [](HWND dialog) { press(dialog, IDOK); });
    main->run(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(pumpUntil([&] { return siteCommandsThatAreNot(true).empty(); }));
}

TEST_F(Availability, RemovingTheLastSiteDisablesThem)
{
    folder.write(L"Work.udb", "A|http://a/||\r\n");
    start();
    lstInfo().select(0);
    Answers answers;
    answers.expect(L"Remove site(s)", [](HWND dialog) { press(dialog, IDYES); });
    main->run(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(pumpUntil([&] { return siteCommandsThatAreNot(false).empty(); }));
}

TEST_F(Availability, RemovingTheLastCategoryDisablesRemoveAndRenameInBothMenus)
{
    folder.write(L"Work.udb", threeSites);
    start();
    Answers answers;
    answers.expect(L"Vandrel", [](HWND dialog) { press(dialog, IDYES); });
    main->run(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(pumpUntil(
        [&] { return categoryCommandsThatAreNot(false).empty() && siteCommandsThatAreNot(false).empty(); }));
}

TEST_F(Availability, TheFirstCategoryEnablesOnlyTheCategoryCommands)
{
    start();
    Answers answers;
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"New");
    main->run(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(pumpUntil([&] { return categoryCommandsThatAreNot(true).empty(); }));
    EXPECT_EQ(siteCommandsThatAreNot(false), noCommand);
}

TEST_F(Availability, DoesNotDependOnASelection)
{
    folder.write(L"Work.udb", threeSites);
    start();
    lstInfo().clearSelection();
    lstCategory().clearSelection();
    tick();
    EXPECT_EQ(siteCommandsThatAreNot(true), noCommand);
    EXPECT_EQ(categoryCommandsThatAreNot(true), noCommand);
}

TEST_F(Availability, TheTimerLeavesTheMenusAloneUnlessAListEmptiesOrFills)
{
    folder.write(L"Work.udb", threeSites);
    start();
    main->menus().setEnabled(mnuExport, false);
    main->menus().setEnabled(mnuRenameCat, false);
    lstInfo().select(2);
    siteRows().remove(2);
    for (int i = 0; i < 3; ++i) tick();
    EXPECT_FALSE(entryEnabled(mnuExport));
    EXPECT_FALSE(entryEnabled(mnuRenameCat));
    siteRows().clear();
    tick();
    siteRows().add({L"A", L"http://a/", L"", L""}, siteImage);
    tick();
    EXPECT_TRUE(entryEnabled(mnuExport));
    EXPECT_FALSE(entryEnabled(mnuRenameCat)) << "the category list did not change";
}

TEST_F(Availability, TheTimerGoesOnWhileADialogIsOpen)
{
    folder.write(L"Work.udb", threeSites);
    start();
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        siteRows().clear();
        EXPECT_TRUE(pumpUntil([&] { return siteCommandsThatAreNot(false).empty(); }));
        press(dialog, IDCANCEL);
    });
    main->run(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
