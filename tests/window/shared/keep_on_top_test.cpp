#include "shared/keep_on_top.h"

#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class PauseOfTopmost : public testing::Test {
  protected:
    bool onTop() const { return (GetWindowLongPtrW(window.handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

    TestWindow window;
    KeepOnTop keepOnTop{window.handle(), 0};
};

TEST_F(PauseOfTopmost, MakesTheWindowNormalAndThenTopmostAgain)
{
    keepOnTop.flag = 1;
    setTopmost(window.handle(), true);
    {
        const TopmostPause pause(keepOnTop);
        EXPECT_FALSE(onTop());
    }
    EXPECT_TRUE(onTop());
}

TEST_F(PauseOfTopmost, WithoutTheFlagDoesNothing)
{
    setTopmost(window.handle(), true);
    {
        const TopmostPause pause(keepOnTop);
        EXPECT_TRUE(onTop());
    }
    EXPECT_TRUE(onTop());
}

TEST_F(PauseOfTopmost, MakesNoWindowTopmostThatTheFlagDoesNot)
{
    {
        const TopmostPause pause(keepOnTop);
    }
    EXPECT_FALSE(onTop());
}

TEST_F(PauseOfTopmost, AFlagClearedMeanwhileLeavesTheWindowNormal)
{
    keepOnTop.flag = 1;
    setTopmost(window.handle(), true);
    {
        const TopmostPause pause(keepOnTop);
        keepOnTop.flag = 0;
    }
    EXPECT_FALSE(onTop());
}

TEST_F(PauseOfTopmost, PutsTheWindowBackWhenTheCommandFails)
{
    keepOnTop.flag = 1;
    setTopmost(window.handle(), true);
    try {
        const TopmostPause pause(keepOnTop);
        throw 1;
    } catch (int) {}
    EXPECT_TRUE(onTop());
}

} // namespace
} // namespace vandrel::test
