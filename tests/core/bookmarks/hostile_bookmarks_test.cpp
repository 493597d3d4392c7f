#include "bookmarks/bookmark_categories.h"
#include "bookmarks/bookmark_writer.h"
#include "exchange/shortcut_name.h"
#include "model/site_record.h"
#include "mutated_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vandrel::test {
namespace {

// For each byte of a page, at most: once for its encoding and twice for its tokens in UTF-8, which may have
// half as many bytes again as UTF-16, once for its text; and a second time for what was taken for a value
// first.
constexpr std::size_t mostStepsPerByte = 12;
constexpr std::size_t fewSteps = 100;
constexpr std::size_t usualPages = 1500;

std::wstring unchanged(std::wstring_view text) { return std::wstring(text); }

class HostileBookmarks : public testing::Test {
  protected:
    static std::wstring shortDate(AddDate added)
    {
        EXPECT_GT(added, 0);
        return std::to_wstring(added);
    }
    static void check(std::string_view page)
    {
        Outline outline;
        const std::size_t steps = readBookmarks(page, outline);
        EXPECT_EQ(outline.depth, 0);
        EXPECT_LE(steps, mostStepsPerByte * page.size() + fewSteps);
        EXPECT_LE(outline.lines.size(), page.size());
        checkCategories(page, outline);
    }
    static void checkCategories(std::string_view page, const Outline& outline)
    {
        const ImportRules rules{shortDate, [](std::wstring_view letter) { return letter.size() == 1; },
                                unchanged};
        const std::vector<std::wstring> existing{L"Bar", L"Bookmarks"};
        const ImportedBookmarks result = importedBookmarks(page, existing, rules);
        std::set<std::wstring> titles(existing.begin(), existing.end());
        std::size_t sites = 0;
        for (const ImportedCategory& category : result.categories) {
            EXPECT_EQ(fileNameFor(category.title), category.title);
            EXPECT_FALSE(category.title.empty());
            EXPECT_TRUE(titles.insert(category.title).second);
            EXPECT_EQ(recordsIn(category.text), category.sites);
            EXPECT_GT(category.sites, 0U);
            sites += category.sites;
        }
        EXPECT_EQ(sites, result.sites);
        EXPECT_LE(result.sitesWithLostLetters, sites);
        const auto folders = static_cast<std::size_t>(std::ranges::count(outline.lines, L"}"));
        EXPECT_EQ(sites + 2 * folders, outline.lines.size());
    }
    // Each line is a site, and each site a line.
    static std::size_t recordsIn(const std::wstring& text)
    {
        EXPECT_TRUE(text.ends_with(L"\r\n"));
        SiteRecordReader reader(text);
        std::size_t records = 0;
        while (reader.next()) ++records;
        EXPECT_EQ(std::ranges::count(text, L'\n'), static_cast<std::ptrdiff_t>(records));
        EXPECT_EQ(std::ranges::count(text, L'\r'), static_cast<std::ptrdiff_t>(records));
        EXPECT_EQ(std::ranges::count(text, L'|'), static_cast<std::ptrdiff_t>(3 * records));
        return records;
    }

    HostileText hostile;
};

TEST_F(HostileBookmarks, AreReadInLinearTimeAndMakeSoundCategories)
{
    const std::size_t wanted = hostileCount(usualPages);
    std::size_t bytes = 0;
    for (std::size_t tried = 0; tried < wanted; ++tried) {
        const PageBytes page = mutatedPage(hostile);
        bytes += page.size();
        check(page.view());
        ASSERT_FALSE(HasFailure()) << "seed " << hostile.usedSeed() << ", page " << tried << ": "
                                   << testing::PrintToString(page);
    }
    std::printf("%zu pages, %zu bytes\n", wanted, bytes);
}

// What is read, written and read again is the same.
TEST_F(HostileBookmarks, AreReadAsTheyWereAfterTheyWereWritten)
{
    class Copy : public BookmarkHandler {
      public:
        void folderBegins(const std::wstring& name, std::optional<AddDate>) override
        {
            writer.beginFolder(name);
        }
        void folderEnds() override { writer.endFolder(); }
        void bookmark(const Bookmark& bookmark) override
        {
            writer.addBookmark(bookmark.name, bookmark.url, bookmark.description, bookmark.added);
        }
        BookmarkWriter writer;
    };
    const std::size_t wanted = hostileCount(usualPages);
    for (std::size_t tried = 0; tried < wanted; ++tried) {
        const PageBytes page = mutatedPage(hostile);
        Copy first;
        readBookmarks(page.view(), first);
        Copy second;
        readBookmarks(first.writer.bytes(), second);
        // The written page has a list around all folders, so that those at the limit are not told any more.
        if (first.writer.bytes() == second.writer.bytes()) continue;
        Outline outline;
        readBookmarks(page.view(), outline);
        int deepest = 0;
        int depth = 0;
        for (const std::wstring& line : outline.lines) {
            if (line == L"}") --depth;
            else if (line.ends_with(L" {")) deepest = std::max(deepest, ++depth);
        }
        ASSERT_GE(deepest, static_cast<int>(deepestList))
            << "seed " << hostile.usedSeed() << ", page " << tried;
    }
}

// A pattern again and again, which something looks for that never comes, or comes at the very end.
TEST_F(HostileBookmarks, OfOnePatternAreReadInLinearTime)
{
    for (const std::string_view pattern : {"<",
                                           "<a",
                                           "<!--",
                                           "<!",
                                           "&",
                                           "&#1",
                                           "&#x",
                                           "&a",
                                           "\"",
                                           "'",
                                           "<A HREF=\"",
                                           "<A HREF='",
                                           "<A HREF=\"x>",
                                           "\n<DT><A HREF=\"",
                                           "<A X='\n<DT>",
                                           "<A X=\"\n<DT>\n<DT ",
                                           "<A =",
                                           "<A HREF=x>",
                                           "<A HREF=x>n<DD>d",
                                           "<H3>",
                                           "<H3>f</H3><DL>",
                                           "<DL>",
                                           "</DL>",
                                           "<DD>",
                                           "--",
                                           "<!-->",
                                           "\n ",
                                           "<A \"'=\"'>",
                                           "<p",
                                           "</",
                                           "<?"}) {
        for (const std::string_view end : {"", ">", "\"", "'", "-->", ";", "\">", "'>-->"}) {
            std::string page;
            while (page.size() < 5000) page += pattern;
            page += end;
            Outline outline;
            const std::size_t steps = readBookmarks(page, outline);
            EXPECT_LE(steps, mostStepsPerByte * page.size() + fewSteps) << pattern << " ... " << end;
            EXPECT_EQ(outline.depth, 0) << pattern << " ... " << end;
        }
    }
}

TEST_F(HostileBookmarks, WithPicturesOfManyBytesAreReadInLinearTime)
{
    std::string page = "<DT><A HREF=x ICON=\"data:image/png;base64,";
    page.append(4'000'000, 'A');
    page += "\">n</A>";
    Outline outline;
    const std::size_t steps = readBookmarks(page, outline);
    EXPECT_EQ(outline.lines, (Lines{L"n|x||"}));
    EXPECT_LE(steps, 4 * page.size());
}

} // namespace
} // namespace vandrel::test
