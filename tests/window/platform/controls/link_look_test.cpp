#include "platform/controls/link_label.h"
#include "tests/support/input.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class LinkLook : public testing::Test {
  protected:
    LinkLook()
    {
        window.show();
        link.place(10, 10, 200, 20);
        link.setFont({L"Arial", 10, true});
    }
    LOGFONTW font() const
    {
        LOGFONTW used{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(link.handle(), WM_GETFONT, 0, 0)), sizeof used,
                   &used);
        return used;
    }
    COLORREF color() const
    {
        const HDC context = CreateCompatibleDC(nullptr);
        SendMessageW(window.handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(link.handle()));
        const COLORREF shown = GetTextColor(context);
        DeleteDC(context);
        return shown;
    }

    TestWindow window;
    LinkLabel link{window.handle(), 1, L"a&b"};
};

TEST_F(LinkLook, IsUnderlinedAndInTheLinkColourUntilItIsGivenAnother)
{
    EXPECT_TRUE(link.underlined());
    EXPECT_NE(font().lfUnderline, 0);
    EXPECT_NE(color(), 0U);
    EXPECT_EQ(link.text(), L"a&b");
}

TEST_F(LinkLook, TakesAColourAndAnUnderlineAndLosesThemAgain)
{
    link.setLook(0xFF0000, true);
    EXPECT_EQ(color(), 0xFF0000U);
    EXPECT_NE(font().lfUnderline, 0);
    link.setLook(0, false);
    EXPECT_EQ(color(), 0U);
    EXPECT_EQ(font().lfUnderline, 0);
    EXPECT_FALSE(link.underlined());
    link.setLook(0, true);
    EXPECT_NE(font().lfUnderline, 0);
}

TEST_F(LinkLook, ItsFontStaysTheOneSet)
{
    for (const bool underlined : {false, true, false}) {
        link.setLook(0, underlined);
        EXPECT_EQ(std::wstring(font().lfFaceName), L"Arial");
        EXPECT_EQ(font().lfHeight, -MulDiv(10, static_cast<int>(link.dpi()), 72));
        EXPECT_EQ(font().lfWeight, FW_BOLD);
    }
    link.setFont({L"Tahoma", 12});
    EXPECT_EQ(std::wstring(font().lfFaceName), L"Tahoma");
    EXPECT_EQ(font().lfUnderline, 0) << "a new font is not underlined either";
}

TEST_F(LinkLook, IsRepaintedOnlyWhenItsLookChanges)
{
    link.setLook(0xFF0000, true);
    UpdateWindow(link.handle());
    link.setLook(0xFF0000, true);
    EXPECT_FALSE(GetUpdateRect(link.handle(), nullptr, FALSE));
    link.setLook(0xFF0000, false);
    EXPECT_TRUE(GetUpdateRect(link.handle(), nullptr, FALSE));
}

TEST_F(LinkLook, ReportsThatTheMouseMovesOverIt)
{
    int moves = 0;
    link.MouseMove = [&] { ++moves; };
    SendMessageW(link.handle(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(moves, 1);
    link.MouseMove = nullptr;
    EXPECT_NO_THROW(SendMessageW(link.handle(), WM_MOUSEMOVE, 0, MAKELPARAM(4, 3)));
}

TEST_F(LinkLook, AClickInAnyLookIsAClick)
{
    int clicks = 0;
    link.Click = [&] { ++clicks; };
    clickAt(link.handle(), {5, 5});
    link.setLook(0, false);
    clickAt(link.handle(), {5, 5});
    EXPECT_EQ(clicks, 2);
    EXPECT_TRUE(link.hasFocus());
}

} // namespace
} // namespace vandrel::test
