#include "bookmarks/bookmark_reader.h"

#include "pages.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using namespace std::literals;

// ---- pages of today's browsers

TEST(BookmarkReader, ReadsWhatChromeWrites)
{
    EXPECT_EQ(outlineOf(pages::chrome),
              (Lines{L"Bar 1037404800 {", L"News & more|https://news.example/?a=1&b=2||1037404802",
                     L"Reading 1037404803 {", L"B\u00FCcher|https://books.example/||1037404804", L"}", L"}",
                     L"Loose|https://loose.example/||"}));
}

TEST(BookmarkReader, ReadsWhatFirefoxWrites)
{
    EXPECT_EQ(outlineOf(pages::firefox),
              (Lines{L"It's \"A\" <b>|https://a.example/|What it says of itself|1500000000",
                     L"Other 1500000002 {", L"Script|javascript:void('%22')||", L"}"}));
}

TEST(BookmarkReader, ReadsWhatEdgeWrites)
{
    EXPECT_EQ(outlineOf(pages::edge),
              (Lines{L"Favorites bar 1600000000 {", L"}", L"E|https://e.example/||1600000001"}));
}

TEST(BookmarkReader, ReadsWhatSafariWrites)
{
    EXPECT_EQ(outlineOf(pages::safari), (Lines{L"Favorites {", L"S|https://s.example/||", L"}",
                                               L"Reading List {", L"}", L"T|https://t.example/||"}));
}

// ---- what has gone around for twenty years

struct Soup {
    std::string_view page;
    Lines lines;
};

void expectOutlines(const std::vector<Soup>& table)
{
    for (const Soup& soup : table) EXPECT_EQ(outlineOf(soup.page), soup.lines) << soup.page;
}

TEST(BookmarkReader, TakesTagsInAnyLetterCase)
{
    expectOutlines({{"<dl><p><dt><h3 add_date=5>f</h3><dl><p><dt><a href=x add_date=7>n</a><dd>d</dl></dl>",
                     {L"f 5 {", L"n|x|d|7", L"}"}},
                    {"<Dl><dT><A hReF=x Add_Date=7>n</a></dL>", {L"n|x||7"}}});
}

TEST(BookmarkReader, TakesAttributesHoweverTheyAreQuoted)
{
    expectOutlines({{"<A HREF='x'>n</A>", {L"n|x||"}},
                    {"<A HREF=x>n</A>", {L"n|x||"}},
                    {"<A HREF=http://a/b/>n</A>", {L"n|http://a/b/||"}},
                    {"<A HREF = \"x\" ADD_DATE\n=\t'9'>n</A>", {L"n|x||9"}},
                    {"<A HREF='say \"x\"'>n</A>", {L"n|say \"x\"||"}},
                    {"<A HREF=\"it's > x\">n</A>", {L"n|it's > x||"}},
                    {"<A HREF=\"x\"ADD_DATE=\"9\">n</A>", {L"n|x||9"}},
                    {"<A TITLE HREF=x>n</A>", {L"n|x||"}},
                    {"<A =HREF=y HREF=x>n</A>", {L"n|x||"}},
                    {"<A HREF=x HREF=y>n</A>", {L"n|x||"}},
                    {"<A/HREF=x>n</A>", {L"n|x||"}},
                    {"<A DATA-HREF=y HREF=x>n</A>", {L"n|x||"}},
                    {"<A HREF=\"\">n</A>", {L"n|||"}},
                    {"<A HREF>n</A>", {}},
                    {"<A NAME=here>n</A>", {}}});
}

TEST(BookmarkReader, TakesLineEndsWithinTagsAndTexts)
{
    expectOutlines(
        {{"<DT\n><A\r\nHREF=\"x\"\rADD_DATE=\"7\"\n>a\r\n  name</A\n>", {L"a name|x||7"}},
         {"<A HREF=\"http://a/\r\n  b\tc\">n</A>", {L"n|http://a/  bc||"}},
         {"<A HREF=\"\n x \r\n\">n</A>", {L"n|x||"}},
         {"<DT><A HREF=x>n</A>\r<DD>one\rtwo\r<DT><A HREF=y>m</A>\r", {L"n|x|one two|", L"m|y||"}}});
}

TEST(BookmarkReader, ReadsEntriesThatAreNotClosed)
{
    expectOutlines({{"<DT><A HREF=x>n<DT><A HREF=y>m", {L"n|x||", L"m|y||"}},
                    {"<A HREF=x>n<A HREF=y>m", {L"n|x||", L"m|y||"}},
                    {"<DT><A HREF=x>n\n<DD>d\n<HR>text<DT><A HREF=y>m", {L"n|x|d|", L"m|y||"}},
                    {"<DT><H3>f<DL><DT><A HREF=x>n</DL>", {L"f {", L"n|x||", L"}"}},
                    {"<DT><H3>f</H3><DL><DT><A HREF=x>n</A><DD>d</DL><DT><A HREF=y>m",
                     {L"f {", L"n|x|d|", L"}", L"m|y||"}},
                    {"<DT><A HREF=x>n</A></DT><DD>d</DD>text<DT>", {L"n|x|d|"}}});
}

TEST(BookmarkReader, EndsFoldersThatDoNotEnd)
{
    expectOutlines(
        {{"<DL><DT><H3>f</H3><DL><DT><H3>g</H3><DL><A HREF=x>n", {L"f {", L"g {", L"n|x||", L"}", L"}"}},
         {"<DT><H3>f", {L"f {", L"}"}},
         {"<DT><H3>f</H3>", {L"f {", L"}"}},
         {"<DT><H3>f</H3><DT><A HREF=x>n</A>", {L"f {", L"}", L"n|x||"}},
         {"<DT><H3>f</H3><H3>g</H3><DL>", {L"f {", L"}", L"g {", L"}"}},
         {"<DL><DT><H3>f</H3></DL><A HREF=x>n</A>", {L"f {", L"}", L"n|x||"}}});
}

TEST(BookmarkReader, BearsListsThatEndTooOften)
{
    expectOutlines({{"</DL></DL><DT><H3>f</H3></DL><DL></DL></DL><A HREF=x>n", {L"f {", L"}", L"n|x||"}},
                    {"<DL><DL><H3>f</H3><DL></DL></DL><A HREF=x>n</A></DL>", {L"f {", L"}", L"n|x||"}}});
}

TEST(BookmarkReader, TakesAFolderWithADescription)
{
    expectOutlines({{"<DT><H3>f</H3><DD>about\n<DL><A HREF=x>n</A></DL>", {L"f {", L"n|x||", L"}"}}});
}

TEST(BookmarkReader, LeavesOutCommentsAndDeclarations)
{
    expectOutlines({{"<!-- <A HREF=y>m</A> --><A HREF=x>n<!-- > -->m</A>", {L"nm|x||"}},
                    {"<!--><A HREF=x>n</A>", {L"n|x||"}},
                    {"<!---><A HREF=x>n</A>-->", {L"n|x||"}},
                    {"<!-- never ends ><A HREF=x>n</A>", {L"n|x||"}},
                    {"<?xml version=\"1.0\"?><!DOCTYPE html \"[<>\"<A HREF=x>n</A>", {L"n|x||"}},
                    {"<A HREF=x>n</A><!-- never ends", {L"n|x||"}}});
}

TEST(BookmarkReader, LeavesOutTagsWithinNames)
{
    expectOutlines({{"<A HREF=x><b>bold</b> <FONT COLOR=red>red</FONT></A>", {L"bold red|x||"}},
                    {"<A HREF=x>one<br>two<P>three</A>", {L"one two three|x||"}},
                    {"<A HREF=x><img src=i alt=\"<\">n</A>", {L"n|x||"}}});
}

TEST(BookmarkReader, TakesAngleBracketsThatBeginNoTagForText)
{
    expectOutlines({{"<A HREF=x>a < b</A>", {L"a < b|x||"}},
                    {"<A HREF=x>I <3 you</A>", {L"I <3 you|x||"}},
                    {"<A HREF=x><<>></A>", {L"<<>>|x||"}},
                    {"<A HREF=x>a </ b</A>", {L"a </ b|x||"}},
                    {"<A HREF=x>n<", {L"n<|x||"}},
                    {"<A HREF=x>n</", {L"n</|x||"}}});
}

TEST(BookmarkReader, FindsTheNextEntryAfterAQuotationMarkThatIsMissing)
{
    expectOutlines({{"<DT><A HREF=\"x>n</A>\n<DT><A HREF=\"y\">m</A>\n", {L"n|x||", L"m|y||"}},
                    {"<DT><A HREF=\"x>n</A>\r\n\t</DL>\n<DT><A HREF=\"y\">m</A>\n", {L"n|x||", L"m|y||"}},
                    {"<DT><A HREF='x>n</A>\n<DT><A HREF=\"y\">m</A>\n", {L"n|x||", L"m|y||"}},
                    {"<DT><A HREF=x ICON='>n</A>", {L"n|x||"}},
                    {"<A HREF=\"javascript:w('<DT>\n</b>')\">n</A>", {L"n|javascript:w('<DT></b>')||"}}});
}

TEST(BookmarkReader, FindsTheNextEntryAfterATagThatDoesNotEnd)
{
    expectOutlines({{"<DT <A HREF=x\n<DT><A HREF=y>m", {L"|x||", L"m|y||"}}});
}

TEST(BookmarkReader, LeavesOutATagThatTheEndCuts)
{
    expectOutlines({{"<A HREF=x>n</A><DT><A HREF=\"http://cut", {L"n|x||"}},
                    {"<A HREF=x>n</A><DT><A HREF=\"y\" ICON=\"data:", {L"n|x||"}},
                    {"<A HREF=x>n</A", {L"n|x||"}},
                    {"<A HREF=", {}},
                    {"<A HREF", {}},
                    {"<", {}},
                    {"", {}}});
}

// Each folder ends, whatever is missing.
TEST(BookmarkReader, ReadsAPageThatEndsAnywhere)
{
    for (const std::string_view page : pages::all) {
        const Lines whole = outlineOf(page);
        for (std::size_t length = 0; length <= page.size(); ++length) {
            Outline outline;
            readBookmarks(page.substr(0, length), outline);
            EXPECT_EQ(outline.depth, 0) << length;
            EXPECT_LE(outline.lines.size(), whole.size()) << length;
        }
    }
}

TEST(BookmarkReader, LeavesOutNul)
{
    expectOutlines({{"<A HREF=\"a\0b\" ADD_DATE=7>n\0m</A>"sv, {L"nm|ab||7"}}, {"\0<\0A\0"sv, {}}});
}

TEST(BookmarkReader, TakesReferencesInNamesAddressesAndDescriptions)
{
    expectOutlines({{"<A HREF=\"?a&amp;b&#x3D;&quot;\">&lt;/A&gt; &eacute;&#233</A><DD>&amp;amp;",
                     {L"</A> \u00E9\u00E9|?a&b=\"|&amp;|"}},
                    {"<H3>R&amp;D</H3>", {L"R&D {", L"}"}}});
}

// Blanks by number are the writer's will; others are those of the page's layout.
TEST(BookmarkReader, DropsBlanksOfTheLayoutAlone)
{
    expectOutlines({{"<A HREF=x> \t one \n two </A>", {L"one two|x||"}},
                    {"<A HREF=x>&#32;one &#32;two&#10;</A>", {L" one  two\n|x||"}},
                    {"<A HREF=x>one\xC2\xA0 \xC2\xA0two</A>", {L"one\u00A0 \u00A0two|x||"}}});
}

TEST(BookmarkReader, TellsFoldersOnlyToAFixedDepth)
{
    std::string page;
    for (std::size_t depth = 0; depth < 10'000; ++depth) page += "<DT><H3>f</H3><DL>";
    page += "<A HREF=x>n</A>";
    for (std::size_t depth = 0; depth < 10'000; ++depth) page += "</DL>";
    page += "<A HREF=y>m</A>";
    const Lines lines = outlineOf(page);
    ASSERT_EQ(lines.size(), 2 * deepestList + 2);
    EXPECT_EQ(lines[deepestList - 1], L"f {");
    EXPECT_EQ(lines[deepestList], L"n|x||");
    EXPECT_EQ(lines[2 * deepestList], L"}");
    EXPECT_EQ(lines.back(), L"m|y||");
}

TEST(BookmarkReader, ReadsTextsInTheEncodingOfThePage)
{
    expectOutlines({{"<META CHARSET=windows-1252><H3>\x80\xE9</H3><DL><A HREF=\"\xE9\">\x93n\x94</A><DD>\xA9",
                     {L"\u20AC\u00E9 {", L"\u201Cn\u201D|\u00E9|\u00A9|", L"}"}},
                    {"\xFF\xFE<\0A\0 \0H\0R\0E\0F\0=\0x\0>\0\xE9\0\x3D\xD8\x00\xDE"sv,
                     {std::wstring(L"\u00E9") + static_cast<wchar_t>(0xD83D) + static_cast<wchar_t>(0xDE00) +
                      L"|x||"}}});
}

} // namespace
} // namespace vandrel::test
