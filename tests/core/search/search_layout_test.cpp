#include "search/search_layout.h"

#include "print.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

TEST(SearchLayout, TheWindowIsNeverSmallerThanThis)
{
    EXPECT_EQ(search_layout::smallestWidth, 7200_twips);
    EXPECT_EQ(search_layout::smallestHeight, 4755_twips);
}

TEST(SearchLayout, TheResultsTakeTheInnerHeightButAFixedPart)
{
    EXPECT_EQ(search_layout::resultsHeight(6000_twips), 3850_twips);
    EXPECT_EQ(search_layout::resultsHeight(2151_twips), 1_twips);
}

TEST(SearchLayout, TheListIsLowerThanTheFrameAroundIt)
{
    EXPECT_EQ(search_layout::listHeight(3850_twips), 3460_twips);
}

TEST(SearchLayout, TheLastColumnTakesWhatTheOthersLeave)
{
    EXPECT_EQ(search_layout::lastColumn(8800_twips, 6300_twips), 2230_twips);
    EXPECT_EQ(search_layout::lastColumn(9800_twips, 6300_twips), 3230_twips);
    EXPECT_EQ(search_layout::lastColumn(9800_twips, 7300_twips), 2230_twips);
}

TEST(SearchLayout, WhatIsAboveTheResultsAndTheStatusBarAreTheFixedPart)
{
    EXPECT_LT(search_layout::resultsTop, search_layout::restOfHeight);
}

} // namespace
} // namespace vandrel
