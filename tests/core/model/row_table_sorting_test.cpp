#include "row_table_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vandrel {
namespace {

TEST(RowTableSorting, AddWhileSortedGoesToItsPlace)
{
    RowTable list = filled({{L"d"}, {L"b"}});
    list.setSorted(true);
    EXPECT_EQ(list.add({L"c"}, 1), 1U);
    EXPECT_EQ(list.add({L"a"}, 1), 0U);
    EXPECT_EQ(list.add({L"e"}, 1), 4U);
    EXPECT_EQ(list.add({L""}, 1), 0U);
    EXPECT_EQ(names(list), (Names{L"", L"a", L"b", L"c", L"d", L"e"}));
}

TEST(RowTableSorting, AddWhileSortedGoesAfterItsEquals)
{
    for (const SortOrder order : {SortOrder::ascending, SortOrder::descending}) {
        RowTable list = filled({{L"first", L"m"}, {L"low", L"a"}, {L"high", L"z"}, {L"second", L"m"}});
        list.sortBy(urlColumn, order);
        EXPECT_EQ(list.add({L"third", L"m"}, 1), 3U);
        EXPECT_EQ(list.text(1, nameColumn), L"first");
        EXPECT_EQ(list.text(2, nameColumn), L"second");
        EXPECT_EQ(list.text(3, nameColumn), L"third");
    }
}

TEST(RowTableSorting, TheOneUnsortedRowGoesAfterItsEqualsWhereverItIs)
{
    using Site = std::pair<std::wstring, std::wstring>;
    for (const SortOrder order : {SortOrder::ascending, SortOrder::descending}) {
        const bool up = order == SortOrder::ascending;
        std::vector<Site> inOrder{{L"low", L"a"}, {L"first", L"m"}, {L"second", L"m"}, {L"high", L"z"}};
        if (!up) inOrder = {{L"high", L"z"}, {L"first", L"m"}, {L"second", L"m"}, {L"low", L"a"}};
        for (std::size_t place = 0; place <= inOrder.size(); ++place) {
            RowTable list;
            for (std::size_t row = 0; row < inOrder.size(); ++row) {
                if (row == place) list.add({L"new", L"m"}, 1);
                list.add({inOrder[row].first, inOrder[row].second}, 1);
            }
            if (place == inOrder.size()) list.add({L"new", L"m"}, 1);
            list.sortBy(urlColumn, order);
            Names wanted = up ? Names{L"low", L"first", L"second", L"high"}
                              : Names{L"high", L"first", L"second", L"low"};
            // Among equal rows it keeps its place.
            const std::size_t among = place <= 1 ? 1 : place == 2 ? 2 : 3;
            wanted.insert(wanted.begin() + static_cast<std::ptrdiff_t>(among), L"new");
            EXPECT_EQ(names(list), wanted) << place;
        }
    }
}

TEST(RowTableSorting, SwitchingSortingOnSortsByTheKeyThatWasSet)
{
    RowTable list = filled({{L"a", L"3"}, {L"b", L"1"}, {L"c", L"2"}});
    list.setSortKey(urlColumn);
    EXPECT_EQ(names(list), (Names{L"a", L"b", L"c"}));
    list.setSorted(true);
    EXPECT_EQ(names(list), (Names{L"b", L"c", L"a"}));
}

TEST(RowTableSorting, SwitchingSortingOffMovesNothing)
{
    RowTable list = filled({{L"b"}, {L"a"}});
    list.setSorted(true);
    list.setSorted(false);
    EXPECT_FALSE(list.sorted());
    list.setSortOrder(SortOrder::descending);
    EXPECT_EQ(names(list), (Names{L"a", L"b"}));
}

TEST(RowTableSorting, SettingTheKeySortsAgain)
{
    RowTable list = filled({{L"a", L"3"}, {L"b", L"1"}, {L"c", L"2"}});
    list.setSorted(true);
    list.setSortKey(urlColumn);
    EXPECT_EQ(names(list), (Names{L"b", L"c", L"a"}));
    list.setSortKey(nameColumn);
    EXPECT_EQ(names(list), (Names{L"a", L"b", L"c"}));
}

TEST(RowTableSorting, SettingTheOrderSortsAgain)
{
    RowTable list = filled({{L"b"}, {L"c"}, {L"a"}});
    list.setSorted(true);
    list.setSortOrder(SortOrder::descending);
    EXPECT_EQ(names(list), (Names{L"c", L"b", L"a"}));
    list.setSortOrder(SortOrder::ascending);
    EXPECT_EQ(names(list), (Names{L"a", L"b", L"c"}));
}

TEST(RowTableSorting, SortByTakesKeyAndOrderAndSwitchesSortingOn)
{
    RowTable list = filled({{L"a", L"1"}, {L"b", L"3"}, {L"c", L"2"}});
    list.sortBy(urlColumn, SortOrder::descending);
    EXPECT_TRUE(list.sorted());
    EXPECT_EQ(list.sortKey(), urlColumn);
    EXPECT_EQ(list.sortOrder(), SortOrder::descending);
    EXPECT_EQ(names(list), (Names{L"b", L"c", L"a"}));
}

TEST(RowTableSorting, RowsThatAreInOrderAreNotMoved)
{
    RowTable list = filled({{L"a", L"1"}, {L"a", L"2"}, {L"b", L"3"}});
    list.setSorted(true);
    list.setSortKey(urlColumn);
    list.sortBy(nameColumn, SortOrder::ascending);
    EXPECT_EQ(column(list, urlColumn), (Names{L"1", L"2", L"3"}));
}

TEST(RowTableSorting, DatesSortAsText)
{
    RowTable list = filled({{L"a", L"", L"", L"9/30/2002"}, {L"b", L"", L"", L"10/1/2002"}});
    list.sortBy(3, SortOrder::ascending);
    EXPECT_EQ(names(list), (Names{L"b", L"a"}));
}

TEST(RowTableSorting, EqualKeysKeepTheOrderOfTheSortBefore)
{
    RowTable list = filled({{L"b", L"2"}, {L"c", L"1"}, {L"a", L"2"}, {L"d", L"1"}});
    list.setSorted(true);
    list.setSortKey(urlColumn);
    EXPECT_EQ(names(list), (Names{L"c", L"d", L"a", L"b"}));
    list.setSortOrder(SortOrder::descending);
    EXPECT_EQ(names(list), (Names{L"a", L"b", L"c", L"d"}));
}

TEST(RowTableSorting, MarksImagesAndTheCurrentRowTravelWithTheirRow)
{
    RowTable list = filled({{L"c"}, {L"a"}, {L"b"}});
    list.setMark(0, {.selected = true});
    list.setImage(1, 5);
    list.setMark(2, {.current = true});
    list.setSorted(true);
    list.add({L"0"}, 1);
    EXPECT_EQ(names(list), (Names{L"0", L"a", L"b", L"c"}));
    for (std::size_t row = 0; row < list.size(); ++row) {
        EXPECT_EQ(list[row].image, row == 1 ? 5 : 1);
        EXPECT_EQ(list[row].current, row == 2);
        EXPECT_EQ(list[row].marked, row == 3);
    }
}

TEST(RowTableSorting, AgreeWithAStableSortThroughAnyChanges)
{
    std::mt19937 random(3);
    RowTable list;
    std::vector<Strings> model;
    const auto sortModel = [&] {
        std::ranges::stable_sort(model, [&](const Strings& a, const Strings& b) {
            const int order = a[list.sortKey()].compare(b[list.sortKey()]);
            return list.sortOrder() == SortOrder::ascending ? order < 0 : order > 0;
        });
    };
    const auto randomText = [&] { return std::wstring(random() % 3, L'a') + std::to_wstring(random() % 5); };
    const auto randomRow = [&] {
        Strings row;
        for (std::wstring& text : row) text = randomText();
        return row;
    };
    for (int step = 0; step < 2000; ++step) {
        const auto order = random() % 2 == 0 ? SortOrder::ascending : SortOrder::descending;
        switch (random() % 16) {
        case 0: list.setSortKey(random() % 4); break;
        case 1: list.setSortOrder(order); break;
        case 2: list.setSorted(random() % 3 != 0); break;
        case 3:
            if (model.empty()) break;
            list.remove(model.size() / 2);
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(model.size() / 2));
            break;
        case 4: // leaves the rows unsorted until the next sort
            for (int change = 0; change < 3 && !model.empty(); ++change) {
                const std::size_t row = random() % model.size();
                const std::size_t number = random() % RowTable::maxColumns;
                model[row][number] = randomText();
                list.setText(row, number, model[row][number]);
            }
            list.setSorted(list.sorted());
            break;
        case 5: {
            const std::size_t row = random() % (model.size() + 1);
            const Strings inserted = randomRow();
            model.insert(model.begin() + static_cast<std::ptrdiff_t>(row), inserted);
            list.insert(row, RowBlock::viewsOf(inserted), 1);
            list.setSorted(list.sorted());
            break;
        }
        case 6:
            for (std::size_t row = model.size(); row-- > 0;) {
                list.setMark(row, {.selected = random() % 9 == 0});
                if (list[row].marked) model.erase(model.begin() + static_cast<std::ptrdiff_t>(row));
            }
            list.removeMarked();
            break;
        default: list.add(RowBlock::viewsOf(model.emplace_back(randomRow())), 1);
        }
        if (list.sorted()) sortModel();
        for (std::size_t number = 0; number < RowTable::maxColumns; ++number) {
            const Names actual = column(list, number);
            const auto textOf = [&](const Strings& row) { return row[number]; };
            ASSERT_TRUE(std::ranges::equal(actual, model, {}, {}, textOf));
        }
    }
}

} // namespace
} // namespace vandrel
