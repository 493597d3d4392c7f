#include "tests/program/files/there_and_back.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace vandrel::test {
namespace {

// Under a Japanese locale, whose code page is 932: the second byte of a letter can be that of "|" or "\".
class JapaneseExchange : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "this is not code page 932";
    }
    static constexpr DateOrder order{DatePart::year, DatePart::month, DatePart::day};
    static void expectAllKept(const ThereAndBack& way)
    {
        EXPECT_EQ(way.written.status, 0U) << way.written.output;
        EXPECT_EQ(way.read.status, 0U) << way.read.output;
    }
};

TEST_F(JapaneseExchange, BringsLettersBackWhoseSecondByteMeansSomethingElse)
{
    const TempFolder folder(L"categories");
    // Katakana SO, PO and a kanji: 83 5C, 83 7C, 95 5C; half-width katakana: one byte each.
    folder.write(L"\u30BD\u30DD.udb", "\x83\x5C\x83\x7C|http://a.example/\x95\x5C|\x83\x7C|2002/11/16\r\n"
                                      "\xB1\xB2\\n|http://b.example/?a=1&b=2|<\x83\x5C>|\r\n");
    const ThereAndBack way = takeThereAndBack(folder.path(), order);
    expectAllKept(way);
    EXPECT_EQ(way.sites, 2U);
}

TEST_F(JapaneseExchange, SaysWhichLettersAreLost)
{
    const TempFolder folder(L"categories");
    folder.write(L"page.html", "<H3>\xE3\x82\xBD</H3><DL><A HREF=x>Caf\xC3\xA9 \xE3\x83\x9D</A></DL>");
    const ProgramRun run = runImport(folder.file(L"page.html"), folder);
    EXPECT_EQ(run.status, 1U) << run.errors;
    EXPECT_NE(run.output.find("Caf\xC3\xA9 \xE3\x83\x9D"), std::string::npos) << run.output;
    EXPECT_EQ(folder.read(L"\u30BD.udb"), "Caf? \x83\x7C|x||\r\n");
}

TEST_F(JapaneseExchange, ChecksRecordsAndNotTheSecondBytesOfLetters)
{
    const TempFolder folder(L"categories");
    folder.write(L"\u30DD.udb", "\x83\x7C|u|d|\r\n\x83\x7C|v\r\n");
    const ProgramRun run = runExchange(L"check" + inFolder(folder));
    EXPECT_EQ(run.status, 1U) << run.errors;
    EXPECT_EQ(run.output, "\xE3\x83\x9D.udb:2: 2 pieces instead of 4\r\n1 category, 2 sites: 1 finding\r\n");
}

TEST_F(JapaneseExchange, BringsRealCategoriesBackAsTheyWere)
{
    const auto source = sharedFolder(L"collection-cp932");
    if (!source) GTEST_SKIP() << "no folder shared/collection-cp932 beside the project";
    const ThereAndBack way = takeThereAndBack(*source, order);
    expectAllKept(way);
    std::printf("%zu sites in %zu categories\n", way.sites, way.categories);
}

} // namespace
} // namespace vandrel::test
