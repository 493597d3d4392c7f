#include "platform/windows/picture_box.h"

#include "platform/controls/simple_controls.h"
#include "tests/support/input.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class PictureBoxes : public testing::Test {
  protected:
    PictureBoxes()
    {
        window.show();
        box.place(10, 20, 60, 40);
        pump();
    }
    static COLORREF pixel(const PictureBox& box, int x, int y)
    {
        UpdateWindow(box.handle());
        const HDC screen = GetDC(box.handle());
        const COLORREF color = GetPixel(screen, x, y);
        ReleaseDC(box.handle(), screen);
        return color;
    }

    TestWindow window;
    PictureBox box{window.handle(), 7};
};

TEST_F(PictureBoxes, HasTheColourOfASurfaceUntilItIsGivenAnother)
{
    EXPECT_EQ(box.backColor(), GetSysColor(COLOR_3DFACE));
    EXPECT_EQ(pixel(box, 30, 20), GetSysColor(COLOR_3DFACE));
    for (const COLORREF color : {0x0000FFU, 0x000000U, 0xFFFFFFU, 0x123456U}) {
        box.setBackColor(color);
        EXPECT_EQ(box.backColor(), color);
        EXPECT_EQ(pixel(box, 30, 20), color);
    }
}

TEST_F(PictureBoxes, IsPaintedOnItsBackgroundWheneverItIsRefreshed)
{
    COLORREF ink = 0x0000FF;
    RECT seen{};
    box.Paint = [&](HDC context, const RECT& area) {
        seen = area;
        SetPixelV(context, 3, 4, ink);
    };
    box.setBackColor(0x00FF00);
    EXPECT_EQ(pixel(box, 3, 4), 0x0000FFU);
    EXPECT_EQ(pixel(box, 4, 4), 0x00FF00U);
    EXPECT_EQ(seen.right, 60);
    EXPECT_EQ(seen.bottom, 40);
    ink = 0xFF0000;
    box.refresh();
    EXPECT_EQ(pixel(box, 3, 4), 0xFF0000U);
}

TEST_F(PictureBoxes, ASunkenBorderTakesPartOfItsPlace)
{
    const PictureBox sunken(window.handle(), 8, PictureBox::Border::sunken);
    PictureBox flat(window.handle(), 9);
    SetWindowPos(sunken.handle(), nullptr, 0, 0, 50, 30, SWP_NOZORDER);
    flat.place(0, 0, 50, 30);
    EXPECT_EQ(flat.innerSize().cx, 50);
    EXPECT_EQ(flat.innerSize().cy, 30);
    EXPECT_EQ(sunken.innerSize().cx, 50 - 2 * GetSystemMetrics(SM_CXEDGE));
    EXPECT_EQ(sunken.innerSize().cy, 30 - 2 * GetSystemMetrics(SM_CYEDGE));
}

TEST_F(PictureBoxes, IsHiddenAndShown)
{
    EXPECT_TRUE(box.visible());
    box.setVisible(false);
    EXPECT_FALSE(box.visible());
    EXPECT_FALSE(IsWindowVisible(box.handle()));
    box.setVisible(true);
    EXPECT_TRUE(IsWindowVisible(box.handle()));
}

TEST_F(PictureBoxes, TellsOfTheMouseOverItAndOverItsLabels)
{
    int moves = 0;
    box.MouseMove = [&] { ++moves; };
    SendMessageW(box.handle(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(moves, 1);
    Label label(box.handle(), L"text");
    label.place(0, 0, 60, 40);
    POINT middle{30, 20};
    ClientToScreen(box.handle(), &middle);
    EXPECT_EQ(WindowFromPoint(middle), box.handle());
}

TEST_F(PictureBoxes, HandsTheEventsOfItsControlsBackToThem)
{
    Button button(box.handle(), 1, L"Go");
    button.place(0, 0, 50, 30);
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    clickAt(button.handle(), {5, 5});
    EXPECT_EQ(clicks, 1);
}

TEST_F(PictureBoxes, TabGoesThroughItsControlsWhileItIsSeen)
{
    const Button before(window.handle(), 1, L"before");
    const Button inside(box.handle(), 2, L"inside");
    EXPECT_EQ(GetNextDlgTabItem(window.handle(), before.handle(), FALSE), inside.handle());
    box.setVisible(false);
    EXPECT_EQ(GetNextDlgTabItem(window.handle(), before.handle(), FALSE), before.handle());
}

} // namespace
} // namespace vandrel::test
