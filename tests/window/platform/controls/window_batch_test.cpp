#include "platform/controls/window_batch.h"

#include "platform/controls/simple_controls.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class WindowBatches : public testing::Test {
  protected:
    static void expectAt(HWND window, const RECT& place)
    {
        const RECT found = placeOf(window);
        EXPECT_TRUE(EqualRect(&found, &place)) << found.left << ", " << found.top;
    }

    TestWindow window;
    Button left{window.handle(), 1, L"Left"};
    Button right{window.handle(), 2, L"Right"};
};

TEST_F(WindowBatches, MoveTheirWindowsWhenTheyAreApplied)
{
    left.place(0, 0, 50, 20);
    right.place(50, 0, 50, 20);
    WindowBatch batch;
    batch.place(left.handle(), 0, 5, 80, 30);
    batch.place(right.handle(), 80, 5, 20, 30);
    expectAt(left.handle(), {0, 0, 50, 20});
    batch.apply();
    expectAt(left.handle(), {0, 5, 80, 35});
    expectAt(right.handle(), {80, 5, 100, 35});
}

TEST_F(WindowBatches, LeaveAWindowAloneThatIsInItsPlace)
{
    left.place(3, 4, 50, 20);
    int moves = 0;
    const MessageWatch watch(left.handle(), WM_WINDOWPOSCHANGING, [&] { ++moves; });
    WindowBatch batch;
    batch.place(left.handle(), 3, 4, 50, 20);
    batch.apply();
    EXPECT_EQ(moves, 0);
    batch.place(left.handle(), 3, 4, 50, 21);
    batch.apply();
    EXPECT_EQ(moves, 1);
}

TEST_F(WindowBatches, MoveTheOthersWhenOneIsGone)
{
    WindowBatch batch;
    HWND gone = nullptr;
    {
        const Button third(window.handle(), 3, L"Gone");
        gone = third.handle();
        batch.place(gone, 1, 1, 10, 10);
    }
    ASSERT_FALSE(IsWindow(gone));
    batch.place(left.handle(), 7, 8, 90, 20);
    batch.apply();
    expectAt(left.handle(), {7, 8, 97, 28});
}

} // namespace
} // namespace vandrel::test
