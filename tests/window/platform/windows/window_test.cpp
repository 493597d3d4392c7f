#include "platform/windows/window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr UINT question = WM_APP + 78;

struct Sender {
    explicit Sender(HWND window) : answer(SendMessageW(window, question, 0, 0)) {}
    LRESULT answer;
};

class ProbedWindow : public Window {
  public:
    ProbedWindow()
        : Window({.className = L"Vandrel.ProbedWindow", .style = 0, .parent = HWND_MESSAGE}),
          whileMembersAreMade(handle())
    {
        startAnswering();
        inTheConstructor = SendMessageW(handle(), question, 0, 0);
    }

    Sender whileMembersAreMade;
    LRESULT inTheConstructor = 0;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return message == question ? 42 : Window::onMessage(message, wParam, lParam);
    }
};

TEST(Windows, AnswerNoMessageBeforeTheirMembersStand)
{
    const ProbedWindow window;
    EXPECT_EQ(window.whileMembersAreMade.answer, 0);
    EXPECT_EQ(window.inTheConstructor, 42);
    EXPECT_EQ(SendMessageW(window.handle(), question, 0, 0), 42);
}

} // namespace
} // namespace vandrel::test
