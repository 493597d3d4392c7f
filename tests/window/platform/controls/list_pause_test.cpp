#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListPauses : public ListTest {
  protected:
    ListPauses() { fillNames(sites, {L"a", L"b", L"c", L"d", L"e"}); }
    // Appends a row, as a search adds its hits.
    void appendRow(const std::wstring& name)
    {
        const RowBlock block({{name}});
        sites.rows.append(block.text, block.rows);
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
        appendRow(L"g");
    }
    EXPECT_EQ(shownColumn(sites), (Names{L"a", L"b", L"c", L"d", L"e", L"f", L"g"}));
    EXPECT_EQ(selectedRows(sites), (RowNumbers{1, 3}));
    EXPECT_EQ(sites.currentRow(), std::optional<std::size_t>(3));
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListPauses, SelectedRowsStaySoWhereverTheyGo)
{
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        sites.rows.sortBy(0, SortOrder::descending);
        sites.rows.add({L"z"}, 1);
        sites.rows.remove(sites.rows.size() - 1);
    }
    EXPECT_EQ(shownColumn(sites), (Names{L"z", L"e", L"d", L"c", L"b"}));
    EXPECT_EQ(selectedNames(sites), (Names{L"d", L"b"}));
}

TEST_F(ListPauses, NoneIsSelectedAfterOtherRowsCameInThePause)
{
    selectRows(sites, {1, 3});
    {
        const ListPause pause(sites);
        fillNames(sites, {L"x", L"y", L"z", L"v", L"w"});
    }
    EXPECT_EQ(shownText(sites, 0), L"x");
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListPauses, TheNativeControlIsToldNothingBeforeTheirEnd)
{
    const ListPause outer(sites);
    {
        const ListPause inner(sites);
        appendRow(L"f");
    }
    EXPECT_EQ(shownCount(sites), 5U);
}

} // namespace
} // namespace vandrel::test
