#include "platform/base/wine.h"
#include "tests/support/list_fixture.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <random>

namespace vandrel::test {
namespace {

constexpr std::size_t many = 5000;

// Names in reverse alphabetical order.
Names fallingNames()
{
    Names names;
    for (std::size_t i = 0; i < many; ++i) names.push_back(std::to_wstring(90'000 - i));
    return names;
}

class ListOfManyRows : public ListTest {
  protected:
    ListOfManyRows() { fillNames(sites, names); }
    void selectEvery(std::size_t step)
    {
        RowNumbers rows;
        for (std::size_t row = 0; row < many; row += step) rows.push_back(row);
        selectRows(sites, rows);
    }

    // Selects `rows` of the rows at random, sorts, and looks at what is selected then.
    void expectSelectedAfterASort(std::size_t rows)
    {
        RowNumbers all(many);
        std::iota(all.begin(), all.end(), std::size_t{0});
        RowNumbers chosen;
        std::mt19937 random(7); // NOLINT(cert-msc51-cpp): the same rows in every run
        std::sample(all.begin(), all.end(), std::back_inserter(chosen), rows, random);
        selectRows(sites, chosen);
        focusRow(sites, chosen[rows / 2]);
        pump();
        clicked.clear();
        sites.rows.sortBy(0, SortOrder::ascending);
        RowNumbers expected;
        for (const std::size_t row : chosen) expected.insert(expected.begin(), many - 1 - row);
        EXPECT_EQ(selectedRows(sites), expected);
        EXPECT_EQ(sites.selectedCount(), rows);
        EXPECT_EQ(sites.focusedRow(), many - 1 - chosen[rows / 2]);
        pump();
        EXPECT_TRUE(clicked.empty());
        // No mark is left behind for the next sort.
        sites.clearSelection();
        sites.rows.sortBy(0, SortOrder::descending);
        EXPECT_EQ(sites.selectedCount(), 0U);
    }

    const Names names = fallingNames();
};

TEST_F(ListOfManyRows, MoreThanAThousandSelectedRowsMoveWithASort) { expectSelectedAfterASort(1200); }

TEST_F(ListOfManyRows, MostRowsStaySelectedThroughASort) { expectSelectedAfterASort(4400); }

// Under Wine all rows are selected first, on Windows only these.
TEST_F(ListOfManyRows, MoreThanHalfOfTheRowsStaySelectedThroughASort)
{
    expectSelectedAfterASort(3000);
    const WineDisregarded asOnWindows;
    expectSelectedAfterASort(3000);
}

TEST_F(ListOfManyRows, AllRowsButTheFirstAndTheLastStaySelectedThroughASort)
{
    RowNumbers rows;
    for (std::size_t row = 1; row + 1 < many; ++row) rows.push_back(row);
    selectRows(sites, rows);
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(selectedRows(sites), rows);
}

TEST_F(ListOfManyRows, ScatteredSelectedRowsMoveWithASort)
{
    selectEvery(7);
    focusRow(sites, 700);
    sites.rows.sortBy(0, SortOrder::ascending);
    Names expected;
    for (std::size_t row = 0; row < many; row += 7) expected.insert(expected.begin(), names[row]);
    EXPECT_EQ(selectedNames(sites), expected);
    EXPECT_EQ(nameOfCurrent(sites), names[700]);
}

TEST_F(ListOfManyRows, EverySecondRowIsRemovedAndTheOthersStay)
{
    selectEvery(2);
    EXPECT_EQ(removeSelected(sites), many / 2);
    Names rest;
    for (std::size_t row = 1; row < many; row += 2) rest.push_back(names[row]);
    EXPECT_EQ(shownColumn(sites), rest);
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListOfManyRows, OfScatteredSelectedRowsNoneIsLeftWhenOthersTakeTheirPlace)
{
    selectEvery(2);
    sites.ensureVisible(many - 1);
    fillNames(sites, names);
    EXPECT_EQ(shownCount(sites), many);
    EXPECT_TRUE(selectedRows(sites).empty());
    EXPECT_FALSE(sites.focusedRow());
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETTOPINDEX, 0, 0), 0);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListOfManyRows, AllAreSelectedSortedAndRemoved)
{
    sites.selectAll();
    EXPECT_EQ(sites.selectedCount(), many);
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(sites.selectedCount(), many);
    EXPECT_EQ(shownText(sites, 0), names.back());
    EXPECT_EQ(removeSelected(sites), many);
    EXPECT_EQ(shownCount(sites), 0U);
}

TEST_F(ListOfManyRows, AllButOneStaySelectedThroughASort)
{
    sites.selectAll();
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    SendMessageW(sites.handle(), LVM_SETITEMSTATE, 1234, reinterpret_cast<LPARAM>(&item));
    sites.rows.sortBy(0, SortOrder::ascending);
    EXPECT_EQ(sites.selectedCount(), many - 1);
    EXPECT_FALSE(sites.isSelected(many - 1 - 1234));
}

TEST_F(ListOfManyRows, ARowIsAddedAndRemovedAmongSelectedOnes)
{
    sites.rows.sortBy(0, SortOrder::ascending);
    selectEvery(3);
    const Names before = selectedNames(sites);
    const std::size_t row = sites.rows.add({L"86000 and more"}, 1);
    EXPECT_EQ(shownText(sites, row - 1), L"86000");
    EXPECT_EQ(selectedNames(sites), before);
    sites.rows.remove(row);
    EXPECT_EQ(selectedNames(sites), before);
}

TEST_F(ListOfManyRows, ShiftEndSelectsToTheEndAndAPlainKeyUnselectsAgain)
{
    sites.select(10);
    {
        const HeldKeys shift({VK_SHIFT});
        typeKey(sites.handle(), VK_END);
    }
    EXPECT_EQ(sites.selectedCount(), many - 10);
    EXPECT_FALSE(sites.isSelected(9));
    EXPECT_EQ(clicked, RowNumbers{many - 1});
    typeKey(sites.handle(), VK_HOME);
    EXPECT_EQ(selectedRows(sites), RowNumbers{0});
    EXPECT_EQ(clicked, (RowNumbers{many - 1, 0}));
}

// Painting is switched off while many rows change. Afterwards it must be on again and the list painted.
TEST_F(ListOfManyRows, TheListIsPaintedAgainAfterTheWholeSelectionChanged)
{
    sites.select(0);
    UpdateWindow(sites.handle());
    ValidateRect(sites.handle(), nullptr);
    sites.selectAll();
    EXPECT_TRUE(GetUpdateRect(sites.handle(), nullptr, FALSE));
    UpdateWindow(sites.handle());
    typeKey(sites.handle(), VK_HOME);
    pump();
    ValidateRect(sites.handle(), nullptr);
    sites.rows.setImage(0, 3);
    EXPECT_TRUE(GetUpdateRect(sites.handle(), nullptr, FALSE));
}

TEST_F(ListOfManyRows, AClickUnselectsAllTheOthers)
{
    sites.selectAll();
    sites.ensureVisible(0);
    click(sites, 2);
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
    EXPECT_EQ(clicked, RowNumbers{2});
}

} // namespace
} // namespace vandrel::test
