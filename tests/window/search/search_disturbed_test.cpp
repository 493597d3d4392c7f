#include "store/site_move.h"
#include "store/site_operations.h"
#include "tests/window/search/search_of_three.h"

namespace vandrel::test {
namespace {

// What the user and other programs may do to categories and sites while they are being searched.
class SearchDisturbed : public SearchOfThreeTest {
  protected:
    void remove(const std::wstring& title)
    {
        DeleteFileW(folder.file(title + L".udb").c_str());
        const Lines all = titles();
        categoryRows().remove(static_cast<std::size_t>(std::ranges::find(all, title) - all.begin()));
    }
    // How many of the results come from a category.
    std::ptrdiff_t foundFrom(const std::wstring& title) { return std::ranges::count(found(2), title); }
};

TEST_F(SearchDisturbed, ALaterCategoryThatIsRemovedIsLeftOut)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 1) remove(L"B");
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(panel(2), L"19 site(s) searched");
}

TEST_F(SearchDisturbed, ThePreviousCategoryThatIsRemovedGivesItsPlaceToTheNext)
{
    clickCategory(L"B");
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 3) remove(L"B");
    });
    find(L"");
    EXPECT_EQ(selectedTitle(), L"C");
    EXPECT_EQ(lstInfo().text(0), L"c 1");
    EXPECT_EQ(search().results().count(), 22U);
}

TEST_F(SearchDisturbed, ACategoryThatIsRemovedWhileItIsSearchedIsSearchedToItsEnd)
{
    clickCategory(L"C");
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        remove(L"A");
        siteRows().clear();
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 3);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(found()[11], L"a 12") << "its texts must live on";
    EXPECT_EQ(selectedTitle(), L"C");
}

TEST_F(SearchDisturbed, AllCategoriesMayBeRemoved)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        for (const wchar_t* const title : {L"A", L"B", L"C"}) remove(title);
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(panel(2), L"12 site(s) searched");
    EXPECT_TRUE(lstCategory().empty());
}

TEST_F(SearchDisturbed, ACategoryThatIsAddedIsNotSearchedAndHidesNone)
{
    clickCategory(L"C");
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        folder.write(L"New.udb", manySites("n", 9));
        categoryRows().insert(0, {L"New"}, closedFolderImage);
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"New"), 0);
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 3);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(selectedTitle(), L"C");
}

TEST_F(SearchDisturbed, AnotherCategoryThatTheUserSelectsDisturbsNothing)
{
    clickCategory(L"B");
    const SearchTurns turns(*main, [&](int turn) {
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

TEST_F(SearchDisturbed, AFileThatIsGoneHasNoSites)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 1) DeleteFileW(folder.file(L"B.udb").c_str());
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(panel(2), L"19 site(s) searched");
    EXPECT_FALSE(folder.has(L"B.udb"));
}

TEST_F(SearchDisturbed, AFileThatAnotherProgramHoldsHasNoSitesAndIsKept)
{
    HANDLE held = INVALID_HANDLE_VALUE;
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        held = CreateFileW(folder.file(L"B.udb").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                           nullptr);
    });
    find(L"");
    CloseHandle(held);
    EXPECT_EQ(foundFrom(L"B"), 0);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
}

TEST_F(SearchDisturbed, AFileThatGrowsIsSearchedAsItIsWhenItsTurnComes)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        folder.write(L"A.udb", manySites("a", 20));
        folder.write(L"B.udb", manySites("b", 4));
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"B"), 4);
    EXPECT_EQ(panel(2), L"23 site(s) searched");
}

TEST_F(SearchDisturbed, ASiteThatIsAddedGoesToTheShownCategoryAlone)
{
    clickCategory(L"B");
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        ASSERT_EQ(selectedTitle(), L"A");
        siteRows().add({L"added", L"http://added.example/", L"", L"1/1/2003"}, siteImage);
        SaveItems(workspace());
    });
    find(L"");
    EXPECT_EQ(folder.read(L"A.udb"), manySites("a", 12) + "added|http://added.example/||1/1/2003\r\n");
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
    EXPECT_EQ(folder.read(L"C.udb"), manySites("c", 7));
    EXPECT_EQ(foundFrom(L"A"), 12) << "what is added meanwhile is not looked at";
    EXPECT_EQ(found()[11], L"a 12");
}

TEST_F(SearchDisturbed, SitesThatAreRemovedMeanwhileDisturbNothing)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        for (int i = 0; i < 6; ++i) siteRows().remove(5);
        SaveItems(workspace());
    });
    find(L"");
    EXPECT_EQ(foundFrom(L"A"), 12);
    EXPECT_EQ(foundFrom(L"C"), 7);
    EXPECT_EQ(lstInfo().count(), 6U);
}

TEST_F(SearchDisturbed, ACategoryWhoseTitleIsBeingTypedGetsItAndNoOther)
{
    const CurrentFolder current(folder.path()); // files are renamed in the current folder
    const SearchTurns turns(*main, [&](int turn) {
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

TEST_F(SearchDisturbed, ASiteThatIsMovedMeanwhileIsMovedOnce)
{
    const SearchTurns turns(*main, [&](int turn) {
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

} // namespace
} // namespace vandrel::test
