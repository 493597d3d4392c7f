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

} // namespace
} // namespace vandrel::test
