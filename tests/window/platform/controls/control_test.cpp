#include "platform/controls/control.h"

#include "platform/base/runtime_error.h"
#include "platform/controls/simple_controls.h"
#include "tests/support/answers.h"
#include "tests/support/test_window.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace vandrel::test {
namespace {

// Somebody else before the procedure of one of our controls, as tool tips put theirs.
LRESULT CALLBACK stranger(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR heard)
{
    if (message == WM_NCDESTROY) {
        *reinterpret_cast<bool*>(heard) = true;
        RemoveWindowSubclass(window, stranger, 1);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

class ControlsOfAWindow : public testing::Test {
  protected:
    TestWindow window;
};

TEST_F(ControlsOfAWindow, AreKnownByTheirWindowsAsLongAsTheyLive)
{
    auto button = std::make_unique<Button>(window.handle(), 101, L"OK");
    const HWND handle = button->handle();
    EXPECT_EQ(Control::of(handle), button.get());
    button.reset();
    EXPECT_EQ(Control::of(handle), nullptr);
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(ControlsOfAWindow, AreTakenForNoOtherWindow)
{
    const HWND plain = CreateWindowExW(0, L"Static", L"", WS_CHILD, 0, 0, 10, 10, window.handle(), nullptr,
                                       nullptr, nullptr);
    SetWindowLongPtrW(plain, GWLP_USERDATA, 1); // its maker's own word
    EXPECT_EQ(Control::of(plain), nullptr);
    EXPECT_EQ(Control::of(window.handle()), nullptr);
    EXPECT_EQ(Control::of(GetDesktopWindow()), nullptr);
    EXPECT_EQ(Control::of(nullptr), nullptr);
    EXPECT_EQ(Control::of(reinterpret_cast<HWND>(0x123456)), nullptr);
}

TEST_F(ControlsOfAWindow, AreNotAskedByAnotherThread)
{
    const Button button(window.handle(), 101, L"OK");
    Control* found = Control::of(button.handle());
    ASSERT_EQ(found, &button);
    std::thread([&] { found = Control::of(button.handle()); }).join(); // would wait for this thread
    EXPECT_EQ(found, nullptr);
}

TEST_F(ControlsOfAWindow, OutliveTheirWindow)
{
    auto parent = std::make_unique<TestWindow>();
    Button button(parent->handle(), 101, L"OK");
    parent.reset();
    EXPECT_EQ(button.handle(), nullptr);
}

TEST_F(ControlsOfAWindow, AreFoundAndGoBehindAStrangersProcedure)
{
    bool heard = false;
    auto button = std::make_unique<Button>(window.handle(), 101, L"OK");
    const HWND handle = button->handle();
    ASSERT_TRUE(SetWindowSubclass(handle, stranger, 1, reinterpret_cast<DWORD_PTR>(&heard)));
    EXPECT_EQ(Control::of(handle), button.get());
    int clicks = 0;
    button->Click = [&] { ++clicks; };
    SendMessageW(window.handle(), WM_COMMAND, MAKEWPARAM(101, BN_CLICKED), reinterpret_cast<LPARAM>(handle));
    EXPECT_EQ(clicks, 1);
    button.reset();
    EXPECT_TRUE(heard);
    EXPECT_FALSE(IsWindow(handle));
}

class Asked : public Control {
  public:
    explicit Asked(HWND parent) : Control(parent, WC_STATICW, 0, 0, -1) {}
    std::function<void()> question;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_APP + 78) return Control::onMessage(message, wParam, lParam);
        const auto asked = question;
        asked();
        return 42;
    }
};

TEST_F(ControlsOfAWindow, AnswerTheMessageInWhichTheyGo)
{
    auto control = std::make_unique<Asked>(window.handle());
    const HWND handle = control->handle();
    control->question = [&] { control.reset(); };
    EXPECT_EQ(SendMessageW(handle, WM_APP + 78, 0, 0), 42);
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(ControlsOfAWindow, ShowWhatFailsInAMessageAsABox)
{
    Asked control(window.handle());
    window.show();
    control.question = [] { throw RuntimeError(error_number::typeMismatch); };
    Answers answers;
    answers.expectBox(L"Vandrel", L"Run-time error '13':\r\n\r\nType mismatch", IDOK, MB_ICONHAND);
    EXPECT_EQ(SendMessageW(control.handle(), WM_APP + 78, 0, 0), 0);
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
