#include "model/row_texts.h"

#include "model/site_record.h"
#include "model/text_memory.h"

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

TEST(RowTexts, AreThoseOfALineInLatin1)
{
    const std::string line = "a|http://\xE9/||d";
    const CompactText all = CompactText::ofLatin(line);
    const RowTexts texts = RowTexts::ofLine(
        {all.substr(0, 1), all.substr(2, 9), all.substr(12, 0), all.substr(13)});
    EXPECT_TRUE(texts.isLatin());
    EXPECT_EQ(texts.views(), (Views{L"a", L"http://\u00E9/", L"", L"d"}));
    EXPECT_EQ(texts[1].data(), line.data() + 2) << "a view, not a copy";
    EXPECT_EQ(texts.line(), all);
    EXPECT_EQ(texts.bytes(), line.size());
    EXPECT_EQ(RowTexts::ofLine(all, {1, 11, 12, 14}).views(), texts.views());
    EXPECT_EQ(RowTexts::ofLine(all, {1, 11, 11, 11}).views(), (Views{L"a", L"http://\u00E9/", L"", L""}));
}

TEST(RowTexts, AreWrittenAsALineInLatin1IfAllFit)
{
    TextMemory memory;
    const Views latin{L"a", L"", CompactText::ofLatin("c|\xFF"), L"\u00FF"};
    const Views wide{L"a", L"", CompactText::ofLatin("c|\xFF"), L"\u0100"};
    const RowTexts first = RowTexts::written(latin, memory);
    const RowTexts second = RowTexts::written(wide, memory);
    const RowTexts third = RowTexts::written(latin, memory);
    EXPECT_TRUE(first.isLatin());
    EXPECT_EQ(first.bytes(), 8U);
    EXPECT_FALSE(second.isLatin());
    EXPECT_EQ(second.bytes(), 8 * sizeof(wchar_t));
    for (const RowTexts& texts : {first, third}) {
        EXPECT_EQ(texts.views(), latin);
        EXPECT_EQ(texts.line(), L"a||c|\u00FF|\u00FF");
    }
    EXPECT_EQ(second.views(), wide);
    EXPECT_EQ(second.line(), L"a||c|\u00FF|\u0100");
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
    RowTexts latin = RowTexts::ofLine(CompactText::ofLatin("a|b|c|d"), {1, 3, 5, 7});
    latin.clearLast();
    EXPECT_EQ(latin.views(), (Views{L"a", L"b", L"c", L""}));
    EXPECT_TRUE(latin.isLatin());
}

// Nothing is read there.
TEST(RowTexts, OfALineThatIsTooLongToCountAreRefused)
{
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();
    const std::wstring begin = L"x";
    EXPECT_EQ(RowTexts::ofLine({std::wstring_view(begin.data(), most - 1)})[0].size(), most - 1);
    EXPECT_THROW(RowTexts::ofLine({std::wstring_view(begin.data(), most)}), std::bad_alloc);
}

TEST(RowTexts, TakeLittleMemory) { EXPECT_EQ(sizeof(RowTexts), 24U); }

} // namespace
} // namespace vandrel
