#include "tests/program/support/program_test.h"

#include <commctrl.h>

namespace vandrel::test {
namespace {

constexpr const wchar_t* searchCaption = L"Search All Categories";

class SearchByKeyboard : public ProgramTest {
  protected:
    SearchByKeyboard()
    {
        folder.write(L"A.udb", "Apple|http://fruit/|green|1/1/2001\r\n"
                               "Banana|http://apple/|yellow|1/1/2001\r\n"
                               "Cherry|http://red/|like an apple|1/1/2001\r\n"
                               "Date|http://brown/||1/1/2001\r\n");
        folder.write(L"B.udb", "Pineapple|http://spiky/||1/1/2001\r\n"
                               "Plum|http://blue/||1/1/2001\r\n");
        start();
        program.openCategory(L"A");
        EXPECT_SOON(program.siteCount(), 4);
    }

    // ---- the search window

    HWND openSearch() const
    {
        program.key('F', {VK_CONTROL});
        return program.dialog(searchCaption);
    }
    static HWND results(HWND dialog) { return FindWindowExW(dialog, nullptr, WC_LISTVIEWW, nullptr); }
    static HWND statusBar(HWND dialog) { return FindWindowExW(dialog, nullptr, STATUSCLASSNAMEW, nullptr); }
    std::wstring hits(HWND dialog) const { return program.controls().panelText(statusBar(dialog), 0); }
    Texts names(HWND dialog) const { return program.controls().column(results(dialog), 0); }
    // Large enough that the search window, which opens over its middle, leaves the upper left corner free.
    void makeRoomForBoth() const
    {
        SetWindowPos(program.window(), nullptr, 0, 0, 1200, 900, SWP_NOZORDER | SWP_NOACTIVATE);
        EXPECT_TRUE(soon([&] {
            RECT area{};
            GetWindowRect(program.window(), &area);
            return area.right - area.left == 1200 && area.bottom - area.top == 900;
        }));
    }
    // Tab from the box of the term to the section that is chosen.
    void goToSections() const
    {
        program.key(VK_TAB);
        EXPECT_SOON(program.focusText(), std::wstring(L"&Search"));
        program.key(VK_TAB);
    }

    // ---- the quick search

    void goToSearchBox() const
    {
        program.click(program.sites(), 3);
        EXPECT_SOON(program.panel(2), std::wstring(L"Name: Date  "));
        program.key(VK_HOME);
        EXPECT_TRUE(soon([&] { return isSelected(L"Apple"); }));
        program.key(VK_TAB);
        EXPECT_SOON(program.focus(), program.searchBox());
        EXPECT_SOON(program.focusText(), std::wstring());
    }
    bool isSelected(const std::wstring& name) const
    {
        const auto rows = program.controls().selectedRows(program.sites());
        return rows.size() == 1 && program.controls().cell(program.sites(), rows[0], 0) == name;
    }
    HWND history() const { return GetParent(program.searchBox()); }
};

TEST_F(SearchByKeyboard, ATermAndEnterListTheSitesOfAllCategories)
{
    const HWND dialog = openSearch();
    program.type(L"apple");
    program.key(VK_RETURN);
    EXPECT_SOON(names(dialog), (Texts{L"Apple", L"Banana", L"Cherry", L"Pineapple"}));
    EXPECT_SOON(hits(dialog), std::wstring(L"4 site(s) found"));
    EXPECT_EQ(program.controls().panelText(statusBar(dialog), 1), L"6 site(s) searched");
    EXPECT_EQ(program.controls().column(results(dialog), 2), (Texts{L"A", L"A", L"A", L"B"}));
    EXPECT_EQ(program.controls().selectedRows(results(dialog)), std::vector{0});
    EXPECT_EQ(program.caption(), L"Vandrel - A");
    EXPECT_EQ(program.siteCount(), 4);
}

TEST_F(SearchByKeyboard, ATermInCapitalsIsFoundInNamesOnlyAndNotAtAllWhenCaseMatters)
{
    const HWND dialog = openSearch();
    program.type(L"APPLE");
    program.key(VK_RETURN);
    EXPECT_SOON(hits(dialog), std::wstring(L"2 site(s) found"));
    EXPECT_EQ(names(dialog), (Texts{L"Apple", L"Pineapple"}));

    goToSections();
    EXPECT_SOON(program.focusText(), std::wstring(L"All Sections"));
    program.key(VK_TAB);
    EXPECT_SOON(program.focusText(), std::wstring(L"Case Sensitive"));
    program.key(VK_SPACE);
    EXPECT_SOON(ask(program.focus(), BM_GETCHECK), static_cast<LRESULT>(BST_CHECKED));
    program.key(VK_RETURN);
    EXPECT_SOON(hits(dialog), std::wstring(L"0 sites found"));
    EXPECT_EQ(names(dialog), Texts{L"No results found."});
}

TEST_F(SearchByKeyboard, TabAndArrowsChooseTheSectionThatIsSearched)
{
    const HWND dialog = openSearch();
    const HWND term = program.focus();
    program.type(L"apple");
    const wchar_t* before = L"All Sections";
    const struct {
        const wchar_t* section;
        Texts found;
    } steps[] = {{L"Name Only", {L"Apple", L"Pineapple"}},
                 {L"URL Only", {L"Banana"}},
                 {L"Description only", {L"Cherry"}}};
    for (const auto& step : steps) {
        goToSections();
        EXPECT_SOON(program.focusText(), std::wstring(before)); // the chosen one
        program.key(VK_DOWN);
        EXPECT_SOON(program.focusText(), std::wstring(step.section));
        EXPECT_EQ(ask(program.focus(), BM_GETCHECK), BST_CHECKED);
        program.key(VK_RETURN);
        EXPECT_SOON(names(dialog), step.found);
        EXPECT_SOON(program.focus(), term); // for the next term
        before = step.section;
    }
}

TEST_F(SearchByKeyboard, AltSSearchesAndAltCClosesFromTheResultsToo)
{
    const HWND dialog = openSearch();
    program.type(L"Plum");
    program.key('S', {VK_MENU});
    EXPECT_SOON(names(dialog), Texts{L"Plum"});
    for (int tabs = 0; tabs < 10 && program.focus() != results(dialog); ++tabs) {
        const HWND before = program.focus();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != before; }));
    }
    EXPECT_EQ(program.focus(), results(dialog));
    program.key('C', {VK_MENU});
    program.back();
    EXPECT_EQ(program.caption(), L"Vandrel - A");
}

TEST_F(SearchByKeyboard, EscClosesTheSearchWindow)
{
    openSearch();
    program.type(L"apple");
    program.key(VK_ESCAPE);
    program.back();
}

TEST_F(SearchByKeyboard, TheMainWindowIsUsedWhileTheSearchWindowIsOpen)
{
    makeRoomForBoth();
    const HWND dialog = openSearch();
    program.type(L"Pear");
    program.key(VK_RETURN);
    EXPECT_SOON(hits(dialog), std::wstring(L"0 sites found"));
    program.click(program.categories(), L"B");
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - B"));
    program.addSite(L"Pear", L"http://pear/", L"");
    EXPECT_SOON(program.siteCount(), 3);
    EXPECT_EQ(program.openDialog(searchCaption), dialog);
    EXPECT_EQ(openSearch(), dialog);
    program.key('S', {VK_MENU});
    EXPECT_SOON(names(dialog), Texts{L"Pear"});
    EXPECT_EQ(program.caption(), L"Vandrel - B");
}

TEST_F(SearchByKeyboard, CtrlQInTheMainWindowQuitsWhileTheSearchWindowIsOpen)
{
    makeRoomForBoth();
    const HWND dialog = openSearch();
    program.type(L"apple");
    program.key(VK_RETURN);
    EXPECT_SOON(hits(dialog), std::wstring(L"4 site(s) found"));
    program.click(program.categories(), L"B");
    EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - B"));
    EXPECT_EQ(program.openDialog(searchCaption), dialog);
    program.key('Q', {VK_CONTROL});
    EXPECT_EQ(program.waitForEnd(), 0U);
}

TEST_F(SearchByKeyboard, AClickIntoTheSearchBoxEmptiesItOfItsPrompt)
{
    EXPECT_EQ(textOf(program.searchBox()), L"Quick Search");
    RECT area{};
    GetWindowRect(program.searchBox(), &area);
    program.clickAt({area.left + 5, (area.top + area.bottom) / 2});
    EXPECT_SOON(program.focus(), program.searchBox());
    EXPECT_SOON(program.focusText(), std::wstring());
    program.type(L"da");
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return isSelected(L"Date"); }));
}

TEST_F(SearchByKeyboard, EnterInTheSearchBoxFindsTheNextAndSaysWhenThereIsNoMore)
{
    goToSearchBox();
    program.type(L"apple");
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return isSelected(L"Banana"); }));
    EXPECT_EQ(program.focus(), program.searchBox());
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return isSelected(L"Cherry"); }));
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"Search"), L"No more matches were found.");
    program.back();
    EXPECT_TRUE(isSelected(L"Cherry"));
    EXPECT_SOON(program.focus(), program.searchBox());
    EXPECT_EQ(program.focusText(), L"apple");
}

TEST_F(SearchByKeyboard, AltDownOpensTheHistoryAndArrowsBringATermBack)
{
    goToSearchBox();
    for (const wchar_t* const term : {L"banana", L"cherry", L"cherry"}) {
        program.retype(term);
        program.key(VK_RETURN);
    }
    EXPECT_EQ(program.answerBox(L"Search"), L"No more matches were found.");
    program.back();
    EXPECT_SOON(ask(history(), CB_GETCOUNT), LRESULT{2});

    program.key(VK_DOWN, {VK_MENU});
    EXPECT_SOON(ask(history(), CB_GETDROPPEDSTATE), LRESULT{TRUE});
    program.key(VK_UP);
    EXPECT_SOON(textOf(program.searchBox()), std::wstring(L"banana"));
    program.key(VK_UP, {VK_MENU});
    EXPECT_SOON(ask(history(), CB_GETDROPPEDSTATE), LRESULT{FALSE});
    EXPECT_EQ(textOf(program.searchBox()), L"banana");
    EXPECT_EQ(program.focus(), program.searchBox());
}

TEST_F(SearchByKeyboard, AClosedDialogReturnsTheFocusToTheListThatHadIt)
{
    const struct Opening {
        const wchar_t* caption;
        WORD key;
        bool withControl;
    } openings[] = {{searchCaption, 'F', true},
                    {L"Import Favorites", 'I', true},
                    {L"Add Site...", VK_F3, false},
                    {L"Category Name", VK_F2, false}},
      ofASite{L"Export URL File", 'E', true};
    const auto expectBackAt = [&](HWND list, const Opening& opening) {
        if (opening.withControl) {
            program.key(opening.key, {VK_CONTROL});
        } else {
            program.key(opening.key);
        }
        const HWND dialog = program.dialog(opening.caption);
        program.key(VK_ESCAPE);
        EXPECT_TRUE(soon([&] { return !IsWindowVisible(dialog); }));
        program.back();
        EXPECT_SOON(program.focus(), list) << testing::PrintToString(std::wstring(opening.caption));
    };
    for (const HWND list : {program.categories(), program.sites()}) {
        program.click(list, 0);
        EXPECT_SOON(program.focus(), list);
        for (const Opening& opening : openings) expectBackAt(list, opening);
    }
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: Apple  "));
    expectBackAt(program.sites(), ofASite);
    program.key(VK_DELETE);
    program.answerBox(L"Remove site(s)", IDNO);
    program.back();
    EXPECT_SOON(program.focus(), program.sites());
    EXPECT_EQ(program.siteCount(), 4);
}

TEST_F(SearchByKeyboard, EnterInTheOpenHistoryTakesTheEntryAndOnlyTheNextOneSearches)
{
    goToSearchBox();
    program.type(L"cherry");
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return isSelected(L"Cherry"); }));
    program.retype(L"x");
    program.key(VK_F4);
    EXPECT_TRUE(soon([&] { return ask(history(), CB_GETDROPPEDSTATE) != 0; }));
    program.key(VK_DOWN);
    EXPECT_SOON(ask(history(), CB_GETCURSEL), LRESULT{0});
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return ask(history(), CB_GETDROPPEDSTATE) == 0; }));
    EXPECT_SOON(program.focusText(), std::wstring(L"cherry"));
    program.key(VK_HOME); // answered after Enter
    EXPECT_FALSE(program.dialogIsOpen());
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"Search"), L"No more matches were found.");
    program.back();
    EXPECT_FALSE(program.dialogIsOpen());
}

TEST_F(SearchByKeyboard, WhatTheQuickSearchFoundIsOpenedWithoutTheMouse)
{
    goToSearchBox();
    program.type(L"cherry");
    program.key(VK_RETURN);
    EXPECT_TRUE(soon([&] { return isSelected(L"Cherry"); }));
    program.key('P', {VK_CONTROL});
    program.dialog(L"Cherry's Properties");
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_SOON(program.focus(), program.searchBox());
}

} // namespace
} // namespace vandrel::test
