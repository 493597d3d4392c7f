#include "model/site_record.h"

#include "print.h"

namespace vandrel {
namespace {

using namespace std::literals;

TEST(SiteRecord, HasFourFieldsInTheOrderNameUrlDescriptionDate)
{
    const auto site = siteOfLine(L"News|http://news.example/|Daily|11/16/2002");
    ASSERT_TRUE(site);
    EXPECT_EQ(site->name, L"News");
    EXPECT_EQ(site->url, L"http://news.example/");
    EXPECT_EQ(site->description, L"Daily");
    EXPECT_EQ(site->date, L"11/16/2002");
}

TEST(SiteRecord, ACommentIsNotASite)
{
    EXPECT_EQ(siteOfLine(L";note"), std::nullopt);
    EXPECT_EQ(siteOfLine(L";"), std::nullopt);
    EXPECT_EQ(siteOfLine(L";a|b|c|d"), std::nullopt);
}

TEST(SiteRecord, OnlyTheFirstCharacterMakesAComment)
{
    EXPECT_EQ(siteOfLine(L" ;a|b"), (SiteRecord{L" ;a", L"b", L"", L""}));
    EXPECT_EQ(siteOfLine(L"a;|;b"), (SiteRecord{L"a;", L";b", L"", L""}));
    EXPECT_EQ(siteOfLine(L"|;b"), (SiteRecord{L"", L";b", L"", L""}));
}

TEST(SiteRecord, ALineWithoutASeparatorIsNotASite)
{
    EXPECT_EQ(siteOfLine(L"plain text"), std::nullopt);
    EXPECT_EQ(siteOfLine(L""), std::nullopt);
    EXPECT_EQ(siteOfLine(L" "), std::nullopt);
    EXPECT_EQ(siteOfLine(L"http://news.example/"), std::nullopt);
}

TEST(SiteRecord, AMissingPieceLeavesItsFieldEmpty)
{
    EXPECT_EQ(siteOfLine(L"A|B"), (SiteRecord{L"A", L"B", L"", L""}));
    EXPECT_EQ(siteOfLine(L"A|B|C"), (SiteRecord{L"A", L"B", L"C", L""}));
    EXPECT_EQ(siteOfLine(L"A|"), (SiteRecord{L"A", L"", L"", L""}));
}

TEST(SiteRecord, AnyPieceMayBeEmpty)
{
    EXPECT_EQ(siteOfLine(L"|"), SiteRecord{});
    EXPECT_EQ(siteOfLine(L"|||"), SiteRecord{});
    EXPECT_EQ(siteOfLine(L"|||D"), (SiteRecord{L"", L"", L"", L"D"}));
    EXPECT_EQ(siteOfLine(L"A||C|"), (SiteRecord{L"A", L"", L"C", L""}));
}

TEST(SiteRecord, PiecesAfterTheFourthAreDropped)
{
    EXPECT_EQ(siteOfLine(L"A|B|C|D|"), (SiteRecord{L"A", L"B", L"C", L"D"}));
    EXPECT_EQ(siteOfLine(L"A|B|C|D|E|F"), (SiteRecord{L"A", L"B", L"C", L"D"}));
    EXPECT_EQ(siteOfLine(L"|||||||"), SiteRecord{});
}

TEST(SiteRecord, ADescriptionWithASeparatorPushesTheDateOut)
{
    EXPECT_EQ(siteOfLine(L"News|http://news.example/|a|b|11/16/2002"),
              (SiteRecord{L"News", L"http://news.example/", L"a", L"b"}));
}

TEST(SiteRecord, NothingIsTrimmedEscapedOrQuoted)
{
    EXPECT_EQ(siteOfLine(L" A | B |\t\"C\\|D\"| "), (SiteRecord{L" A ", L" B ", L"\t\"C\\", L"D\""}));
    EXPECT_EQ(siteOfLine(L"\"A|B\"|C|D"), (SiteRecord{L"\"A", L"B\"", L"C", L"D"}));
    EXPECT_EQ(siteOfLine(L"A~-~B|C"), (SiteRecord{L"A~-~B", L"C", L"", L""}));
}

TEST(SiteRecord, TheDateIsAnyText)
{
    EXPECT_EQ(siteOfLine(L"A|B|C|not a date")->date, L"not a date");
    EXPECT_EQ(siteOfLine(L"A|B|C|2002-11-16")->date, L"2002-11-16");
}

TEST(SiteRecord, AnyCharacterMayStandInAField)
{
    EXPECT_EQ(siteOfLine(L"A\0B|\0|C\x1A|\x1A"sv), (SiteRecord{L"A\0B"sv, L"\0"sv, L"C\x1A", L"\x1A"}));
    EXPECT_EQ(siteOfLine(L"\u00E9\u20AC|\u00FF\t\v\f"),
              (SiteRecord{L"\u00E9\u20AC", L"\u00FF\t\v\f", L"", L""}));
}

TEST(SiteRecord, FieldsAreViewsIntoTheLine)
{
    const std::wstring line = L"News|http://news.example/|Daily|11/16/2002";
    const auto site = siteOfLine(line);
    ASSERT_TRUE(site);
    EXPECT_EQ(site->name.data(), line.data());
    EXPECT_EQ(site->date.data() + site->date.size(), line.data() + line.size());
}

} // namespace
} // namespace vandrel
