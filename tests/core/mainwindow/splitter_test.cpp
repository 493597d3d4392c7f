#include "mainwindow/layout.h"
#include "print.h"

namespace vandrel {
namespace {

using Columns = std::array<Twips, 4>;

// A window of 12000 by 8000 that has been laid out: the site list is 9540 wide, its description column 3730.
class Splitter : public testing::Test {
  protected:
    Splitter()
    {
        layout.clientWidth = 12000_twips;
        layout.clientHeight = 8000_twips;
        layout.infoColumns = {2160_twips, 2880_twips, 2880_twips, 500_twips};
        layOut(layout);
    }

    // Presses the bar at 30 and drags it so that its left edge comes to `left`.
    void dragTo(float left) { dragBar(layout, 30, Twips{left + 30} - layout.barLeft); }

    MainLayout layout;
};

TEST_F(Splitter, TheBarFollowsTheMouse)
{
    dragBar(layout, 30, 130_twips);
    EXPECT_EQ(layout.barLeft, 2440_twips);
    dragBar(layout, 30, Twips{-70});
    EXPECT_EQ(layout.barLeft, 2340_twips);
    dragBar(layout, 0, 1_twips);
    EXPECT_EQ(layout.barLeft, 2341_twips);
    dragBar(layout, 60, Twips{60.5F});
    EXPECT_EQ(layout.barLeft, Twips{2341.5F});
}

TEST_F(Splitter, AMouseAtTheAnchorLeavesTheBarInPlace)
{
    dragBar(layout, 45, 45_twips);
    EXPECT_EQ(layout.barLeft, 2340_twips);
    EXPECT_EQ(layout.infoLeft, 2400_twips);
}

TEST_F(Splitter, TheCategoryListEndsAtTheBar)
{
    dragTo(3000);
    EXPECT_EQ(layout.categoryWidth, 3000_twips);
}

TEST_F(Splitter, TheCategoryColumnIs45NarrowerThanItsList)
{
    dragTo(3000);
    EXPECT_EQ(layout.categoryColumn, 2955_twips);
}

TEST_F(Splitter, TheDateColumnIsNotCountedInADrag)
{
    dragTo(3000);
    EXPECT_EQ(layout.infoColumns, (Columns{2160_twips, 2880_twips, 4230_twips, 500_twips}));
}

TEST_F(Splitter, TheDescriptionColumnDependsOnTheWidthBeforeTheDrag)
{
    dragTo(3000); // the site list was 9540 wide and is 8940 now
    EXPECT_EQ(layout.infoColumns[2], 4230_twips);
    dragTo(4000);
    EXPECT_EQ(layout.infoColumns[2], 3630_twips);
    dragTo(4000);
    EXPECT_EQ(layout.infoColumns[2], 2630_twips);
}

TEST_F(Splitter, TheSiteListBeginsBehindTheBar)
{
    layout.barWidth = 75_twips;
    dragTo(3000);
    EXPECT_EQ(layout.infoLeft, 3075_twips);
}

TEST_F(Splitter, TheSiteListReachesTheRightEdgeAfterADrag)
{
    dragTo(3000);
    EXPECT_EQ(layout.infoWidth, 8940_twips);
    EXPECT_EQ(layout.infoLeft + layout.infoWidth, layout.clientWidth);
}

TEST_F(Splitter, TheNextResizeStopsTheSiteListShortOfTheEdgeAgain)
{
    dragTo(3000);
    layOut(layout);
    EXPECT_EQ(layout.infoWidth, 8880_twips);
    EXPECT_EQ(layout.infoLeft, 3060_twips);
    EXPECT_EQ(layout.infoColumns[2], 3070_twips);
    EXPECT_EQ(layout.barLeft, 3000_twips);
    EXPECT_EQ(layout.categoryWidth, 3000_twips);
}

TEST_F(Splitter, ADragKeepsHeightsAndTheSearchPanel)
{
    dragTo(3000);
    EXPECT_EQ(layout.categoryHeight, 7055_twips);
    EXPECT_EQ(layout.infoHeight, 7055_twips);
    EXPECT_EQ(layout.barHeight, 7100_twips);
    EXPECT_EQ(layout.barWidth, 60_twips);
    EXPECT_EQ(layout.searchLeft, 9060_twips);
}

TEST_F(Splitter, TheBarGoesBelow60WhileItIsDragged)
{
    dragTo(20);
    EXPECT_EQ(layout.barLeft, 20_twips);
    EXPECT_EQ(layout.categoryWidth, 20_twips);
    EXPECT_EQ(layout.categoryColumn, 0_twips);
    EXPECT_EQ(layout.infoLeft, 80_twips);
    EXPECT_EQ(layout.infoWidth, 11920_twips);
}

TEST_F(Splitter, TheBarLeavesTheWindowOnTheLeft)
{
    dragTo(-500);
    EXPECT_EQ(layout.barLeft, Twips{-500});
    EXPECT_EQ(layout.categoryWidth, 0_twips);
    EXPECT_EQ(layout.categoryColumn, 0_twips);
    EXPECT_EQ(layout.infoLeft, Twips{-440});
    EXPECT_EQ(layout.infoWidth, 12440_twips);
}

TEST_F(Splitter, TheBarLeavesTheWindowOnTheRight)
{
    dragTo(12500);
    EXPECT_EQ(layout.barLeft, 12500_twips);
    EXPECT_EQ(layout.categoryWidth, 12500_twips);
    EXPECT_EQ(layout.infoLeft, 12560_twips);
    EXPECT_EQ(layout.infoWidth, 0_twips);
}

TEST_F(Splitter, ADescriptionColumnOfNegativeWidthHasNoWidth)
{
    dragTo(12500);
    dragTo(12000);
    EXPECT_EQ(layout.infoColumns, (Columns{2160_twips, 2880_twips, 0_twips, 500_twips}));
}

TEST_F(Splitter, ABarReleasedBelow60ComesBackTo60)
{
    dragTo(-500);
    EXPECT_TRUE(releaseBar(layout));
    EXPECT_EQ(layout.barLeft, 60_twips);
    EXPECT_EQ(layout.categoryWidth, 60_twips);
    EXPECT_EQ(layout.infoLeft, 120_twips);
    EXPECT_EQ(layout.infoWidth, 11880_twips);
}

TEST_F(Splitter, ABarReleasedJustBelow60ComesBackToo)
{
    layout.barWidth = 75_twips;
    layout.barLeft = Twips{59.5F};
    EXPECT_TRUE(releaseBar(layout));
    EXPECT_EQ(layout.barLeft, 60_twips);
    EXPECT_EQ(layout.infoLeft, 135_twips);
    EXPECT_EQ(layout.infoWidth, 11865_twips);
}

TEST_F(Splitter, ComingBackLeavesTheColumnsAlone)
{
    dragTo(-500);
    const Columns columns = layout.infoColumns;
    layout.categoryColumn = 7_twips;
    releaseBar(layout);
    EXPECT_EQ(layout.infoColumns, columns);
    EXPECT_EQ(layout.categoryColumn, 7_twips);
}

TEST_F(Splitter, ABarReleasedAt60OrMoreIsLeftWhereItIs)
{
    for (const float left : {60.0F, 61.0F, 3000.0F, 12500.0F}) {
        dragTo(left);
        const MainLayout before = layout;
        EXPECT_FALSE(releaseBar(layout));
        EXPECT_EQ(layout.barLeft, Twips{left});
        EXPECT_EQ(layout.categoryWidth, before.categoryWidth);
        EXPECT_EQ(layout.infoLeft, before.infoLeft);
        EXPECT_EQ(layout.infoWidth, before.infoWidth);
    }
}

} // namespace
} // namespace vandrel
