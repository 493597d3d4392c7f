#include "model/site_lines.h"
#include "row_table_texts.h"
#include "tests/support/failing_new.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>

namespace vandrel::test {
namespace {

// Texts too long to be kept inside the string object itself.
std::wstring longText(const wchar_t* mark) { return std::wstring(mark) + L" and what makes it a long text"; }

Strings site(const wchar_t* name, const wchar_t* url)
{
    return {longText(name), longText(url), longText(L"about"), longText(L"today")};
}

RowTable threeSites() { return filled({site(L"b", L"3"), site(L"c", L"2"), site(L"a", L"1")}); }

using Content = std::vector<Names>;

Content contentOf(const RowTable& list)
{
    Content content;
    for (std::size_t number = 0; number < RowTable::maxColumns; ++number)
        content.push_back(column(list, number));
    return content;
}

// Applies the change to three sites again and again, with the next allocation failing each time. After each
// failure the list is as before and still works.
void expectAllOrNothing(const std::function<void(RowTable&)>& change)
{
    bool failed = true;
    for (unsigned n = 1; failed; ++n) {
        RowTable list = threeSites();
        const Content before = contentOf(list);
        const bool sorted = list.sorted();
        const std::size_t key = list.sortKey();
        failing_new::arm(n, failing_new::How::once, failing_new::Where::thisThread);
        try {
            change(list);
            failing_new::disarm();
        } catch (const std::bad_alloc&) {
            failing_new::disarm();
            EXPECT_EQ(contentOf(list), before) << n;
            EXPECT_EQ(list.sorted(), sorted) << n;
            EXPECT_EQ(list.sortKey(), key) << n;
        }
        failed = failing_new::failed();
        list.sortBy(urlColumn, SortOrder::ascending);
        list.add(RowBlock::viewsOf(site(L"d", L"0")), 1);
        const Names urls = column(list, urlColumn);
        EXPECT_TRUE(std::ranges::is_sorted(urls)) << n;
        EXPECT_EQ(urls.front(), longText(L"0")) << n;
        ASSERT_LT(n, 100U) << "it never gets to its end";
    }
}

TEST(RowTableMemory, FillsOrLeavesTheListAsItWas)
{
    expectAllOrNothing([](RowTable& list) {
        RowBlock block({site(L"x", L"x")});
        list.fill(std::move(block.text), std::move(block.rows));
    });
}

TEST(RowTableMemory, AppendsOrLeavesTheListAsItWas)
{
    expectAllOrNothing([](RowTable& list) {
        RowBlock block({site(L"x", L"x")});
        list.append(std::move(block.text), block.rows);
    });
}

TEST(RowTableMemory, AddsOrLeavesTheListAsItWas)
{
    expectAllOrNothing([](RowTable& list) { list.add(RowBlock::viewsOf(site(L"e", L"4")), 1); });
    expectAllOrNothing([](RowTable& list) { list.insert(1, RowBlock::viewsOf(site(L"e", L"4")), 1); });
}

TEST(RowTableMemory, ChangesATextOrLeavesTheListAsItWas)
{
    expectAllOrNothing([](RowTable& list) { list.setText(1, 0, longText(L"e")); });
}

TEST(RowTableMemory, SortsOrLeavesTheListAsItWas)
{
    expectAllOrNothing([](RowTable& list) { list.sortBy(nameColumn, SortOrder::descending); });
    expectAllOrNothing([](RowTable& list) { list.setSorted(true); });
}

// A failed sort must not count as done, or the next one would do nothing.
TEST(RowTableMemory, AFailedSortIsMadeUpForByTheNext)
{
    bool failed = true;
    for (unsigned n = 1; failed; ++n) {
        RowTable list = threeSites();
        failing_new::arm(n, failing_new::How::once, failing_new::Where::thisThread);
        try {
            list.sortBy(urlColumn, SortOrder::ascending);
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(names(list).front(), longText(L"b"));
        }
        failing_new::disarm();
        failed = failing_new::failed();
        list.sortBy(urlColumn, SortOrder::ascending);
        EXPECT_EQ(column(list, urlColumn), (Names{longText(L"1"), longText(L"2"), longText(L"3")})) << n;
    }
}

// Rows may be taken for sorted only if they were really added.
TEST(RowTableMemory, AnAddThatFailedDoesNotCountAsARowInOrder)
{
    bool failed = true;
    for (unsigned n = 1; failed; ++n) {
        RowTable list = filled({site(L"a", L"5")});
        list.sortBy(urlColumn, SortOrder::ascending);
        failing_new::arm(n, failing_new::How::once, failing_new::Where::thisThread);
        try {
            list.add(RowBlock::viewsOf(site(L"b", L"6")), 1);
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(list.size(), 1U);
        }
        failing_new::disarm();
        failed = failing_new::failed();
        const auto others = std::make_shared<const RowTable>(filled({site(L"c", L"1"), site(L"d", L"9")}));
        list.append(others, others->all());
        list.sortBy(urlColumn, SortOrder::ascending);
        const Names urls = column(list, urlColumn);
        EXPECT_TRUE(std::ranges::is_sorted(urls)) << n;
    }
}

} // namespace
} // namespace vandrel::test
