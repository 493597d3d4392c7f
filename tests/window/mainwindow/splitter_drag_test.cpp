#include "tests/support/message_watch.h"
#include "tests/support/test_window.h"
#include "tests/window/mainwindow/splitter_test.h"

namespace vandrel::test {
namespace {

class SplitterDrag : public SplitterTest {
  protected:
    RECT categories() { return placeOf(lstCategory().handle()); }
    RECT sites() { return placeOf(lstInfo().handle()); }
    int clientWidth() { return clientOf(main->handle()).right; }
    int p(double twips) { return px(*main, twips); }

    // Pixels from the bar's left edge.
    void press(int x) { SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 30)); }
    void move(int x, WPARAM buttons = MK_LBUTTON)
    {
        SendMessageW(bar(), WM_MOUSEMOVE, buttons, MAKELPARAM(x, 30));
    }
    void release(int x) { SendMessageW(bar(), WM_LBUTTONUP, 0, MAKELPARAM(x, 30)); }
    void drag(int by)
    {
        press(2);
        move(2 + by);
        release(2);
    }
};

TEST_F(SplitterDrag, APressMovesNothing)
{
    start();
    const LONG before = place().left;
    press(2);
    EXPECT_EQ(place().left, before);
    release(2);
    EXPECT_EQ(place().left, before);
}

TEST_F(SplitterDrag, TheBarFollowsTheMouseAndTheListsFollowTheBar)
{
    start();
    const int before = place().left;
    press(2);
    for (const int by : {40, -10, 25, 0}) {
        const int from = place().left;
        move(2 + by);
        EXPECT_EQ(place().left, from + by);
        EXPECT_EQ(widthOf(categories()), place().left);
        EXPECT_EQ(columnPixels(lstCategory(), 0), widthOf(categories()) - p(45));
        EXPECT_EQ(sites().left, place().right);
        EXPECT_EQ(sites().right, clientWidth());
    }
    release(2);
    EXPECT_EQ(place().left, before + 55);
}

TEST_F(SplitterDrag, TheDescriptionColumnDependsOnTheWidthBeforeItAndIgnoresTheDate)
{
    setPreference(L"Config", L"Col4", L"900");
    start();
    const int before = widthOf(sites());
    press(2);
    move(62);
    const int others = columnPixels(lstInfo(), 0) + columnPixels(lstInfo(), 1);
    EXPECT_EQ(columnPixels(lstInfo(), 2), before - (others + p(270)));
    EXPECT_EQ(columnPixels(lstInfo(), 3), p(900));
    const int between = widthOf(sites());
    move(12);
    EXPECT_EQ(columnPixels(lstInfo(), 2), between - (others + p(270)));
    release(2);
}

TEST_F(SplitterDrag, TheSiteListReachesTheEdgeUntilTheNextResize)
{
    setPreference(L"Config", L"Col4", L"900");
    start();
    drag(50);
    EXPECT_EQ(sites().right, clientWidth());
    SendMessageW(main->handle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(clientWidth(), 500));
    EXPECT_EQ(widthOf(sites()), clientWidth() - (widthOf(categories()) + p(120)));
    EXPECT_LT(sites().right, clientWidth());
    EXPECT_EQ(columnPixels(lstInfo(), 2),
              widthOf(sites()) - (columnPixels(lstInfo(), 0) + columnPixels(lstInfo(), 1) +
                                  columnPixels(lstInfo(), 3) + p(270)));
    EXPECT_EQ(widthOf(categories()), p(2340) + 50) << "the category list keeps its width";
}

TEST_F(SplitterDrag, FarToTheLeftTheBarLeavesTheWindowAndTheReleaseBringsItTo60)
{
    start();
    press(2);
    move(2 - 400);
    EXPECT_EQ(place().left, p(2340) - 400);
    EXPECT_EQ(widthOf(categories()), 0);
    release(2);
    EXPECT_EQ(place().left, p(60));
    EXPECT_EQ(widthOf(categories()), p(60));
    EXPECT_EQ(sites().left, p(120));
    EXPECT_EQ(sites().right, clientWidth());
}

TEST_F(SplitterDrag, ABarReleasedAt60StaysAndOneJustBelowComesBack)
{
    start();
    press(2);
    move(2 + p(60) - place().left);
    release(2);
    EXPECT_EQ(place().left, p(60));
    press(2);
    move(1);
    EXPECT_EQ(place().left, p(60) - 1);
    release(2);
    EXPECT_EQ(place().left, p(60));
    EXPECT_EQ(widthOf(categories()), p(60));
}

TEST_F(SplitterDrag, TheReleaseLeavesABarAbove60WhereItIs)
{
    start();
    drag(-100);
    EXPECT_EQ(place().left, p(2340) - 100);
    EXPECT_EQ(widthOf(categories()), p(2340) - 100);
}

TEST_F(SplitterDrag, BeyondTheRightEdgeTheSiteListHasNoWidth)
{
    start();
    press(2);
    move(2 + clientWidth());
    EXPECT_GT(place().left, clientWidth());
    EXPECT_EQ(widthOf(sites()), 0);
    EXPECT_EQ(columnPixels(lstInfo(), 2) >= 0, true);
    move(2 - clientWidth() + 200);
    release(2);
    EXPECT_EQ(place().left, p(2340) + 200);
    EXPECT_EQ(sites().right, clientWidth());
}

TEST_F(SplitterDrag, WithoutAButtonNothingMoves)
{
    start();
    const LONG before = place().left;
    move(80, 0);
    EXPECT_EQ(place().left, before);
}

TEST_F(SplitterDrag, OnlyTheLeftButtonAloneDrags)
{
    start();
    const LONG before = place().left;
    SendMessageW(bar(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(2, 30));
    move(80, MK_RBUTTON);
    EXPECT_EQ(place().left, before);
    move(80, MK_LBUTTON | MK_RBUTTON);
    EXPECT_EQ(place().left, before);
    move(80, MK_MBUTTON);
    EXPECT_EQ(place().left, before);
    SendMessageW(bar(), WM_RBUTTONUP, 0, MAKELPARAM(80, 30));
    EXPECT_EQ(place().left, before);
}

TEST_F(SplitterDrag, AnyButtonSetsTheAnchor)
{
    start();
    const LONG before = place().left;
    press(2);
    SendMessageW(bar(), WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON, MAKELPARAM(0, 30));
    SendMessageW(bar(), WM_RBUTTONUP, MK_LBUTTON, MAKELPARAM(0, 30));
    move(10);
    EXPECT_EQ(place().left, before + 10);
    release(0);
}

TEST_F(SplitterDrag, KeysHeldDownDoNotHinderTheDrag)
{
    start();
    const LONG before = place().left;
    press(2);
    move(22, MK_LBUTTON | MK_CONTROL | MK_SHIFT);
    EXPECT_EQ(place().left, before + 20);
    release(2);
}

TEST_F(SplitterDrag, TheBarHasTheMouseUntilTheRelease)
{
    start();
    press(2);
    EXPECT_EQ(GetCapture(), bar());
    release(2);
    EXPECT_NE(GetCapture(), bar());
}

TEST_F(SplitterDrag, LosingTheMouseEndsItLikeARelease)
{
    start();
    const auto takeMouse = [&] { SetCapture(lstInfo().handle()); };
    const auto cancel = [&] { SendMessageW(bar(), WM_CANCELMODE, 0, 0); };
    for (const std::function<void()>& interrupt :
         std::initializer_list<std::function<void()>>{takeMouse, cancel}) {
        press(2);
        move(2 - 400);
        ASSERT_LT(place().left, 0);
        interrupt();
        EXPECT_EQ(place().left, p(60));
        EXPECT_EQ(widthOf(categories()), p(60));
        EXPECT_NE(GetCapture(), bar());
        move(80);
        EXPECT_EQ(place().left, p(60)) << "it is over";
        release(80);
        ReleaseCapture();
        EXPECT_EQ(place().left, p(60));
        drag(p(2340) - p(60));
    }
}

TEST_F(SplitterDrag, EndsOnlyOnce)
{
    TestWindow parent;
    parent.show();
    SplitterBar own(parent.handle());
    int ends = 0;
    own.MouseUp = [&] { ++ends; };
    const auto send = [&](UINT message, WPARAM buttons) { SendMessageW(own.handle(), message, buttons, 0); };
    send(WM_LBUTTONDOWN, MK_LBUTTON);
    send(WM_LBUTTONUP, 0);
    EXPECT_EQ(ends, 1);
    send(WM_LBUTTONDOWN, MK_LBUTTON);
    send(WM_CANCELMODE, 0);
    EXPECT_EQ(ends, 2);
    send(WM_LBUTTONUP, 0);
    EXPECT_EQ(ends, 2);
    send(WM_LBUTTONDOWN, MK_LBUTTON);
    send(WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON);
    EXPECT_EQ(ends, 2) << "the mouse is still the bar's";
    send(WM_RBUTTONUP, MK_LBUTTON);
    EXPECT_EQ(ends, 3) << "each button that goes up is told";
    EXPECT_EQ(GetCapture(), own.handle());
    send(WM_LBUTTONUP, 0);
    EXPECT_EQ(ends, 4);
    EXPECT_NE(GetCapture(), own.handle());
}

TEST_F(SplitterDrag, LeavesNothingFrozen)
{
    start();
    press(2);
    EXPECT_TRUE(nothingIsFrozen(lstInfo().handle()));
    move(50);
    EXPECT_TRUE(nothingIsFrozen(lstInfo().handle()));
    move(-400);
    release(2);
    EXPECT_TRUE(nothingIsFrozen(lstInfo().handle()));
}

TEST_F(SplitterDrag, FreezesTheWindowWhileItMovesTheControls)
{
    start();
    bool frozen = false;
    const MessageWatch watch(lstInfo().handle(), WM_SIZE,
                             [&] { frozen = !nothingIsFrozen(lstInfo().handle()); });
    press(2);
    move(30);
    EXPECT_TRUE(frozen);
    move(-400);
    frozen = false;
    release(2);
    EXPECT_TRUE(frozen);
}

TEST_F(SplitterDrag, RepaintsOnlyWhatMoves)
{
    start();
    main->show(SW_SHOWNORMAL);
    pump();
    int frames = 0;
    int others = 0;
    int lists = 0;
    std::vector<std::unique_ptr<MessageWatch>> watches;
    const auto watch = [&](HWND window, UINT message, int& count) {
        watches.push_back(std::make_unique<MessageWatch>(window, message, [&count] { ++count; }));
    };
    watch(main->handle(), WM_NCPAINT, frames);
    watch(main->toolBar().handle(), WM_PAINT, others);
    watch(main->searchPanel().handle(), WM_PAINT, others);
    watch(main->workspace().StatusBar1.handle(), WM_PAINT, others);
    watch(lstInfo().handle(), WM_PAINT, lists);
    press(2);
    move(40);
    pump();
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(others, 0);
    EXPECT_EQ(lists, 1);
}

TEST_F(SplitterDrag, ShowsTheResizeCursor)
{
    start();
    EXPECT_EQ(reinterpret_cast<HCURSOR>(GetClassLongPtrW(bar(), GCLP_HCURSOR)),
              LoadCursorW(nullptr, IDC_SIZEWE));
}

TEST_F(SplitterDrag, HeightsAndTheSearchPanelStay)
{
    start();
    const RECT search = placeOf(main->searchPanel().handle());
    const int height = heightOf(place());
    drag(120);
    const RECT after = placeOf(main->searchPanel().handle());
    EXPECT_TRUE(EqualRect(&search, &after));
    EXPECT_EQ(heightOf(place()), height);
    EXPECT_EQ(heightOf(categories()), clientOf(main->handle()).bottom - p(945));
}

} // namespace
} // namespace vandrel::test
