#include "search/quick_search.h"

#include "tests/support/input.h"
#include "tests/support/message_watch.h"
#include "tests/support/store_test.h"
#include "tests/support/window_parts.h"
#include "tests/support/wine.h"

namespace vandrel::test {
namespace {

class QuickSearch : public StoreTest {
  protected:
    // Alpha and Gamma hold "one" in their names.
    void startWithThree()
    {
        startWith("Alpha One|http://a.example/|d|1/1/2003\r\n"
                  "Beta|http://Address.example/|Text|1/1/2003\r\n"
                  "Gamma one|http://c.example/|d|1/1/2003\r\n");
    }
    void startWith(const std::string& sites)
    {
        folder.write(L"Work.udb", sites);
        start();
        SendMessageW(main->handle(), WM_TIMER, 1, 0); // as the timer does every millisecond
    }
    ComboBox& box() { return main->searchPanel().cmbSearch; }
    HWND edit() { return GetWindow(box().handle(), GW_CHILD); }
    void click() { SendMessageW(main->searchPanel().cmdSearch.handle(), BM_CLICK, 0, 0); }
    void search(const std::wstring& term)
    {
        box().setText(term);
        click();
    }
    void expectNoMore(const std::wstring& term)
    {
        Answers answers;
        answers.expectBox(L"Search", L"No more matches were found.", IDOK, MB_ICONASTERISK);
        search(term);
        EXPECT_ANSWERED(answers);
    }
    std::optional<std::size_t> current() { return lstInfo().currentRow(); }
    Lines history()
    {
        Lines entries;
        for (std::size_t i = 0; i < box().count(); ++i) entries.push_back(box().entry(i));
        return entries;
    }
    // The entry in the list that the keys or the mouse have highlighted.
    std::wstring highlighted()
    {
        return box().entry(static_cast<std::size_t>(SendMessageW(box().handle(), CB_GETCURSEL, 0, 0)));
    }
    std::wstring panel(int number) { return workspace().StatusBar1.panelText(number); }
    bool isInView(std::size_t row)
    {
        const auto top = static_cast<std::size_t>(SendMessageW(lstInfo().handle(), LVM_GETTOPINDEX, 0, 0));
        const auto rows = static_cast<std::size_t>(
            SendMessageW(lstInfo().handle(), LVM_GETCOUNTPERPAGE, 0, 0));
        return row >= top && row < top + rows;
    }
};

TEST_F(QuickSearch, TheFocusRemovesThePrompt)
{
    startWithThree();
    EXPECT_EQ(box().text(), L"Quick Search");
    SetFocus(edit());
    EXPECT_EQ(box().text(), L"");
}

TEST_F(QuickSearch, TheFocusLeavesEveryOtherTextAlone)
{
    startWithThree();
    for (const wchar_t* const text :
         {L"quick search", L"QUICK SEARCH", L"Quick Search ", L" Quick Search", L"news"}) {
        lstInfo().setFocus();
        box().setText(text);
        SetFocus(edit());
        EXPECT_EQ(box().text(), text);
    }
}

TEST_F(QuickSearch, TheButtonFindsTheNextSiteAfterTheCurrentOne)
{
    startWithThree();
    lstInfo().select(0);
    search(L"ONE");
    EXPECT_EQ(current(), std::optional<std::size_t>(2)) << "the one that it starts from is not looked at";
    expectNoMore(L"ONE");
    EXPECT_EQ(current(), std::optional<std::size_t>(2)) << "it does not begin again";
}

TEST_F(QuickSearch, WithNoSelectedSiteItBeginsWithTheFirst)
{
    startWithThree();
    lstInfo().clearSelection();
    search(L"one");
    EXPECT_EQ(current(), std::optional<std::size_t>(0));
    search(L"one");
    EXPECT_EQ(current(), std::optional<std::size_t>(2));
}

TEST_F(QuickSearch, OnlyTheNameIgnoresLetterCase)
{
    startWithThree();
    for (const wchar_t* const term : {L"BETA", L"beta", L"Address", L"Text"}) {
        lstInfo().select(0);
        search(term);
        EXPECT_EQ(current(), std::optional<std::size_t>(1)) << testing::PrintToString(std::wstring(term));
    }
    for (const wchar_t* const term : {L"address", L"ADDRESS", L"text", L"TEXT"}) {
        lstInfo().select(0);
        expectNoMore(term);
        EXPECT_EQ(current(), std::optional<std::size_t>(0));
    }
}

TEST_F(QuickSearch, TheDateIsNotLookedAt)
{
    startWithThree();
    expectNoMore(L"2003");
}

TEST_F(QuickSearch, AnEmptyTermSelectsTheNextSite)
{
    startWithThree();
    lstInfo().select(0);
    search(L"");
    EXPECT_EQ(current(), std::optional<std::size_t>(1));
    search(L"");
    EXPECT_EQ(current(), std::optional<std::size_t>(2));
    expectNoMore(L"");
}

TEST_F(QuickSearch, EnterSearchesAndInsertsNothing)
{
    startWithThree();
    lstInfo().select(0);
    SetFocus(edit());
    box().setText(L"one");
    SendMessageW(edit(), EM_SETSEL, 3, 3);
    int reached = 0;
    const MessageWatch watch(edit(), WM_CHAR, [&] { ++reached; });
    PostMessageW(edit(), WM_CHAR, VK_RETURN, 1);
    MessageLoop::current().dispatchPending();
    EXPECT_EQ(current(), std::optional<std::size_t>(2));
    EXPECT_EQ(box().text(), L"one");
    EXPECT_EQ(reached, 0) << "the box would beep";
    PostMessageW(edit(), WM_CHAR, L's', 1);
    MessageLoop::current().dispatchPending();
    EXPECT_EQ(reached, 1) << "other keys pass";
    EXPECT_EQ(box().text(), L"ones");
}

TEST_F(QuickSearch, TheKeyItselfSearchesAndFindsTheNextEachTime)
{
    startWithThree();
    lstInfo().clearSelection();
    SetFocus(edit());
    box().setText(L"one");
    for (const std::size_t row : {0U, 2U}) {
        pressKey(VK_RETURN);
        EXPECT_EQ(current(), std::optional<std::size_t>(row));
        EXPECT_EQ(GetFocus(), edit()) << "the focus stays for the next time";
    }
    Answers answers;
    answers.expectBox(L"Search", L"No more matches were found.", IDOK, MB_ICONASTERISK);
    pressKey(VK_RETURN);
    EXPECT_ANSWERED(answers);
}

TEST_F(QuickSearch, EnterElsewhereSearchesNothing)
{
    startWithThree();
    lstInfo().select(0);
    box().setText(L"one");
    lstCategory().setFocus();
    pressKey(VK_RETURN);
    EXPECT_EQ(current(), std::optional<std::size_t>(0));
    EXPECT_TRUE(history().empty());
}

TEST_F(QuickSearch, EnterInTheOpenListTakesTheEntryAndSearchesNothing)
{
    startWithThree();
    for (const wchar_t* const term : {L"one", L"beta"}) {
        lstInfo().clearSelection();
        search(term);
    }
    lstInfo().clearSelection();
    SetFocus(edit());
    box().setText(L"typed");
    SendMessageW(box().handle(), CB_SHOWDROPDOWN, TRUE, 0);
    for (const std::wstring& entry : {std::wstring(L"one"), std::wstring(L"beta")}) {
        for (int rows = 0; rows < 2 && highlighted() != entry; ++rows) pressKey(VK_DOWN);
        ASSERT_EQ(highlighted(), entry);
        pressKey(VK_RETURN);
        EXPECT_EQ(box().text(), entry);
        EXPECT_FALSE(SendMessageW(box().handle(), CB_GETDROPPEDSTATE, 0, 0));
        EXPECT_EQ(current(), std::nullopt) << "not yet";
        EXPECT_EQ(GetFocus(), edit());
        SendMessageW(box().handle(), CB_SHOWDROPDOWN, TRUE, 0);
    }
    SendMessageW(box().handle(), CB_SHOWDROPDOWN, FALSE, 0);
    pressKey(VK_RETURN);
    EXPECT_EQ(current(), std::optional<std::size_t>(1)) << "the next one searches";
}

TEST_F(QuickSearch, EnterTakesTheEntryThatTheMouseIsOver)
{
    startWithThree();
    search(L"one");
    lstInfo().clearSelection();
    SetFocus(edit());
    box().setText(L"typed");
    SendMessageW(box().handle(), CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(box().handle(), &parts));
    SendMessageW(parts.hwndList, LB_SETCURSEL, 0, 0);
    pressKey(VK_RETURN);
    EXPECT_EQ(box().text(), L"one");
    EXPECT_FALSE(SendMessageW(box().handle(), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(current(), std::nullopt);
}

TEST_F(QuickSearch, EnterInAListWithoutAChosenEntryClosesItAndKeepsTheText)
{
    startWithThree();
    search(L"one");
    lstInfo().clearSelection();
    SetFocus(edit());
    SendMessageW(box().handle(), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    box().setText(L"typed");
    SendMessageW(box().handle(), CB_SHOWDROPDOWN, TRUE, 0);
    ASSERT_EQ(SendMessageW(box().handle(), CB_GETCURSEL, 0, 0), CB_ERR);
    pressKey(VK_RETURN);
    EXPECT_EQ(box().text(), L"typed");
    EXPECT_FALSE(SendMessageW(box().handle(), CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(current(), std::nullopt);
}

TEST_F(QuickSearch, ATermIsRememberedOnceAndAgainInAnotherLetterCase)
{
    startWithThree();
    EXPECT_TRUE(history().empty());
    for (const wchar_t* const term : {L"one", L"gamma", L"one", L"One", L"gamma"}) {
        lstInfo().select(0);
        search(term);
    }
    EXPECT_EQ(history(), (Lines{L"one", L"gamma", L"One"})) << "in the order in which they came";
    EXPECT_EQ(box().text(), L"gamma");
}

TEST_F(QuickSearch, ATermThatIsNotFoundIsRememberedToo)
{
    startWithThree();
    expectNoMore(L"nowhere");
    EXPECT_EQ(history(), Lines{L"nowhere"});
}

TEST_F(QuickSearch, TheEmptyTermIsRememberedToo)
{
    startWithThree();
    lstInfo().select(0);
    search(L"");
    lstInfo().select(0);
    search(L"");
    EXPECT_EQ(history(), Lines{L""});
}

TEST_F(QuickSearch, RemembersAnyNumberOfTerms)
{
    startWithThree();
    Lines expected;
    for (int i = 0; i < 150; ++i) {
        lstInfo().select(0);
        expected.push_back(std::wstring(static_cast<std::size_t>(i % 2 + 1), L'a') + std::to_wstring(i));
        siteRows().setText(1, 0, expected.back());
        search(expected.back());
    }
    EXPECT_EQ(history(), expected);
}

TEST_F(QuickSearch, TheHitAloneIsSelected)
{
    startWithThree();
    selectSites({0, 1});
    search(L"one");
    EXPECT_EQ(lstInfo().selectedCount(), 1U);
    EXPECT_TRUE(lstInfo().isSelected(2));
}

TEST_F(QuickSearch, TheHitIsBroughtIntoViewAndShownInTheStatusBar)
{
    std::string many;
    for (int i = 0; i < 500; ++i) many += "plain||\r\n";
    startWith(many + "wanted|http://wanted.example/|\r\n");
    lstInfo().select(0);
    ASSERT_FALSE(isInView(500));
    search(L"wanted");
    EXPECT_EQ(current(), std::optional<std::size_t>(500));
    EXPECT_TRUE(isInView(500));
    EXPECT_EQ(panel(2), L"Name: wanted  ");
    EXPECT_EQ(panel(3), L"URL: http://wanted.example/  ");
}

TEST_F(QuickSearch, LooksInTheShownCategoryAlone)
{
    folder.write(L"Other.udb", "one more||\r\n");
    startWithThree();
    clickCategory(L"Other");
    lstInfo().select(0);
    expectNoMore(L"one");
    EXPECT_EQ(selectedTitle(), L"Other");
}

TEST_F(QuickSearch, CannotStartBeyondTheLargestNumber)
{
    std::string many;
    for (int i = 0; i < 33'000; ++i) many += "s||\r\n";
    startWith(many);
    lstInfo().select(32'765);
    search(L"s");
    EXPECT_EQ(current(), std::optional<std::size_t>(32'766));
    Answers answers;
    expectErrorBox(answers, 6, L"Overflow");
    box().setText(L"s again");
    click();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(current(), std::optional<std::size_t>(32'766));
    EXPECT_EQ(history(), Lines{L"s"}) << "what failed is not remembered";
}

TEST_F(QuickSearch, FindsWhatLiesBeyondTheLargestNumber)
{
    std::string many;
    for (int i = 0; i < 33'000; ++i) many += "s||\r\n";
    startWith(many + "wanted||\r\n");
    lstInfo().select(0);
    search(L"wanted");
    EXPECT_EQ(current(), std::optional<std::size_t>(33'000));
}

TEST_F(QuickSearch, IsDisabledWhileThereIsNoSite)
{
    folder.write(L"Unused.udb", "");
    startWithThree();
    clickCategory(L"Work");
    SendMessageW(main->handle(), WM_TIMER, 1, 0);
    EXPECT_TRUE(main->searchPanel().enabled());
    clickCategory(L"Unused");
    SendMessageW(main->handle(), WM_TIMER, 1, 0);
    EXPECT_FALSE(main->searchPanel().enabled());
    EXPECT_FALSE(IsWindowEnabled(box().handle()));
    EXPECT_FALSE(IsWindowEnabled(main->searchPanel().cmdSearch.handle()));
    clickCategory(L"Work");
    SendMessageW(main->handle(), WM_TIMER, 1, 0);
    EXPECT_TRUE(main->searchPanel().enabled());
}

// The search itself, as the command calls it.
TEST_F(QuickSearch, TheSearchItselfBeginsAtTheRowItIsGivenAndNeitherScrollsNorFocuses)
{
    std::string many;
    for (int i = 0; i < 500; ++i) many += "plain||\r\n";
    startWith("Wanted||\r\n" + many + "wanted||\r\n");
    lstCategory().setFocus();
    Search(workspace(), L"WANTED", 1, SearchMode::text, 0);
    EXPECT_EQ(current(), std::optional<std::size_t>(0));
    int scrolled = 0;
    const MessageWatch watch(lstInfo().handle(), LVM_ENSUREVISIBLE, [&] { ++scrolled; });
    Search(workspace(), L"WANTED", 2, SearchMode::text, 7);
    EXPECT_EQ(current(), std::optional<std::size_t>(501));
    EXPECT_EQ(scrolled, 0);
    // Wine scrolls to a row that becomes the current one.
    if (!runsUnderWine()) {
        EXPECT_FALSE(isInView(501));
    }
    EXPECT_TRUE(lstCategory().hasFocus());
    Search(workspace(), L"wanted", 1, SearchMode::binary, 0);
    EXPECT_EQ(current(), std::optional<std::size_t>(501));
    Answers answers;
    answers.expectBox(L"Search", L"No more matches were found.", IDOK, MB_ICONASTERISK);
    Search(workspace(), L"WANTED", 1, SearchMode::binary, 0);
    EXPECT_ANSWERED(answers);
}

// A message filter starts the search, and no error may leave it.
TEST_F(QuickSearch, BeyondTheLastRowThatTheNumberCanHoldEnterShowsTheErrorAndTheProgramGoesOn)
{
    std::string many;
    for (int i = 0; i < 34'000; ++i) many += i == 33'000 || i == 33'500 ? "needle|u\r\n" : "n|u\r\n";
    startWith(many);
    box().setFocus();
    box().setText(L"needle");
    const auto enter = [&] {
        PostMessageW(edit(), WM_CHAR, VK_RETURN, 1);
        MessageLoop::current().dispatchPending();
    };
    enter();
    ASSERT_EQ(lstInfo().currentRow(), std::optional<std::size_t>(33'000));
    Answers answers;
    expectErrorBox(answers, 6, L"Overflow");
    enter();
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindow(main->handle()));
    EXPECT_EQ(lstInfo().currentRow(), std::optional<std::size_t>(33'000));
}

} // namespace
} // namespace vandrel::test
