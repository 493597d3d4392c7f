#include "row_table_texts.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

TEST(RowTable, BeginEmptyAndUnsorted)
{
    const RowTable list;
    EXPECT_EQ(list.size(), 0U);
    EXPECT_FALSE(list.sorted());
    EXPECT_EQ(list.sortKey(), 0U);
    EXPECT_EQ(list.sortOrder(), SortOrder::ascending);
}

TEST(RowTable, FillKeepsTheGivenOrder)
{
    const RowTable list = filled({{L"c", L"1", L"x", L"d"}, {L"a", L"2", L"y", L"e"}, {L"b", L"3"}});
    EXPECT_EQ(names(list), (Names{L"c", L"a", L"b"}));
    EXPECT_EQ(column(list, 1), (Names{L"1", L"2", L"3"}));
    EXPECT_EQ(column(list, 2), (Names{L"x", L"y", L""}));
    EXPECT_EQ(column(list, 3), (Names{L"d", L"e", L""}));
    EXPECT_EQ(list[0].image, 1);
    EXPECT_FALSE(list[0].marked);
}

TEST(RowTable, FillSwitchesSortingOffAndKeepsKeyAndOrder)
{
    RowTable list = filled({{L"x", L"2"}, {L"y", L"1"}});
    list.sortBy(urlColumn, SortOrder::descending);
    fill(list, {{L"c", L"1"}, {L"a", L"2"}});
    EXPECT_FALSE(list.sorted());
    EXPECT_EQ(list.sortKey(), urlColumn);
    EXPECT_EQ(list.sortOrder(), SortOrder::descending);
    EXPECT_EQ(names(list), (Names{L"c", L"a"}));
    list.add({L"b", L"3"}, 1);
    EXPECT_EQ(names(list), (Names{L"c", L"a", L"b"}));
}

TEST(RowTable, AddWithoutSortingGoesToTheEnd)
{
    RowTable list = filled({{L"c"}, {L"b"}});
    EXPECT_EQ(list.add({L"a", L"u", L"t", L"d"}, 5), 2U);
    EXPECT_EQ(names(list), (Names{L"c", L"b", L"a"}));
    EXPECT_EQ(list.text(2, 1), L"u");
    EXPECT_EQ(list.text(2, 2), L"t");
    EXPECT_EQ(list.text(2, 3), L"d");
    EXPECT_EQ(list[2].image, 5);
    EXPECT_FALSE(list[2].marked);
    EXPECT_FALSE(list[2].current);
}

TEST(RowTable, RemoveTakesExactlyOneRow)
{
    RowTable list = filled({{L"a"}, {L"b"}, {L"c"}});
    list.remove(1);
    EXPECT_EQ(names(list), (Names{L"a", L"c"}));
    list.remove(1);
    list.remove(0);
    EXPECT_EQ(list.size(), 0U);
}

TEST(RowTable, RemoveMarkedTakesTheMarkedRowsAndNoOther)
{
    std::vector<Strings> texts;
    for (const wchar_t name : std::wstring_view(L"0123456789")) texts.push_back({std::wstring(1, name)});
    RowTable list = filled(texts);
    for (const std::size_t row : {0U, 4U, 9U}) list.setMark(row, {.selected = true});
    list.setMark(5, {.current = true});
    EXPECT_EQ(list.removeMarked(), 3U);
    EXPECT_EQ(names(list), (Names{L"1", L"2", L"3", L"5", L"6", L"7", L"8"}));
    EXPECT_EQ(list.removeMarked(), 0U);
    EXPECT_EQ(list.size(), 7U);
}

TEST(RowTable, ClearTakesAllRowsAndLeavesTheSorting)
{
    RowTable list = filled({{L"b"}, {L"a"}});
    list.sortBy(urlColumn, SortOrder::descending);
    list.clear();
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.sorted());
    EXPECT_EQ(list.sortKey(), urlColumn);
    EXPECT_EQ(list.sortOrder(), SortOrder::descending);
}

TEST(RowTable, SetTextChangesOneTextAndMovesNothing)
{
    RowTable list = filled({{L"a", L"1"}, {L"b", L"2"}});
    list.setSorted(true);
    list.setText(0, nameColumn, L"z");
    EXPECT_EQ(names(list), (Names{L"z", L"b"}));
    EXPECT_EQ(column(list, 1), (Names{L"1", L"2"}));
    list.setText(1, 3, L"");
    EXPECT_EQ(list.text(1, 3), L"");
}

TEST(RowTable, TextsSurviveManyEdits)
{
    RowTable list = filled({{L"block", L"https://www.example.com/"}});
    list.add({L"kept", std::wstring(100, L'k')}, 1);
    const CompactText early = list.text(1, urlColumn);
    for (std::size_t i = 0; i < 5000; ++i) {
        list.setText(0, 2, std::wstring(i % 50, L'e'));
        list.add({std::to_wstring(i), std::wstring(i % 40, L'u')}, 1);
        if (i % 2 == 1) list.remove(2);
    }
    EXPECT_EQ(early, std::wstring(100, L'k'));
    EXPECT_EQ(list.text(0, nameColumn), L"block");
    EXPECT_EQ(list.text(0, urlColumn), L"https://www.example.com/");
    EXPECT_EQ(list.text(0, 2), std::wstring(4999 % 50, L'e'));
    EXPECT_EQ(list.text(1, nameColumn), L"kept");
    EXPECT_EQ(list.text(list.size() - 1, nameColumn), L"4999");
}

} // namespace
} // namespace vandrel
