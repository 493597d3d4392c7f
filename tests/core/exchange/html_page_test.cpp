#include "exchange/html_page.h"

#include <gtest/gtest.h>

#include <string>

namespace vandrel {
namespace {

OptionsState optionsWith(const std::wstring& font, const std::wstring& width, int border)
{
    OptionsState options;
    options.htmlFont = font;
    options.htmlTableWidth = width;
    options.htmlBorder = border;
    return options;
}

// What `add` adds to a page whose beginning has been taken already.
template <typename Add> std::wstring added(Add add)
{
    HtmlPage page(OptionsState{});
    page.clear();
    add(page);
    return std::wstring(page.text());
}

std::wstring headerOf(const OptionsState& options) { return std::wstring(HtmlPage(options).text()); }

TEST(HtmlPage, BeginsWithTheFontTheTableAndItsHeadings)
{
    EXPECT_EQ(headerOf(optionsWith(L"Arial", L"75%", 0)),
              L"<font face=\"Arial\"><table align=center width=75% border=0 "
              L"bordercolorlight=#ffffff bordercolordark=#999999>"
              L"<tr><th>Site Name</th><th>Site URL</th><th>Site Description</th></tr>\r\n");
}

TEST(HtmlPage, TheWidthIsWrittenAsItIsStored)
{
    for (const wchar_t* const width : {L"100%", L"600", L"1%", L"", L"wide", L" 40 % "}) {
        const std::wstring header = headerOf(optionsWith(L"Arial", width, 1));
        EXPECT_NE(header.find(L" width=" + std::wstring(width) + L" border=1 "), std::wstring::npos);
    }
}

TEST(HtmlPage, TheBorderIsWrittenInDecimal)
{
    for (const int border : {-32768, -1, 0, 7, 1000, 32767}) {
        const std::wstring header = headerOf(optionsWith(L"Arial", L"600", border));
        EXPECT_NE(header.find(L" width=600 border=" + std::to_wstring(border) + L" bordercolorlight="),
                  std::wstring::npos);
    }
}

TEST(HtmlPage, TheFontStandsBetweenQuotesWhateverItsNameHolds)
{
    for (const wchar_t* const font : {L"", L"Times New Roman", L"A \"B\" <C>", L"\u65E5\u672C"}) {
        EXPECT_TRUE(
            headerOf(optionsWith(font, L"75%", 0))
                .starts_with(L"<font face=\"" + std::wstring(font) + L"\"><table align=center width="));
    }
}

TEST(HtmlPage, ASiteIsARowWhoseLinkShowsItsAddress)
{
    EXPECT_EQ(added([](HtmlPage& page) { page.addSite(L"News", L"http://news.example/", L"about"); }),
              L"<tr><td>News</td><td><a href=\"http://news.example/\">http://news.example/</a></td>"
              L"<td>about</td></tr>\r\n");
}

TEST(HtmlPage, ASiteWithoutTextsIsARowAllTheSame)
{
    EXPECT_EQ(added([](HtmlPage& page) { page.addSite({}, {}, {}); }),
              L"<tr><td></td><td><a href=\"\"></a></td><td></td></tr>\r\n");
}

TEST(HtmlPage, TextsOfASiteAreWrittenAsTheyStand)
{
    EXPECT_EQ(added([](HtmlPage& page) {
                  page.addSite(L"<b>a & b</b>", L"http://x/?a=1&b=\"2\"", L"</td></table> &amp; \u20AC");
              }),
              L"<tr><td><b>a & b</b></td><td><a href=\"http://x/?a=1&b=\"2\"\">http://x/?a=1&b=\"2\"</a></td>"
              L"<td></td></table> &amp; \u20AC</td></tr>\r\n");
}

TEST(HtmlPage, ATitleSpansTheColumnsAndStandsBeforeItsFirstSiteInTheSameLine)
{
    EXPECT_EQ(added([](HtmlPage& page) {
                  page.addTitle(L"Work & <i>play</i>");
                  page.addSite(L"a", L"b", L"c");
                  page.addSite(L"d", L"e", L"f");
              }),
              L"<tr><td colspan=3 align=center><b>Work & <i>play</i></b></td></tr>"
              L"<tr><td>a</td><td><a href=\"b\">b</a></td><td>c</td></tr>\r\n"
              L"<tr><td>d</td><td><a href=\"e\">e</a></td><td>f</td></tr>\r\n");
}

TEST(HtmlPage, EndsWithTheMakersSiteAndNoLineEnd)
{
    EXPECT_EQ(added([](HtmlPage& page) { page.end(L"http://maker.example"); }),
              L"</table><center><font size=2>Generated with Vandrel by "
              L"<a href=\"http://maker.example\">Brisan Software</a></font></center></font>");
}

TEST(HtmlPage, WhatHasBeenTakenIsNotReturnedAgain)
{
    const auto addTo = [](HtmlPage& page, int from, int count) {
        for (int site = from; site < from + count; ++site) page.addSite(std::to_wstring(site), L"u", L"d");
    };
    HtmlPage whole(OptionsState{});
    addTo(whole, 0, 100);
    whole.end(L"s");

    HtmlPage page(OptionsState{});
    std::wstring pieces;
    for (int piece = 0; piece < 10; ++piece) {
        addTo(page, piece * 10, 10);
        pieces += page.text();
        page.clear();
        EXPECT_TRUE(page.text().empty());
    }
    page.end(L"s");
    pieces += page.text();
    EXPECT_EQ(pieces, whole.text());
}

TEST(SiteRow, HasAsMuchMarkupAsItSays)
{
    std::string page;
    const std::string_view none;
    appendSiteRow(page, none, none, none);
    EXPECT_EQ(page.size(), siteRowMarkup);
}

} // namespace
} // namespace vandrel
