#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>

namespace vandrel::test {

// Sets the text of a box from another thread and without the keyboard, as screen readers, dictation and
// automation do. Meanwhile this thread answers only messages that are sent to its windows, so no timer of
// the test interferes.
inline void setTextFromOutside(HWND box, const std::wstring& text)
{
    auto sent = std::async(std::launch::async, [&] {
        return SendMessageTimeoutW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()), SMTO_NORMAL,
                                   10'000, nullptr) != 0;
    });
    MSG message{};
    while (sent.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    EXPECT_TRUE(sent.get());
}

} // namespace vandrel::test
