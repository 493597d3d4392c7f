#include "platform/controls/tab_strip.h"

#include "platform/controls/simple_controls.h"
#include "tests/support/input.h"
#include "tests/support/test_window.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class TabStrips : public testing::Test {
  protected:
    TabStrips()
    {
        window.show();
        strip.setFont({});
        for (const wchar_t* const caption : {L"One", L"Two", L"Three"}) strip.add(caption);
        strip.placeAround(page);
        strip.Click = [this] { ++clicks; };
    }
    void clickTab(WPARAM tab)
    {
        RECT area{};
        SendMessageW(strip.handle(), TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&area));
        const LPARAM at = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
        SendMessageW(strip.handle(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(strip.handle(), WM_LBUTTONUP, 0, at);
    }
    // Returns whether the tab strip has handled the key.
    bool take(WPARAM key, bool control, bool shift, UINT message = WM_KEYDOWN)
    {
        const HeldKeys held(controlAndShift(control, shift));
        MSG pressed{};
        pressed.hwnd = field.handle();
        pressed.message = message;
        pressed.wParam = key;
        return strip.takeKey(pressed);
    }

    TestWindow window;
    const RECT page{20, 60, 320, 260};
    Button field{window.handle(), 1, L"field"};
    TabStrip strip{window.handle(), 2};
    int clicks = 0;
};

TEST_F(TabStrips, BeginWithTheFirstTab)
{
    EXPECT_EQ(strip.count(), 3U);
    EXPECT_EQ(strip.selected(), 0U);
    const TabStrip none(window.handle(), 3);
    EXPECT_EQ(none.count(), 0U);
    EXPECT_EQ(none.selected(), 0U);
}

TEST_F(TabStrips, ReportWhenTheUserChoosesATabButNotWhenTheProgramDoes)
{
    strip.select(2);
    EXPECT_EQ(strip.selected(), 2U);
    EXPECT_EQ(clicks, 0);
    clickTab(1);
    EXPECT_EQ(strip.selected(), 1U);
    EXPECT_EQ(clicks, 1);
    clickTab(1);
    EXPECT_EQ(clicks, 1) << "it was that tab already";
}

TEST_F(TabStrips, SurroundThePage)
{
    const RECT place = strip.placeAround(page);
    RECT now{};
    GetWindowRect(strip.handle(), &now);
    MapWindowPoints(nullptr, window.handle(), reinterpret_cast<POINT*>(&now), 2);
    EXPECT_TRUE(EqualRect(&place, &now));
    EXPECT_LT(place.left, page.left);
    EXPECT_LT(place.top, page.top);
    EXPECT_GT(place.right, page.right);
    EXPECT_GT(place.bottom, page.bottom);
    RECT tab{};
    SendMessageW(strip.handle(), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
    EXPECT_LE(place.top + tab.bottom, page.top) << "the page covers no tab";
}

TEST_F(TabStrips, TheArrowKeysChooseTheNeighbour)
{
    strip.setFocus();
    pressKey(VK_RIGHT);
    EXPECT_EQ(strip.selected(), 1U);
    pressKey(VK_LEFT);
    EXPECT_EQ(strip.selected(), 0U);
    EXPECT_EQ(clicks, 2);
}

TEST_F(TabStrips, CtrlTabAndCtrlPageDownGoForwardAndWrapAround)
{
    for (const WPARAM key : {VK_TAB, VK_NEXT}) {
        for (const std::size_t tab : {1U, 2U, 0U}) {
            EXPECT_TRUE(take(key, true, false));
            EXPECT_EQ(strip.selected(), tab);
        }
    }
    EXPECT_EQ(clicks, 6);
}

TEST_F(TabStrips, CtrlShiftTabAndCtrlPageUpGoBack)
{
    for (const auto& [key, shift] : {std::pair{VK_TAB, true}, std::pair{VK_PRIOR, false}}) {
        for (const std::size_t tab : {2U, 1U, 0U}) {
            EXPECT_TRUE(take(static_cast<WPARAM>(key), true, shift));
            EXPECT_EQ(strip.selected(), tab);
        }
    }
}

TEST_F(TabStrips, TheKeysOfTheTabsMoveTheFocusToThem)
{
    field.setFocus();
    take(VK_TAB, true, false);
    EXPECT_TRUE(strip.hasFocus());
}

TEST_F(TabStrips, OtherKeysAreLeftForTheDialog)
{
    field.setFocus();
    EXPECT_FALSE(take(VK_TAB, false, false));
    EXPECT_FALSE(take(VK_TAB, false, true));
    EXPECT_FALSE(take(VK_NEXT, false, false));
    EXPECT_FALSE(take('A', true, false));
    EXPECT_FALSE(take(VK_RIGHT, true, false));
    EXPECT_FALSE(take(VK_TAB, true, false, WM_KEYUP));
    EXPECT_EQ(strip.selected(), 0U);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(TabStrips, ASingleTabLeavesAllKeysForTheDialog)
{
    TabStrip single(window.handle(), 3);
    single.add(L"Only");
    MSG pressed{};
    pressed.message = WM_KEYDOWN;
    pressed.wParam = VK_TAB;
    const HeldKeys held({VK_CONTROL});
    EXPECT_FALSE(single.takeKey(pressed));
}

} // namespace
} // namespace vandrel::test
