#include "row_table_texts.h"

#include <gtest/gtest.h>

#include <optional>

namespace vandrel {
namespace {

RowBlock batchOf(const Names& names)
{
    std::vector<Strings> lines;
    for (const std::wstring& name : names) lines.push_back({name});
    return RowBlock(lines);
}

TEST(AppendedRows, GoToTheEndInTheirOrder)
{
    RowTable list = filled({{L"m"}, {L"k"}});
    const RowBlock batch = batchOf({L"z", L"a"});
    list.append(batch.text, batch.rows);
    EXPECT_EQ(names(list), (Names{L"m", L"k", L"z", L"a"}));
    list.append(nullptr, {});
    EXPECT_EQ(list.size(), 4U);
}

TEST(AppendedRows, GoToTheEndOfASortedListUntilItIsSortedAgain)
{
    RowTable list = filled({{L"m"}, {L"k"}});
    list.sortBy(nameColumn, SortOrder::ascending);
    const RowBlock batch = batchOf({L"z", L"a"});
    list.append(batch.text, batch.rows);
    EXPECT_EQ(names(list), (Names{L"k", L"m", L"z", L"a"}));
    EXPECT_TRUE(list.sorted());
    list.setSorted(true);
    EXPECT_EQ(names(list), (Names{L"a", L"k", L"m", L"z"}));
}

TEST(AppendedRows, KeepTheirTextsAliveUntilTheListIsCleared)
{
    RowTable list;
    std::optional<RowBlock> first(batchOf({L"one"}));
    std::optional<RowBlock> second(batchOf({L"two"}));
    const std::weak_ptr<const TextMemory> firstText = first->text;
    const std::weak_ptr<const TextMemory> secondText = second->text;
    list.append(first->text, first->rows);
    list.append(second->text, second->rows);
    first.reset();
    second.reset();
    EXPECT_EQ(names(list), (Names{L"one", L"two"}));
    list.clear();
    EXPECT_TRUE(firstText.expired());
    EXPECT_TRUE(secondText.expired());
}

TEST(AppendedRows, AreTakenAsTheyAreByAnEmptyTable)
{
    RowTable list;
    const RowBlock batch = batchOf({L"z", L"a"});
    list.append({batch.text, batch.rows});
    list.append({batch.text, batch.rows});
    EXPECT_EQ(names(list), (Names{L"z", L"a", L"z", L"a"}));
    EXPECT_NE(list.id(0), list.id(2));
    EXPECT_EQ(list.rowOf(list.id(3)), std::optional<std::size_t>(3));
    list.sortBy(nameColumn, SortOrder::ascending);
    EXPECT_EQ(names(list), (Names{L"a", L"a", L"z", L"z"}));
}

TEST(TableFillings, AreCountedAndNothingElseIs)
{
    RowTable list;
    const unsigned empty = list.fillings();
    const RowBlock batch = batchOf({L"a"});
    list.add({L"by hand"}, 1);
    list.append(batch.text, batch.rows);
    list.sortBy(nameColumn, SortOrder::descending);
    list.remove(0);
    EXPECT_EQ(list.fillings(), empty);
    list.fill(batch.text, batch.rows);
    const unsigned filledOnce = list.fillings();
    EXPECT_NE(filledOnce, empty);
    list.clear();
    EXPECT_NE(list.fillings(), filledOnce);
}

} // namespace
} // namespace vandrel
