#include "exchange_tool/category_check.h"

#include "model/site_record.h"
#include "tests/support/hostile_text.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using Lines = std::vector<std::wstring>;

Lines findingsIn(std::wstring_view text)
{
    CategoryCheck check;
    check.addCategory(L"A.udb", text);
    const Lines findings = check.takeFindings();
    EXPECT_EQ(check.findings(), findings.size());
    return findings;
}

TEST(CategoryCheck, FindsNothingInWhatVandrelWrites)
{
    EXPECT_EQ(findingsIn(L"n|http://a.example/|d|11/16/2002\r\nm|http://b.example/||\r\n"), Lines{});
    EXPECT_EQ(findingsIn(L""), Lines{});
    EXPECT_EQ(findingsIn(L"a name\nin two lines|u|d|\r\n"), Lines{});
}

TEST(CategoryCheck, FindsRecordsOfFewerOrMoreThanFourPieces)
{
    EXPECT_EQ(findingsIn(L"a|1|d|x\r\nb|2|d\r\nc\r\nd|3|e|f|g\r\n"),
              (Lines{L"A.udb:2: 3 pieces instead of 4", L"A.udb:3: 1 piece instead of 4, so this is no site",
                     L"A.udb:4: 5 pieces instead of 4; those after the fourth are not read"}));
}

TEST(CategoryCheck, FindsRemarksAndEmptyLines)
{
    EXPECT_EQ(findingsIn(L";a|b|c|d\r\n\r\na|1|d|\r\n"),
              (Lines{L"A.udb:1: a remark, which is gone after the next save", L"A.udb:2: an empty line"}));
}

TEST(CategoryCheck, CountsLinesAsTextEditorsDo)
{
    EXPECT_EQ(findingsIn(L"a\nb|1|d|\r\nc|2\r\n"), (Lines{L"A.udb:3: 2 pieces instead of 4"}));
    EXPECT_EQ(findingsIn(L"a|1|d|\nb|2|d|\rc|3\r\nd|4\r\n"),
              (Lines{L"A.udb:3: 2 pieces instead of 4", L"A.udb:4: 2 pieces instead of 4"}));
}

TEST(CategoryCheck, FindsAddressesThatStandTwiceInWhicheverCategories)
{
    CategoryCheck check;
    check.addCategory(L"A.udb", L"n|http://one.example/||\r\nm|http://two.example/||\r\no||||\r\n");
    check.takeFindings();
    check.addCategory(L"B.udb", L"x|http://three.example/||\r\ny|http://two.example/||\r\nz|||\r\n"
                                L"v|http://two.example/||\r\nw|HTTP://ONE.EXAMPLE/||\r\n");
    EXPECT_EQ(check.takeFindings(),
              (Lines{L"B.udb:2: the address is that of A.udb:2, too: http://two.example/",
                     L"B.udb:4: the address is that of A.udb:2, too: http://two.example/"}));
    EXPECT_EQ(check.categories(), 2U);
    EXPECT_EQ(check.sites(), 8U);
}

TEST(CategoryCheck, FindsTextsThatSeemToLackLetters)
{
    EXPECT_EQ(findingsIn(L"B?cher|http://a.example/?a??b|??? ???|\r\n"),
              (Lines{L"A.udb:1: letters seem to be lost in the name: B?cher",
                     L"A.udb:1: letters seem to be lost in the description: ??? ???"}));
}

TEST(CategoryCheck, TellsLostLettersFromQuestions)
{
    for (const wchar_t* const text : {L"??? Books", L"Caf??s", L"na?ve", L"??", L"a ??", L"\u00FC?\u00E4"})
        EXPECT_TRUE(seemsToLackLetters(text)) << testing::PrintToString(std::wstring(text));
    for (const wchar_t* const text :
         {L"What?", L"What??", L"\u201CWhat?\u201D", L"Why? Because", L"", L"? and !", L"5?6", L"Who?)"}) {
        EXPECT_FALSE(seemsToLackLetters(text)) << testing::PrintToString(std::wstring(text));
    }
}

TEST(CategoryCheck, CountsAsManySitesAsTheReaderReads)
{
    HostileText hostile;
    for (int round = 0; round < 2000; ++round) {
        std::wstring text;
        for (std::size_t length = hostile.below(40); length > 0; --length)
            text += hostile.oneIn(8) ? L"\r\n" : std::wstring(1, hostile.oneOf(L"ab?;||||\r\n"));
        std::size_t read = 0;
        SiteRecordReader reader(text);
        while (reader.next()) ++read;
        CategoryCheck check;
        check.addCategory(L"A.udb", text);
        ASSERT_EQ(check.sites(), read) << testing::PrintToString(text) << ", seed " << hostile.usedSeed();
    }
}

} // namespace
} // namespace vandrel::test
