#include "platform/system/cookie_jar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel {
namespace {

class Cookies : public testing::Test {
  protected:
    // The site of an address such as "https://a.example/x".
    static CookieSite site(std::wstring_view address)
    {
        const bool secure = address.starts_with(L"https://");
        address.remove_prefix(secure ? 8 : 7);
        const std::size_t path = address.find(L'/');
        return {std::wstring(address.substr(0, path)), std::wstring(address.substr(path)), secure};
    }
    void take(std::wstring_view from, std::wstring_view line) { jar.take(site(from), line); }
    std::wstring to(std::wstring_view address) const { return jar.cookiesFor(site(address)); }
    // The cookies sent back to a page that has set one with this line.
    static std::wstring back(std::wstring_view line)
    {
        CookieJar own;
        own.take(site(L"http://www.a.example/x/y"), line);
        return own.cookiesFor(site(L"http://www.a.example/x/y"));
    }

    CookieJar jar;
};

TEST_F(Cookies, NameAndValueComeBackAndNothingElseOfTheLine)
{
    EXPECT_EQ(to(L"http://www.a.example/"), L"");
    EXPECT_EQ(back(L"seen=1"), L"seen=1");
    EXPECT_EQ(back(L"  seen = 1 2\t; HttpOnly; SameSite=Lax; Path=/"), L"seen=1 2");
    EXPECT_EQ(back(L"token=a=b==; path=/x"), L"token=a=b==");
    EXPECT_EQ(back(L"quoted=\"a b\""), L"quoted=\"a b\"");
    EXPECT_EQ(back(L"empty="), L"empty=");
}

TEST_F(Cookies, WhatIsNotACookieIsIgnored)
{
    for (const wchar_t* const line : {L"", L"seen", L"=1", L"  =1; Path=/", L";", L"; a=b", L"Path"})
        EXPECT_EQ(back(line), L"");
}

TEST_F(Cookies, WhatWouldBecomeAnotherHeaderIsIgnored)
{
    EXPECT_EQ(back(L"a=1\r\nHost: b.example"), L"");
    EXPECT_EQ(back(L"a\n=1"), L"");
    EXPECT_EQ(back(std::wstring_view(L"a=1\0x", 5)), L"");
}

TEST_F(Cookies, SeveralComeInTheOrderInWhichTheyWereSet)
{
    take(L"http://a.example/", L"one=1");
    take(L"http://a.example/", L"two=2");
    take(L"http://a.example/", L"three=3");
    EXPECT_EQ(to(L"http://a.example/"), L"one=1; two=2; three=3");
}

TEST_F(Cookies, ANewValueTakesThePlaceOfTheOldOne)
{
    take(L"http://a.example/", L"one=1");
    take(L"http://a.example/", L"two=2");
    take(L"http://a.example/", L"one=3");
    EXPECT_EQ(to(L"http://a.example/"), L"one=3; two=2");
    take(L"http://a.example/", L"ONE=4");
    EXPECT_EQ(to(L"http://a.example/"), L"one=3; two=2; ONE=4");
}

// ---- deleting

TEST_F(Cookies, OneIsDeletedByItsAgeOrByADateInThePast)
{
    for (const wchar_t* const end :
         {L"Max-Age=0", L"max-age=-1", L"Max-Age=000", L"expires=Thu, 01 Jan 1970 00:00:00 GMT",
          L"Expires=Thu, 01-Jan-1970 00:00:01 GMT", L"expires=Tue, 12 Oct 1999 00:00:00 GMT"}) {
        CookieJar own;
        own.take(site(L"http://a.example/"), L"one=1");
        own.take(site(L"http://a.example/"), L"one=gone; " + std::wstring(end));
        EXPECT_EQ(own.cookiesFor(site(L"http://a.example/")), L"")
            << testing::PrintToString(std::wstring(end));
    }
}

TEST_F(Cookies, AnyOtherExpiryComesAfterTheCheck)
{
    EXPECT_EQ(back(L"a=1; Max-Age=1"), L"a=1");
    EXPECT_EQ(back(L"a=1; Max-Age=3600; Expires=Thu, 01 Jan 1970 00:00:00 GMT"), L"a=1");
    EXPECT_EQ(back(L"a=1; Expires=Thu, 01 Jan 1970 00:00:00 GMT; Max-Age=3600"), L"a=1");
    EXPECT_EQ(back(L"a=1; Max-Age="), L"a=1");
    EXPECT_EQ(back(L"a=1; Max-Age=-"), L"a=1");
    EXPECT_EQ(back(L"a=1; Expires=Sat, 19 Dec 2037 19:19:19 GMT"), L"a=1");
    EXPECT_EQ(back(L"a=1; Expires=119700"), L"a=1");
    EXPECT_EQ(back(L"a=1970; Path=/1970"), L"") << "another path";
    EXPECT_EQ(back(L"a=1970"), L"a=1970");
}

// ---- domains

TEST_F(Cookies, WithoutADomainItBelongsToTheHostAlone)
{
    take(L"http://a.example/", L"own=1");
    EXPECT_EQ(to(L"http://a.example/"), L"own=1");
    EXPECT_EQ(to(L"http://www.a.example/"), L"");
    EXPECT_EQ(to(L"http://b.example/"), L"");
    EXPECT_EQ(to(L"http://aa.example/"), L"");
}

TEST_F(Cookies, ADomainCoversItsSubdomains)
{
    take(L"http://www.a.example/", L"dotted=1; Domain=.A.Example");
    take(L"http://www.a.example/", L"plain=2; domain=a.example");
    for (const wchar_t* const covered :
         {L"http://a.example/", L"http://www.a.example/", L"http://x.y.a.example/"})
        EXPECT_EQ(to(covered), L"dotted=1; plain=2");
    EXPECT_EQ(to(L"http://ba.example/"), L"");
    EXPECT_EQ(to(L"http://b.example/"), L"");
}

TEST_F(Cookies, TheHostItselfAsDomainCoversItsSubdomains)
{
    take(L"http://a.example/", L"one=1; Domain=a.example");
    EXPECT_EQ(to(L"http://a.example/"), L"one=1");
    EXPECT_EQ(to(L"http://www.a.example/"), L"one=1");
}

TEST_F(Cookies, AnEmptyDomainCountsAsNone)
{
    take(L"http://a.example/", L"one=1; Domain=");
    EXPECT_EQ(to(L"http://a.example/"), L"one=1");
    EXPECT_EQ(to(L"http://www.a.example/"), L"");
}

TEST_F(Cookies, NoHostSetsThemForOthers)
{
    take(L"http://www.a.example/", L"other=1; Domain=b.example");
    take(L"http://a.example/", L"below=2; Domain=www.a.example");
    take(L"http://www.a.example/", L"everybody=3; Domain=example");
    take(L"http://ba.example/", L"similar=4; Domain=a.example");
    for (const wchar_t* const address : {L"http://www.a.example/", L"http://a.example/", L"http://b.example/",
                                         L"http://example/", L"http://ba.example/"})
        EXPECT_EQ(to(address), L"") << testing::PrintToString(std::wstring(address));
}

TEST_F(Cookies, AHostOfOneWordOrOfNumbersHasItsOwnOnly)
{
    take(L"http://localhost/", L"word=1; Domain=localhost");
    take(L"http://127.0.0.1/", L"number=2; Domain=127.0.0.1");
    take(L"http://127.0.0.1/", L"part=3; Domain=0.0.1");
    take(L"http://[::1]/", L"six=4");
    EXPECT_EQ(to(L"http://localhost/"), L"word=1");
    EXPECT_EQ(to(L"http://a.localhost/"), L"");
    EXPECT_EQ(to(L"http://127.0.0.1/"), L"number=2");
    EXPECT_EQ(to(L"http://8.127.0.0.1/"), L"");
    EXPECT_EQ(to(L"http://[::1]/"), L"six=4");
}

// ---- paths

TEST_F(Cookies, WithoutAPathItGoesToTheFolderAndBelow)
{
    take(L"http://a.example/x/page", L"one=1");
    EXPECT_EQ(to(L"http://a.example/x/page"), L"one=1");
    EXPECT_EQ(to(L"http://a.example/x/other/deep"), L"one=1");
    EXPECT_EQ(to(L"http://a.example/x"), L"one=1");
    EXPECT_EQ(to(L"http://a.example/"), L"");
    EXPECT_EQ(to(L"http://a.example/xy"), L"");
}

TEST_F(Cookies, APathIsComparedByWholeNames)
{
    take(L"http://a.example/page", L"one=1; Path=/x");
    take(L"http://a.example/page", L"two=2; Path=/y/");
    take(L"http://a.example/page", L"three=3; Path=z");
    EXPECT_EQ(to(L"http://a.example/x"), L"one=1; three=3");
    EXPECT_EQ(to(L"http://a.example/x/1"), L"one=1; three=3");
    EXPECT_EQ(to(L"http://a.example/xx"), L"three=3");
    EXPECT_EQ(to(L"http://a.example/y/1"), L"two=2; three=3");
    EXPECT_EQ(to(L"http://a.example/y"), L"three=3");
}

TEST_F(Cookies, TheOneWithTheLongerPathComesFirst)
{
    take(L"http://a.example/", L"one=far; Path=/");
    take(L"http://a.example/", L"one=near; Path=/x");
    EXPECT_EQ(to(L"http://a.example/x"), L"one=near; one=far");
}

TEST_F(Cookies, ASecureOneIsNeitherAcceptedNorSentUnencrypted)
{
    take(L"https://a.example/", L"one=1; Secure");
    take(L"http://a.example/", L"two=2; secure");
    EXPECT_EQ(to(L"https://a.example/"), L"one=1");
    EXPECT_EQ(to(L"http://a.example/"), L"");
    take(L"https://a.example/", L"three=3");
    EXPECT_EQ(to(L"http://a.example/"), L"three=3");
}

// ---- limits

TEST_F(Cookies, TheJarStaysSmall)
{
    take(L"http://a.example/", L"long=" + std::wstring(CookieJar::longestCookie, L'x'));
    EXPECT_EQ(to(L"http://a.example/"), L"");
    for (std::size_t i = 0; i < CookieJar::mostCookies + 10; ++i)
        take(L"http://a.example/", L"c" + std::to_wstring(i) + L"=x");
    const std::wstring line = to(L"http://a.example/");
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(line, L'=')), CookieJar::mostCookies);
    take(L"http://a.example/", L"c3=other");
    EXPECT_NE(to(L"http://a.example/").find(L"c3=other"), std::wstring::npos)
        << "those that are there change";
}

TEST_F(Cookies, WhatIsSentIsNoLongerThanServersAccept)
{
    for (std::size_t i = 0; i < 10; ++i)
        take(L"http://a.example/", L"c" + std::to_wstring(i) + L"=" + std::wstring(4000, L'x'));
    take(L"http://a.example/", L"last=1");
    const std::wstring line = to(L"http://a.example/");
    EXPECT_LE(line.size(), CookieJar::longestLine);
    EXPECT_TRUE(line.ends_with(L"; last=1"));
}

} // namespace
} // namespace vandrel
