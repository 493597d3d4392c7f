#include "model/incoming_link.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

using namespace std::literals;

void expectParts(std::wstring_view link, std::wstring_view url, std::wstring_view name)
{
    const LinkParts parts = partsOfLink(link);
    EXPECT_EQ(parts.url, url) << std::wstring(link);
    EXPECT_EQ(parts.name, name) << std::wstring(link);
}

TEST(IncomingLink, IsAnAddressAndAName) { expectParts(L"http://a/~-~A page", L"http://a/", L"A page"); }

TEST(IncomingLink, EndingWithTheSeparatorHasAnEmptyName) { expectParts(L"http://a/~-~", L"http://a/", L""); }

TEST(IncomingLink, BeginningWithTheSeparatorHasAnEmptyAddress)
{
    expectParts(L"~-~A page", L"", L"A page");
    expectParts(L"~-~", L"", L"");
}

TEST(IncomingLink, FurtherPiecesAreIgnored)
{
    expectParts(L"http://a/~-~A page~-~more", L"http://a/", L"A page");
    expectParts(L"http://a/~-~A page~-~more~-~still more", L"http://a/", L"A page");
    expectParts(L"http://a/~-~A page~-~", L"http://a/", L"A page");
    expectParts(L"http://a/~-~~-~more", L"http://a/", L"");
}

TEST(IncomingLink, TheSeparatorIsTakenFromTheLeft)
{
    expectParts(L"a~-~-~b", L"a", L"-~b");
    expectParts(L"a~~-~~b", L"a~", L"~b");
}

TEST(IncomingLink, WithoutASeparatorIsAllAddress)
{
    expectParts(L"http://a/", L"http://a/", L"");
    expectParts(L"~-", L"~-", L"");
    expectParts(L"a~ -~b", L"a~ -~b", L"");
    expectParts(L"C:\\Program Files\\page.html", L"C:\\Program Files\\page.html", L"");
}

TEST(IncomingLink, AnEmptyOneGivesTheBeginningOfAnAddress) { expectParts(L"", L"http://", L""); }

TEST(IncomingLink, NothingIsTrimmed)
{
    expectParts(L" ", L" ", L"");
    expectParts(L" http://a/ ~-~ A page ", L" http://a/ ", L" A page ");
    expectParts(L"\"http://a/\"", L"\"http://a/\"", L"");
}

TEST(IncomingLink, KeepsLineEndsNulsAndFieldSeparators)
{
    expectParts(L"http://a|b/\r\n~-~A|page"sv, L"http://a|b/\r\n", L"A|page");
    expectParts(L"a\0b~-~c\0d"sv, L"a\0b"sv, L"c\0d"sv);
}

TEST(WithoutSeparators, EverySeparatorBecomesAHyphen)
{
    EXPECT_EQ(withoutSeparators(L"a|b"), L"a-b");
    EXPECT_EQ(withoutSeparators(L"|a||b|"), L"-a--b-");
    EXPECT_EQ(withoutSeparators(L"|||"), L"---");
}

TEST(WithoutSeparators, EverythingElseStays)
{
    EXPECT_EQ(withoutSeparators(L""), L"");
    EXPECT_EQ(withoutSeparators(L" a-b ~-~ \u00A6 \r\n"), L" a-b ~-~ \u00A6 \r\n");
    EXPECT_EQ(withoutSeparators(L"a\0|b"s), L"a\0-b"s);
}

} // namespace
} // namespace vandrel
