#include "tests/support/message_watch.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class Resize : public MainWindowTest {
  protected:
    void startWith(int width, int height)
    {
        setPreference(L"Config", L"Width", std::to_wstring(width));
        setPreference(L"Config", L"Height", std::to_wstring(height));
        folder.write(L"Work.udb", threeSites);
        start();
    }
    // Pixels, as a drag of the frame does it.
    void resizeTo(int width, int height)
    {
        SetWindowPos(main->handle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        pump();
    }
    RECT categories() { return placeOf(lstCategory().handle()); }
    RECT sites() { return placeOf(lstInfo().handle()); }
    RECT bar() { return placeOf(splitterBar(*main)); }
    RECT search() { return placeOf(main->searchPanel().handle()); }
    int p(double twips) { return px(*main, twips); }
};

TEST_F(Resize, ColumnsThatWereDraggedKeepTheirWidthsAtAnotherScale)
{
    startWith(15000, 9000);
    const unsigned dpi = main->dpi();
    const RECT place = outerPlace(main->handle());
    const auto drag = [](ListView& list, WPARAM column, LPARAM pixels) {
        SendMessageW(list.handle(), LVM_SETCOLUMNWIDTH, column, pixels);
    };
    drag(lstInfo(), 0, 100);
    drag(lstInfo(), 3, 40);
    drag(lstCategory(), 0, 130);
    for (const unsigned next : {dpi * 3 / 2, dpi}) {
        SendMessageW(main->handle(), WM_DPICHANGED, MAKEWPARAM(next, next), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(lstInfo().columnWidth(0), toTwips(100, dpi));
        EXPECT_EQ(lstInfo().columnWidth(3), toTwips(40, dpi));
        EXPECT_EQ(lstCategory().columnWidth(0), toTwips(130, dpi));
        EXPECT_EQ(columnPixels(lstInfo(), 0), static_cast<int>(100 * next / dpi));
        EXPECT_EQ(columnPixels(lstCategory(), 0), static_cast<int>(130 * next / dpi));
    }
}

TEST_F(Resize, FollowsTheLayoutRules)
{
    startWith(12000, 9000);
    for (const SIZE size : {SIZE{1000, 700}, SIZE{700, 500}, SIZE{1200, 900}}) {
        resizeTo(size.cx, size.cy);
        const RECT client = clientOf(main->handle());
        EXPECT_EQ(heightOf(categories()), client.bottom - p(945));
        EXPECT_EQ(heightOf(sites()), client.bottom - p(945));
        EXPECT_EQ(widthOf(sites()), client.right - (widthOf(categories()) + p(120)));
        EXPECT_EQ(heightOf(bar()), client.bottom - p(900));
        EXPECT_EQ(heightOf(bar()), heightOf(sites()) + p(45));
        EXPECT_EQ(search().left, client.right - (widthOf(search()) + p(60)));
        EXPECT_EQ(columnPixels(lstInfo(), 2),
                  widthOf(sites()) - (columnPixels(lstInfo(), 0) + columnPixels(lstInfo(), 1) +
                                      columnPixels(lstInfo(), 3) + p(270)));
    }
}

TEST_F(Resize, KeepsTheLeftEdgesAndTheOtherColumns)
{
    setPreference(L"Config", L"Col4", L"900");
    startWith(15000, 9000);
    const RECT categoriesBefore = categories();
    const int before[] = {columnPixels(lstInfo(), 0), columnPixels(lstInfo(), 1), columnPixels(lstInfo(), 3)};
    const LONG barLeft = bar().left;
    const LONG sitesLeft = sites().left;
    resizeTo(700, 600);
    EXPECT_EQ(categories().left, categoriesBefore.left);
    EXPECT_EQ(widthOf(categories()), widthOf(categoriesBefore));
    EXPECT_EQ(bar().left, barLeft);
    EXPECT_EQ(sites().left, sitesLeft);
    EXPECT_EQ(columnPixels(lstInfo(), 0), before[0]);
    EXPECT_EQ(columnPixels(lstInfo(), 1), before[1]);
    EXPECT_EQ(columnPixels(lstInfo(), 3), before[2]);
}

TEST_F(Resize, BeginsWithTheDesignedPlaces)
{
    startWith(12000, 9000);
    EXPECT_EQ(bar().left, p(2340));
    EXPECT_EQ(bar().top, p(600));
    EXPECT_EQ(widthOf(bar()), p(60));
    EXPECT_EQ(widthOf(categories()), p(2340));
    EXPECT_EQ(categories().left, 0);
    EXPECT_EQ(sites().left, bar().right);
}

TEST_F(Resize, ASmallerWindowSnapsBackToTheSmallestSize)
{
    startWith(12000, 9000);
    resizeTo(300, 200);
    EXPECT_EQ(widthOf(outerPlace(main->handle())), p(9135));
    EXPECT_EQ(heightOf(outerPlace(main->handle())), p(5685));
    EXPECT_EQ(heightOf(sites()), clientOf(main->handle()).bottom - p(945));
}

TEST_F(Resize, EachSideSnapsBackOnItsOwn)
{
    startWith(12000, 9000);
    resizeTo(300, 500);
    EXPECT_EQ(widthOf(outerPlace(main->handle())), p(9135));
    EXPECT_EQ(heightOf(outerPlace(main->handle())), 500);
    resizeTo(800, 100);
    EXPECT_EQ(widthOf(outerPlace(main->handle())), 800);
    EXPECT_EQ(heightOf(outerPlace(main->handle())), p(5685));
}

TEST_F(Resize, TheFrameCannotBeDraggedSmallerEither)
{
    start();
    MINMAXINFO limits{};
    SendMessageW(main->handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    EXPECT_EQ(limits.ptMinTrackSize.x, p(9135));
    EXPECT_EQ(limits.ptMinTrackSize.y, p(5685));
}

TEST_F(Resize, ANarrowWindowClosesTheDescriptionColumnAndAWideOneOpensItAgain)
{
    setPreference(L"Config", L"Col1", L"4500");
    setPreference(L"Config", L"Col2", L"6000");
    startWith(9135, 5685);
    EXPECT_EQ(columnPixels(lstInfo(), 2), 0);
    EXPECT_EQ(columnPixels(lstInfo(), 0), p(4500));
    EXPECT_EQ(columnPixels(lstInfo(), 1), p(6000));
    resizeTo(1250, 500);
    EXPECT_EQ(columnPixels(lstInfo(), 2), widthOf(sites()) - p(4500 + 6000 + 270));
    EXPECT_GT(columnPixels(lstInfo(), 2), 0);
}

TEST_F(Resize, MinimisedChangesNothingAndRestoringLaysOutAgain)
{
    startWith(12000, 9000);
    const RECT before = sites();
    ShowWindow(main->handle(), SW_MINIMIZE);
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(main->handle()) != 0; }));
    EXPECT_EQ(widthOf(sites()), widthOf(before));
    EXPECT_EQ(heightOf(sites()), heightOf(before));
    lstInfo().place(0, 0, 10, 10);
    SendMessageW(main->handle(), WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(widthOf(sites()), 10);
    ShowWindow(main->handle(), SW_RESTORE);
    ASSERT_TRUE(pumpUntil([&] { return IsIconic(main->handle()) == 0; }));
    EXPECT_TRUE(pumpUntil([&] { return widthOf(sites()) == widthOf(before); }));
    EXPECT_EQ(heightOf(sites()), clientOf(main->handle()).bottom - p(945));
    EXPECT_EQ(sites().left, before.left);
}

TEST_F(Resize, MaximisedFollowsTheLayoutRulesToo)
{
    startWith(12000, 9000);
    ShowWindow(main->handle(), SW_MAXIMIZE);
    ASSERT_TRUE(pumpUntil([&] { return IsZoomed(main->handle()) != 0; }));
    const RECT client = clientOf(main->handle());
    EXPECT_EQ(widthOf(sites()), client.right - p(2340 + 120));
    EXPECT_EQ(heightOf(sites()), client.bottom - p(945));
}

TEST_F(Resize, LeavesNothingFrozen)
{
    startWith(12000, 9000);
    LockWindowUpdate(main->handle());
    ASSERT_FALSE(nothingIsFrozen(lstInfo().handle())) << "a freeze would be seen";
    LockWindowUpdate(nullptr);
    resizeTo(800, 600);
    EXPECT_TRUE(nothingIsFrozen(lstInfo().handle()));
    resizeTo(100, 100);
    EXPECT_TRUE(nothingIsFrozen(lstInfo().handle()));
}

TEST_F(Resize, FreezesTheWindowWhileItMovesTheControls)
{
    startWith(12000, 9000);
    bool frozen = false;
    const MessageWatch watch(lstInfo().handle(), WM_SIZE,
                             [&] { frozen = !nothingIsFrozen(lstInfo().handle()); });
    resizeTo(1000, 700);
    EXPECT_TRUE(frozen);
}

TEST_F(Resize, MovesEachControlOnce)
{
    startWith(12000, 9000);
    const std::array<HWND, 6> windows{lstCategory().handle(),       splitterBar(*main),
                                      lstInfo().handle(),           main->toolBar().handle(),
                                      main->searchPanel().handle(), main->workspace().StatusBar1.handle()};
    std::array<int, windows.size()> moves{};
    std::array<RECT, windows.size()> places{};
    for (std::size_t i = 0; i < windows.size(); ++i) places[i] = outerPlace(windows[i]);
    std::vector<std::unique_ptr<MessageWatch>> watches;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        // A scroll bar that comes or goes is told in the same way.
        const auto look = [&, i] {
            const RECT now = outerPlace(windows[i]);
            if (EqualRect(&now, &places[i]) == 0) ++moves[i];
            places[i] = now;
        };
        watches.push_back(std::make_unique<MessageWatch>(windows[i], WM_WINDOWPOSCHANGED, look));
    }
    resizeTo(1000, 700);
    for (std::size_t i = 0; i < windows.size(); ++i) EXPECT_EQ(moves[i], 1) << i;
    SendMessageW(main->handle(), WM_SIZE, SIZE_RESTORED, 0);
    for (std::size_t i = 0; i < windows.size(); ++i) EXPECT_EQ(moves[i], 1) << i << ", which is in its place";
}

TEST_F(Resize, AtTheSmallestSizeNothingOverlaps)
{
    startWith(9135, 5685);
    const HWND windows[] = {lstCategory().handle(),       splitterBar(*main),
                            lstInfo().handle(),           main->toolBar().handle(),
                            main->searchPanel().handle(), main->workspace().StatusBar1.handle()};
    const RECT client = clientOf(main->handle());
    for (std::size_t a = 0; a < std::size(windows); ++a) {
        const RECT place = placeOf(windows[a]);
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right &&
                    place.bottom <= client.bottom)
            << a;
        for (std::size_t b = a + 1; b < std::size(windows); ++b) {
            const RECT other = placeOf(windows[b]);
            RECT common{};
            EXPECT_FALSE(IntersectRect(&common, &place, &other))
                << a << " and " << b << ": " << widthOf(common) << " by " << heightOf(common);
        }
    }
}

TEST_F(Resize, TheSearchBoxAndItsButtonAreSideBySideInTheirPanel)
{
    startWith(9135, 5685);
    const RECT panel = clientOf(main->searchPanel().handle());
    const RECT box = placeOf(main->searchPanel().cmbSearch.handle());
    const RECT button = placeOf(main->searchPanel().cmdSearch.handle());
    EXPECT_LE(box.right, button.left);
    EXPECT_GE(box.left, 0);
    EXPECT_LE(button.right, panel.right);
    EXPECT_GE(box.top, 0);
    EXPECT_LE(box.bottom, panel.bottom);
    EXPECT_GE(button.top, 0);
    EXPECT_LE(button.bottom, panel.bottom);
}

} // namespace
} // namespace vandrel::test
