#include "tests/support/input.h"
#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

class OptionsPages : public OptionsTest {
  protected:
    // 1 or 2, the visible page, whose tab must be the selected one; 0 when they do not match.
    static int shownPage(const OptionsDialog& dialog)
    {
        const bool first = IsWindowVisible(dialog.page(options::appearancePage)) != 0;
        const bool second = IsWindowVisible(dialog.page(options::htmlPage)) != 0;
        const LRESULT tab = SendMessageW(dialog.part(options::tabs), TCM_GETCURSEL, 0, 0);
        if (first == second || tab != (first ? 0 : 1)) return 0;
        return first ? 1 : 2;
    }
    static void clickTab(const OptionsDialog& dialog, WPARAM tab)
    {
        RECT area{};
        SendMessageW(dialog.part(options::tabs), TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&area));
        const LPARAM at = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
        SendMessageW(dialog.part(options::tabs), WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(dialog.part(options::tabs), WM_LBUTTONUP, 0, at);
    }
    // Chooses a tab as screen readers do, and clicks on Windows. Under Wine a click also moves the focus to
    // the tabs.
    static void chooseTab(const OptionsDialog& dialog, WPARAM tab)
    {
        SendMessageW(dialog.part(options::tabs), TCM_SETCURFOCUS, tab, 0);
        ASSERT_EQ(shownPage(dialog), tab == 0 ? 1 : 2);
    }
    std::vector<int> stops(const OptionsDialog& dialog, int count, bool shift = false)
    {
        std::vector<int> passed;
        for (int stop = 0; stop < count; ++stop) {
            HWND focus = GetFocus();
            while (focus != nullptr && GetParent(focus) != dialog.window &&
                   GetParent(focus) != dialog.page(options::appearancePage) &&
                   GetParent(focus) != dialog.page(options::htmlPage))
                focus = GetParent(focus);
            passed.push_back(GetDlgCtrlID(focus));
            pressKey(VK_TAB, false, shift);
        }
        return passed;
    }
};

TEST_F(OptionsPages, AClickOnATabShowsItsPageAndHidesTheOther)
{
    const OptionsDialog dialog = open();
    EXPECT_EQ(shownPage(dialog), 1);
    clickTab(dialog, 1);
    EXPECT_EQ(shownPage(dialog), 2);
    clickTab(dialog, 1);
    EXPECT_EQ(shownPage(dialog), 2);
    clickTab(dialog, 0);
    EXPECT_EQ(shownPage(dialog), 1);
}

TEST_F(OptionsPages, CtrlTabAndSimilarKeysGoThroughThePagesFromAnywhere)
{
    const OptionsDialog dialog = open();
    for (const int field : {options::fonts, options::fontSize, options::bold, IDOK, options::tabs}) {
        SCOPED_TRACE(field);
        dialog.focus(field);
        pressKey(VK_TAB, true);
        EXPECT_EQ(shownPage(dialog), 2);
        pressKey(VK_TAB, true);
        EXPECT_EQ(shownPage(dialog), 1) << "around";
        pressKey(VK_TAB, true, true);
        EXPECT_EQ(shownPage(dialog), 2) << "around backwards";
        pressKey(VK_PRIOR, true);
        EXPECT_EQ(shownPage(dialog), 1);
        pressKey(VK_NEXT, true);
        EXPECT_EQ(shownPage(dialog), 2);
        pressKey(VK_TAB, true, true);
        EXPECT_EQ(shownPage(dialog), 1);
    }
}

TEST_F(OptionsPages, TheKeyboardIsNotLeftOnAPageThatIsHidden)
{
    const OptionsDialog dialog = open();
    dialog.focus(options::fontSize);
    pressKey(VK_TAB, true);
    EXPECT_TRUE(IsWindowVisible(GetFocus()));
    EXPECT_TRUE(IsChild(dialog.window, GetFocus()));
    pressKey(VK_ESCAPE);
    EXPECT_TRUE(loaded->unloaded());
}

TEST_F(OptionsPages, AClickOnATabLeavesTheKeyboardOnNoHiddenPageEither)
{
    const OptionsDialog dialog = open();
    dialog.focus(options::fonts);
    clickTab(dialog, 1);
    pressKey(VK_TAB);
    ASSERT_TRUE(IsChild(dialog.window, GetFocus()));
    EXPECT_TRUE(IsWindowVisible(GetFocus()));
    dialog.focus(options::border);
    clickTab(dialog, 0);
    pressKey(VK_ESCAPE);
    EXPECT_TRUE(loaded->unloaded());
}

TEST_F(OptionsPages, AfterAChoiceOfATabNothingHiddenHasTheKeyboard)
{
    const OptionsDialog dialog = open();
    for (const int field : {options::fonts, options::fontSize, options::bold, options::fontColor}) {
        SCOPED_TRACE(field);
        dialog.focus(field);
        chooseTab(dialog, 1);
        EXPECT_EQ(GetFocus(), dialog.part(options::tabs));
        chooseTab(dialog, 0);
    }
    for (const int field : {options::htmlFonts, options::border, options::empty}) {
        SCOPED_TRACE(field);
        chooseTab(dialog, 1);
        dialog.focus(field);
        chooseTab(dialog, 0);
        EXPECT_EQ(GetFocus(), dialog.part(options::tabs));
    }
}

TEST_F(OptionsPages, AKeyAfterThatChangesNoHiddenFont)
{
    const OptionsDialog dialog = open();
    dialog.focus(options::fonts);
    const auto font = dialog.selected(options::fonts);
    chooseTab(dialog, 1);
    pressKey(VK_DOWN);
    pressKey(VK_UP);
    pressKey(VK_END);
    EXPECT_EQ(dialog.selected(options::fonts), font);
}

TEST_F(OptionsPages, WhatStaysInSightKeepsTheKeyboard)
{
    const OptionsDialog dialog = open();
    for (const int button : {IDOK, IDCANCEL}) {
        dialog.focus(button);
        chooseTab(dialog, 1);
        EXPECT_EQ(GetFocus(), dialog.part(button));
        chooseTab(dialog, 0);
        EXPECT_EQ(GetFocus(), dialog.part(button));
    }
}

TEST_F(OptionsPages, ArrowsOnTheTabsGoThroughThem)
{
    const OptionsDialog dialog = open();
    dialog.focus(options::tabs);
    pressKey(VK_RIGHT);
    EXPECT_EQ(shownPage(dialog), 2);
    pressKey(VK_LEFT);
    EXPECT_EQ(shownPage(dialog), 1);
}

TEST_F(OptionsPages, TabGoesThroughThePageThatIsSeenTheButtonsAndTheTabs)
{
    const OptionsDialog dialog = open();
    EXPECT_EQ(stops(dialog, 9),
              (std::vector<int>{options::fonts, options::fontSize, options::bold, options::italic,
                                options::fontColor, IDOK, IDCANCEL, options::tabs, options::fonts}));
    dialog.focus(options::tabs);
    pressKey(VK_RIGHT);
    ASSERT_EQ(shownPage(dialog), 2);
    EXPECT_EQ(stops(dialog, 8),
              (std::vector<int>{options::tabs, options::htmlFonts, options::border, options::width,
                                options::empty, IDOK, IDCANCEL, options::tabs}));
    dialog.focus(options::htmlFonts);
    EXPECT_EQ(stops(dialog, 3, true), (std::vector<int>{options::htmlFonts, options::tabs, IDCANCEL}));
}

TEST_F(OptionsPages, WhatWasTypedOnAPageStaysWhileTheOtherIsSeenAndOkTakesBoth)
{
    const OptionsDialog dialog = open();
    dialog.type(options::fontSize, L"15");
    clickTab(dialog, 1);
    dialog.type(options::border, L"2");
    clickTab(dialog, 0);
    EXPECT_EQ(dialog.text(options::fontSize), L"15");
    clickTab(dialog, 1);
    EXPECT_EQ(dialog.text(options::border), L"2");
    press(dialog.window, IDOK);
    EXPECT_EQ(state.font.size, 15);
    EXPECT_EQ(state.htmlBorder, 2);
}

} // namespace
} // namespace vandrel::test
