#include "platform/windows/topmost.h"

#include "platform/base/wine.h"
#include "tests/support/answers.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace vandrel::test {
namespace {

class TopmostLayer : public testing::Test {
  protected:
    ~TopmostLayer() override
    {
        for (const HWND popUp : owned) DestroyWindow(popUp);
    }
    HWND own(DWORD style)
    {
        owned.push_back(CreateWindowExW(0, L"Static", L"", style, 50, 50, 100, 50, window.handle(), nullptr,
                                        nullptr, nullptr));
        return owned.back();
    }
    TestWindow window;
    std::vector<HWND> owned;
};

TEST_F(TopmostLayer, IsSwitchedOnAndOff)
{
    window.show();
    EXPECT_FALSE(isTopmost(window.handle()));
    setTopmost(window.handle(), true);
    EXPECT_TRUE(isTopmost(window.handle()));
    setTopmost(window.handle(), false);
    EXPECT_FALSE(isTopmost(window.handle()));
}

TEST_F(TopmostLayer, WorksOnAHiddenWindow)
{
    setTopmost(window.handle(), true);
    EXPECT_TRUE(isTopmost(window.handle()));
    window.show();
    EXPECT_TRUE(isTopmost(window.handle()));
}

TEST_F(TopmostLayer, LeavesPlaceAndSize)
{
    window.show();
    pump();
    RECT before{};
    GetWindowRect(window.handle(), &before);
    setTopmost(window.handle(), true);
    setTopmost(window.handle(), false);
    RECT after{};
    GetWindowRect(window.handle(), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(TopmostLayer, WorksBothWaysOnAWindowThatOwnsOthers)
{
    window.show();
    const HWND hidden = own(WS_POPUP);
    const HWND shown = own(WS_POPUP | WS_VISIBLE);
    setTopmost(window.handle(), true);
    EXPECT_TRUE(isTopmost(window.handle()));
    setTopmost(window.handle(), false);
    EXPECT_FALSE(isTopmost(window.handle()));
    EXPECT_FALSE(isTopmost(hidden));
    EXPECT_FALSE(isTopmost(shown));
}

TEST_F(TopmostLayer, OwnedWindowsKeepTheirOwner)
{
    window.show();
    const HWND popUp = own(WS_POPUP | WS_VISIBLE);
    setTopmost(window.handle(), true);
    EXPECT_EQ(GetWindow(popUp, GW_OWNER), window.handle());
    setTopmost(window.handle(), false);
    EXPECT_EQ(GetWindow(popUp, GW_OWNER), window.handle());
    DestroyWindow(window.handle());
    EXPECT_FALSE(IsWindow(popUp));
}

TEST_F(TopmostLayer, OwnedWindowsStayAboveTheirOwner)
{
    window.show();
    const HWND popUp = own(WS_POPUP | WS_VISIBLE);
    for (const bool on : {true, false}) {
        setTopmost(window.handle(), on);
        pump();
        std::vector<HWND> order;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND found, LPARAM list) -> BOOL {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(found);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&order));
        const auto placeOf = [&](HWND wanted) {
            return std::find(order.begin(), order.end(), wanted) - order.begin();
        };
        EXPECT_LT(placeOf(popUp), placeOf(window.handle())) << on;
    }
}

TEST_F(TopmostLayer, TheActiveWindowStaysTheActiveOne)
{
    window.show();
    const HWND popUp = own(WS_POPUP | WS_VISIBLE);
    for (const HWND active : {popUp, window.handle()}) {
        for (const bool on : {true, false}) {
            SetActiveWindow(active);
            setTopmost(window.handle(), on);
            EXPECT_EQ(GetActiveWindow(), active) << on;
        }
    }
}

TEST_F(TopmostLayer, MayBeAskedForTwice)
{
    window.show();
    own(WS_POPUP);
    setTopmost(window.handle(), true);
    setTopmost(window.handle(), true);
    EXPECT_TRUE(isTopmost(window.handle()));
    setTopmost(window.handle(), false);
    setTopmost(window.handle(), false);
    EXPECT_FALSE(isTopmost(window.handle()));
}

TEST_F(TopmostLayer, AnOwnedWindowOfItsOwnChoiceStaysWhenItsOwnerGoes)
{
    window.show();
    const HWND chosen = own(WS_POPUP | WS_VISIBLE);
    const HWND other = own(WS_POPUP | WS_VISIBLE);
    setTopmost(chosen, true);
    setTopmost(window.handle(), true);
    EXPECT_TRUE(isTopmost(other));
    setTopmost(window.handle(), false);
    EXPECT_FALSE(isTopmost(window.handle()));
    EXPECT_FALSE(isTopmost(other));
    EXPECT_TRUE(isTopmost(chosen));
    setTopmost(chosen, false);
    EXPECT_FALSE(isTopmost(chosen));
}

// What is done on Windows. Where a window owns others, Wine cannot show it.
TEST_F(TopmostLayer, TakesOneCallOfTheSystemOnWindows)
{
    const WineDisregarded asOnWindows;
    window.show();
    RECT before{};
    GetWindowRect(window.handle(), &before);
    TestWindow active;
    active.show();
    SetActiveWindow(active.handle());
    for (const bool on : {true, true, false, false}) {
        setTopmost(window.handle(), on);
        EXPECT_EQ(isTopmost(window.handle()), on);
        EXPECT_EQ(GetActiveWindow(), active.handle()) << on;
    }
    RECT after{};
    GetWindowRect(window.handle(), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(TopmostLayer, OfAnOwnedWindowIsItsOwnOnWindows)
{
    const WineDisregarded asOnWindows;
    window.show();
    const HWND chosen = own(WS_POPUP | WS_VISIBLE);
    setTopmost(chosen, true);
    EXPECT_TRUE(isTopmost(chosen));
    EXPECT_FALSE(isTopmost(window.handle()));
    setTopmost(window.handle(), false); // takes along what it owns; what chose the layer itself comes back
    EXPECT_TRUE(isTopmost(chosen));
    EXPECT_FALSE(isTopmost(window.handle()));
}

} // namespace
} // namespace vandrel::test
