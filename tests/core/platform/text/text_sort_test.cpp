#include "platform/text/text_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <numeric>
#include <random>
#include <string>

namespace vandrel {
namespace {

using namespace std::literals;

using Order = std::vector<std::uint32_t>;

// Every other text that can be is in Latin-1.
class Views {
  public:
    explicit Views(const std::vector<std::wstring>& texts)
    {
        for (const std::wstring& text : texts) {
            views_.emplace_back(text);
            if (views_.size() % 2 == 0 || !views_.back().fitsLatin()) continue;
            std::string& latin = latin_.emplace_back(text.size(), '\0');
            views_.back().copyLatin(latin.data());
            views_.back() = CompactText::ofLatin(latin);
        }
    }
    const std::vector<CompactText>& operator*() const { return views_; }

  private:
    std::deque<std::string> latin_;
    std::vector<CompactText> views_;
};

Order stablySorted(const std::vector<std::wstring>& texts, bool descending)
{
    Order order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, [&](std::uint32_t a, std::uint32_t b) {
        return descending ? texts[a] > texts[b] : texts[a] < texts[b];
    });
    return order;
}

void expectAsStableSort(const std::vector<std::wstring>& texts)
{
    const Views views(texts);
    for (const bool descending : {false, true}) {
        ASSERT_EQ(sortedOrder(*views, descending), stablySorted(texts, descending))
            << testing::PrintToString(texts) << (descending ? " descending" : " ascending");
    }
}

// Gives the same random texts on every system; the library's distributions differ between systems.
class Random {
  public:
    std::size_t below(std::size_t bound) { return engine_() % bound; }

    std::wstring text(std::wstring_view letters, std::size_t length)
    {
        std::wstring result(length, L'\0');
        for (wchar_t& letter : result) letter = letters[below(letters.size())];
        return result;
    }

  private:
    std::mt19937 engine_{20021116};
};

Order ascending(const std::vector<std::wstring>& texts) { return sortedOrder(*Views(texts), false); }
Order descending(const std::vector<std::wstring>& texts) { return sortedOrder(*Views(texts), true); }

TEST(SortedOrder, OfNothingIsEmpty)
{
    EXPECT_TRUE(ascending({}).empty());
    EXPECT_TRUE(descending({}).empty());
}

TEST(SortedOrder, OfOneTextIsThatText)
{
    EXPECT_EQ(ascending({L"a"}), Order{0});
    EXPECT_EQ(descending({L""}), Order{0});
}

TEST(SortedOrder, HoldsTheIndexOfTheTextThatComesNext)
{
    EXPECT_EQ(ascending({L"c", L"a", L"b"}), (Order{1, 2, 0}));
    EXPECT_EQ(descending({L"b", L"c", L"a"}), (Order{1, 0, 2}));
}

TEST(SortedOrder, LetterCaseCounts)
{
    EXPECT_EQ(ascending({L"a", L"B", L"A", L"b"}), (Order{2, 1, 0, 3}));
    EXPECT_EQ(descending({L"a", L"B", L"A", L"b"}), (Order{3, 0, 1, 2}));
}

TEST(SortedOrder, DatesAreTextsLikeAnyOther)
{
    EXPECT_EQ(ascending({L"9/30/2002", L"10/1/2002"}), (Order{1, 0}));
}

TEST(SortedOrder, AnEmptyTextComesFirst)
{
    EXPECT_EQ(ascending({L"a", L"", L"b"}), (Order{1, 0, 2}));
    EXPECT_EQ(descending({L"a", L"", L"b"}), (Order{2, 0, 1}));
}

TEST(SortedOrder, ABeginningComesBeforeTheWholeText)
{
    std::vector<std::wstring> texts;
    for (std::size_t length = 14; length > 0; --length) texts.emplace_back(length, L'x');
    expectAsStableSort(texts);
    EXPECT_EQ(ascending(texts).front(), 13U);
}

TEST(SortedOrder, ATextComesBeforeTheSameTextFollowedByNuls)
{
    for (const std::size_t length : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
        const std::wstring beginning(length, L'a');
        std::vector<std::wstring> texts;
        for (std::size_t nuls = 8; nuls-- > 0;) texts.push_back(beginning + std::wstring(nuls, L'\0'));
        texts.push_back(beginning + L"\0b"s);
        texts.push_back(beginning + L"\0\0\0b"s);
        expectAsStableSort(texts);
    }
}

TEST(SortedOrder, CodeUnitsCompareWithoutASign)
{
    EXPECT_EQ(ascending({L"\uFFFD", L"\u8000", L"\u7FFF", L"z", L"\u00FF"}), (Order{3, 4, 2, 1, 0}));
    EXPECT_EQ(ascending({L"aaaaa\uFFFD", L"aaaaa\u00E9", L"aaaaaz"}), (Order{2, 1, 0}));
}

TEST(SortedOrder, EqualTextsKeepTheirOrderAscendingAndDescending)
{
    EXPECT_EQ(ascending({L"b", L"a", L"b", L"a", L"b"}), (Order{1, 3, 0, 2, 4}));
    EXPECT_EQ(descending({L"a", L"b", L"a", L"b", L"a"}), (Order{1, 3, 0, 2, 4}));
    EXPECT_EQ(descending({L"", L"x", L"", L"x"}), (Order{1, 3, 0, 2}));
}

TEST(SortedOrder, TextsThatAreAllEqualStayWhereTheyAre)
{
    for (const auto* text : {L"", L"ab", L"abc", L"abcdef", L"https://www.example.com/"}) {
        const std::vector<std::wstring> texts(40, text);
        Order unmoved(40);
        std::iota(unmoved.begin(), unmoved.end(), 0U);
        EXPECT_EQ(ascending(texts), unmoved);
        EXPECT_EQ(descending(texts), unmoved);
    }
}

TEST(SortedOrder, TextsThatAreSortedStayWhereTheyAre)
{
    EXPECT_EQ(ascending({L"a", L"a", L"b", L"c"}), (Order{0, 1, 2, 3}));
    EXPECT_EQ(descending({L"c", L"b", L"a", L"a"}), (Order{0, 1, 2, 3}));
}

TEST(SortedOrder, ADifferenceIsFoundAtEveryDepth)
{
    for (std::size_t depth = 0; depth < 20; ++depth) {
        const std::wstring w(depth, L'w');
        expectAsStableSort({w + L"c", w + L"a/long/rest", w, w + L"b", w + L"a"});
    }
}

TEST(SortedOrder, AgreesWithAStableSortOnShortTexts)
{
    Random random;
    for (int round = 0; round < 400; ++round) {
        std::vector<std::wstring> texts(random.below(60));
        for (std::wstring& text : texts) text = random.text(L"ab\0\uFFFF"sv, random.below(5));
        expectAsStableSort(texts);
    }
}

TEST(SortedOrder, AgreesWithAStableSortOnLengthsAroundMultiplesOfEight)
{
    Random random;
    for (int round = 0; round < 200; ++round) {
        std::vector<std::wstring> texts(random.below(80));
        for (std::wstring& text : texts) {
            const std::size_t length = 8 * (1 + random.below(3)) + random.below(3) - 1;
            text = std::wstring(length, L'a') + random.text(L"ab\0"sv, random.below(3));
        }
        expectAsStableSort(texts);
    }
}

TEST(SortedOrder, AgreesWithAStableSortOnLongSharedBeginnings)
{
    Random random;
    std::vector<std::wstring> beginnings = {L"", L"https://www.", L"https://www.example.com/",
                                            L"https://www.example.org/"};
    for (int i = 0; i < 8; ++i) {
        const std::wstring& shorter = beginnings[random.below(beginnings.size())];
        beginnings.push_back(shorter + random.text(L"xyz\0"sv, 1 + random.below(40)));
    }
    for (int round = 0; round < 60; ++round) {
        std::vector<std::wstring> texts(random.below(300));
        for (std::wstring& text : texts) {
            text = beginnings[random.below(beginnings.size())] + random.text(L"01/\0"sv, random.below(7));
        }
        expectAsStableSort(texts);
    }
}

TEST(SortedOrder, AgreesWithAStableSortOnManyTextsInManyScripts)
{
    Random random;
    std::vector<std::wstring> texts(5'000);
    for (std::wstring& text : texts) {
        text = std::wstring(random.below(9), L'w') +
               random.text(L"ab\0\u00FD\u00FE\u00FF\u0100\u20AC\uFFFD"sv, random.below(12));
    }
    expectAsStableSort(texts);
}

TEST(SortedOrder, AgreesWithAStableSortOnALargeList)
{
    Random random;
    std::vector<std::wstring> texts(20'000);
    for (std::wstring& text : texts) {
        const std::wstring site = L"https://www.site" + random.text(L"0123", 3) + L".example/";
        text = site + random.text(L"ab", random.below(9));
    }
    expectAsStableSort(texts);
}

TEST(SortedOrder, ManyRunsOfTheSameLetterAreSortedByLength)
{
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < 3000; ++i) texts.emplace_back(3 * ((i * 7) % 3000), L'a');
    const Views views(texts);
    for (const bool reverse : {false, true}) {
        ASSERT_EQ(sortedOrder(*views, reverse), stablySorted(texts, reverse));
    }
}

} // namespace
} // namespace vandrel
