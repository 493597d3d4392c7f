#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListSorting : public ListTest {};

TEST_F(ListSorting, TheKeyIsTheColumnWhoseTextsAreCompared)
{
    fillList(sites, {{L"a", L"2", L"y"}, {L"b", L"3", L"x"}, {L"c", L"1", L"z"}});
    sites.rows.sortBy(1, SortOrder::ascending);
    EXPECT_EQ(shownColumn(sites), (Names{L"c", L"a", L"b"}));
    sites.rows.setSortKey(2);
    EXPECT_EQ(shownColumn(sites), (Names{L"b", L"a", L"c"}));
}

TEST_F(ListSorting, TheOrderCanBeReversed)
{
    fillNames(sites, {L"b", L"c", L"a"});
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b", L"c"}));
    sites.rows.setSortOrder(SortOrder::descending);
    EXPECT_EQ(shownColumn(sites), (Names{L"c", L"b", L"a"}));
}

TEST_F(ListSorting, CapitalsComeBeforeSmallLettersAndDatesCompareAsText)
{
    fillNames(sites, {L"apple", L"9/30/2002", L"Zoo", L"10/1/2002", L"\u00C4rger", L""});
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(shownColumn(sites), (Names{L"", L"10/1/2002", L"9/30/2002", L"Zoo", L"apple", L"\u00C4rger"}));
}

TEST_F(ListSorting, EqualTextsKeepTheirOrderBothWays)
{
    fillList(sites, {{L"first", L"same"}, {L"second", L"same"}, {L"third", L"other"}, {L"fourth", L"same"}});
    sites.rows.sortBy(1, SortOrder::ascending);
    EXPECT_EQ(shownColumn(sites), (Names{L"third", L"first", L"second", L"fourth"}));
    sites.rows.setSortOrder(SortOrder::descending);
    EXPECT_EQ(shownColumn(sites), (Names{L"first", L"second", L"fourth", L"third"}));
}

TEST_F(ListSorting, KeyAndOrderWaitUntilSortingIsOn)
{
    fillNames(sites, {L"a", L"c", L"b"});
    sites.rows.setSortOrder(SortOrder::descending);
    sites.rows.setSortKey(0);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"c", L"b"}));
    sites.rows.setSorted(true);
    EXPECT_EQ(shownColumn(sites), (Names{L"c", L"b", L"a"}));
}

TEST_F(ListSorting, SwitchingItOffLeavesTheRowsWhereTheyAre)
{
    fillNames(sites, {L"b", L"a"});
    sites.rows.sortBy(0, SortOrder::ascending);
    sites.rows.setSorted(false);
    EXPECT_FALSE(sites.rows.sorted());
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b"}));
}

TEST_F(ListSorting, ANewRowGoesAfterItsEquals)
{
    fillList(sites, {{L"a", L"1"}, {L"c", L"3"}, {L"b", L"2"}});
    sites.rows.sortBy(1, SortOrder::ascending);
    EXPECT_EQ(sites.rows.add({L"new", L"2"}, 1), 2U);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b", L"new", L"c"}));
    EXPECT_EQ(sites.rows.add({L"newest", L"0"}, 1), 0U);
    EXPECT_EQ(shownText(sites, 0), L"newest");
}

TEST_F(ListSorting, ANewRowTakesItsPlaceInADescendingList)
{
    fillNames(sites, {L"a", L"c", L"d"});
    sites.rows.sortBy(0, SortOrder::descending);
    EXPECT_EQ(sites.rows.add({L"b"}, 1), 2U);
    EXPECT_EQ(shownColumn(sites), (Names{L"d", L"c", L"b", L"a"}));
}

TEST_F(ListSorting, ANewRowGoesToTheEndOfAnUnsortedList)
{
    fillNames(sites, {L"b", L"c"});
    EXPECT_EQ(sites.rows.add({L"a"}, 1), 2U);
    EXPECT_EQ(shownColumn(sites), (Names{L"b", L"c", L"a"}));
}

TEST_F(ListSorting, AnEmptyListCanBeSortedAndThenTakesRows)
{
    sites.rows.sortBy(0, SortOrder::ascending);
    sites.rows.add({L"b"}, 1);
    sites.rows.add({L"a"}, 1);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b"}));
}

TEST_F(ListSorting, SelectionAndCurrentRowMoveWithTheirRows)
{
    fillNames(sites, {L"b", L"d", L"a", L"c"});
    selectRows(sites, {0, 1});
    focusRow(sites, 1);
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(selectedNames(sites), (Names{L"b", L"d"}));
    EXPECT_EQ(nameOfCurrent(sites), L"d");
    sites.rows.setSortOrder(SortOrder::descending);
    EXPECT_EQ(selectedNames(sites), (Names{L"d", L"b"}));
    EXPECT_EQ(nameOfCurrent(sites), L"d");
}

TEST_F(ListSorting, AnnouncesNoClick)
{
    fillNames(sites, {L"b", L"a"});
    sites.select(0);
    sites.rows.sortBy(0, SortOrder::ascending);
    sites.rows.setSortOrder(SortOrder::descending);
    pump();
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListSorting, TheSelectedRowOfASingleSelectionListMovesToo)
{
    fillNames(categories, {L"Work", L"Home", L"News"});
    categories.select(0);
    categories.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    EXPECT_EQ(nameOfCurrent(categories), L"Work");
}

TEST_F(ListSorting, TheListDoesNotScroll)
{
    fillNames(sites, Names(300, L"same"));
    sites.ensureVisible(299);
    const auto top = SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0);
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0), top);
}

} // namespace
} // namespace vandrel::test
