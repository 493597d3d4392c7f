#include "tests/window/platform/text/ansi_round_trip.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

class WesternText : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
    }
};

TEST_F(WesternText, EveryByteSurvivesARoundTrip)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
    EXPECT_EQ(decodeAnsi(all).size(), 256U);
    EXPECT_EQ(roundTrip(all), all);
    std::ranges::reverse(all);
    EXPECT_EQ(roundTrip(all), all);
}

TEST_F(WesternText, EveryByteSurvivesInFrontOfASeparator)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string field = std::string(1, static_cast<char>(byte)) + "|x";
        EXPECT_EQ(roundTrip(field), field) << byte;
        EXPECT_EQ(decodeAnsi(field).substr(1), L"|x") << byte;
    }
}

TEST_F(WesternText, LettersAreThoseOfTheCodePage)
{
    EXPECT_EQ(decodeAnsi("\x80 caf\xE9 \x93quoted\x94 \xFF"), L"\u20AC caf\u00E9 \u201Cquoted\u201D \u00FF");
    EXPECT_EQ(encoded(L"\u20AC caf\u00E9 \u201Cquoted\u201D \u00FF"), "\x80 caf\xE9 \x93quoted\x94 \xFF");
}

TEST_F(WesternText, AForeignLetterBecomesAQuestionMarkAndNeverALookAlike)
{
    const std::pair<const wchar_t*, const char*> letters[] = {
        {L"a\uFF5Cb", "a?b"},                      // the full-width bar is not a bar
        {L"a\uFF3Cb", "a?b"},                      // nor the full-width backslash
        {L"a\u2223b", "a?b"},                      // nor the divides sign
        {L"\u0142\u0141", "??"},                   // l with a stroke is not l
        {L"\u2153", "?"},                          // one third is not 1
        {L"\u2215", "?"},                          // the division slash is not a slash
        {L"\uFF0F", "?"},        {L"\u037E", "?"}, // the Greek question mark is not a semicolon
        {L"\u0100", "?"},        {L"\u2028", "?"}, // a line separator is not a line end
        {L"\u3042\u3044", "??"},
    };
    for (const auto& [text, bytes] : letters) EXPECT_EQ(encoded(text), bytes);
}

TEST_F(WesternText, NoLetterOutsideAsciiEverBecomesOneInsideItButTheQuestionMark)
{
    for (wchar_t unit = 0x80; unit < 0xD800; ++unit) {
        for (const char byte : encoded(std::wstring(1, unit))) {
            const auto value = static_cast<unsigned char>(byte);
            ASSERT_TRUE(value >= 0x80 || byte == '?') << std::hex << static_cast<int>(unit);
        }
    }
    for (int unit = 0xE000; unit <= 0xFFFF; ++unit) {
        for (const char byte : encoded(std::wstring(1, static_cast<wchar_t>(unit)))) {
            const auto value = static_cast<unsigned char>(byte);
            ASSERT_TRUE(value >= 0x80 || byte == '?') << std::hex << unit;
        }
    }
}

TEST_F(WesternText, ALetterOutsideTheBasicPlaneBecomesQuestionMarksOnly)
{
    const std::string bytes = encoded(L"a\U0001F600b\U0001FC80|");
    EXPECT_EQ(bytes.front(), 'a');
    EXPECT_EQ(bytes.back(), '|');
    EXPECT_EQ(std::ranges::count(bytes, 'b'), 1);
    for (const char byte : bytes) EXPECT_NE(std::string("ab|?").find(byte), std::string::npos);
}

TEST_F(WesternText, HalfAPairBecomesAQuestionMark)
{
    EXPECT_EQ(encoded(L"a\xD83D|"), "a?|");
    EXPECT_EQ(encoded(L"a\xDE00|"), "a?|");
    EXPECT_EQ(encoded(L"a\xDC00|"), "a?|");
}

TEST_F(WesternText, ForeignLettersAndKnownOnesMayTakeTurns)
{
    EXPECT_EQ(encoded(L"x\u00E9\u0142\u00E9y\u0142|\u20AC"), "x\xE9?\xE9y?|\x80");
}

TEST_F(WesternText, EncodingAddsToWhatIsThere)
{
    std::string bytes = "kept";
    encodeAnsi(L"\u00E9+", bytes);
    EXPECT_EQ(bytes, "kept\xE9+");
}

TEST_F(WesternText, TheEmptyTextHasNoBytes)
{
    EXPECT_EQ(decodeAnsi(""), L"");
    EXPECT_EQ(encoded(L""), "");
}

TEST_F(WesternText, NulsAndControlBytesSurvive)
{
    const std::string bytes("a\0b\0\0\x1A\r\n\t|c\x7F", 12);
    EXPECT_EQ(decodeAnsi(bytes).size(), 12U);
    EXPECT_EQ(roundTrip(bytes), bytes);
}

TEST_F(WesternText, AByteOrderMarkIsThreeLettersLikeAnyOther)
{
    EXPECT_EQ(decodeAnsi("\xEF\xBB\xBF|"), L"\u00EF\u00BB\u00BF|");
    EXPECT_EQ(roundTrip("\xEF\xBB\xBF|"), "\xEF\xBB\xBF|");
    EXPECT_EQ(roundTrip("\xFF\xFE|"), "\xFF\xFE|");
}

TEST_F(WesternText, SixteenMegabytesInOneLineSurvive)
{
    std::string bytes(16U << 20, 'x');
    for (std::size_t i = 0; i < bytes.size(); i += 97) bytes[i] = static_cast<char>(0x80 + i % 128);
    const std::wstring text = decodeAnsi(bytes);
    EXPECT_EQ(text.size(), bytes.size());
    EXPECT_TRUE(encoded(text) == bytes);
}

} // namespace
} // namespace vandrel::test
