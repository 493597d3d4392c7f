#include "platform/windows/message_throttle.h"

#include "tests/support/test_clock.h"

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
    TestClock clock;
    MessageThrottle throttle;
    throttle.take([&] { clock.pass(60'000); });
    clock.pass(999);
    EXPECT_FALSE(throttle.due());
    clock.pass(1);
    EXPECT_TRUE(throttle.due());
}

} // namespace
} // namespace vandrel::test
