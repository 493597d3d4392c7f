#include "tests/support/list_fixture.h"
#include "tests/window/search/search_of_three.h"

namespace vandrel::test {
namespace {

using SearchRunning = SearchOfThreeTest;

TEST_F(SearchRunning, TheSecondPanelCountsInFivesAndBeginsAgainWithEveryCategory)
{
    Lines seen;
    const SearchTurns turns(*main, [&](int) { seen.push_back(panel(2)); });
    find(L"nowhere to be found");
    EXPECT_EQ(seen, (Lines{L"5 site(s) searched", L"10 site(s) searched", L"5 site(s) searched"}));
    EXPECT_EQ(panel(2), L"22 site(s) searched");
}

TEST_F(SearchRunning, TheResultsSoFarAreThere)
{
    std::vector<std::size_t> counts;
    const SearchTurns turns(*main, [&](int) { counts.push_back(search().results().count()); });
    find(L"");
    EXPECT_EQ(counts, (std::vector<std::size_t>{5, 10, 20}));
}

TEST_F(SearchRunning, TheMainWindowShowsTheCategoryThatIsSearched)
{
    Lines shown;
    const SearchTurns turns(*main,
                            [&](int) { shown.push_back(selectedTitle() + L": " + lstInfo().text(0)); });
    find(L"");
    EXPECT_EQ(shown, (Lines{L"A: a 1", L"A: a 1", L"C: c 1"}));
    EXPECT_EQ(selectedTitle(), L"A");
}

TEST_F(SearchRunning, TheSearchsOwnControlsAreDisabledAndTheOthersAreNot)
{
    const SearchTurns turns(*main, [&](int) {
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

TEST_F(SearchRunning, TheFocusInTheWindowIsNotLost)
{
    SetFocus(part(parts::term));
    const SearchTurns turns(*main, [&](int) { EXPECT_TRUE(IsWindowEnabled(GetFocus())); });
    pressKey(VK_RETURN);
    EXPECT_EQ(turns.count(), 3);
    EXPECT_EQ(GetFocus(), part(parts::term));
}

TEST_F(SearchRunning, CloseEndsItAndShowsThePreviousCategory)
{
    clickCategory(L"B");
    const SearchTurns turns(*main, [&](int turn) {
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
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 1) PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    SetFocus(part(parts::term));
    pressKey(VK_RETURN);
    EXPECT_EQ(turns.count(), 1);
    EXPECT_TRUE(pumpUntil([&] { return main->searchWindow() == nullptr; }));
}

TEST_F(SearchRunning, WhenClosedItLivesUntilTheSearchHasEnded)
{
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        press(dialog(), IDCANCEL);
        const frmSearch* const before = main->searchWindow();
        SendMessageW(main->handle(), WM_TIMER, 1, 0); // as the timer does every millisecond
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
    const SearchTurns turns(*main, [&](int turn) {
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
    const SearchTurns turns(*main, [&](int) {
        press(dialog(), IDOK);
        SendMessageW(dialog(), WM_COMMAND, IDOK, 0);
        EXPECT_EQ(search().results().count() % 5, 0U);
    });
    find(L"");
    EXPECT_EQ(turns.count(), 3);
    EXPECT_EQ(search().results().count(), 22U);
}

TEST_F(SearchRunning, ResultsThatAreSortedMeanwhileAreSortedInTheEnd)
{
    const SearchTurns turns(*main, [&](int turn) {
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
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 1) search().results().selectAll();
    });
    find(L"");
    EXPECT_TRUE(search().results().isSelected(0));
    EXPECT_EQ(search().results().selectedCount(), 1U);
}

TEST_F(SearchRunning, SeveralSelectedResultsStaySelectedWhileItRuns)
{
    std::vector<std::vector<std::size_t>> selected;
    const SearchTurns turns(*main, [&](int turn) {
        ListView& results = search().results();
        if (turn == 1) selectRows(results, {1, 3});
        selected.push_back(selectedRows(results));
        EXPECT_EQ(results.selectedCount(), 2U);
    });
    find(L"");
    EXPECT_EQ(selected, (std::vector<std::vector<std::size_t>>(3, {1, 3})));
    EXPECT_EQ(selectedRows(search().results()), std::vector<std::size_t>{0});
}

TEST_F(SearchRunning, FindShowsTheSameWindow)
{
    const HWND before = dialog();
    const SearchTurns turns(*main, [&](int) {
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
    const SearchTurns turns(*main, [&](int turn) {
        if (turn == 1) SetWindowTextW(part(parts::term), L"nowhere to be found");
    });
    find(L"");
    EXPECT_EQ(search().results().count(), 22U);
}

} // namespace
} // namespace vandrel::test
