#include "platform/windows/message_loop.h"

#include "tests/support/test_window.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vandrel::test {
namespace {

constexpr UINT probe = WM_APP + 1;

// Counts the messages that reach it.
class ProbeWindow : public TestWindow {
  public:
    int got = 0;
    int painted = 0;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == probe) ++got;
        if (message == WM_PAINT) ++painted;
        return TestWindow::onMessage(message, wParam, lParam);
    }
};

class MessageLoops : public testing::Test {
  protected:
    ~MessageLoops() override
    {
        MSG left{};
        while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE)) {}
    }
    void post(WPARAM value = 0) const { PostMessageW(window.handle(), probe, value, 0); }
    MessageLoop::Filter writer(const char* name, bool takes)
    {
        return [this, name, takes](MSG& message) {
            if (message.message == probe) asked += name;
            return takes && message.message == probe;
        };
    }

    ProbeWindow window;
    MessageLoop& loop = MessageLoop::current();
    std::string asked;
};

TEST_F(MessageLoops, DispatchesWhatIsWaitingAndNoMore)
{
    post();
    post();
    EXPECT_TRUE(loop.dispatchPending());
    EXPECT_EQ(window.got, 2);
    EXPECT_TRUE(loop.dispatchPending());
    EXPECT_EQ(window.got, 2);
}

TEST_F(MessageLoops, DispatchesAllButPaintingIfSoWanted)
{
    window.show();
    loop.dispatchPending();
    window.painted = 0;
    InvalidateRect(window.handle(), nullptr, TRUE);
    post();
    EXPECT_TRUE(loop.dispatchAllButPainting());
    EXPECT_EQ(window.got, 1);
    EXPECT_EQ(window.painted, 0);
    EXPECT_TRUE(loop.dispatchPending());
    EXPECT_EQ(window.painted, 1);
    PostQuitMessage(0);
    EXPECT_FALSE(loop.dispatchAllButPainting());
    EXPECT_FALSE(loop.dispatchPending()) << "it stays for the loop outside";
}

TEST_F(MessageLoops, RunsUntilTheConditionHolds)
{
    for (int i = 0; i < 5; ++i) post();
    loop.runUntil([&] { return window.got == 3; });
    EXPECT_EQ(window.got, 3);
}

TEST_F(MessageLoops, DoesNotWaitWhenTheConditionHoldsAlready)
{
    post();
    loop.runUntil([] { return true; });
    EXPECT_EQ(window.got, 0);
}

TEST_F(MessageLoops, TheNewestFilterIsAskedFirst)
{
    const MessageLoop::Registration first(loop, writer("a", false));
    const MessageLoop::Registration second(loop, writer("b", false));
    post();
    loop.dispatchPending();
    EXPECT_EQ(asked, "ba");
    EXPECT_EQ(window.got, 1);
}

TEST_F(MessageLoops, AFilterThatTakesAMessageKeepsItFromTheOthersAndTheWindow)
{
    const MessageLoop::Registration first(loop, writer("a", false));
    const MessageLoop::Registration second(loop, writer("b", true));
    post();
    loop.dispatchPending();
    EXPECT_EQ(asked, "b");
    EXPECT_EQ(window.got, 0);
}

TEST_F(MessageLoops, AFilterIsAskedAsLongAsItsRegistrationLives)
{
    {
        const MessageLoop::Registration gone(loop, writer("a", true));
    }
    post();
    loop.dispatchPending();
    EXPECT_EQ(asked, "");
    EXPECT_EQ(window.got, 1);
}

TEST_F(MessageLoops, AFilterMayRemoveItselfAndOthersWhileItIsAsked)
{
    std::optional<MessageLoop::Registration> first;
    std::optional<MessageLoop::Registration> second;
    first.emplace(loop, writer("a", false));
    second.emplace(loop, [&](MSG& message) {
        if (message.message != probe) return false;
        first.reset();
        second.reset();
        return false;
    });
    post();
    loop.dispatchPending();
    EXPECT_EQ(asked, "");
    EXPECT_EQ(window.got, 1);
}

TEST_F(MessageLoops, ALoopWithinALoopAsksTheSameFilters)
{
    const MessageLoop::Registration outer(loop, writer("a", false));
    int depth = 0;
    const MessageLoop::Registration inner(loop, [&](MSG& message) {
        if (message.message == probe && message.wParam == 1 && ++depth == 1) {
            post(2);
            loop.runUntil([&] { return window.got == 1; });
        }
        return false;
    });
    post(1);
    loop.dispatchPending();
    EXPECT_EQ(window.got, 2);
    EXPECT_EQ(asked, "aa");
}

TEST_F(MessageLoops, TheOutermostOneAloneRestsBetweenMessages)
{
    std::string order;
    std::optional<MessageLoop::Rest> rest;
    rest.emplace(loop, [&] { order += "rest "; });
    const MessageLoop::Registration filter(loop, [&](MSG& message) {
        if (message.message != probe) return false;
        order += "message ";
        if (message.wParam == 1) {
            post(2);
            loop.runUntil([&] { return window.got == 1; });
            post(3);
            loop.dispatchPending();
            PostQuitMessage(0);
        }
        return false;
    });
    post(1);
    loop.run();
    EXPECT_EQ(order.substr(0, order.find("rest")), "message message message ");
    EXPECT_NE(order.find("rest"), std::string::npos);
    rest.reset();
    order.clear();
    loop.rest();
    EXPECT_EQ(order, "");
}

TEST_F(MessageLoops, ARequestToQuitEndsAWaitAndStaysForTheLoopOutside)
{
    PostQuitMessage(5);
    loop.runUntil([] { return false; });
    loop.run(); // ends as well
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(MessageLoops, ARequestToQuitAmongWhatIsWaitingIsToldAndKept)
{
    PostQuitMessage(5);
    EXPECT_FALSE(loop.dispatchPending());
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 5U);
}

TEST_F(MessageLoops, KeysBecomeLetters)
{
    const HWND field = CreateWindowExW(0, L"Edit", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, window.handle(),
                                       nullptr, nullptr, nullptr);
    PostMessageW(field, WM_KEYDOWN, '7', 1);
    loop.dispatchPending();
    EXPECT_EQ(GetWindowTextLengthW(field), 1);
}

} // namespace
} // namespace vandrel::test
