#include "model/row_texts.h"

#include "model/site_record.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <string>

namespace vandrel {
namespace {

using Views = RowTexts::Views;

RowTexts textsOf(std::wstring_view line)
{
    const auto site = siteOfLine(line);
    return RowTexts::ofLine({site->name, site->url, site->description, site->date});
}

TEST(RowTexts, AreEmptyAtFirst)
{
    EXPECT_EQ(RowTexts().views(), Views{});
    EXPECT_TRUE(RowTexts().line().empty());
}

TEST(RowTexts, AreThoseOfTheirLine)
{
    const std::wstring line = L"News|http://a/|about|1/1/2001";
    const RowTexts texts = textsOf(line);
    EXPECT_EQ(texts.views(), (Views{L"News", L"http://a/", L"about", L"1/1/2001"}));
    EXPECT_EQ(texts[1].data(), line.data() + 5) << "a view, not a copy";
    EXPECT_EQ(texts.line().data(), line.data());
    EXPECT_EQ(texts.line(), line);
}

TEST(RowTexts, MayBeEmptyOrMissing)
{
    EXPECT_EQ(textsOf(L"|||").views(), Views{});
    EXPECT_EQ(textsOf(L"|||").line(), L"|||");
    EXPECT_EQ(textsOf(L"a||c|").views(), (Views{L"a", L"", L"c", L""}));
    EXPECT_EQ(textsOf(L"a||c|").line(), L"a||c|");
    EXPECT_EQ(textsOf(L"a|b").views(), (Views{L"a", L"b", L"", L""}));
    EXPECT_EQ(textsOf(L"a|b|").views(), (Views{L"a", L"b", L"", L""}));
    EXPECT_EQ(RowTexts::ofLine({L"title"}).views(), Views{L"title"});
}

TEST(RowTexts, HaveNoLineOfFourWhereTheirOwnIsShorterAndLeaveOutWhatALongerOneHasMore)
{
    EXPECT_TRUE(textsOf(L"a|b").line().empty());
    EXPECT_TRUE(textsOf(L"a|b|").line().empty());
    EXPECT_TRUE(RowTexts::ofLine({L"title"}).line().empty());
    EXPECT_EQ(textsOf(L"a|b|c|d|e").line(), L"a|b|c|d");
}

TEST(RowTexts, AreWrittenAsALine)
{
    const Views views{L"a", L"", L"c|c", L"dd"};
    EXPECT_EQ(RowTexts::lengthOf(views), 9U);
    std::wstring memory(10, L'#');
    const RowTexts texts = RowTexts::written(views, memory.data());
    EXPECT_EQ(memory, L"a||c|c|dd#");
    EXPECT_EQ(texts.views(), views);
    EXPECT_EQ(texts.line(), L"a||c|c|dd");
}

TEST(RowTexts, MayLoseTheLast)
{
    RowTexts texts = textsOf(L"a|b|c|1/1/2001");
    texts.clearLast();
    EXPECT_EQ(texts.views(), (Views{L"a", L"b", L"c", L""}));
    EXPECT_EQ(texts.line(), L"a|b|c|");
    RowTexts shorter = textsOf(L"a|b");
    shorter.clearLast();
    EXPECT_EQ(shorter.views(), (Views{L"a", L"b", L"", L""}));
    EXPECT_TRUE(shorter.line().empty());
}

// Nothing is read there.
TEST(RowTexts, OfALineThatIsTooLongToCountAreRefused)
{
    constexpr std::size_t most = std::numeric_limits<std::uint32_t>::max();
    const std::wstring begin = L"x";
    EXPECT_EQ(RowTexts::ofLine({std::wstring_view(begin.data(), most - 1)})[0].size(), most - 1);
    EXPECT_THROW(RowTexts::ofLine({std::wstring_view(begin.data(), most)}), std::bad_alloc);
}

TEST(RowTexts, TakeLittleMemory) { EXPECT_EQ(sizeof(RowTexts), 24U); }

} // namespace
} // namespace vandrel
