#include "exchange_tool/exchange_report.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using Lines = std::vector<std::wstring>;

constexpr const wchar_t* shownLater = L"Vandrel shows new categories the next time it is started.";

TEST(ImportReport, CountsSitesAndCategories)
{
    ImportOutcome outcome;
    outcome.categories = {{L"Work", L"Work", 3}, {L"Play", L"Play", 1}};
    outcome.sites = 4;
    const ExchangeReport report = reportOf(outcome);
    EXPECT_EQ(report.headline, L"4 sites brought in, in 2 new categories");
    EXPECT_EQ(report.details, (Lines{shownLater}));
    EXPECT_EQ(report.list, (Lines{L"Work: 3 sites", L"Play: 1 site"}));
    EXPECT_TRUE(report.allKept);
}

TEST(ImportReport, CountsOneAsOne)
{
    ImportOutcome outcome;
    outcome.categories = {{L"Work", L"Work", 1}};
    outcome.sites = 1;
    EXPECT_EQ(reportOf(outcome).headline, L"1 site brought in, in 1 new category");
}

TEST(ImportReport, NamesTitlesThatWereTaken)
{
    ImportOutcome outcome;
    outcome.sites = 7;
    outcome.categories = {{L"Work (2)", L"Work", 1}};
    EXPECT_EQ(reportOf(outcome).details.front(),
              L"One title was taken already, so the new category is called \u201CWork (2)\u201D.");
    for (int more = 1; more <= 6; ++more) {
        const std::wstring title = L"T" + std::to_wstring(more);
        outcome.categories.push_back({title + L" (2)", title, 1});
    }
    EXPECT_EQ(reportOf(outcome).details.front(),
              L"Some titles were taken already, so the new categories are called \u201CWork (2)\u201D, "
              L"\u201CT1 (2)\u201D, \u201CT2 (2)\u201D, \u201CT3 (2)\u201D, \u201CT4 (2)\u201D and 2 more.");
    EXPECT_TRUE(reportOf(outcome).allKept);
}

TEST(ImportReport, SaysWhereLettersAreLostAndThatNotAllWasKept)
{
    ImportOutcome outcome;
    outcome.categories = {{L"Work", L"Work", 9}};
    outcome.sites = 9;
    outcome.sitesWithLostLetters = 1;
    outcome.firstWithLostLetters = {L"\u65E5\u672C"};
    EXPECT_EQ(
        reportOf(outcome).details.front(),
        L"1 site has letters that the code page of category files lacks. \u201C?\u201D stands for each of "
        L"these letters, in \u201C\u65E5\u672C\u201D.");
    EXPECT_FALSE(reportOf(outcome).allKept);
    outcome.sitesWithLostLetters = 4;
    EXPECT_EQ(
        reportOf(outcome).details.front(),
        L"4 sites have letters that the code page of category files lacks. \u201C?\u201D stands for each of "
        L"these letters, in \u201C\u65E5\u672C\u201D and 3 more.");
}

TEST(ExportReport, CountsSitesAndCategoriesAndNamesTheFile)
{
    const ExchangeReport report = reportOf({.categories = 2, .sites = 1}, L"C:\\b.html");
    EXPECT_EQ(report.headline, L"1 site of 2 categories written");
    EXPECT_EQ(report.details, (Lines{L"C:\\b.html"}));
    EXPECT_EQ(report.list, Lines{});
    EXPECT_TRUE(report.allKept);
}

TEST(ExportReport, SaysWhatCouldNotBeWritten)
{
    const ExchangeReport one =
        reportOf({.categories = 1, .sites = 5, .sitesWithoutDate = 1, .sitesWithLostLetters = 1}, L"x");
    EXPECT_EQ(one.details,
              (Lines{L"x", L"1 site has a date that cannot be read, and is in the file without.",
                     L"1 site has bytes that are no letters in the code page. \u201C\uFFFD\u201D stands for "
                     L"each of them."}));
    EXPECT_FALSE(one.allKept);
    const ExchangeReport two = reportOf({.categories = 1, .sites = 5, .sitesWithoutDate = 2}, L"x");
    EXPECT_EQ(two.details[1], L"2 sites have dates that cannot be read, and are in the file without.");
    EXPECT_FALSE(two.allKept);
    EXPECT_FALSE(reportOf({.categories = 1, .sites = 5, .sitesWithLostLetters = 2}, L"x").allKept);
}

TEST(ExchangeReport, IsPrintedInLines)
{
    EXPECT_EQ(linesOf({.headline = L"done", .details = {L"one", L"two"}, .list = {L"item"}}),
              L"done\r\n  item\r\none\r\ntwo\r\n");
}

TEST(ExchangeReport, ShowsTheBeginningOfALongList)
{
    Lines list(10, L"x");
    EXPECT_EQ(firstOf({L"a", L"b"}), L"a\nb");
    EXPECT_EQ(firstOf({}), L"");
    EXPECT_EQ(firstOf(list).find(L"more"), std::wstring::npos);
    list.emplace_back(L"y");
    EXPECT_TRUE(firstOf(list).ends_with(L"x\nand 2 more"));
}

} // namespace
} // namespace vandrel::test
