#include "search/match.h"

#include "test_folding.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

// In the text as it is and, if it has no other letters, in Latin-1.
bool findsInBoth(const Matcher& matcher, std::wstring_view text)
{
    const ExactText exact(text);
    const bool finds = matcher.occursIn(exact.view());
    if (CompactText(text).fitsLatin()) {
        const ExactLatin latin(text);
        EXPECT_EQ(matcher.occursIn(latin.view()), finds) << shown(text);
    }
    return finds;
}

class Match : public testing::Test {
  protected:
    bool finds(std::wstring_view term, std::wstring_view text) const
    {
        return findsInBoth(Matcher(term, folding), text);
    }
    static bool findsExactly(std::wstring_view term, std::wstring_view text)
    {
        return findsInBoth(Matcher(term), text);
    }

    const CaseFolding folding = testFolding();
};

TEST_F(Match, LetterCaseIsIgnoredInTermAndText)
{
    EXPECT_TRUE(finds(L"NEWS", L"the news today"));
    EXPECT_TRUE(finds(L"news", L"THE NEWS TODAY"));
    EXPECT_TRUE(finds(L"nEwS", L"NeWs"));
    EXPECT_FALSE(finds(L"news", L"the new s"));
}

TEST_F(Match, LetterByLetterEveryCaseMatters)
{
    EXPECT_TRUE(findsExactly(L"News", L"The News"));
    EXPECT_FALSE(findsExactly(L"news", L"The News"));
    EXPECT_FALSE(findsExactly(L"NEWS", L"The News"));
    EXPECT_FALSE(findsExactly(L"ab", L"q")) << "no letter counts as several";
}

TEST_F(Match, AnEmptyTermOccursInEveryText)
{
    EXPECT_TRUE(finds(L"", L""));
    EXPECT_TRUE(finds(L"", L"text"));
    EXPECT_TRUE(findsExactly(L"", L""));
    EXPECT_TRUE(findsExactly(L"", L"text"));
    EXPECT_EQ(Matcher(L"").candidate(L"text", 2), 2U);
    EXPECT_EQ(Matcher(L"", folding).candidate(L"text", 4), 4U);
}

TEST_F(Match, AnOccurrenceIsFoundBehindPlacesThatBeginAndEndLikeIt)
{
    const std::wstring alike = L"tie toe tee ";
    EXPECT_TRUE(finds(L"the", alike + alike + L"tHe"));
    EXPECT_TRUE(findsExactly(L"the", alike + alike + L"the"));
    EXPECT_TRUE(finds(L"tt", L"the tTt"));
    EXPECT_FALSE(finds(L"the", alike + alike));
    EXPECT_FALSE(findsExactly(L"the", alike + L"tHe"));
}

TEST_F(Match, ATermLongerThanTheTextDoesNotOccur)
{
    EXPECT_FALSE(finds(L"abcd", L"abc"));
    EXPECT_FALSE(finds(L"a", L""));
    EXPECT_FALSE(findsExactly(L"abcd", L"abc"));
    EXPECT_FALSE(findsExactly(L"a", L""));
    EXPECT_FALSE(finds(std::wstring(500, L'a'), std::wstring(499, L'a')));
}

TEST_F(Match, AnOccurrenceMayBeTheWholeTextItsBeginningOrItsEnd)
{
    for (const std::size_t before : {0U, 1U, 3U, 4U, 7U, 8U, 9U, 16U, 31U}) {
        for (const std::size_t behind : {0U, 1U, 7U, 8U, 9U}) {
            const std::wstring text = std::wstring(before, L'.') + L"End" + std::wstring(behind, L'.');
            EXPECT_TRUE(finds(L"eND", text)) << before << ", " << behind;
            EXPECT_TRUE(findsExactly(L"End", text)) << before << ", " << behind;
        }
    }
}

TEST_F(Match, HalfAnOccurrenceAtTheEndDoesNotCount)
{
    for (const std::size_t before : {0U, 5U, 6U, 7U, 8U, 13U}) {
        EXPECT_FALSE(finds(L"term", std::wstring(before, L'.') + L"ter"));
        EXPECT_FALSE(findsExactly(L"term", std::wstring(before, L'.') + L"ter"));
    }
}

TEST_F(Match, TheRightEndsAroundAnotherMiddleDoNotMatch)
{
    EXPECT_FALSE(finds(L"abcde", L"abxde abcxe axcde"));
    EXPECT_TRUE(finds(L"abcde", L"abxde abcxe axcde abcde"));
}

TEST_F(Match, ALetterThatCountsAsSeveralIsFoundByThem)
{
    EXPECT_TRUE(finds(L"ab", L"q"));
    EXPECT_TRUE(finds(L"AB", L"Q"));
    EXPECT_TRUE(finds(L"xaby", L"xqy"));
    EXPECT_TRUE(finds(L"xaby", L"...xqy"));
    EXPECT_TRUE(finds(L"abab", L"qq"));
    EXPECT_TRUE(finds(L"aba", L"p"));
}

TEST_F(Match, ALetterThatCountsAsSeveralFindsThem)
{
    EXPECT_TRUE(finds(L"q", L"ab"));
    EXPECT_TRUE(finds(L"xq", L".XAB"));
    EXPECT_TRUE(finds(L"q", L"Q"));
}

TEST_F(Match, ALetterThatCountsAsSeveralIsNotTakenApart)
{
    EXPECT_FALSE(finds(L"a", L"q"));
    EXPECT_FALSE(finds(L"b", L"q"));
    EXPECT_FALSE(finds(L"xa", L"xq"));
    EXPECT_FALSE(finds(L"ba", L"p"));
}

TEST_F(Match, ALetterMayHaveMoreVariantsThanTheFastSearchKnows)
{
    for (wchar_t digit = L'0'; digit <= L'9'; ++digit) {
        const std::wstring variant(1, digit);
        EXPECT_TRUE(finds(L"z", variant));
        EXPECT_TRUE(finds(variant, L"Z"));
        EXPECT_TRUE(finds(L"aza", L"aza"));
        EXPECT_TRUE(finds(L"z-z", std::wstring(30, L'.') + variant + L"-z"));
        EXPECT_FALSE(finds(L"z-z", std::wstring(30, L'.') + variant + L"-"));
    }
    EXPECT_EQ(Matcher(L"z", folding).candidate(L"", 0), std::wstring_view::npos);
}

TEST_F(Match, ExactlyEightVariantsAreAllKnown)
{
    CaseFolding eight;
    for (wchar_t unit = 0; unit < 128; ++unit) eight.units.push_back(unit);
    for (wchar_t digit = L'1'; digit <= L'7'; ++digit) eight.units[static_cast<std::size_t>(digit)] = L'z';
    const Matcher matcher(L"zz", eight);
    for (const wchar_t first : std::wstring_view(L"z1234567")) {
        for (const wchar_t second : std::wstring_view(L"z1234567")) {
            std::wstring text(40, L'8');
            text[20] = first;
            text[21] = second;
            EXPECT_TRUE(matcher.occursIn(text));
            EXPECT_EQ(matcher.candidate(text, 0), 20U);
        }
    }
    EXPECT_FALSE(matcher.occursIn(std::wstring(40, L'8')));
}

TEST_F(Match, AVeryLongTermIsFound)
{
    const std::wstring term = L"b" + std::wstring(9998, L'a') + L"c";
    EXPECT_TRUE(finds(term, std::wstring(77, L'a') + term));
    EXPECT_TRUE(findsExactly(term, term + std::wstring(77, L'a')));
    EXPECT_FALSE(finds(term, term.substr(0, 9999)));
    std::wstring other = term;
    other[5000] = L'x';
    EXPECT_FALSE(finds(term, other));
    EXPECT_FALSE(findsExactly(term, other));
}

TEST_F(Match, UnitsBeyondTheFoldingStandForThemselves)
{
    EXPECT_TRUE(finds(L"\u3042", L"...\u3042"));
    EXPECT_FALSE(finds(L"\u3042", L"...\u3044"));
    EXPECT_EQ(folding(L'\u3042'), L'\u3042');
}

TEST_F(Match, AZeroIsALetterLikeAnyOther)
{
    const std::wstring text{L'a', L'\0', L'b'};
    EXPECT_TRUE(finds(std::wstring{L'\0', L'B'}, text));
    EXPECT_FALSE(finds(std::wstring{L'a', L'\0', L'\0'}, text));
}

TEST_F(Match, FoldingWritesATextOutInOneCase)
{
    EXPECT_EQ(folding.fold(L"Abc-Q7\u3042"), L"abc-abz\u3042");
    EXPECT_EQ(folding.fold(L""), L"");
    ASSERT_NE(folding.expansionOf(L'p'), nullptr);
    EXPECT_EQ(folding.expansionOf(L'p')->text, L"aba");
    EXPECT_EQ(folding.expansionOf(L'a'), nullptr);
}

} // namespace
} // namespace vandrel
