#include "platform/windows/message_throttle.h"

#include "tests/support/answers.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

TEST(TurnsOfLongWork, TakeNoMoreThanAFifthOfTheTime)
{
    for (const ULONGLONG taken : {30U, 100U, 200U, 250U})
        EXPECT_EQ(MessageThrottle::pauseAfter(taken), 4 * taken);
}

TEST(TurnsOfLongWork, AreATenthOfASecondApartAtLeast)
{
    for (const ULONGLONG taken : {0U, 1U, 25U}) EXPECT_EQ(MessageThrottle::pauseAfter(taken), 100U);
}

TEST(TurnsOfLongWork, AreASecondApartAtMostHoweverLongADialogWasOpenInOne)
{
    for (const ULONGLONG taken : {251ULL, 60'000ULL, 86'400'000ULL, ~0ULL})
        EXPECT_EQ(MessageThrottle::pauseAfter(taken), 1000U);
}

TEST(TurnsOfLongWork, ComeWheneverTheyAreAskedForIfSoWanted)
{
    EXPECT_EQ(MessageThrottle::pauseAfter(60'000, 0), 0U);
    MessageThrottle throttle(0);
    throttle.take([] {});
    EXPECT_TRUE(throttle.due());
}

TEST(TurnsOfLongWork, GoOnSoonAfterALongOne)
{
    MessageThrottle throttle;
    const ULONGLONG start = GetTickCount64();
    throttle.take([&] { EXPECT_TRUE(pumpUntil([&] { return GetTickCount64() >= start + 750; })); });
    EXPECT_FALSE(throttle.due());
    const ULONGLONG end = GetTickCount64();
    ASSERT_TRUE(pumpUntil([&] { return throttle.due(); }));
    EXPECT_LT(GetTickCount64() - end, 2500U) << "four times as long would be three seconds";
}

} // namespace
} // namespace vandrel::test
