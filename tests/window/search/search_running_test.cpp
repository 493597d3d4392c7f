#include "store/site_operations.h"
#include "tests/window/search/search_test.h"

namespace vandrel::test {
namespace {

class CurrentFolder {
  public:
    explicit CurrentFolder(const std::wstring& path)
    {
        before_.resize(GetCurrentDirectoryW(MAX_PATH, before_.data()));
        SetCurrentDirectoryW(path.c_str());
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { SetCurrentDirectoryW(before_.c_str()); }

  private:
    std::wstring before_ = std::wstring(MAX_PATH, L'\0');
};

// Twelve, three and seven sites: a search lets messages run three times.
class SearchRunning : public SearchTest {
  protected:
    SearchRunning()
    {
        folder.write(L"A.udb", manySites("a", 12));
        folder.write(L"B.udb", manySites("b", 3));
        folder.write(L"C.udb", manySites("c", 7));
        start();
        open();
    }
    void remove(const std::wstring& title)
    {
        DeleteFileW(folder.file(title + L".udb").c_str());
        const Lines all = titles();
        lstCategory().remove(static_cast<std::size_t>(std::ranges::find(all, title) - all.begin()));
    }
    // How many of the results come from a category.
    std::ptrdiff_t foundFrom(const std::wstring& title) { return std::ranges::count(found(2), title); }
};

TEST_F(SearchRunning, TheSecondPanelCountsInFivesAndBeginsAgainWithEveryCategory)
{
    Lines seen;
    const Turns turns(*main, [&](int) { seen.push_back(panel(2)); });
    find(L"nowhere to be found");
    EXPECT_EQ(seen, (Lines{L"5 site(s) searched", L"10 site(s) searched", L"5 site(s) searched"}));
    EXPECT_EQ(panel(2), L"22 site(s) searched");
}

TEST_F(SearchRunning, TheResultsSoFarAreThere)
{
    std::vector<std::size_t> counts;
    const Turns turns(*main, [&](int) { counts.push_back(search().results().count()); });
    find(L"");
    EXPECT_EQ(counts, (std::vector<std::size_t>{5, 10, 20}));
}

TEST_F(SearchRunning, TheMainWindowShowsTheCategoryThatIsSearched)
{
    Lines shown;
    const Turns turns(*main, [&](int) { shown.push_back(selectedTitle() + L": " + lstInfo().text(0)); });
    find(L"");
    EXPECT_EQ(shown, (Lines{L"A: a 1", L"A: a 1", L"C: c 1"}));
    EXPECT_EQ(selectedTitle(), L"A");
}

TEST_F(SearchRunning, WhatBelongsToTheSearchIsDisabledAndTheRestIsNot)
{
    const Turns turns(*main, [&](int) {
        for (const int id : {parts::term, IDOK, parts::section, parts::section + 1, parts::section + 2,
                             parts::section + 3, parts::caseSensitive})
            EXPECT_FALSE(IsWindowEnabled(part(id))) << id;
        EXPECT_FALSE(IsWindowEnabled(frame(L"Search Section")));
        EXPECT_TRUE(IsWindowEnabled(part(IDCANCEL)));
        EXPECT_TRUE(IsWindowEnabled(part(parts::results)));
        EXPECT_TRUE(IsWindowEnabled(main->handle()));
    });
    find(L"");
    EXPECT_EQ(turns.count(), 3);
    for (const int id : {parts::term, IDOK, parts::section, parts::section + 3, parts::caseSensitive})
        EXPECT_TRUE(IsWindowEnabled(part(id))) << id;
}

TEST_F(SearchRunning, AFocusInItDoesNotGetLost)
{
    SetFocus(part(parts::term));
    const Turns turns(*main, [&](int) { EXPECT_TRUE(IsWindowEnabled(GetFocus())); });
    pressKey(VK_RETURN);
    EXPECT_EQ(turns.count(), 3);
    EXPECT_EQ(GetFocus(), part(parts::term));
}

TEST_F(SearchRunning, CloseEndsItAndShowsTheCategoryOfBefore)
{
    clickCategory(L"B");
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) press(dialog(), IDCANCEL);
    });
    search().DoSearch(L"");
    EXPECT_EQ(turns.count(), 1) << "nothing is searched after that";
    EXPECT_EQ(selectedTitle(), L"B");
    EXPECT_EQ(lstInfo().text(0), L"b 1");
    EXPECT_TRUE(pumpUntil([&] { return main->searchWindow() == nullptr; }));
}

TEST_F(SearchRunning, EscEndsItToo)
{
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    SetFocus(part(parts::term));
    pressKey(VK_RETURN);
    EXPECT_EQ(turns.count(), 1);
    EXPECT_TRUE(pumpUntil([&] { return main->searchWindow() == nullptr; }));
}

TEST_F(SearchRunning, ClosedItLivesUntilItHasEnded)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        press(dialog(), IDCANCEL);
        const frmSearch* const before = main->searchWindow();
        SendMessageW(main->handle(), WM_TIMER, 1, 0); // what the clock does every millisecond
        main->run(mnuFind);
        EXPECT_EQ(main->searchWindow(), before);
    });
    find(L"");
    EXPECT_TRUE(pumpUntil([&] { return main->searchWindow() == nullptr; }));
}

TEST_F(SearchRunning, TheProgramCanBeEnded)
{
    const HWND window = main->handle();
    const HWND own = dialog();
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) main->run(mnuQuit);
    });
    search().DoSearch(L"");
    EXPECT_EQ(turns.count(), 1);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(own));
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
        << "the loop outside must end, too";
}

TEST_F(SearchRunning, NoSecondSearchBegins)
{
    const Turns turns(*main, [&](int) {
        press(dialog(), IDOK);
        SendMessageW(dialog(), WM_COMMAND, IDOK, 0);
        EXPECT_EQ(search().results().count() % 5, 0U);
    });
    find(L"");
    EXPECT_EQ(turns.count(), 3);
    EXPECT_EQ(search().results().count(), 22U);
}

TEST_F(SearchRunning, ALaterCategoryThatIsRemovedIsLeftOut)
{
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) remove(L"B");
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(panel(2), L"19 site(s) searched");
}

TEST_F(SearchRunning, TheOneOfBeforeThatIsRemovedGivesItsPlaceToTheNext)
{
    clickCategory(L"B");
    const Turns turns(*main, [&](int turn) {
        if (turn == 3) remove(L"B");
    });
    find(L"");
    EXPECT_EQ(selectedTitle(), L"C");
    EXPECT_EQ(lstInfo().text(0), L"c 1");
    EXPECT_EQ(search().results().count(), 22U);
}

TEST_F(SearchRunning, TheOneThatIsSearchedAndRemovedIsSearchedToItsEnd)
{
    clickCategory(L"C");
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        remove(L"A");
        lstInfo().clear();
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 3);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(found()[11], L"a 12") << "its texts must live on";
    EXPECT_EQ(selectedTitle(), L"C");
}

TEST_F(SearchRunning, AllCategoriesMayBeRemoved)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        for (const wchar_t* const title : {L"A", L"B", L"C"}) remove(title);
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(panel(2), L"12 site(s) searched");
    EXPECT_TRUE(lstCategory().empty());
}

TEST_F(SearchRunning, ACategoryThatIsAddedIsNotSearchedAndHidesNone)
{
    clickCategory(L"C");
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        folder.write(L"New.udb", manySites("n", 9));
        lstCategory().insert(0, {L"New"}, closedFolderImage);
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"New"), 0);
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 3);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(selectedTitle(), L"C");
}

TEST_F(SearchRunning, AnotherCategoryThatTheUserSelectsDisturbsNothing)
{
    clickCategory(L"B");
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) clickCategory(L"C");
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 3);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(found()[11], L"a 12");
    EXPECT_EQ(selectedTitle(), L"B");
    EXPECT_EQ(lstInfo().text(0), L"b 1");
}

TEST_F(SearchRunning, AFileThatIsGoneHasNoSites)
{
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) DeleteFileW(folder.file(L"B.udb").c_str());
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(panel(2), L"19 site(s) searched");
    EXPECT_FALSE(folder.has(L"B.udb"));
}

TEST_F(SearchRunning, AFileThatAnotherProgramHoldsHasNoSitesAndIsKept)
{
    HANDLE held = INVALID_HANDLE_VALUE;
    const Turns turns(*main, [&](int turn) {
        if (turn == 1)
            held = CreateFileW(folder.file(L"B.udb").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                               nullptr);
    });
    find(L"");
    CloseHandle(held);
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
}

TEST_F(SearchRunning, AFileThatGrowsIsSearchedAsItIsWhenItIsItsTurn)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        folder.write(L"A.udb", manySites("a", 20));
        folder.write(L"B.udb", manySites("b", 4));
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 4);
    EXPECT_EQ(panel(2), L"23 site(s) searched");
}

TEST_F(SearchRunning, ASiteThatIsAddedGoesToTheShownCategoryAlone)
{
    clickCategory(L"B");
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        ASSERT_EQ(selectedTitle(), L"A");
        lstInfo().add({L"added", L"http://added.example/", L"", L"1/1/2003"}, siteImage);
        SaveItems(workspace());
    });
    find(L"");
    EXPECT_EQ(folder.read(L"A.udb"), manySites("a", 12) + "added|http://added.example/||1/1/2003\r\n");
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
    EXPECT_EQ(folder.read(L"C.udb"), manySites("c", 7));
    EXPECT_EQ(foundFrom(L"A"), 12) << "what is added meanwhile is not looked at";
    EXPECT_EQ(found()[11], L"a 12");
}

TEST_F(SearchRunning, SitesThatAreRemovedMeanwhileDisturbNothing)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        for (int i = 0; i < 6; ++i) lstInfo().remove(5);
        SaveItems(workspace());
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(lstInfo().count(), 6U);
}

TEST_F(SearchRunning, ResultsThatAreSortedMeanwhileAreSortedInTheEnd)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 2) return;
        clickHeader(search().results(), 0);
        EXPECT_EQ(found()[0], L"a 9");
    });
    find(L"");
    Lines sorted = found();
    std::ranges::sort(sorted, std::greater<>());
    EXPECT_EQ(found().size(), 22U);
    EXPECT_EQ(found(), sorted);
    EXPECT_TRUE(search().results().isSelected(0));
    EXPECT_EQ(search().results().selectedCount(), 1U);
}

TEST_F(SearchRunning, ResultsThatAreSelectedMeanwhileLeaveOneSelectedInTheEnd)
{
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) search().results().selectAll();
    });
    find(L"");
    EXPECT_TRUE(search().results().isSelected(0));
    EXPECT_EQ(search().results().selectedCount(), 1U);
}

TEST_F(SearchRunning, ACategoryWhoseTitleIsBeingTypedGetsItAndNoOther)
{
    const CurrentFolder current(folder.path()); // files are renamed in the current folder
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) {
            ASSERT_EQ(selectedTitle(), L"A");
            lstCategory().setFocus();
            main->run(mnuRenameCat);
        }
        const auto edit = reinterpret_cast<HWND>(
            SendMessageW(lstCategory().handle(), LVM_GETEDITCONTROL, 0, 0));
        if (edit == nullptr) return;
        SetWindowTextW(edit, L"Renamed");
        if (turn == 3) SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
    });
    find(L"");
    EXPECT_EQ(titles(), (Lines{L"Renamed", L"B", L"C"}));
    EXPECT_EQ(folder.names(), (Lines{L"B.udb", L"C.udb", L"Renamed.udb"}));
    EXPECT_EQ(folder.read(L"Renamed.udb"), manySites("a", 12));
    EXPECT_EQ(folder.read(L"C.udb"), manySites("c", 7));
    EXPECT_EQ(selectedTitle(), L"Renamed");
    EXPECT_EQ(lstInfo().text(0), L"a 1");
}

TEST_F(SearchRunning, ASiteThatIsMovedMeanwhileIsMovedOnce)
{
    const Turns turns(*main, [&](int turn) {
        if (turn != 1) return;
        lstInfo().select(0);
        for (std::size_t i = 0; i < workspace().mnuMove.count(); ++i) {
            if (workspace().mnuMove.caption(i) == L"C") mnuMove_Click(workspace(), i);
        }
    });
    find(L"");
    EXPECT_EQ(folder.read(L"A.udb").find("a 1|"), std::string::npos);
    EXPECT_EQ(folder.read(L"C.udb"), manySites("c", 7) + "a 1|http://many.example/|d|\r\n");
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
    EXPECT_EQ(foundFrom(L"C"), 8);
    EXPECT_EQ(lstInfo().count(), 11U);
}

TEST_F(SearchRunning, FindBringsTheSameWindow)
{
    const HWND before = dialog();
    const Turns turns(*main, [&](int) {
        SetActiveWindow(main->handle());
        main->run(mnuFind);
        EXPECT_EQ(dialog(), before);
        EXPECT_EQ(GetActiveWindow(), before);
    });
    find(L"");
    EXPECT_EQ(search().results().count(), 22U);
}

TEST_F(SearchRunning, ATermThatIsTypedMeanwhileIsNotSearchedFor)
{
    const Turns turns(*main, [&](int turn) {
        if (turn == 1) SetWindowTextW(part(parts::term), L"nowhere to be found");
    });
    find(L"");
    EXPECT_EQ(search().results().count(), 22U);
}

} // namespace
} // namespace vandrel::test
