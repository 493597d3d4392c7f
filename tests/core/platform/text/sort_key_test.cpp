#include "platform/text/sort_key.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vandrel {
namespace {

using namespace std::literals;

std::wstring randomText(std::mt19937& random)
{
    constexpr std::wstring_view letters = L"ab\0\u00FD\u00FE\u00FF\u0100\u20AC\u7FFF\u8000\uFFFF"sv;
    std::wstring text(random() % 20, L'\0');
    for (wchar_t& letter : text) letter = letters[random() % letters.size()];
    return text;
}

TEST(SortKeys, HoldEightUnitsTheFirstInTheHighestByte)
{
    EXPECT_EQ(SortKey::of(L"abcdefgh", 0), 0x6263646566676869U);
    EXPECT_EQ(SortKey::of(L"abcdefghi", 1), 0x636465666768696AU);
    EXPECT_EQ(SortKey::of(L"ab", 0), 0x6263000000000000U);
    EXPECT_EQ(SortKey::of(L"ab", 2), 0U);
    EXPECT_EQ(SortKey::of(L"ab", 9), 0U);
    EXPECT_EQ(SortKey::of(L"\u00FDb", 0), 0xFE63000000000000U) << "the last unit with a byte of its own";
    EXPECT_EQ(SortKey::of(L"a\u00FEbcdefgh", 0), 0x62FF000000000000U);
}

TEST(SortKeys, AreTheSameWithAndWithoutVectors)
{
    std::mt19937 random(8);
    for (int round = 0; round < 20'000; ++round) {
        const std::wstring text = randomText(random);
        const std::size_t depth = random() % 22;
        ASSERT_EQ(SortKey::of(text, depth), SortKey::plainOf(text, depth));
    }
}

TEST(SortKeys, AreTheSameForLatinAndForWideText)
{
    std::mt19937 random(10);
    for (int round = 0; round < 20'000; ++round) {
        std::string latin(random() % 20, '\0');
        std::wstring wide;
        for (char& letter : latin) {
            letter = "ab\0\x7F\x80\xFD\xFE\xFF"[random() % 8];
            wide += static_cast<wchar_t>(static_cast<unsigned char>(letter));
        }
        const std::size_t depth = random() % 22;
        ASSERT_EQ(SortKey::of(CompactText::ofLatin(latin), depth), SortKey::of(wide, depth));
        ASSERT_EQ(SortKey::plainOf(CompactText::ofLatin(latin), depth), SortKey::plainOf(wide, depth));
    }
}

TEST(SortKeys, CompareAsTheirTextsDo)
{
    std::mt19937 random(9);
    for (int round = 0; round < 20'000; ++round) {
        const std::wstring one = randomText(random).substr(0, SortKey::units);
        const std::wstring other = randomText(random).substr(0, SortKey::units);
        const std::uint64_t a = SortKey::of(one, 0);
        const std::uint64_t b = SortKey::of(other, 0);
        if (a != b) {
            ASSERT_EQ(a < b, one < other);
        } else if (!SortKey::inexact(a)) {
            ASSERT_EQ(one, other);
        }
    }
}

TEST(SortKeys, TellTextsThatHaveEndedAndThoseThatMayDiffer)
{
    EXPECT_TRUE(SortKey::ended(SortKey::of(L"abcdefg", 0)));
    EXPECT_FALSE(SortKey::ended(SortKey::of(L"abcdefgh", 0)));
    EXPECT_FALSE(SortKey::inexact(SortKey::of(L"abc\u00FDefgh", 0)));
    for (std::size_t place = 0; place < SortKey::units; ++place) {
        std::wstring text(SortKey::units, L'\0');
        text[place] = L'\u00FE';
        EXPECT_TRUE(SortKey::inexact(SortKey::of(text, 0))) << place;
    }
}

} // namespace
} // namespace vandrel
