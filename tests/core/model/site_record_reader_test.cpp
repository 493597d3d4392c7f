#include "model/site_record.h"
#include "print.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace vandrel {
namespace {

using namespace std::literals;

using Sites = std::vector<SiteRecord>;

constexpr std::size_t large = 16U << 20;

Sites sitesOf(std::wstring_view text)
{
    Sites sites;
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) sites.push_back(*site);
    return sites;
}

// What the reader promises, in the slowest and plainest code possible.
Sites plainlyRead(std::wstring_view text)
{
    Sites sites;
    const auto readLine = [&](std::wstring_view line) {
        if (const auto site = siteOfLine(line)) sites.push_back(*site);
    };
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L"\r\n"), text.size());
        std::wstring_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 2, text.size()));
        if (line.starts_with(L';') || std::ranges::count(line, L'|') > 3) {
            while (line.find_first_of(L"\r\n") != line.npos) {
                readLine(line.substr(0, line.find_first_of(L"\r\n")));
                line.remove_prefix(line.find_first_of(L"\r\n") + 1);
            }
        }
        readLine(line);
    }
    return sites;
}

TEST(SiteRecordReader, AnEmptyTextHoldsNoSite)
{
    SiteRecordReader reader(L"");
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(SiteRecordReader, ReadsTheSitesInTheOrderOfTheirLines)
{
    EXPECT_EQ(sitesOf(L"C|1|x|d\r\nA|2|y|e\r\nB|3|z|f\r\n"),
              (Sites{{L"C", L"1", L"x", L"d"}, {L"A", L"2", L"y", L"e"}, {L"B", L"3", L"z", L"f"}}));
}

TEST(SiteRecordReader, SkipsCommentsAndPlainText)
{
    EXPECT_EQ(sitesOf(L";note\r\nplain text\r\nA|B\r\n"), (Sites{{L"A", L"B", L"", L""}}));
}

TEST(SiteRecordReader, SkipsEmptyLines)
{
    EXPECT_TRUE(sitesOf(L"\r\n").empty());
    EXPECT_TRUE(sitesOf(L"\r\n\r\n\r\n").empty());
    EXPECT_EQ(sitesOf(L"\r\nA|B\r\n\r\nC|D\r\n\r\n"),
              (Sites{{L"A", L"B", L"", L""}, {L"C", L"D", L"", L""}}));
}

TEST(SiteRecordReader, TheLastLineNeedsNoEnd)
{
    EXPECT_EQ(sitesOf(L"A|B"), (Sites{{L"A", L"B", L"", L""}}));
    EXPECT_EQ(sitesOf(L"A|B\r\nC|D|E|F"), (Sites{{L"A", L"B", L"", L""}, {L"C", L"D", L"E", L"F"}}));
    EXPECT_EQ(sitesOf(L"A|B\r\nC|"), (Sites{{L"A", L"B", L"", L""}, {L"C", L"", L"", L""}}));
    EXPECT_EQ(sitesOf(L"A|B\r\n;note"), (Sites{{L"A", L"B", L"", L""}}));
}

TEST(SiteRecordReader, AfterTheLastSiteThereAreNoMore)
{
    SiteRecordReader reader(L"A|B\r\nrest");
    EXPECT_NE(reader.next(), std::nullopt);
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(SiteRecordReader, PiecesOfOneLineNeverReachTheNext)
{
    EXPECT_EQ(sitesOf(L"A|B\r\nC|D|E|F|G|H\r\n|\r\nI|J\r\n"),
              (Sites{{L"A", L"B", L"", L""}, {L"C", L"D", L"E", L"F"}, {}, {L"I", L"J", L"", L""}}));
}

TEST(SiteRecordReader, ALoneLineFeedIsPartOfItsField)
{
    EXPECT_EQ(sitesOf(L"A|B|two\nlines|D\r\nE|F\r\n"),
              (Sites{{L"A", L"B", L"two\nlines", L"D"}, {L"E", L"F", L"", L""}}));
    EXPECT_EQ(sitesOf(L"A|B\nC|D\r\n"), (Sites{{L"A", L"B\nC", L"D", L""}}));
    EXPECT_EQ(sitesOf(L"\n|\n"), (Sites{{L"\n", L"\n", L"", L""}}));
}

TEST(SiteRecordReader, ALoneCarriageReturnIsPartOfItsField)
{
    EXPECT_EQ(sitesOf(L"A|B|two\rlines|D\r\n"), (Sites{{L"A", L"B", L"two\rlines", L"D"}}));
    EXPECT_EQ(sitesOf(L"A|B\r\r\nC|D\r\n"), (Sites{{L"A", L"B\r", L"", L""}, {L"C", L"D", L"", L""}}));
    EXPECT_EQ(sitesOf(L"A|B\r"), (Sites{{L"A", L"B\r", L"", L""}}));
    EXPECT_EQ(sitesOf(L"A|B\n\rC"), (Sites{{L"A", L"B\n\rC", L"", L""}}));
}

TEST(SiteRecordReader, NothingBeyondTheTextIsRead)
{
    const std::wstring_view text = L"A|B\r\nC|D";
    EXPECT_EQ(sitesOf(text.substr(0, 4)), (Sites{{L"A", L"B\r", L"", L""}}));
    EXPECT_EQ(sitesOf(text.substr(0, 7)), (Sites{{L"A", L"B", L"", L""}, {L"C", L"", L"", L""}}));
}

TEST(SiteRecordReader, MoreThanFourPiecesMakeLoneLineEndsOfAnotherEditorLineEnds)
{
    const Sites expected{{L"A", L"B", L"C", L"D"}, {L"E", L"F", L"G", L"H"}};
    EXPECT_EQ(sitesOf(L"A|B|C|D\nE|F|G|H\n"), expected);
    EXPECT_EQ(sitesOf(L"A|B|C|D\rE|F|G|H\r"), expected);
    EXPECT_EQ(sitesOf(L"A|B|C|D\n\n\rE|F|G|H"), expected);
}

TEST(SiteRecordReader, FourPiecesAreNotYetTooMany)
{
    EXPECT_EQ(sitesOf(L"A|B\nC|D|E\r\n"), (Sites{{L"A", L"B\nC", L"D", L"E"}}));
    EXPECT_EQ(sitesOf(L"A|B\nC|D|E|\r\n"), (Sites{{L"A", L"B", L"", L""}, {L"C", L"D", L"E", L""}}));
}

TEST(SiteRecordReader, ACommentEndsAtALoneLineEnd)
{
    EXPECT_EQ(sitesOf(L";note\nA|B\n"), (Sites{{L"A", L"B", L"", L""}}));
    EXPECT_EQ(sitesOf(L";note\rA|B\r\nC|D\r\n"), (Sites{{L"A", L"B", L"", L""}, {L"C", L"D", L"", L""}}));
    EXPECT_EQ(sitesOf(L";a|b\n;c|d\nplain\nA|B|C|D|E"), (Sites{{L"A", L"B", L"C", L"D"}}));
}

TEST(SiteRecordReader, AfterALineOfAnotherEditorTheNextLinesAreReadAsUsual)
{
    EXPECT_EQ(sitesOf(L"A|B|C\nD|E|F\r\nG|H\nI\r\nJ|K\r\n"), (Sites{{L"A", L"B", L"C", L""},
                                                                    {L"D", L"E", L"F", L""},
                                                                    {L"G", L"H\nI", L"", L""},
                                                                    {L"J", L"K", L"", L""}}));
}

TEST(SiteRecordReader, ACommentOrPlainTextAmongLoneLineEndsIsSkipped)
{
    EXPECT_EQ(sitesOf(L"A|B|C|D\n;e|f|g|h\nplain\nI|J|K|L|M\n"),
              (Sites{{L"A", L"B", L"C", L"D"}, {L"I", L"J", L"K", L"L"}}));
}

TEST(SiteRecordReader, ANulIsACharacterLikeAnyOther)
{
    EXPECT_EQ(sitesOf(L"\0A|B\0|\0\r\nC|D\r\n"sv),
              (Sites{{L"\0A"sv, L"B\0"sv, L"\0"sv, L""}, {L"C", L"D", L"", L""}}));
    EXPECT_TRUE(sitesOf(L"\0\0\0"sv).empty());
    EXPECT_EQ(sitesOf(L"\0;|B"sv), (Sites{{L"\0;"sv, L"B", L"", L""}}));
}

TEST(SiteRecordReader, TheOldEndOfFileCharacterEndsNothing)
{
    // 0x1A in octal: a hexadecimal escape would take the letter C with it.
    EXPECT_EQ(sitesOf(L"A|B\32\r\n\32C|D\r\n\32"),
              (Sites{{L"A", L"B\32", L"", L""}, {L"\32C", L"D", L"", L""}}));
}

TEST(SiteRecordReader, AByteOrderMarkIsTextOfTheFirstLine)
{
    EXPECT_EQ(sitesOf(L"\u00EF\u00BB\u00BFA|B\r\nC|D\r\n"),
              (Sites{{L"\u00EF\u00BB\u00BFA", L"B", L"", L""}, {L"C", L"D", L"", L""}}));
    EXPECT_EQ(sitesOf(L"\u00EF\u00BB\u00BF;a|b\r\n"), (Sites{{L"\u00EF\u00BB\u00BF;a", L"b", L"", L""}}));
    EXPECT_TRUE(sitesOf(L"\u00EF\u00BB\u00BF;note\r\n").empty());
}

TEST(SiteRecordReader, OneLineMayHoldSixteenMillionCharacters)
{
    const std::wstring longText(large, L'x');
    EXPECT_TRUE(sitesOf(longText).empty());
    const std::wstring text = L"A|" + longText + L"|C\r\nD|E";
    const Sites sites = sitesOf(text);
    ASSERT_EQ(sites.size(), 2U);
    EXPECT_EQ(sites[0].url.size(), large);
    EXPECT_EQ(sites[0].description, L"C");
    EXPECT_EQ(sites[1], (SiteRecord{L"D", L"E", L"", L""}));
}

TEST(SiteRecordReader, OneLineMayHoldSixteenMillionSeparators)
{
    const std::wstring text = L"A|B|C|D" + std::wstring(large, L'|') + L"\r\nE|F";
    EXPECT_EQ(sitesOf(text), (Sites{{L"A", L"B", L"C", L"D"}, {L"E", L"F", L"", L""}}));
}

TEST(SiteRecordReader, OneLineMayHoldManyLinesOfAnotherEditor)
{
    std::wstring text = L";note\n";
    const std::size_t lines = large / 16;
    for (std::size_t i = 0; i < lines; ++i) text += L"name|url|text|d\n";
    const Sites sites = sitesOf(text);
    ASSERT_EQ(sites.size(), lines);
    EXPECT_EQ(sites.front(), (SiteRecord{L"name", L"url", L"text", L"d"}));
    EXPECT_EQ(sites.back(), sites.front());
}

TEST(SiteRecordReader, ReadsAnyTextAsPromised)
{
    std::mt19937 random(1);
    constexpr auto letters = L"a|;\r\n\0\x1A"sv;
    for (int round = 0; round < 30'000; ++round) {
        std::wstring text(random() % 40, L'\0');
        for (wchar_t& letter : text) letter = letters[random() % letters.size()];
        for (std::size_t at = 0; at < text.size(); at += 1 + random() % 15) text.insert(at, L"\r\n");
        ASSERT_EQ(sitesOf(text), plainlyRead(text)) << testing::PrintToString(text);
    }
}

} // namespace
} // namespace vandrel
