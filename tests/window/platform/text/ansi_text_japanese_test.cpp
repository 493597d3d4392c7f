#include "tests/window/platform/text/ansi_round_trip.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

// Registered a second time under a Japanese locale; see CMakeLists.txt.
class JapaneseText : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    }
};

TEST_F(JapaneseText, ASecondByteThatLooksLikeTheSeparatorBelongsToItsLetter)
{
    // In each the second byte is 0x7C, "|".
    const std::string bytes = "\x83\x7C\x83\x93|\x83\x7C|\x97\x7C";
    const std::wstring text = decodeAnsi(bytes);
    EXPECT_EQ(text, L"\u30DD\u30F3|\u30DD|\u617E");
    EXPECT_EQ(roundTrip(bytes), bytes);
}

TEST_F(JapaneseText, ASecondByteThatLooksLikeTheBackslashBelongsToItsLetter)
{
    const std::string bytes = "\x95\x5C\\\x83\x5C"; // "table", a backslash, "so"
    EXPECT_EQ(decodeAnsi(bytes), L"\u8868\\\u30BD");
    EXPECT_EQ(roundTrip(bytes), bytes);
}

TEST_F(JapaneseText, HalfWidthLettersTakeOneByte)
{
    EXPECT_EQ(decodeAnsi("\xB1\xDF|a"), L"\uFF71\uFF9F|a");
    EXPECT_EQ(encoded(L"\uFF71\uFF9F|a"), "\xB1\xDF|a");
}

TEST_F(JapaneseText, EveryByteSurvivesInFrontOfALineEnd)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string line = "A|B|C|" + std::string(1, static_cast<char>(byte)) + "\r\nD|E\r\n";
        EXPECT_EQ(roundTrip(line), line) << byte;
        EXPECT_EQ(std::ranges::count(decodeAnsi(line), L'|'), byte == '|' ? 5 : 4) << byte;
        EXPECT_TRUE(decodeAnsi(line).ends_with(L"\r\nD|E\r\n")) << byte;
    }
}

TEST_F(JapaneseText, EveryPairOfBytesKeepsItsText)
{
    for (int first = 0x80; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const std::string pair{static_cast<char>(first), static_cast<char>(second), '\n'};
            const std::wstring text = decodeAnsi(pair);
            // Some letters have two codes in the code page and come back with the first, but as the same
            // letter.
            ASSERT_EQ(decodeAnsi(encoded(text)), text) << std::hex << first << ' ' << second;
            const bool oneLetter = text.size() == 2;
            ASSERT_TRUE(oneLetter || encoded(text) == pair) << std::hex << first << ' ' << second;
        }
    }
}

TEST_F(JapaneseText, ALooseFirstByteDoesNotSwallowTheSeparatorBehindIt)
{
    // 0x85 and 0x7C together are not a letter.
    const std::string bytes = "loose\x85|http://a/|\x85\r\n";
    const std::wstring text = decodeAnsi(bytes);
    EXPECT_EQ(std::ranges::count(text, L'|'), 2);
    EXPECT_TRUE(text.starts_with(L"loose"));
    EXPECT_EQ(roundTrip(bytes), bytes);
}

TEST_F(JapaneseText, ALooseFirstByteMovedInFrontOfASeparatorLeavesItASeparator)
{
    const std::wstring date = decodeAnsi("\x83"); // cut off at the end of a record
    ASSERT_EQ(date.size(), 1U);
    const std::string record = encoded(date + L"|http://a/|" + date);
    EXPECT_EQ(std::ranges::count(decodeAnsi(record), L'|'), 2);
}

TEST_F(JapaneseText, ALooseFirstByteMovedToTheEndOfTheTextIsSafeForAnySeparatorWrittenBehindIt)
{
    std::string record = encoded(decodeAnsi("\x83"));
    record += '|';
    EXPECT_EQ(std::ranges::count(decodeAnsi(record), L'|'), 1);
}

TEST_F(JapaneseText, ALooseFirstByteMovedInFrontOfALetterInventsNoSeparator)
{
    // 0x83 and the first byte of the letter 0x8B 0x7C would form a letter, and leave a bar behind.
    const std::wstring letter = decodeAnsi("\x8B\x7C");
    ASSERT_EQ(letter.size(), 1U);
    const std::wstring text = decodeAnsi("\x83") + letter;
    EXPECT_EQ(std::ranges::count(decodeAnsi(encoded(text)), L'|'), 0);
    EXPECT_TRUE(decodeAnsi(encoded(text)).ends_with(letter));
}

TEST_F(JapaneseText, DamagedBytesAmongLettersSurviveARoundTrip)
{
    for (const std::string bytes : {"\x83\x7C\x85\x20\x83\x93", "\x83\x20\x83\x7C|\xFD\xFE\xFF\x80\xA0",
                                    "a\x83\r\nb\x97\n\x83\n", "\x81\x7F\x83\x7C", "\x85\x85\x85|"}) {
        EXPECT_EQ(roundTrip(bytes), bytes);
    }
}

TEST_F(JapaneseText, DamageInOneLineLeavesTheLinesAroundItAlone)
{
    const std::string good = "\x83\x7C\x83\x93|http://a/|\x95\x5C|2002/11/16\r\n";
    const std::wstring before = decodeAnsi(good);
    const std::wstring text = decodeAnsi(good + "x\x85\r\n" + good);
    EXPECT_TRUE(text.starts_with(before));
    EXPECT_TRUE(text.ends_with(before));
}

TEST_F(JapaneseText, AForeignLetterBecomesAQuestionMarkAndNeverALookAlike)
{
    EXPECT_EQ(encoded(L"\u00E9"), "?");
    EXPECT_EQ(encoded(L"\u0142"), "?");
    EXPECT_EQ(encoded(L"\u20AC|"), "?|");
    EXPECT_EQ(encoded(L"\u00A5"), "?");        // the yen sign is not a backslash
    EXPECT_EQ(encoded(L"\u00A6"), "?");        // the broken bar is not a bar
    EXPECT_EQ(encoded(L"\uFF5C"), "\x81\x62"); // the full-width bar has a code of its own here
}

TEST_F(JapaneseText, TextOfThisCodePageNeverGainsOrLosesASeparator)
{
    for (int unit = 0x80; unit <= 0xFFFF; ++unit) {
        if (unit >= 0xD800 && unit < 0xE000) continue;
        const std::wstring field{static_cast<wchar_t>(unit), L'|', L'x'};
        const std::wstring back = decodeAnsi(encoded(field));
        ASSERT_EQ(back.size(), 3U) << std::hex << unit;
        ASSERT_EQ(back.substr(1), L"|x") << std::hex << unit;
    }
}

TEST_F(JapaneseText, NulsAndTheEmptyTextSurvive)
{
    EXPECT_EQ(roundTrip(""), "");
    const std::string bytes("\x83\x7C\0|\0", 5);
    EXPECT_EQ(decodeAnsi(bytes), std::wstring(L"\u30DD\0|\0", 4));
    EXPECT_EQ(roundTrip(bytes), bytes);
    const std::string damaged("\x85\0|\x83\0", 5);
    EXPECT_EQ(roundTrip(damaged), damaged);
}

TEST_F(JapaneseText, SixteenMegabytesInOneLineSurvive)
{
    std::string bytes;
    while (bytes.size() < (16U << 20)) bytes += "\x83\x7C\x83\x93 http://a/";
    EXPECT_TRUE(roundTrip(bytes) == bytes);
}

TEST_F(JapaneseText, ADamagedMegabyteInOneLineSurvives)
{
    std::string bytes;
    while (bytes.size() < (1U << 20)) bytes += "\x83\x7C\x83\x93 http://a/";
    bytes[bytes.size() / 2] = '\x85';
    EXPECT_TRUE(roundTrip(bytes) == bytes);
}

} // namespace
} // namespace vandrel::test
