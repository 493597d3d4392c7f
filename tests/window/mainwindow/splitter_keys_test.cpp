#include "tests/support/input.h"
#include "tests/window/mainwindow/splitter_test.h"

namespace vandrel::test {
namespace {

class SplitterKeys : public SplitterTest {
  protected:
    int step() { return px(*main, 120); }
    static void left() { pressKey(VK_LEFT, true, true); }
    static void right() { pressKey(VK_RIGHT, true, true); }
};

TEST_F(SplitterKeys, ControlShiftAndAnArrowMoveTheBarAsADragWould)
{
    start();
    for (ListView* const list : {&lstCategory(), &lstInfo()}) {
        list->setFocus();
        const LONG before = place().left;
        right();
        right();
        EXPECT_EQ(place().left, before + 2 * step());
        left();
        EXPECT_EQ(place().left, before + step());
        EXPECT_EQ(placeOf(lstCategory().handle()).right, place().left);
        EXPECT_EQ(columnPixels(lstCategory(), 0), place().left - px(*main, 45));
        EXPECT_EQ(placeOf(lstInfo().handle()).left, place().right);
        EXPECT_EQ(placeOf(lstInfo().handle()).right, clientOf(main->handle()).right);
        EXPECT_EQ(GetFocus(), list->handle());
    }
}

TEST_F(SplitterKeys, TheBarStopsWhereAReleaseWouldPutItOnTheLeft)
{
    start();
    lstInfo().setFocus();
    for (int i = 0; i < 40; ++i) left();
    EXPECT_EQ(place().left, px(*main, 60));
    EXPECT_EQ(widthOf(placeOf(lstCategory().handle())), px(*main, 60));
    right();
    EXPECT_EQ(place().left, px(*main, 180));
}

TEST_F(SplitterKeys, TheBarStaysInTheWindowOnTheRight)
{
    start();
    lstInfo().setFocus();
    const int room = clientOf(main->handle()).right;
    for (int i = 0; i < room / step() + 10; ++i) right();
    EXPECT_LE(place().right, room);
    EXPECT_GT(place().right, room - step());
    left();
    EXPECT_LE(place().right, room - step());
}

TEST_F(SplitterKeys, ABarThatWasDraggedOutOfSightComesBack)
{
    start();
    SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 10));
    SendMessageW(bar(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2000, 10));
    SendMessageW(bar(), WM_LBUTTONUP, 0, MAKELPARAM(1, 10));
    const LONG before = place().left;
    ASSERT_GT(before, clientOf(main->handle()).right);
    lstCategory().setFocus();
    right();
    EXPECT_EQ(place().left, before);
    left();
    EXPECT_EQ(place().left, before - step());
}

TEST_F(SplitterKeys, OtherKeysLeaveItWhereItIs)
{
    start();
    lstInfo().setFocus();
    const LONG before = place().left;
    pressKey(VK_RIGHT);
    pressKey(VK_RIGHT, true);
    pressKey(VK_RIGHT, false, true);
    pressKey(VK_DOWN, true, true);
    EXPECT_EQ(place().left, before);
}

TEST_F(SplitterKeys, InATextFieldTheKeysEditTheText)
{
    start();
    const LONG before = place().left;
    main->searchPanel().cmbSearch.setFocus();
    right();
    EXPECT_EQ(place().left, before);
    lstCategory().setFocus();
    lstCategory().editLabel(0);
    ASSERT_TRUE(lstCategory().editingLabel());
    right();
    EXPECT_EQ(place().left, before);
    EXPECT_TRUE(lstCategory().editingLabel());
}

TEST_F(SplitterKeys, TheLastMousePressMakesNoDifference)
{
    start();
    SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 10));
    SendMessageW(bar(), WM_LBUTTONUP, 0, MAKELPARAM(3, 10));
    lstInfo().setFocus();
    const LONG before = place().left;
    right();
    EXPECT_EQ(place().left, before + step());
}

} // namespace
} // namespace vandrel::test
