#include "mainwindow/layout.h"

#include "print.h"

namespace vandrel {
namespace {

using Columns = std::array<Twips, 4>;

constexpr Columns someColumns{2160_twips, 2880_twips, 2880_twips, 500_twips};

MainLayout laidOut(Twips clientWidth, Twips clientHeight, const Columns& columns = someColumns)
{
    MainLayout layout;
    layout.clientWidth = clientWidth;
    layout.clientHeight = clientHeight;
    layout.infoColumns = columns;
    layOut(layout);
    return layout;
}

TEST(MainLayout, BeginsAsDesigned)
{
    const MainLayout layout;
    EXPECT_EQ(layout.barLeft, 2340_twips);
    EXPECT_EQ(layout.barWidth, 60_twips);
    EXPECT_EQ(layout.barHeight, 4605_twips);
    EXPECT_EQ(listTop, 600_twips);
    EXPECT_EQ(layout.infoLeft, layout.barLeft + layout.barWidth);
    EXPECT_EQ(layout.categoryWidth, layout.barLeft);
    EXPECT_EQ(layout.categoryColumn, 4049_twips);
    EXPECT_EQ(layout.infoColumns, (Columns{3810_twips, 5080_twips, 5080_twips, 0_twips}));
}

TEST(MainLayout, AWidthBelow9135SnapsBack)
{
    MainLayout layout;
    layout.outerWidth = Twips{9134.5F};
    layout.outerHeight = 7000_twips;
    keepSmallestSize(layout);
    EXPECT_EQ(layout.outerWidth, 9135_twips);
    EXPECT_EQ(layout.outerHeight, 7000_twips);
}

TEST(MainLayout, AHeightBelow5685SnapsBack)
{
    MainLayout layout;
    layout.outerWidth = 12000_twips;
    layout.outerHeight = 5684_twips;
    keepSmallestSize(layout);
    EXPECT_EQ(layout.outerWidth, 12000_twips);
    EXPECT_EQ(layout.outerHeight, 5685_twips);
}

TEST(MainLayout, AWindowWithoutASizeGetsTheSmallest)
{
    MainLayout layout;
    keepSmallestSize(layout);
    EXPECT_EQ(layout.outerWidth, 9135_twips);
    EXPECT_EQ(layout.outerHeight, 5685_twips);
}

TEST(MainLayout, TheSmallestSizeAndLargerOnesStay)
{
    MainLayout layout;
    layout.outerWidth = 9135_twips;
    layout.outerHeight = 5685_twips;
    keepSmallestSize(layout);
    EXPECT_EQ(layout.outerWidth, 9135_twips);
    EXPECT_EQ(layout.outerHeight, 5685_twips);
    layout.outerWidth = 9136_twips;
    layout.outerHeight = 5686_twips;
    keepSmallestSize(layout);
    EXPECT_EQ(layout.outerWidth, 9136_twips);
    EXPECT_EQ(layout.outerHeight, 5686_twips);
}

TEST(MainLayout, BothListsAre945ShorterThanTheClientArea)
{
    const MainLayout layout = laidOut(12000_twips, 8000_twips);
    EXPECT_EQ(layout.categoryHeight, 7055_twips);
    EXPECT_EQ(layout.infoHeight, 7055_twips);
}

TEST(MainLayout, TheSiteListTakesWhatTheCategoryListAnd120Leave)
{
    EXPECT_EQ(laidOut(12000_twips, 8000_twips).infoWidth, 9540_twips);
    MainLayout layout;
    layout.clientWidth = 12000_twips;
    layout.categoryWidth = Twips{1000.5F};
    layOut(layout);
    EXPECT_EQ(layout.infoWidth, Twips{10879.5F});
}

TEST(MainLayout, TheDescriptionColumnTakesWhatTheOthersAnd270Leave)
{
    EXPECT_EQ(laidOut(12000_twips, 8000_twips).infoColumns,
              (Columns{2160_twips, 2880_twips, 3730_twips, 500_twips}));
    EXPECT_EQ(laidOut(12000_twips, 8000_twips, {100_twips, 20_twips, 7_twips, 0_twips}).infoColumns,
              (Columns{100_twips, 20_twips, 9150_twips, 0_twips}));
}

TEST(MainLayout, TheBarIs900ShorterThanTheClientArea)
{
    const MainLayout layout = laidOut(12000_twips, 8000_twips);
    EXPECT_EQ(layout.barHeight, 7100_twips);
    EXPECT_EQ(layout.barHeight - layout.infoHeight, 45_twips);
}

TEST(MainLayout, TheSearchPanelStays60FromTheRightEdge)
{
    EXPECT_EQ(laidOut(12000_twips, 8000_twips).searchLeft, 9060_twips);
    MainLayout layout;
    layout.clientWidth = 10000_twips;
    layout.searchWidth = 3000_twips;
    layOut(layout);
    EXPECT_EQ(layout.searchLeft, 6940_twips);
}

TEST(MainLayout, ANarrowerWindowShrinksOnlyTheDescriptionColumn)
{
    const auto columnsAt = [](Twips clientWidth) { return laidOut(clientWidth, 8000_twips).infoColumns; };
    EXPECT_EQ(columnsAt(9000_twips), (Columns{2160_twips, 2880_twips, 730_twips, 500_twips}));
    EXPECT_EQ(columnsAt(8271_twips), (Columns{2160_twips, 2880_twips, 1_twips, 500_twips}));
    EXPECT_EQ(columnsAt(8270_twips), (Columns{2160_twips, 2880_twips, 0_twips, 500_twips}));
}

TEST(MainLayout, ADescriptionColumnOfNegativeWidthHasNoWidth)
{
    for (const Twips clientWidth : {8269_twips, 3000_twips}) {
        EXPECT_EQ(laidOut(clientWidth, 8000_twips).infoColumns,
                  (Columns{2160_twips, 2880_twips, 0_twips, 500_twips}));
    }
}

TEST(MainLayout, AnyColumnOfNegativeWidthClosesTheDescriptionColumn)
{
    const Twips less{-1};
    EXPECT_EQ(laidOut(12000_twips, 8000_twips, {less, 2880_twips, 0_twips, 0_twips}).infoColumns,
              (Columns{less, 2880_twips, 0_twips, 0_twips}));
    EXPECT_EQ(laidOut(12000_twips, 8000_twips, {2160_twips, less, 0_twips, 0_twips}).infoColumns,
              (Columns{2160_twips, less, 0_twips, 0_twips}));
    EXPECT_EQ(laidOut(12000_twips, 8000_twips, {2160_twips, 2880_twips, 0_twips, less}).infoColumns,
              (Columns{2160_twips, 2880_twips, 0_twips, less}));
}

TEST(MainLayout, AWiderWindowOpensTheDescriptionColumnAgain)
{
    MainLayout layout = laidOut(5000_twips, 8000_twips);
    layout.clientWidth = 12000_twips;
    layOut(layout);
    EXPECT_EQ(layout.infoColumns[2], 3730_twips);
}

TEST(MainLayout, AResizeNeverMovesLeftEdgesOrTheCategoryList)
{
    const MainLayout designed;
    for (const Twips width : {1000_twips, 9135_twips, 30000_twips}) {
        const MainLayout layout = laidOut(width, 8000_twips);
        EXPECT_EQ(layout.barLeft, designed.barLeft);
        EXPECT_EQ(layout.barWidth, designed.barWidth);
        EXPECT_EQ(layout.infoLeft, designed.infoLeft);
        EXPECT_EQ(layout.categoryWidth, designed.categoryWidth);
        EXPECT_EQ(layout.categoryColumn, designed.categoryColumn);
        EXPECT_EQ(layout.searchWidth, designed.searchWidth);
    }
}

TEST(MainLayout, NoLengthIsNegative)
{
    const MainLayout layout = laidOut(2459_twips, 899_twips);
    EXPECT_EQ(layout.infoWidth, 0_twips);
    EXPECT_EQ(layout.infoHeight, 0_twips);
    EXPECT_EQ(layout.categoryHeight, 0_twips);
    EXPECT_EQ(layout.barHeight, 0_twips);
}

TEST(MainLayout, FractionsAreKept)
{
    const MainLayout layout = laidOut(Twips{12000.5F}, Twips{8000.25F});
    EXPECT_EQ(layout.categoryHeight, Twips{7055.25F});
    EXPECT_EQ(layout.infoHeight, Twips{7055.25F});
    EXPECT_EQ(layout.infoWidth, Twips{9540.5F});
    EXPECT_EQ(layout.infoColumns[2], Twips{3730.5F});
    EXPECT_EQ(layout.barHeight, Twips{7100.25F});
    EXPECT_EQ(layout.searchLeft, Twips{9060.5F});
}

TEST(MainLayout, ASecondResizeToTheSameSizeChangesNothing)
{
    MainLayout layout = laidOut(12000_twips, 8000_twips);
    layOut(layout);
    EXPECT_EQ(layout.infoWidth, 9540_twips);
    EXPECT_EQ(layout.infoColumns[2], 3730_twips);
    EXPECT_EQ(layout.searchLeft, 9060_twips);
}

} // namespace
} // namespace vandrel
