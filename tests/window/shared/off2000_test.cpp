#include "shared/window_edges.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

// A child window, so that the system removes no bit of the style.
class Off2000Edges : public testing::Test {
  protected:
    Off2000Edges() { window.show(); }
    ~Off2000Edges() override { DestroyWindow(child); }
    void give(LONG_PTR style) const { SetWindowLongPtrW(child, GWL_EXSTYLE, style); }
    // Without the bit that the system sets and clears itself, depending on the other edges.
    LONG_PTR style() const { return GetWindowLongPtrW(child, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_WINDOWEDGE}; }
    SIZE inner() const
    {
        RECT area{};
        GetClientRect(child, &area);
        return {area.right, area.bottom};
    }

    TestWindow window;
    HWND child = CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 10, 20, 100, 50, window.handle(),
                                 nullptr, nullptr, nullptr);
};

TEST_F(Off2000Edges, TheStaticEdgeIsOneBitMore)
{
    for (const LONG_PTR before : {LONG_PTR{0}, LONG_PTR{WS_EX_DLGMODALFRAME}, LONG_PTR{WS_EX_STATICEDGE},
                                  LONG_PTR{WS_EX_CONTROLPARENT | WS_EX_TRANSPARENT}}) {
        give(before);
        Off2000::addStaticEdge(child);
        EXPECT_EQ(style(), before | 0x20000) << before;
    }
}

TEST_F(Off2000Edges, TheOtherRoutineAddsOneToThat)
{
    give(WS_EX_CONTROLPARENT);
    Off2000::addStaticAndDialogEdge(child);
    EXPECT_EQ(style(), WS_EX_CONTROLPARENT | 0x20000 | WS_EX_DLGMODALFRAME);
    give(WS_EX_STATICEDGE);
    Off2000::addStaticAndDialogEdge(child);
    EXPECT_EQ(style(), 0x20001);
}

TEST_F(Off2000Edges, ItIsAnAdditionWhichCarriesOverTheBitThatWasSet)
{
    give(WS_EX_DLGMODALFRAME);
    Off2000::addStaticAndDialogEdge(child);
    EXPECT_EQ(style(), 0x20002);
    give(WS_EX_DLGMODALFRAME | 0x2);
    Off2000::addStaticAndDialogEdge(child);
    EXPECT_EQ(style(), 0x20000 | WS_EX_NOPARENTNOTIFY);
}

TEST_F(Off2000Edges, TheFrameIsThereAtOnceAndPlaceAndSizeStay)
{
    RECT before{};
    GetWindowRect(child, &before);
    const SIZE whole = inner();
    Off2000::addStaticEdge(child);
    EXPECT_LT(inner().cx, whole.cx);
    EXPECT_LT(inner().cy, whole.cy);
    RECT after{};
    GetWindowRect(child, &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(Off2000Edges, TheZOrderStays)
{
    const HWND other = CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, window.handle(),
                                       nullptr, nullptr, nullptr);
    Off2000::addStaticEdge(other);
    Off2000::addStaticAndDialogEdge(child);
    Off2000::addStaticEdge(other);
    EXPECT_EQ(GetWindow(child, GW_HWNDNEXT), other);
    EXPECT_EQ(GetWindow(window.handle(), GW_CHILD), child);
    DestroyWindow(other);
}

} // namespace
} // namespace vandrel::test
