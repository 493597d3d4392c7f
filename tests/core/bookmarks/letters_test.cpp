#include "bookmarks/letters.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using State = Utf8Letter::State;

std::string utf8Of(char32_t letter)
{
    std::string bytes;
    appendUtf8(bytes, letter);
    return bytes;
}

TEST(PageLetters, OfUtf8AreReadAsTheyAreWritten)
{
    for (char32_t letter = 0; letter < 0x110000; letter += letter < 0x1000 ? 1 : 31) {
        if (letter >= 0xD800 && letter <= 0xDFFF) continue;
        const std::string bytes = utf8Of(letter);
        const Utf8Letter read = utf8LetterAt(bytes + "x");
        ASSERT_EQ(read.letter, letter);
        ASSERT_EQ(read.length, bytes.size());
        ASSERT_EQ(read.state, State::whole);
    }
    EXPECT_EQ(utf8Of(U'\u00E9'), "\xC3\xA9");
    EXPECT_EQ(utf8Of(U'\u20AC'), "\xE2\x82\xAC");
    EXPECT_EQ(utf8Of(U'\U0001F600'), "\xF0\x9F\x98\x80");
}

TEST(PageLetters, BytesThatSpellNoneAreTakenAsFarAsOneCouldHaveBegun)
{
    const struct {
        std::string_view bytes;
        std::size_t length;
        State state;
    } table[] = {
        {"\x80", 1, State::wrong},
        {"\xC0\x80", 1, State::wrong}, // a shorter spelling exists
        {"\xC1\xBF", 1, State::wrong},
        {"\xE0\x9F\xBF", 1, State::wrong},
        {"\xF0\x8F\xBF\xBF", 1, State::wrong},
        {"\xED\xA0\x80", 1, State::wrong}, // half a pair
        {"\xF4\x90\x80\x80", 1, State::wrong},
        {"\xF5\x80\x80\x80", 1, State::wrong},
        {"\xFF", 1, State::wrong},
        {"\xC3x", 1, State::wrong},
        {"\xE2\x82x", 2, State::wrong},
        {"\xF0\x9F\x98x", 3, State::wrong},
        {"\xC3", 1, State::cut},
        {"\xE2\x82", 2, State::cut},
        {"\xF0\x9F\x98", 3, State::cut},
    };
    for (const auto& entry : table) {
        const Utf8Letter read = utf8LetterAt(entry.bytes);
        EXPECT_EQ(read.letter, replacementLetter) << testing::PrintToString(entry.bytes);
        EXPECT_EQ(read.length, entry.length) << testing::PrintToString(entry.bytes);
        EXPECT_EQ(read.state, entry.state) << testing::PrintToString(entry.bytes);
    }
}

TEST(PageLetters, OfUtf16AreReadAsTheyAreWrittenAndHalvesOfPairsReplaced)
{
    for (const char32_t letter :
         {U'a', U'\u00E9', U'\uD7FF', U'\uE000', U'\uFFFF', U'\U00010000', U'\U0010FFFF'}) {
        std::wstring text;
        appendLetter(text, letter);
        EXPECT_EQ(text.size(), letter < 0x10000 ? 1U : 2U);
        std::wstring_view rest = text;
        EXPECT_EQ(takeLetter(rest), letter);
        EXPECT_TRUE(rest.empty());
    }
    const std::wstring halves{static_cast<wchar_t>(0xDE00), static_cast<wchar_t>(0xD83D), L'a',
                              static_cast<wchar_t>(0xD83D)};
    std::wstring_view rest = halves;
    EXPECT_EQ(takeLetter(rest), replacementLetter);
    EXPECT_EQ(takeLetter(rest), replacementLetter);
    EXPECT_EQ(takeLetter(rest), U'a');
    EXPECT_EQ(takeLetter(rest), replacementLetter);
    EXPECT_TRUE(rest.empty());
}

TEST(PageLetters, OfCodePage1252)
{
    EXPECT_EQ(windows1252Letter('a'), U'a');
    EXPECT_EQ(windows1252Letter(0x80), U'\u20AC');
    EXPECT_EQ(windows1252Letter(0x81), 0x81U);
    EXPECT_EQ(windows1252Letter(0x9F), U'\u0178');
    EXPECT_EQ(windows1252Letter(0xA0), 0xA0U);
    EXPECT_EQ(windows1252Letter(0xFF), U'\u00FF');
}

} // namespace
} // namespace vandrel::test
