#include "tests/support/all_images.h"
#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListFill : public ListTest {};

const std::vector<Strings> twoSites{{L"Zeta", L"http://z/", L"last letter", L"1/2/2003"},
                                    {L"Alpha", L"http://a/", L"", L""}};

TEST_F(ListFill, EveryColumnShowsItsText)
{
    fillList(sites, twoSites);
    for (int column = 0; column < 4; ++column) {
        const auto number = static_cast<std::size_t>(column);
        EXPECT_EQ(shownColumn(sites, column), (Names{twoSites[0][number], twoSites[1][number]}));
    }
}

TEST_F(ListFill, TheGivenOrderIsKeptAndSortingIsOff)
{
    sites.rows.setSorted(true);
    fillList(sites, twoSites);
    EXPECT_FALSE(sites.rows.sorted());
    EXPECT_EQ(shownColumn(sites), (Names{L"Zeta", L"Alpha"}));
}

TEST_F(ListFill, KeyAndOrderOfTheLastSortSurviveAFill)
{
    sites.rows.sortBy(2, SortOrder::descending);
    fillList(sites, twoSites);
    EXPECT_EQ(sites.rows.sortKey(), 2U);
    EXPECT_EQ(sites.rows.sortOrder(), SortOrder::descending);
}

TEST_F(ListFill, FillingAgainReplacesAllOldRows)
{
    fillNames(sites, {L"a", L"b", L"c"});
    fillNames(sites, {L"d"});
    EXPECT_EQ(shownColumn(sites), Names{L"d"});
    EXPECT_EQ(sites.count(), 1U);
}

TEST_F(ListFill, NothingIsSelectedOrCurrentAfterwards)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.select(1);
    fillNames(sites, {L"d", L"e", L"f"});
    EXPECT_TRUE(selectedRows(sites).empty());
    EXPECT_FALSE(sites.currentRow());
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), -1);
}

TEST_F(ListFill, TheListIsAtItsTopAfterwards)
{
    Names many(500, L"row");
    fillNames(sites, many);
    sites.ensureVisible(499);
    ASSERT_GT(SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0), 0);
    fillNames(sites, many);
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0), 0);
}

TEST_F(ListFill, AnnouncesNothing)
{
    fillNames(sites, {L"a", L"b"});
    sites.select(0);
    fillNames(sites, {L"c", L"d"});
    pump();
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListFill, TheCallerMayDropTheBlock)
{
    {
        RowBlock block({{L"News"}, {L"Work"}});
        sites.rows.fill(std::move(block.text), std::move(block.rows));
    }
    EXPECT_EQ(shownColumn(sites), (Names{L"News", L"Work"}));
}

TEST_F(ListFill, ClearingLeavesAnEmptyListThatCanBeFilledAgain)
{
    fillNames(sites, {L"a", L"b"});
    sites.selectAll();
    sites.rows.clear();
    EXPECT_TRUE(sites.empty());
    EXPECT_EQ(shownCount(sites), 0U);
    EXPECT_EQ(sites.selectedCount(), 0U);
    sites.rows.clear();
    fillNames(sites, {L"c"});
    EXPECT_EQ(shownColumn(sites), Names{L"c"});
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListFill, ATextSetLaterIsShownAndLeavesTheOthers)
{
    fillList(sites, twoSites);
    sites.rows.setText(1, 2, L"first letter");
    EXPECT_EQ(shownColumn(sites, 2), (Names{L"last letter", L"first letter"}));
    EXPECT_EQ(shownText(sites, 1), L"Alpha");
    EXPECT_EQ(sites.text(1, 2), L"first letter");
}

TEST_F(ListFill, ALongTextIsCutForTheControlAndKeptInFull)
{
    const std::wstring longText(100'000, L'x');
    fillList(sites, {{L"Long", longText}});
    EXPECT_EQ(shownText(sites, 0, 1), longText.substr(0, 511));
    EXPECT_EQ(sites.text(0, 1), longText);
    UpdateWindow(sites.handle());
}

TEST_F(ListFill, EveryRowStartsWithImageOneAndKeepsItsOwn)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.rows.setImage(1, 5);
    const auto shownImage = [&](int row) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        SendMessageW(sites.handle(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    };
    // The native control counts images from 0.
    EXPECT_EQ(shownImage(0), 0);
    EXPECT_EQ(shownImage(1), 4);
    EXPECT_EQ(sites.rows.image(1), 5);
    setAllImages(sites.rows, 3);
    for (int row = 0; row < 3; ++row) EXPECT_EQ(shownImage(row), 2);
}

TEST_F(ListFill, AnImageStaysWithItsRowWhenTheListIsSorted)
{
    fillNames(sites, {L"b", L"a"});
    sites.rows.setImage(0, 4);
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(sites.rows.image(0), 1);
    EXPECT_EQ(sites.rows.image(1), 4);
}

TEST_F(ListFill, SettingAnImageRepaintsOnlyARowThatChanges)
{
    fillNames(sites, {L"a", L"b"});
    UpdateWindow(sites.handle());
    ValidateRect(sites.handle(), nullptr);
    sites.rows.setImage(0, 1);
    setAllImages(sites.rows, 1);
    EXPECT_FALSE(GetUpdateRect(sites.handle(), nullptr, FALSE));
    sites.rows.setImage(0, 5);
    EXPECT_TRUE(GetUpdateRect(sites.handle(), nullptr, FALSE));
}

} // namespace
} // namespace vandrel::test
