#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

class SearchWindow : public SearchTest {
  protected:
    bool isOn(int id) { return SendMessageW(part(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    std::wstring columnCaption(int column)
    {
        const auto header = SendMessageW(part(parts::results), LVM_GETHEADER, 0, 0);
        std::array<wchar_t, 64> text{};
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(reinterpret_cast<HWND>(header), HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        return text.data();
    }
    bool isFrontOf(HWND upper, HWND lower)
    {
        for (HWND w = upper; w != nullptr; w = GetWindow(w, GW_HWNDNEXT)) {
            if (w == lower) return true;
        }
        return false;
    }
    void waitUntilDeleted()
    {
        EXPECT_TRUE(pumpUntil([this] { return main->searchWindow() == nullptr; }));
    }
};

TEST_F(SearchWindow, OpensWithTheFindCommandAndLeavesTheMainWindowUsable)
{
    start();
    EXPECT_EQ(main->searchWindow(), nullptr);
    choose(mnuFind);
    ASSERT_NE(main->searchWindow(), nullptr);
    EXPECT_EQ(windowText(dialog()), L"Search All Categories");
    EXPECT_TRUE(IsWindowVisible(dialog()));
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
    EXPECT_EQ(GetWindow(dialog(), GW_OWNER), main->handle());
}

TEST_F(SearchWindow, OpensWithCtrlF)
{
    start();
    pressKey('F', true);
    ASSERT_NE(main->searchWindow(), nullptr);
    EXPECT_TRUE(IsWindowVisible(dialog()));
}

TEST_F(SearchWindow, IsTopmostAndTheMainWindowIsNot)
{
    start();
    open();
    EXPECT_TRUE(isTopmost(dialog()));
    EXPECT_FALSE(isTopmost(main->handle()));
    EXPECT_TRUE(isFrontOf(dialog(), main->handle()));
}

TEST_F(SearchWindow, StaysTopmostWhenKeepOnTopIsSwitchedOnAndOff)
{
    start();
    open();
    main->run(mnuKeepTop);
    EXPECT_TRUE(isTopmost(main->handle()));
    EXPECT_TRUE(isTopmost(dialog()));
    EXPECT_TRUE(isFrontOf(dialog(), main->handle()));
    main->run(mnuKeepTop);
    EXPECT_FALSE(isTopmost(main->handle()));
    EXPECT_TRUE(isTopmost(dialog()));
    EXPECT_EQ(GetWindow(dialog(), GW_OWNER), main->handle());
}

TEST_F(SearchWindow, IsTopmostAlsoWhenTheMainWindowIsKeptOnTopAlready)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    open();
    EXPECT_TRUE(isTopmost(dialog()));
    main->run(mnuKeepTop);
    EXPECT_TRUE(isTopmost(dialog()));
}

TEST_F(SearchWindow, OpenedAgainItIsTheSameWindow)
{
    start();
    open();
    typeOver(dialog(), parts::term, L"kept");
    const HWND before = dialog();
    SetActiveWindow(main->handle());
    open();
    EXPECT_EQ(dialog(), before);
    EXPECT_EQ(fieldText(dialog(), parts::term), L"kept");
    EXPECT_EQ(GetActiveWindow(), before);
}

TEST_F(SearchWindow, ShowsItsTextsAsTheyAreNamed)
{
    start();
    open();
    EXPECT_NE(frame(L"Search Term:"), nullptr);
    EXPECT_NE(frame(L"Search Section"), nullptr);
    EXPECT_NE(frame(L"Search Results"), nullptr);
    EXPECT_EQ(fieldText(dialog(), parts::term), L"");
    EXPECT_EQ(fieldText(dialog(), IDOK), L"&Search");
    EXPECT_EQ(fieldText(dialog(), IDCANCEL), L"&Close");
    EXPECT_EQ(fieldText(dialog(), parts::section), L"All Sections");
    EXPECT_EQ(fieldText(dialog(), parts::section + 1), L"Name Only");
    EXPECT_EQ(fieldText(dialog(), parts::section + 2), L"URL Only");
    EXPECT_EQ(fieldText(dialog(), parts::section + 3), L"Description only");
    EXPECT_EQ(fieldText(dialog(), parts::caseSensitive), L"Case Sensitive");
    const wchar_t* const captions[] = {L"Site Name", L"Site URL", L"Category", L"Site Description"};
    for (int column = 0; column < 4; ++column) EXPECT_EQ(columnCaption(column), captions[column]);
    EXPECT_EQ(columnCaption(4), L"");
}

TEST_F(SearchWindow, BeginsWithAllSectionsLetterCaseIgnoredAndNoResults)
{
    start();
    open();
    EXPECT_TRUE(isOn(parts::section));
    for (int other = 1; other < 4; ++other) EXPECT_FALSE(isOn(parts::section + other));
    EXPECT_FALSE(isOn(parts::caseSensitive));
    EXPECT_TRUE(search().results().empty());
    EXPECT_EQ(panel(1), L"");
    EXPECT_EQ(panel(2), L"");
}

TEST_F(SearchWindow, OneSectionIsChosenAtATime)
{
    start();
    open();
    for (const int chosen : {2, 1, 3, 0}) {
        press(dialog(), parts::section + chosen);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(isOn(parts::section + i), i == chosen);
    }
}

TEST_F(SearchWindow, TheTermHasTheFocusAndEnterSearchesForIt)
{
    startWithCategories();
    EXPECT_EQ(GetFocus(), part(parts::term));
    EXPECT_EQ(LOWORD(SendMessageW(dialog(), DM_GETDEFID, 0, 0)), IDOK);
    typeOver(dialog(), parts::term, L"weather");
    pressKey(VK_RETURN);
    EXPECT_EQ(found(), Lines{L"Weather"});
}

TEST_F(SearchWindow, EscTheButtonAndTheCloseBoxCloseIt)
{
    start();
    const std::function<void()> ways[] = {[] { pressKey(VK_ESCAPE); }, [this] { press(dialog(), IDCANCEL); },
                                          [this] { SendMessageW(dialog(), WM_CLOSE, 0, 0); }};
    for (const auto& close : ways) {
        open();
        close();
        EXPECT_TRUE(main->searchWindow() == nullptr || !IsWindowVisible(dialog()));
        waitUntilDeleted();
    }
}

// Timers run in the loops of controls, too: a press on the results is answered only after the button was released.
TEST_F(SearchWindow, WhenClosedItLivesAsLongAsAControlMayBeInTheMiddleOfItsWork)
{
    start();
    open();
    frmSearch* const closed = main->searchWindow();
    const HWND window = dialog();
    press(window, IDCANCEL);
    pump(); // as such a loop does
    SendMessageW(main->handle(), WM_TIMER, 1, 0);
    EXPECT_TRUE(IsWindow(window));
    choose(mnuFind);
    ASSERT_NE(main->searchWindow(), nullptr);
    EXPECT_NE(main->searchWindow(), closed);
    EXPECT_TRUE(IsWindow(window)) << "also when it is opened afresh meanwhile";
    MessageLoop::current().rest();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(IsWindow(dialog()));
}

TEST_F(SearchWindow, AfterClosingItOpensAfresh)
{
    startWithCategories();
    find(L"daily");
    press(dialog(), IDCANCEL);
    open();
    EXPECT_TRUE(IsWindowVisible(dialog()));
    EXPECT_EQ(fieldText(dialog(), parts::term), L"");
    EXPECT_TRUE(search().results().empty());
}

TEST_F(SearchWindow, AfterClosingTheMainWindowHasTheFocus)
{
    start();
    open();
    pressKey(VK_ESCAPE);
    EXPECT_EQ(GetActiveWindow(), main->handle());
    EXPECT_TRUE(IsChild(main->handle(), GetFocus()));
}

TEST_F(SearchWindow, TabGoesThroughTheControlsInOrder)
{
    start();
    open();
    const int stops[] = {IDOK, parts::section, parts::caseSensitive, parts::results, IDCANCEL, parts::term};
    for (const int stop : stops) {
        pressKey(VK_TAB);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), stop);
    }
    pressKey(VK_TAB, false, true);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDCANCEL);
}

TEST_F(SearchWindow, TheArrowKeysGoThroughTheSections)
{
    start();
    open();
    SendMessageW(dialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(part(parts::section)), TRUE);
    for (const int section : {1, 2, 3, 0}) {
        pressKey(VK_DOWN);
        EXPECT_EQ(GetFocus(), part(parts::section + section));
        EXPECT_TRUE(isOn(parts::section + section));
    }
    pressKey(VK_UP);
    EXPECT_TRUE(isOn(parts::section + 3));
    pressKey(VK_TAB);
    pressKey(VK_TAB, false, true);
    EXPECT_EQ(GetFocus(), part(parts::section + 3)) << "Tab leads to the one that is on";
}

TEST_F(SearchWindow, IsMinimisedToTheTaskbarAndComesBack)
{
    startWithCategories();
    EXPECT_NE(GetWindowLongPtrW(dialog(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0) << "its button in the taskbar";
    EXPECT_EQ(GetWindow(dialog(), GW_OWNER), main->handle());
    const RECT before = outerPlace(dialog());
    ShowWindow(dialog(), SW_MINIMIZE);
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(dialog()) != 0; }));
    open();
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(dialog()) == 0; }));
    const RECT after = outerPlace(dialog());
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(SearchWindow, ClosesWithTheMainWindow)
{
    start();
    open();
    const HWND window = dialog();
    SendMessageW(main->handle(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(SearchWindow, ColumnsThatWereDraggedKeepTheirWidthsAtAnotherScale)
{
    startWithCategories();
    ListView& results = search().results();
    const unsigned dpi = results.dpi();
    SendMessageW(results.handle(), LVM_SETCOLUMNWIDTH, 0, 90); // as dragging in the header does
    RECT place{};
    GetWindowRect(dialog(), &place);
    for (const unsigned next : {dpi * 3 / 2, dpi}) {
        SendMessageW(dialog(), WM_DPICHANGED, MAKEWPARAM(next, next), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(results.columnWidth(0), toTwips(90, dpi));
        EXPECT_EQ(results.columnWidth(1), 2700_twips);
        EXPECT_EQ(SendMessageW(results.handle(), LVM_GETCOLUMNWIDTH, 0, 0),
                  static_cast<LRESULT>(90 * next / dpi));
    }
}

} // namespace
} // namespace vandrel::test
