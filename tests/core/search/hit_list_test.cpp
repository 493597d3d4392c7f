#include "search/hit_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vandrel {
namespace {

// A hundred sites, whose texts are gone as soon as a test says so.
class Hits : public testing::Test {
  protected:
    Hits()
    {
        for (int i = 0; i < 100; ++i) names.push_back(L"name" + std::to_wstring(i));
        for (const std::wstring& name : names) sites.push_back({name, L"url", L"text", L"date"});
        hits.setCategory(std::wstring(L"Papers"));
    }
    void add(std::size_t first, std::size_t count)
    {
        for (std::size_t site = first; site < first + count; ++site) hits.add(sites[site]);
    }

    std::vector<std::wstring> names;
    std::vector<SiteTexts> sites;
    HitList hits;
};

TEST_F(Hits, BecomeRowsOfNameAddressCategoryAndDescription)
{
    for (const std::size_t count : {1U, 100U}) {
        add(0, count);
        const RowTable::Block block = hits.take();
        ASSERT_EQ(block.rows.size(), count);
        for (std::size_t row = 0; row < count; ++row) {
            EXPECT_EQ(block.rows[row].texts[0], L"name" + std::to_wstring(row));
            EXPECT_EQ(block.rows[row].texts[1], L"url");
            EXPECT_EQ(block.rows[row].texts[2], L"Papers");
            EXPECT_EQ(block.rows[row].texts[3], L"text");
            EXPECT_EQ(block.rows[row].image, 1);
            EXPECT_FALSE(block.rows[row].marked);
        }
    }
}

TEST_F(Hits, KeepTheOrderInWhichTheyWereFound)
{
    for (const std::size_t site : {7U, 3U, 99U, 3U}) hits.add(sites[site]);
    const RowTable::Block block = hits.take();
    ASSERT_EQ(block.rows.size(), 4U);
    EXPECT_EQ(block.rows[0].texts[0], L"name7");
    EXPECT_EQ(block.rows[1].texts[0], L"name3");
    EXPECT_EQ(block.rows[2].texts[0], L"name99");
    EXPECT_EQ(block.rows[3].texts[0], L"name3");
}

TEST_F(Hits, HaveTextsOfTheirOwn)
{
    add(0, 100);
    const RowTable::Block block = hits.take();
    sites.clear();
    names.clear();
    hits = HitList();
    EXPECT_EQ(block.rows[10].texts[0], L"name10");
    EXPECT_EQ(block.rows[99].texts[0], L"name99");
    EXPECT_EQ(block.rows[99].texts[2], L"Papers");
}

TEST_F(Hits, StayGoodHoweverManyFollow)
{
    hits.add({names[0], L"first", L"", L""});
    const RowTable::Block first = hits.take();
    const std::wstring longText(200'000, L'x'); // more than a piece of memory has
    for (int i = 0; i < 3; ++i) hits.add({longText, L"", L"", L""});
    hits.setCategory(L"Other");
    for (int i = 0; i < 50; ++i) add(0, 100);
    const RowTable::Block block = hits.take();
    EXPECT_EQ(first.rows[0].texts[0], L"name0");
    EXPECT_EQ(first.rows[0].texts[1], L"first");
    EXPECT_EQ(block.rows[2].texts[0], longText);
    EXPECT_EQ(block.rows[2].texts[2], L"Papers");
    EXPECT_EQ(block.rows[3].texts[2], L"Other");
    EXPECT_EQ(block.rows.back().texts[0], L"name99");
}

TEST_F(Hits, AreGoneOnceTheyHaveBeenTaken)
{
    EXPECT_TRUE(hits.empty());
    add(0, 90);
    EXPECT_FALSE(hits.empty());
    hits.take();
    EXPECT_TRUE(hits.empty());
    EXPECT_TRUE(hits.take().rows.empty());
    add(95, 1);
    const RowTable::Block block = hits.take();
    ASSERT_EQ(block.rows.size(), 1U);
    EXPECT_EQ(block.rows[0].texts[0], L"name95");
}

TEST_F(Hits, WithoutAnyTextAreRowsAllTheSame)
{
    HitList empty;
    empty.add({});
    empty.add({});
    const RowTable::Block block = empty.take();
    ASSERT_EQ(block.rows.size(), 2U);
    for (const CompactText& text : block.rows[1].texts.views()) EXPECT_TRUE(text.empty());
}

TEST_F(Hits, TakeAByteALetterWhereNoneOfTheirsIsBeyondLatin1)
{
    add(0, 1);
    hits.add({L"Caf\u00E9", CompactText::ofLatin("http://caf\xE9/"), L"\u00FF", L"date"});
    hits.add({L"10 \u20AC", CompactText::ofLatin("http://caf\xE9/"), L"", L"date"});
    hits.setCategory(L"\u0141");
    add(1, 1);
    const RowTable::Block block = hits.take();
    ASSERT_EQ(block.rows.size(), 4U);
    for (std::size_t row = 0; row < 4; ++row) EXPECT_EQ(block.rows[row].texts.isLatin(), row < 2) << row;
    EXPECT_EQ(block.rows[1].texts.views(),
              (RowTexts::Views{L"Caf\u00E9", L"http://caf\u00E9/", L"Papers", L"\u00FF"}));
    EXPECT_EQ(block.rows[2].texts.views(),
              (RowTexts::Views{L"10 \u20AC", L"http://caf\u00E9/", L"Papers", L""}));
    EXPECT_EQ(block.rows[3].texts.views(), (RowTexts::Views{L"name1", L"url", L"\u0141", L"text"}));
}

} // namespace
} // namespace vandrel
