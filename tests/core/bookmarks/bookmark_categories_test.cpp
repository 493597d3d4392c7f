#include "bookmarks/bookmark_categories.h"

#include "pages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

ImportRules plainRules()
{
    return {[](AddDate added) { return L"day " + std::to_wstring(added / 86400); },
            [](std::wstring_view letter) { return letter.size() == 1 && letter[0] < 0x100; },
            [](std::wstring_view text) {
                std::wstring lower(text);
                for (wchar_t& c : lower) c = c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
                return lower;
            }};
}

ImportedBookmarks imported(std::string_view page, const std::vector<std::wstring>& existing = {})
{
    return importedBookmarks(page, existing, plainRules());
}

// "title: text" of each category.
Lines categoriesOf(std::string_view page, const std::vector<std::wstring>& existing = {})
{
    Lines lines;
    for (const ImportedCategory& category : imported(page, existing).categories) {
        lines.push_back(category.title + L": " + category.text);
        EXPECT_EQ(category.sites, static_cast<std::size_t>(std::ranges::count(category.text, L'\n')));
    }
    return lines;
}

std::wstring lineOf(std::string_view bookmark)
{
    const ImportedBookmarks result = imported(bookmark);
    return result.categories.size() == 1 ? result.categories[0].text : L"not one category";
}

TEST(BookmarkCategories, AreTheFoldersThatHaveBookmarks)
{
    EXPECT_EQ(categoriesOf(pages::chrome),
              (Lines{L"Bar: News & more|https://news.example/?a=1&b=2||day 12007\r\n",
                     L"Bar - Reading: B\u00FCcher|https://books.example/||day 12007\r\n",
                     L"Bookmarks: Loose|https://loose.example/||\r\n"}));
    EXPECT_EQ(imported(pages::chrome).sites, 3U);
}

TEST(BookmarkCategories, AreNoneForEmptyFolders)
{
    EXPECT_EQ(categoriesOf("<H3>a</H3><DL><H3>b</H3><DL></DL></DL>"), Lines{});
    EXPECT_EQ(categoriesOf("<H3>a</H3><DL><H3>b</H3><DL><A HREF=x>n</A></DL></DL>"),
              (Lines{L"a - b: n|x||\r\n"}));
    EXPECT_EQ(categoriesOf(""), Lines{});
}

TEST(BookmarkCategories, OfTheSamePathAreOne)
{
    EXPECT_EQ(categoriesOf("<H3>a</H3><DL><A HREF=1>n</A></DL><H3>b</H3><DL><A HREF=2>n</A></DL>"
                           "<H3>a</H3><DL><A HREF=3>n</A><H3>b</H3><DL><A HREF=4>n</A></DL></DL>"),
              (Lines{L"a: n|1||\r\nn|3||\r\n", L"b: n|2||\r\n", L"a - b: n|4||\r\n"}));
}

TEST(BookmarkCategories, OutsideAnyFolderAreInOneOfTheirOwn)
{
    EXPECT_EQ(categoriesOf("<A HREF=1>n</A><H3>Bookmarks</H3><DL><A HREF=2>n</A></DL><A HREF=3>n</A>"),
              (Lines{L"Bookmarks: n|1||\r\nn|2||\r\nn|3||\r\n"}));
}

TEST(BookmarkCategories, OfFoldersWithoutANameAreThoseAroundThem)
{
    EXPECT_EQ(categoriesOf(
                  "<H3></H3><DL><A HREF=1>n</A></DL><H3>a</H3><DL><H3>...</H3><DL><A HREF=2>n</A></DL>"
                  "<A HREF=3>n</A></DL>"),
              (Lines{L"Bookmarks: n|1||\r\n", L"a: n|2||\r\nn|3||\r\n"}));
}

TEST(BookmarkCategories, GetTitlesThatNoOtherHas)
{
    EXPECT_EQ(categoriesOf("<H3>Work</H3><DL><A HREF=1>n</A></DL><H3>WORK</H3><DL><A HREF=2>n</A></DL>"
                           "<H3>a</H3><DL><H3>b</H3><DL><A HREF=3>n</A></DL></DL>"
                           "<H3>a - b</H3><DL><A HREF=4>n</A></DL><H3>c:d</H3><DL><A HREF=5>n</A></DL>"
                           "<H3>c?d</H3><DL><A HREF=6>n</A></DL>",
                           {L"wORK", L"C-D"}),
              (Lines{L"Work (2): n|1||\r\n", L"WORK (3): n|2||\r\n", L"a - b: n|3||\r\n",
                     L"a - b (2): n|4||\r\n", L"c-d (2): n|5||\r\n", L"c-d (3): n|6||\r\n"}));
}

TEST(BookmarkCategories, HaveOneLineForEachSite)
{
    EXPECT_EQ(lineOf("<A HREF=\"a|b\">n|m</A><DD>d|e|f"), L"n-m|a-b|d-e-f|\r\n");
    EXPECT_EQ(lineOf("<A HREF=\"a&#13;&#10;b\">n&#10;m</A><DD>d&#13;e"), L"n m|a b|d e|\r\n");
    EXPECT_EQ(lineOf("<A HREF=x>;note</A>"), L" ;note|x||\r\n");
    EXPECT_EQ(lineOf("<A HREF=\";x\"></A><DD>;"), L"|;x|;|\r\n");
    EXPECT_EQ(lineOf("<A HREF=x ADD_DATE=86400>n</A>"), L"n|x||day 1\r\n");
    EXPECT_EQ(lineOf("<A HREF=x ADD_DATE=never>n</A>"), L"n|x||\r\n");
}

TEST(BookmarkCategories, TellWhichLettersTheCodePageLacks)
{
    const ImportedBookmarks result = imported(
        "<A HREF=x>caf\xC3\xA9</A><A HREF=\"\xE6\x97\xA5\">day</A><A HREF=x>\xF0\x9F\x98\x80 smile</A>"
        "<DD>\xE6\x97\xA5\xE6\x9C\xAC");
    ASSERT_EQ(result.categories.size(), 1U);
    EXPECT_EQ(result.categories[0].text, L"caf\u00E9|x||\r\nday|?||\r\n? smile|x|??|\r\n");
    EXPECT_EQ(result.sites, 3U);
    EXPECT_EQ(result.sitesWithLostLetters, 2U);
    const std::wstring smile{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(result.firstWithLostLetters, (Lines{L"day", smile + L" smile"}));
}

TEST(BookmarkCategories, TellTheNamesOfTheFirstSitesThatLoseLettersAlone)
{
    std::string page;
    for (int site = 0; site < 20; ++site) page += "<A HREF=\"\xE6\x97\xA5\">" + std::to_string(site) + "</A>";
    const ImportedBookmarks result = imported(page);
    EXPECT_EQ(result.sitesWithLostLetters, 20U);
    EXPECT_EQ(result.firstWithLostLetters, (Lines{L"0", L"1", L"2", L"3", L"4"}));
}

} // namespace
} // namespace vandrel::test
