#include "platform/base/twips.h"

#include "print.h"

#include <limits>

namespace vandrel {
namespace {

TEST(Twips, AnInchIs1440Twips)
{
    EXPECT_EQ(toPixels(1440_twips, 96), 96);
    EXPECT_EQ(toPixels(1440_twips, 144), 144);
    EXPECT_EQ(toTwips(96, 96), 1440_twips);
    EXPECT_EQ(toTwips(144, 144), 1440_twips);
}

TEST(Twips, APixelIs15TwipsAt96Dpi)
{
    EXPECT_EQ(toPixels(15_twips, 96), 1);
    EXPECT_EQ(toPixels(2340_twips, 96), 156);
    EXPECT_EQ(toTwips(1, 96), 15_twips);
    EXPECT_EQ(toTwips(0, 96), 0_twips);
}

TEST(Twips, ALengthBecomesTheNearestPixel)
{
    EXPECT_EQ(toPixels(7_twips, 96), 0);
    EXPECT_EQ(toPixels(8_twips, 96), 1);
    EXPECT_EQ(toPixels(22_twips, 96), 1);
    EXPECT_EQ(toPixels(23_twips, 96), 2);
    EXPECT_EQ(toPixels(Twips{-7}, 96), 0);
    EXPECT_EQ(toPixels(Twips{-8}, 96), -1);
}

TEST(Twips, PixelsMayHoldFractionsOfTwips)
{
    EXPECT_FLOAT_EQ(toTwips(240, 168).value, 2057.142857F);
    EXPECT_FLOAT_EQ(toTwips(-1, 168).value, -8.571428F);
}

TEST(Twips, PixelsSurviveTheWayToTwipsAndBack)
{
    for (const unsigned dpi : {72U, 96U, 120U, 144U, 168U, 192U, 240U, 480U}) {
        for (int pixels = -5000; pixels <= 5000; ++pixels) {
            ASSERT_EQ(toPixels(toTwips(pixels, dpi), dpi), pixels);
        }
    }
}

TEST(Twips, LengthsThatNoScreenHasAreCut)
{
    EXPECT_EQ(toPixels(Twips{1e30F}, 96), 1'000'000);
    EXPECT_EQ(toPixels(Twips{-1e30F}, 96), -1'000'000);
    EXPECT_EQ(toPixels(Twips{std::numeric_limits<float>::infinity()}, 96), 1'000'000);
    EXPECT_EQ(toPixels(Twips{std::numeric_limits<float>::quiet_NaN()}, 96), 0);
}

TEST(Twips, LengthsAddSubtractAndCompare)
{
    EXPECT_EQ(60_twips + 2340_twips, 2400_twips);
    EXPECT_EQ(60_twips - 2340_twips, Twips{-2280});
    EXPECT_LT(59_twips, 60_twips);
    EXPECT_GE(60_twips, 60_twips);
    EXPECT_EQ(Twips{}, 0_twips);
}

} // namespace
} // namespace vandrel
