#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListPauses : public ListTest {
  protected:
    ListPauses() { fillNames(sites, {L"a", L"b", L"c", L"d", L"e"}); }
    // Appends a row, as a search adds its hits.
    void appendRow(const std::wstring& name)
    {
        const auto block = std::make_shared<std::wstring>(name);
        std::vector<ListRows::Row> rows(1);
        rows[0].texts[0] = *block;
        sites.append(block, rows);
    }
};

TEST_F(ListPauses, SeveralSelectedRowsStaySelectedWhileRowsAreAppended)
{
    selectRows(sites, {1, 3});
    focusRow(sites, 3);
    clicked.clear();
    {
        const ListPause pause(sites);
        appendRow(L"f");
        EXPECT_EQ(sites.selectedCount(), 2U);
        EXPECT_EQ(sites.firstSelected(), std::optional<std::size_t>(1));
        EXPECT_EQ(sites.currentRow(), std::optional<std::size_t>(3));
        EXPECT_TRUE(sites.isSelected(3));
        EXPECT_FALSE(sites.isSelected(5));
        appendRow(L"g");
    }
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b", L"c", L"d", L"e", L"f", L"g"}));
    EXPECT_EQ(selectedRows(sites), (RowNumbers{1, 3}));
    EXPECT_EQ(sites.currentRow(), std::optional<std::size_t>(3));
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListPauses, OfSeveralARowThatIsSelectedInThePauseIsTheOnlyOne)
{
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        sites.select(4);
        EXPECT_EQ(sites.selectedCount(), 1U);
        EXPECT_FALSE(sites.isSelected(1));
    }
    EXPECT_EQ(selectedRows(sites), RowNumbers{4});
}

TEST_F(ListPauses, OfSeveralNoneIsSelectedAfterTheSelectionOrTheRowsWentInThePause)
{
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        sites.clearSelection();
        EXPECT_EQ(sites.selectedCount(), 0U);
    }
    EXPECT_TRUE(selectedRows(sites).empty());
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        fillNames(sites, {L"x", L"y", L"z", L"v", L"w"});
        EXPECT_FALSE(sites.currentRow());
    }
    EXPECT_EQ(shownText(sites, 0), L"x");
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListPauses, OfSeveralTheFirstGoesAlongWhenRowsChangePlacesInThePause)
{
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        sites.sortBy(0, SortOrder::descending);
    }
    EXPECT_EQ(selectedNames(sites), Names{L"d"});
}

TEST_F(ListPauses, OneSelectedRowStaysSelected)
{
    sites.select(2);
    {
        const ListPause pause(sites);
        appendRow(L"f");
        EXPECT_EQ(sites.currentRow(), std::optional<std::size_t>(2));
    }
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
}

TEST_F(ListPauses, ThePauseThatLastsLongestCounts)
{
    selectRows(sites, {1, 3});
    const ListPause outer(sites);
    {
        const ListPause inner(sites);
        appendRow(L"f");
    }
    EXPECT_EQ(shownCount(sites), 5U);
    EXPECT_EQ(sites.selectedCount(), 2U);
}

} // namespace
} // namespace vandrel::test
