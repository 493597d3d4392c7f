#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace vandrel::test {

// Dispatches this thread's messages until `condition` holds, with rests in between as in the program's outermost loop.
// False when it does not hold within the limit.
bool pumpUntil(const std::function<bool()>& condition, DWORD limitMilliseconds = 10'000);
// Dispatches the messages that are waiting.
void pump();

std::wstring windowText(HWND window);
// The child window that shows the text; null when there is none.
HWND childWithText(HWND window, const std::wstring& text);

// Answers the windows that the code under test opens and waits for, one after another, from inside their
// own message loops. Create it before the call that opens them and check done() afterwards.
class Answers {
  public:
    Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;
    ~Answers();

    // When a dialog with this caption is shown, `answer` is called with its window. It must close the
    // window or do something that closes it.
    Answers& expect(const std::wstring& caption, std::function<void(HWND dialog)> answer);
    // A message box with this caption and text, closed with the button (IDOK, IDYES, IDNO ...). Its icon
    // must be the system's for `icon` (MB_ICONHAND, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONASTERISK).
    Answers& expectBox(const std::wstring& caption, const std::wstring& text, int button, UINT icon);
    // The input box: types the text and presses OK, or cancels.
    Answers& expectInput(const std::wstring& caption, const std::wstring& prompt, const std::wstring& text);
    Answers& cancelInput(const std::wstring& caption);

    // Every expected window came.
    bool done() const { return next_ == steps_.size(); }
    // What went wrong, for the failure message.
    const std::wstring& complaint() const { return complaint_; }

  private:
    struct Step {
        std::wstring caption;
        std::function<void(HWND)> answer;
    };
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);
    void look();

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    std::wstring complaint_;
    UINT_PTR timer_ = 0;
    ULONGLONG dismissAt_ = 0; // when an unexpected dialog is closed, so that a failing test ends
};

// Presses a button of a dialog as a click does.
void press(HWND dialog, int id);

} // namespace vandrel::test

#define EXPECT_ANSWERED(answers)                                                                             \
 EXPECT_TRUE((answers).done() && (answers).complaint().empty()) << (answers).complaint()
