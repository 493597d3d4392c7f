#include "platform/base/guarded.h"

#include "platform/base/callback_error.h"
#include "platform/base/runtime_error.h"
#include "platform/base/system_error.h"
#include "platform/controls/font.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/message_loop.h"
#include "tests/support/answers.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace vandrel::test {
namespace {

constexpr const wchar_t* overflowText = L"Run-time error '6':\r\n\r\nOverflow";
constexpr const wchar_t* outOfMemoryText = L"Run-time error '7':\r\n\r\nOut of memory";
constexpr UINT probe = WM_APP + 77;

[[noreturn]] void overflow() { throw RuntimeError(error_number::overflow); }

class ThrowingWindow : public TestWindow {
  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == probe || message == WM_TIMER) overflow();
        return TestWindow::onMessage(message, wParam, lParam);
    }
};

// An error in anything that the system calls shows the message box, and the program goes on.
class Guarded : public testing::Test {
  protected:
    void expectBox(const wchar_t* text = overflowText)
    {
        answers.expectBox(L"Vandrel", text, IDOK, MB_ICONHAND);
    }
    void expectShown() { EXPECT_ANSWERED(answers); }

    ThrowingWindow window;
    MessageLoop& loop = MessageLoop::current();
    Answers answers;
};

TEST_F(Guarded, AWindowProcedure)
{
    expectBox();
    EXPECT_EQ(SendMessageW(window.handle(), probe, 0, 0), 0);
    expectShown();
}

TEST_F(Guarded, ATimerWithOneBoxThoughItFailsAgainWhileThatIsOpen)
{
    const UINT_PTR timer = SetTimer(window.handle(), 1, 10, nullptr);
    answers.expect(L"Vandrel", [&](HWND box) {
        SendMessageW(window.handle(), WM_TIMER, timer, 0);
        SendMessageW(window.handle(), WM_TIMER, timer, 0);
        KillTimer(window.handle(), timer);
        press(box, IDOK);
    });
    EXPECT_TRUE(pumpUntil([&] { return answers.done(); }));
    expectShown();
}

TEST_F(Guarded, AMessageFilterWhoseMessageCountsAsHandled)
{
    const MessageLoop::Registration filter(loop, [](MSG& message) -> bool {
        if (message.message == probe + 1) overflow();
        return false;
    });
    expectBox();
    PostMessageW(window.handle(), probe + 1, 0, 0);
    loop.dispatchPending();
    expectShown();
    EXPECT_TRUE(loop.dispatchPending()) << "the loop goes on";
}

TEST_F(Guarded, AControlsEvent)
{
    Button button(window.handle(), 5, L"Throw");
    button.Click = [] { overflow(); };
    expectBox();
    SendMessageW(window.handle(), WM_COMMAND, MAKEWPARAM(5, BN_CLICKED),
                 reinterpret_cast<LPARAM>(button.handle()));
    expectShown();
}

TEST_F(Guarded, RunningOutOfMemoryAndWhateverElseIsThrown)
{
    expectBox(outOfMemoryText);
    EXPECT_EQ(guarded(window.handle(), 3, []() -> LRESULT { throw std::bad_alloc(); }), 3);
    expectShown();
    expectBox(L"Run-time error '51':\r\n\r\nInternal error");
    EXPECT_EQ(guarded(window.handle(), 4, []() -> LRESULT { throw 42; }), 4);
    expectShown();
}

TEST(SystemBoxes, DoNotAppearBeforeTheProgramsOwn)
{
    const UINT before = SetErrorMode(0);
    keepSystemBoxesAway();
    const UINT mode = GetErrorMode();
    SetErrorMode(before);
    EXPECT_NE(mode & SEM_FAILCRITICALERRORS, 0U);
    EXPECT_NE(mode & SEM_NOOPENFILEERRORBOX, 0U);
}

TEST_F(Guarded, WhatIsThrownInACallbackContinuesAfterTheCallThatMadeIt)
{
    CallbackError error;
    const auto callback = [&error]() noexcept {
        return error.keep(FALSE, []() -> BOOL { throw std::out_of_range("in the callback"); });
    };
    EXPECT_EQ(callback(), FALSE);
    EXPECT_THROW(error.rethrow(), std::out_of_range);
    EXPECT_NO_THROW(error.rethrow()) << "once";
}

} // namespace
} // namespace vandrel::test
