#include "platform/windows/picture_box.h"

#include "platform/controls/simple_controls.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/theme.h"
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

// As a themed control in the box has it drawn on its own surface.
class OtherSurface {
  public:
    OtherSurface() : context_(CreateCompatibleDC(nullptr)), bitmap_(CreateBitmap(60, 40, 1, 32, nullptr))
    {
        before_ = SelectObject(context_, bitmap_);
    }
    OtherSurface(const OtherSurface&) = delete;
    OtherSurface& operator=(const OtherSurface&) = delete;
    ~OtherSurface()
    {
        SelectObject(context_, before_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }
    COLORREF after(HWND window, UINT message, int x, int y)
    {
        PatBlt(context_, 0, 0, 60, 40, BLACKNESS);
        SendMessageW(window, message, reinterpret_cast<WPARAM>(context_), PRF_CLIENT);
        return GetPixel(context_, x, y);
    }

  private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

TEST_F(PictureBoxes, AreDrawnOnAnySurfaceThatTheyAreGiven)
{
    box.Paint = [](HDC context, const RECT&) { SetPixelV(context, 3, 4, 0x0000FF); };
    box.setBackColor(0x00FF00);
    OtherSurface surface;
    for (const UINT message : {WM_ERASEBKGND, WM_PRINTCLIENT}) {
        EXPECT_EQ(surface.after(box.handle(), message, 30, 20), 0x00FF00U) << message;
        EXPECT_EQ(surface.after(box.handle(), message, 3, 4), 0x0000FFU) << message;
    }
}

TEST_F(PictureBoxes, EraseNothingOnTheirOwnSurface)
{
    box.setBackColor(0x00FF00);
    EXPECT_EQ(pixel(box, 30, 20), 0x00FF00U);
    const HDC own = GetDC(box.handle());
    SetPixelV(own, 30, 20, 0x0000FF);
    EXPECT_EQ(SendMessageW(box.handle(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(own), 0), 1);
    EXPECT_EQ(GetPixel(own, 30, 20), 0x0000FFU);
    ReleaseDC(box.handle(), own);
}

TEST_F(PictureBoxes, GiveTheirBackgroundToTheirLabelsAndButtons)
{
    const Label label(box.handle(), L"A label");
    box.setBackColor(0x123456);
    const HDC context = GetDC(label.handle());
    for (const UINT message : {WM_CTLCOLORSTATIC, WM_CTLCOLORBTN}) {
        const LRESULT brush = SendMessageW(box.handle(), message, reinterpret_cast<WPARAM>(context),
                                           reinterpret_cast<LPARAM>(label.handle()));
        LOGBRUSH found{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(brush), sizeof found, &found);
        EXPECT_EQ(found.lbColor, 0x123456U) << message;
        EXPECT_EQ(GetBkColor(context), 0x123456U) << message;
    }
    ReleaseDC(label.handle(), context);
}

TEST_F(PictureBoxes, APageHasTheColourOfThePagesOfItsTabs)
{
    const TabStrip tabs(window.handle(), 9);
    box.setPageOf(tabs.handle());
    EXPECT_EQ(box.backColor(), tabPageColor(tabs.handle()));
    EXPECT_EQ(pixel(box, 30, 20), tabPageColor(tabs.handle()));
    setThemed(tabs.handle(), false);
    EXPECT_EQ(box.backColor(), GetSysColor(COLOR_3DFACE)) << "without a visual style";
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
