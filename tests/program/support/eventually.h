#pragma once

#include <windows.h>

#include <gtest/gtest.h>

namespace vandrel::test {

inline constexpr DWORD limitMilliseconds = 10'000;
inline constexpr DWORD pollMilliseconds = 10;

// Polls the condition until it holds. False when it does not hold within the limit.
template <typename Condition> bool soon(Condition condition, DWORD limit = limitMilliseconds)
{
    for (const ULONGLONG deadline = GetTickCount64() + limit; !condition(); Sleep(pollMilliseconds)) {
        if (GetTickCount64() > deadline) return false;
    }
    return true;
}

// The same for a value; the failure message shows the last one seen.
template <typename Get, typename Wanted>
testing::AssertionResult becomes(Get get, const Wanted& wanted, DWORD limit = limitMilliseconds)
{
    auto last = get();
    if (soon([&] { return (last = get()) == wanted; }, limit)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "wanted " << testing::PrintToString(wanted) << ", last seen " << testing::PrintToString(last);
}

} // namespace vandrel::test

// What another process shows or writes comes a moment after its cause.
#define EXPECT_SOON(expression, ...)                                                                         \
 EXPECT_TRUE(vandrel::test::becomes([&] { return (expression); }, __VA_ARGS__)) << #expression
