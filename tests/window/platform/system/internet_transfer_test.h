#pragma once

#include "platform/system/internet_transfer.h"
#include "tests/support/answers.h"
#include "tests/support/error_of.h"
#include "tests/support/meanwhile.h"
#include "tests/support/test_server.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace vandrel::test {

using Body = InternetTransfer::Body;
using States = std::vector<short>;

inline const States both{1, 3};
inline const States resolvingAlone{1};
inline const States none;

class InternetTransfers : public testing::Test {
  protected:
    InternetTransfers() { watch(transfer); }

    void watch(InternetTransfer& watched)
    {
        watched.setRequestTimeout(5000);
        watched.StateChanged = [this](short state) { states.push_back(state); };
    }
    std::wstring open(const std::wstring& path) { return transfer.OpenURL(server.address(path)); }
    int errorFor(const std::wstring& url)
    {
        states.clear();
        return errorOf([&] { transfer.OpenURL(url); });
    }
    // Requests an answer that does not come, and returns the error.
    int errorAfter(unsigned milliseconds, const std::wstring& path)
    {
        transfer.setRequestTimeout(milliseconds);
        const int error = errorFor(server.address(path));
        transfer.setRequestTimeout(5000);
        return error;
    }
    static void takeQuitMessage()
    {
        MSG message{};
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
            << "the loop outside must end, too";
    }

    TestServer server;
    InternetTransfer transfer;
    States states;
};

} // namespace vandrel::test
