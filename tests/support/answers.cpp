#include "tests/support/answers.h"

#include "platform/windows/message_loop.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr UINT tickMilliseconds = 10;
constexpr ULONGLONG dismissAfterMilliseconds = 3000;
constexpr int boxTextId = 0xFFFF;

Answers* active = nullptr; // tests run one at a time

// The dialog of this thread that is waiting for an answer: the frontmost one.
HWND openDialog()
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            wchar_t name[16]{};
            GetClassNameW(window, name, 16);
            if (std::wstring(name) != L"#32770" || !IsWindowVisible(window) || !IsWindowEnabled(window))
                return TRUE;
            *reinterpret_cast<HWND*>(param) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// Message boxes are given CR LF; some systems return it as LF.
std::wstring withoutReturns(std::wstring text)
{
    std::erase(text, L'\r');
    return text;
}

} // namespace

void pump()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool pumpUntil(const std::function<bool()>& condition, DWORD limitMilliseconds)
{
    const ULONGLONG deadline = GetTickCount64() + limitMilliseconds;
    while (!condition()) {
        if (GetTickCount64() > deadline) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        pump();
        MessageLoop::current().rest();
    }
    return true;
}

std::wstring windowText(HWND window)
{
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

HWND childWithText(HWND window, const std::wstring& text)
{
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (windowText(child) == text) return child;
    }
    return nullptr;
}

void press(HWND dialog, int id) { SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0); }

Answers::Answers()
{
    active = this;
    timer_ = SetTimer(nullptr, 0, tickMilliseconds, tick);
}

Answers::~Answers()
{
    KillTimer(nullptr, timer_);
    active = nullptr;
}

Answers& Answers::expect(const std::wstring& caption, std::function<void(HWND)> answer)
{
    steps_.push_back({caption, std::move(answer)});
    return *this;
}

Answers& Answers::expectBox(const std::wstring& caption, const std::wstring& text, int button, UINT icon)
{
    return expect(caption, [this, text, button, icon](HWND box) {
        const std::wstring shown = windowText(GetDlgItem(box, boxTextId));
        if (withoutReturns(shown) != withoutReturns(text)) complaint_ += L"the box says <" + shown + L"> ";
        const HWND picture = GetDlgItem(box, 1088);
        const auto shownIcon = picture == nullptr ? 0 : SendMessageW(picture, STM_GETICON, 0, 0);
        const LPCWSTR names[] = {IDI_HAND, IDI_QUESTION, IDI_EXCLAMATION, IDI_ASTERISK};
        const auto expected = reinterpret_cast<LRESULT>(LoadIconW(nullptr, names[(icon >> 4) - 1]));
        if (shownIcon != expected) complaint_ += L"the box has another icon ";
        press(box, button);
    });
}

Answers& Answers::expectInput(const std::wstring& caption, const std::wstring& prompt,
                              const std::wstring& text)
{
    return expect(caption, [this, prompt, text](HWND box) {
        if (childWithText(box, prompt) == nullptr) complaint_ += L"no prompt <" + prompt + L"> ";
        const HWND field = FindWindowExW(box, nullptr, L"Edit", nullptr);
        if (!windowText(field).empty()) complaint_ += L"the input box is not empty ";
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
        press(box, IDOK);
    });
}

Answers& Answers::cancelInput(const std::wstring& caption)
{
    return expect(caption, [](HWND box) { press(box, IDCANCEL); });
}

void CALLBACK Answers::tick(HWND, UINT, UINT_PTR, DWORD)
{
    if (active != nullptr) active->look();
}

void Answers::look()
{
    const HWND dialog = openDialog();
    if (dialog == nullptr) {
        dismissAt_ = 0;
        return;
    }
    // A dialog that cannot be cancelled now is busy and takes no answer yet.
    const HWND cancel = GetDlgItem(dialog, IDCANCEL);
    if (cancel != nullptr && IsWindowEnabled(cancel) == 0) {
        dismissAt_ = 0;
        return;
    }
    if (next_ < steps_.size() && windowText(dialog) == steps_[next_].caption) {
        dismissAt_ = 0;
        const auto answer = steps_[next_++].answer;
        answer(dialog);
        return;
    }
    if (dismissAt_ == 0) dismissAt_ = GetTickCount64() + dismissAfterMilliseconds;
    if (GetTickCount64() < dismissAt_) return;
    complaint_ += L"an unexpected dialog <" + windowText(dialog) + L"> ";
    const HWND text = GetDlgItem(dialog, boxTextId);
    if (text != nullptr) complaint_ += L"<" + windowText(text) + L"> ";
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    dismissAt_ = 0;
}

} // namespace vandrel::test
