#include "search/hit_list.h"

#include <gtest/gtest.h>

#include <optional>

namespace vandrel {
namespace {

// A category of a hundred sites in one text.
class Hits : public testing::Test {
  protected:
    Hits()
    {
        auto text = std::make_shared<std::wstring>();
        for (int i = 0; i < 100; ++i) *text += L"name" + std::to_wstring(i) + L"url_text";
        std::wstring_view rest = *text;
        for (int i = 0; i < 100; ++i) {
            const std::size_t name = 4 + std::to_wstring(i).size();
            rows.push_back({{rest.substr(0, name), rest.substr(name, 3), rest.substr(name + 4, 4), L"date"}});
            rest.remove_prefix(name + 8);
        }
        hits.emplace(L"Papers", text, text->size());
        owner = text;
    }
    void add(std::size_t first, std::size_t count)
    {
        for (std::size_t row = first; row < first + count; ++row) hits->add(rows[row]);
    }
    bool ownerLives() const { return !owner.expired(); }

    std::vector<RowTable::Row> rows;
    std::optional<HitList> hits;
    std::weak_ptr<const void> owner;
};

TEST_F(Hits, BecomeRowsOfNameAddressCategoryAndDescription)
{
    for (const std::size_t count : {1U, 100U}) {
        add(0, count);
        const RowTable::Block block = hits->take();
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
    for (const std::size_t row : {7U, 3U, 99U, 3U}) hits->add(rows[row]);
    const RowTable::Block block = hits->take();
    ASSERT_EQ(block.rows.size(), 4U);
    EXPECT_EQ(block.rows[0].texts[0], L"name7");
    EXPECT_EQ(block.rows[1].texts[0], L"name3");
    EXPECT_EQ(block.rows[2].texts[0], L"name99");
    EXPECT_EQ(block.rows[3].texts[0], L"name3");
}

TEST_F(Hits, AFewDoNotHoldOnToTheWholeCategory)
{
    add(10, 2);
    const RowTable::Block block = hits->take();
    rows.clear();
    hits.reset();
    EXPECT_FALSE(ownerLives());
    EXPECT_EQ(block.rows[0].texts[0], L"name10") << "they have texts of their own";
    EXPECT_EQ(block.rows[1].texts[1], L"url");
    EXPECT_EQ(block.rows[1].texts[2], L"Papers");
    EXPECT_EQ(block.rows[1].texts[3], L"text");
}

TEST_F(Hits, ManyShareTheTextOfTheCategoryAndKeepItAlive)
{
    add(0, 90);
    std::optional<RowTable::Block> block = hits->take();
    EXPECT_EQ(block->rows[5].texts[0].data(), rows[5].texts[0].data());
    EXPECT_EQ(block->rows[5].texts[3].data(), rows[5].texts[2].data());
    hits.reset();
    EXPECT_TRUE(ownerLives());
    EXPECT_EQ(block->rows[89].texts[0], L"name89");
    EXPECT_EQ(block->rows[89].texts[2], L"Papers") << "the title lives as long, too";
    block.reset();
    EXPECT_FALSE(ownerLives());
}

TEST_F(Hits, AreGoneOnceTheyHaveBeenTaken)
{
    EXPECT_TRUE(hits->empty());
    add(0, 90);
    EXPECT_FALSE(hits->empty());
    hits->take();
    EXPECT_TRUE(hits->empty());
    EXPECT_TRUE(hits->take().rows.empty());
    add(95, 1);
    const RowTable::Block block = hits->take();
    ASSERT_EQ(block.rows.size(), 1U);
    EXPECT_EQ(block.rows[0].texts[0], L"name95");
    rows.clear();
    hits.reset();
    EXPECT_FALSE(ownerLives()) << "what was taken before does not count";
}

TEST_F(Hits, WithoutAnyTextAreRowsAllTheSame)
{
    HitList empty(L"", nullptr, 0);
    empty.add({});
    empty.add({});
    const RowTable::Block block = empty.take();
    ASSERT_EQ(block.rows.size(), 2U);
    for (const std::wstring_view text : block.rows[1].texts) EXPECT_TRUE(text.empty());
}

} // namespace
} // namespace vandrel
