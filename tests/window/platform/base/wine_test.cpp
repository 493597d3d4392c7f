#include "platform/base/wine.h"

#include "tests/support/wine.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

TEST(Wine, IsKnownByWhatItsCoreLibraryOffers) { EXPECT_EQ(runningUnderWine(), runsUnderWine()); }

TEST(Wine, IsDisregardedOnlyAsLongAsATestAsksForIt)
{
    {
        const WineDisregarded asOnWindows;
        EXPECT_FALSE(runningUnderWine());
    }
    EXPECT_EQ(runningUnderWine(), runsUnderWine());
}

TEST(Wine, LosesTimeOnlyToRowsThatAreNotTheFirstOfTheirBlock)
{
    EXPECT_EQ(callsLostToBlocksUnderWine(50'000, 25'000), runsUnderWine() ? 312'500U : 0U);
    EXPECT_EQ(callsLostToBlocksUnderWine(50'000, 50'000), 0U);
    EXPECT_EQ(callsLostToBlocksUnderWine(0, 0), 0U);
    const WineDisregarded asOnWindows;
    EXPECT_EQ(callsLostToBlocksUnderWine(50'000, 25'000), 0U);
}

} // namespace
} // namespace vandrel::test
