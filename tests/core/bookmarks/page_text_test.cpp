#include "bookmarks/page_text.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using namespace std::literals;

std::u32string lettersOf(std::string_view page)
{
    const PageText text(page);
    std::u32string letters;
    for (std::string_view rest = text.bytes(); !rest.empty();) letters += text.takeLetter(rest);
    return letters;
}

PageEncoding encodingOf(const std::string& page) { return PageText(page).encoding(); }

TEST(PageText, IsUtf8UnlessThePageSaysOtherwise)
{
    EXPECT_EQ(lettersOf(""), U"");
    EXPECT_EQ(lettersOf("abc"), U"abc");
    EXPECT_EQ(lettersOf("\xC3\xA9\xE2\x82\xAC"), U"\u00E9\u20AC");
    EXPECT_EQ(encodingOf("<META CHARSET=shift_jis>"), PageEncoding::utf8);
}

TEST(PageText, LeavesOutTheByteOrderMarkAndBelievesIt)
{
    EXPECT_EQ(lettersOf("\xEF\xBB\xBF\xC3\xA9"), U"\u00E9");
    EXPECT_EQ(lettersOf("\xEF\xBB\xBF\xE9\xE8"), U"\uFFFD\uFFFD");
    EXPECT_EQ(encodingOf("\xEF\xBB\xBF<META CHARSET=windows-1252>"), PageEncoding::utf8);
}

TEST(PageText, IsUtf16ByItsByteOrderMark)
{
    EXPECT_EQ(lettersOf("\xFF\xFE"sv), U"");
    EXPECT_EQ(lettersOf("\xFF\xFE"
                        "a\0\xAC\x20\x3D\xD8\x00\xDE"sv),
              U"a\u20AC\U0001F600");
    EXPECT_EQ(lettersOf("\xFE\xFF\0a\x20\xAC\xD8\x3D\xDE\x00"sv), U"a\u20AC\U0001F600");
}

TEST(PageText, OfUtf16BearsHalvesOfPairsAndAnOddByte)
{
    EXPECT_EQ(lettersOf("\xFF\xFE\x3D\xD8"
                        "a\0\x00\xDE"
                        "b\0"sv),
              U"\uFFFDa\uFFFDb");
    EXPECT_EQ(lettersOf("\xFF\xFE\x3D\xD8\x3D\xD8\x00\xDE"sv), U"\uFFFD\U0001F600");
    EXPECT_EQ(lettersOf("\xFF\xFE"
                        "a\0\x3D\xD8"sv),
              U"a\uFFFD");
    EXPECT_EQ(lettersOf("\xFF\xFE"
                        "a\0b"sv),
              U"a");
}

TEST(PageText, IsCodePage1252WhenAMetaSaysSo)
{
    for (const std::string meta :
         {"<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">",
          "<meta http-equiv=Content-Type content='text/html;charset=ISO-8859-1'>",
          "<meta charset=\"Latin1\">", "<META CONTENT=\"text/html; charset = 'CP1252'; x\">",
          "<TITLE>t</TITLE><meta\ncharset=' windows-1252 '>"}) {
        EXPECT_EQ(encodingOf(meta + "\xC3\xA9"), PageEncoding::windows1252) << meta;
    }
    for (const std::string meta :
         {"<META CONTENT=\"text/html; charset=utf-8\">", "<meta charset=\"windows-1251\">",
          "charset=windows-1252", "<!-- <meta charset=windows-1252> -->",
          "<META NAME=charset CONTENT=windows-1252>", "<p charset=windows-1252>",
          "<META CONTENT=\"charset=\">", "<META CONTENT=\"charset\">"}) {
        EXPECT_EQ(encodingOf(meta + "\xC3\xA9"), PageEncoding::utf8) << meta;
    }
}

TEST(PageText, OfUtf8BearsAFewWrongBytes)
{
    EXPECT_EQ(lettersOf("\xC3\xA9\xFF"), U"\u00E9\uFFFD");
    EXPECT_EQ(lettersOf("abc\xC3"), U"abc\uFFFD"); // cut
}

// Whatever it says that it is.
TEST(PageText, IsCodePage1252WhenMostIsWrongInUtf8)
{
    EXPECT_EQ(lettersOf("caf\xE9."), U"caf\u00E9.");
    EXPECT_EQ(lettersOf("\x93"
                        "caf\xE9\x94"),
              U"\u201Ccaf\u00E9\u201D");
    EXPECT_EQ(encodingOf("<META CHARSET=utf-8>12345678901234567890\xE9 t"), PageEncoding::windows1252);
}

} // namespace
} // namespace vandrel::test
