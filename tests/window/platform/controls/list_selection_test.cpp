#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListSelection : public ListTest {};

TEST_F(ListSelection, SelectingARowSelectsItAloneAndMakesItCurrent)
{
    fillNames(sites, {L"a", L"b", L"c"});
    selectRows(sites, {0, 1});
    sites.select(2);
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
    EXPECT_EQ(sites.currentRow(), 2U);
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 2);
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETSELECTIONMARK, 0, 0), 2);
}

TEST_F(ListSelection, TheCurrentRowIsTheFocusedOneWhenItIsSelected)
{
    fillNames(sites, {L"a", L"b", L"c"});
    selectRows(sites, {0, 2});
    focusRow(sites, 2);
    EXPECT_EQ(sites.currentRow(), 2U);
    EXPECT_EQ(sites.firstSelected(), 0U);
}

TEST_F(ListSelection, TheCurrentRowIsTheFirstSelectedOneWhenTheFocusedOneIsNot)
{
    fillNames(sites, {L"a", L"b", L"c"});
    focusRow(sites, 0);
    selectRows(sites, {1, 2});
    EXPECT_EQ(sites.currentRow(), 1U);
}

TEST_F(ListSelection, WithoutASelectionThereIsNoCurrentRowThoughOneHasTheFocus)
{
    fillNames(sites, {L"a", L"b"});
    focusRow(sites, 1);
    EXPECT_FALSE(sites.currentRow());
    EXPECT_FALSE(sites.firstSelected());
    EXPECT_EQ(sites.selectedCount(), 0U);
}

TEST_F(ListSelection, AllRowsCanBeSelectedAndUnselected)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.selectAll();
    EXPECT_EQ(selectedRows(sites), (RowNumbers{0, 1, 2}));
    EXPECT_EQ(sites.selectedCount(), 3U);
    EXPECT_TRUE(sites.isSelected(1));
    sites.clearSelection();
    EXPECT_TRUE(selectedRows(sites).empty());
    EXPECT_FALSE(sites.isSelected(1));
}

TEST_F(ListSelection, AnAddedRowLeavesTheSelectionAlone)
{
    fillNames(sites, {L"b", L"d", L"f"});
    sites.rows.sortBy(0, SortOrder::ascending);
    selectRows(sites, {0, 2});
    focusRow(sites, 2);
    sites.rows.add({L"c"}, 1);
    sites.rows.add({L"a"}, 1);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b", L"c", L"d", L"f"}));
    EXPECT_EQ(selectedNames(sites), (Names{L"b", L"f"}));
    EXPECT_EQ(nameOfCurrent(sites), L"f");
}

TEST_F(ListSelection, ARowAddedToAFullySelectedListIsNotSelected)
{
    fillNames(sites, {L"a", L"b"});
    sites.selectAll();
    sites.rows.add({L"c"}, 1);
    EXPECT_EQ(selectedNames(sites), (Names{L"a", L"b"}));
}

TEST_F(ListSelection, RemovingARowAboveTakesSelectionAndCurrentRowAlong)
{
    fillNames(sites, {L"a", L"b", L"c", L"d"});
    selectRows(sites, {1, 3});
    focusRow(sites, 3);
    sites.rows.remove(0);
    EXPECT_EQ(selectedNames(sites), (Names{L"b", L"d"}));
    EXPECT_EQ(nameOfCurrent(sites), L"d");
}

TEST_F(ListSelection, RemovingTheOnlySelectedRowSelectsNoOther)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.select(1);
    sites.rows.remove(1);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"c"}));
    EXPECT_TRUE(selectedRows(sites).empty());
    EXPECT_FALSE(sites.currentRow());
}

TEST_F(ListSelection, RemovingTheLastRowLeavesAnEmptyList)
{
    fillNames(sites, {L"a"});
    sites.select(0);
    sites.rows.remove(0);
    EXPECT_EQ(shownCount(sites), 0U);
    EXPECT_FALSE(sites.currentRow());
}

TEST_F(ListSelection, ScatteredSelectedRowsAreRemovedTogether)
{
    fillNames(sites, {L"a", L"b", L"c", L"d", L"e", L"f"});
    selectRows(sites, {0, 2, 5});
    EXPECT_EQ(removeSelected(sites), 3U);
    EXPECT_EQ(shownColumn(sites), (Names{L"b", L"d", L"e"}));
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListSelection, WithAllRowsSelectedAllAreRemoved)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.selectAll();
    EXPECT_EQ(removeSelected(sites), 3U);
    EXPECT_EQ(shownCount(sites), 0U);
}

TEST_F(ListSelection, WithNoRowSelectedNoneIsRemoved)
{
    fillNames(sites, {L"a", L"b"});
    EXPECT_EQ(removeSelected(sites), 0U);
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b"}));
}

TEST_F(ListSelection, SelectingByTheProgramAnnouncesNoClick)
{
    fillNames(sites, {L"a", L"b", L"c"});
    sites.select(0);
    sites.select(2);
    sites.selectAll();
    sites.rows.remove(1);
    sites.clearSelection();
    sites.rows.add({L"d"}, 1);
    sites.selectAll();
    removeSelected(sites);
    pump();
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListSelection, ARowOfASingleSelectionListStaysSelectedThroughAddAndRemove)
{
    fillNames(categories, {L"Home", L"Work"});
    categories.rows.sortBy(0, SortOrder::ascending);
    categories.select(1);
    categories.rows.add({L"News"}, 3);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    categories.rows.remove(0);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    categories.rows.remove(0);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    EXPECT_EQ(nameOfCurrent(categories), L"Work");
}

TEST_F(ListSelection, ASingleSelectionListCannotHaveAllRowsSelected)
{
    fillNames(categories, {L"a", L"b"});
    categories.select(1);
    categories.selectAll();
    EXPECT_EQ(selectedRows(categories), RowNumbers{1});
}

TEST_F(ListSelection, EnsureVisibleBringsTheRowIntoView)
{
    fillNames(sites, Names(300, L"row"));
    sites.ensureVisible(250);
    const auto top = SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0);
    const auto page = SendMessageW(sites.handle(), LVM_GETCOUNTPERPAGE, 0, 0);
    EXPECT_LE(top, 250);
    EXPECT_GE(top + page, 251);
}

} // namespace
} // namespace vandrel::test
