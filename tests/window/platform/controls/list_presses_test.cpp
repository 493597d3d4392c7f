#include "platform/base/wine.h"
#include "tests/support/list_fixture.h"

#include <functional>

namespace vandrel::test {
namespace {

// Windows' list views return from WM_LBUTTONDOWN and WM_RBUTTONDOWN only after the button has been released: until
// then they dispatch messages, and they report the click before they return. Here the lists of a test do so.
class PressLoop {
  public:
    PressLoop()
    {
        const HWND any = CreateWindowExW(0, WC_LISTVIEWW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                         nullptr);
        native_ = reinterpret_cast<WNDPROC>(GetClassLongPtrW(any, GCLP_WNDPROC));
        SetClassLongPtrW(any, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
        DestroyWindow(any);
        inPress = false;
        waiting = nullptr;
    }
    PressLoop(const PressLoop&) = delete;
    PressLoop& operator=(const PressLoop&) = delete;
    ~PressLoop()
    {
        const HWND any = CreateWindowExW(0, WC_LISTVIEWW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                         nullptr);
        SetClassLongPtrW(any, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(native_));
        DestroyWindow(any);
        waiting = nullptr;
    }

    static inline bool inPress = false;
    static inline bool painting = true;            // WM_SETREDRAW has not switched it off
    static inline std::function<void()> waiting{}; // while the button is down

  private:
    static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_SETREDRAW) painting = wParam != 0;
        if (inPress || (message != WM_LBUTTONDOWN && message != WM_RBUTTONDOWN))
            return CallWindowProcW(native_, window, message, wParam, lParam);
        const UINT release = message == WM_LBUTTONDOWN ? WM_LBUTTONUP : WM_RBUTTONUP;
        inPress = true;
        // Wine's own press looks at the mouse, too, and leaves the release to us.
        CallWindowProcW(native_, window, message, wParam, lParam);
        if (waiting) waiting();
        MSG next{};
        while (PeekMessageW(&next, nullptr, 0, 0, PM_REMOVE)) {
            if (next.hwnd == window && next.message == release) {
                CallWindowProcW(native_, window, release, next.wParam, next.lParam);
                break;
            }
            TranslateMessage(&next);
            DispatchMessageW(&next);
        }
        inPress = false;
        return 0;
    }

    static inline WNDPROC native_ = nullptr;
};

struct PressLoopFirst { // before the lists of the fixture
    PressLoop loop;
};

class ListPresses : public PressLoopFirst, public ListTest {
  protected:
    ListPresses() { fillNames(sites, {L"a", L"b", L"c", L"d", L"e"}); }
    // Notes every event together with whether it came within a press.
    void noteInto(std::string& events)
    {
        const auto note = [&events](const char* name) {
            events += std::string(name) + (PressLoop::inPress ? "! " : " ");
        };
        sites.ItemClick = [note](std::size_t) { note("row"); };
        sites.RightClick = [note](POINT) { note("menu"); };
        sites.ColumnClick = [note](std::size_t) { note("column"); };
        sites.Return = [note] { note("return"); };
    }
};

TEST_F(ListPresses, ARowIsAnnouncedOnceWhenTheButtonWasReleased)
{
    std::string events;
    noteInto(events);
    click(sites, 2);
    EXPECT_EQ(events, "row ");
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
    click(sites, 2);
    EXPECT_EQ(events, "row row ");
}

TEST_F(ListPresses, TheMenuIsAskedForBehindTheRow)
{
    std::string events;
    noteInto(events);
    rightClickAt(sites.handle(), middleOf(sites, 3));
    EXPECT_EQ(events, "row menu ");
    EXPECT_EQ(selectedRows(sites), RowNumbers{3});
}

TEST_F(ListPresses, WhatWasReportedBeforeWaitsForTheRelease)
{
    std::string events;
    noteInto(events);
    PressLoop::waiting = [&] {
        NMLISTVIEW heading{};
        heading.hdr = {sites.handle(), 1, LVN_COLUMNCLICK};
        SendMessageW(window.handle(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&heading));
        SendMessageW(sites.handle(), WM_KEYDOWN, VK_RETURN, 1);
        pump();
        EXPECT_EQ(events, "");
    };
    click(sites, 3);
    EXPECT_EQ(events, "row column return ");
}

TEST_F(ListPresses, KeysWithinOneAreAnnouncedBehindIt)
{
    std::string events;
    noteInto(events);
    PressLoop::waiting = [&] {
        SendMessageW(sites.handle(), WM_KEYDOWN, VK_DOWN, 1);
        const HeldKeys control({VK_CONTROL});
        SendMessageW(sites.handle(), WM_KEYDOWN, 'A', 1);
        EXPECT_EQ(events, "");
    };
    click(sites, 0);
    EXPECT_EQ(events, "row ");
}

TEST_F(ListPresses, RowsMayGoMeanwhile)
{
    fillNames(categories, {L"a", L"b", L"c"});
    categories.select(2);
    PressLoop::waiting = [&] { categories.rows.clear(); };
    click(categories, 1);
    EXPECT_TRUE(selectedRows(categories).empty());
}

// ---- many rows

class ListPressesOfManyRows : public ListPresses {
  protected:
    ListPressesOfManyRows()
    {
        fillNames(sites, Names(5000, L"row"));
        sites.selectAll();
        sites.ensureVisible(0);
        clicked.clear();
        PressLoop::waiting = [this] {
            painted = PressLoop::painting;
            selectedMeanwhile = sites.selectedCount();
        };
    }
    bool painted = false;
    std::size_t selectedMeanwhile = 0;
};

TEST_F(ListPressesOfManyRows, OnASelectedOneLeaveThemAllAndTheListIsPainted)
{
    rightClickAt(sites.handle(), middleOf(sites, 1));
    EXPECT_TRUE(painted);
    EXPECT_EQ(sites.selectedCount(), 5000U);
    EXPECT_EQ(rightClicks.size(), 1U);
}

TEST_F(ListPressesOfManyRows, OnAnotherUnselectThemAndTheListIsPainted)
{
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    SendMessageW(sites.handle(), LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&item));
    rightClickAt(sites.handle(), middleOf(sites, 2));
    EXPECT_TRUE(painted);
    EXPECT_EQ(selectedMeanwhile, 1U);
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
    EXPECT_EQ(clicked, RowNumbers{2});
}

TEST_F(ListPressesOfManyRows, WithCtrlUnselectOneAndTheListIsPainted)
{
    const HeldKeys control({VK_CONTROL});
    click(sites, 2, MK_CONTROL);
    EXPECT_TRUE(painted);
    EXPECT_EQ(sites.selectedCount(), 4999U);
}

TEST_F(ListPressesOfManyRows, WithShiftSelectARangeAndTheListIsPainted)
{
    const WineDisregarded likeWindows;
    SendMessageW(sites.handle(), LVM_SETSELECTIONMARK, 0, 0);
    const HeldKeys shift({VK_SHIFT});
    click(sites, 2, MK_SHIFT);
    EXPECT_TRUE(painted);
    EXPECT_EQ(sites.selectedCount(), 3U);
}

// ---- selected from outside

TEST_F(ListPresses, ARowThatSomebodyElseSelectsIsAnnouncedBehindThat)
{
    selectRows(sites, {1});
    EXPECT_TRUE(clicked.empty()) << "within a notification of the control";
    pump();
    EXPECT_EQ(clicked, RowNumbers{1});
}

} // namespace
} // namespace vandrel::test
