#include "exchange_tool/bookmark_export.h"

#include "exchange_tool/bookmark_import.h"
#include "tests/exchange_tool/exchange_folder.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class BookmarkExport : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the expected bytes are those of code page 1252";
    }
    std::wstring page() const { return target.file(L"page.html"); }
    ExportOutcome write(FileLayer& files = systemFiles())
    {
        return exportBookmarks(folder.path(), page(), files, progress);
    }
    std::wstring failure(const std::wstring& file, FileLayer& files = systemFiles())
    {
        return errorTextOf([&] { exportBookmarks(folder.path(), file, files, progress); });
    }

    TempFolder folder{L"categories"};
    TempFolder target{L"page"};
    Progress progress;
};

TEST_F(BookmarkExport, WritesAFolderForEachCategoryInTheOrderOfTheTitles)
{
    folder.write(L"work.udb",
                 "One <1>|http://one.example/?a&b|\"first\"|\r\n; a remark\r\nCaf\xE9|u|</A>|\r\n");
    folder.write(L"Books.udb", "");
    folder.write(L"\u00C4pfel.udb", "n|v||\r\n");
    const ExportOutcome outcome = write();
    EXPECT_EQ(target.read(L"page.html"),
              "<!DOCTYPE NETSCAPE-Bookmark-file-1>\r\n"
              "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\r\n"
              "<TITLE>Bookmarks</TITLE>\r\n<H1>Bookmarks</H1>\r\n<DL><p>\r\n"
              "    <DT><H3>\xC3\x84pfel</H3>\r\n    <DL><p>\r\n"
              "        <DT><A HREF=\"v\">n</A>\r\n    </DL><p>\r\n"
              "    <DT><H3>Books</H3>\r\n    <DL><p>\r\n    </DL><p>\r\n"
              "    <DT><H3>work</H3>\r\n    <DL><p>\r\n"
              "        <DT><A HREF=\"http://one.example/?a&amp;b\">One &lt;1&gt;</A>\r\n"
              "        <DD>&quot;first&quot;\r\n"
              "        <DT><A HREF=\"u\">Caf\xC3\xA9</A>\r\n        <DD>&lt;/A&gt;\r\n"
              "    </DL><p>\r\n</DL><p>\r\n");
    EXPECT_EQ(outcome.categories, 3U);
    EXPECT_EQ(outcome.sites, 3U);
    EXPECT_EQ(outcome.sitesWithoutDate + outcome.sitesWithLostLetters, 0U);
}

TEST_F(BookmarkExport, IsBroughtInAgainAsItWas)
{
    const std::string sites = "One <1> & \"2\"|http://one.example/?a&b=1&copy=2|d &lt; e|11/16/2002\r\n"
                              " ; blank|u|  two  blanks |1/2/1999\r\n|||\r\n\x80 \x9C|v|</A>|\r\n";
    folder.write(L"Work.udb", sites);
    folder.write(L"Play - more.udb", "n|w||12/31/1971\r\n");
    write();
    const TempFolder again(L"again");
    importBookmarks(again.path(), page(), systemFiles(), progress);
    EXPECT_EQ(contentsOf(again), contentsOf(folder));
}

TEST_F(BookmarkExport, CountsDatesThatCannotBeReadAndBytesThatAreNoLetters)
{
    folder.write(L"Work.udb", std::string("a|u||soon\r\nb|u||11/16/2002\r\nc") + '\0' + "d|u||\r\ne|u||\r\n");
    const ExportOutcome outcome = write();
    EXPECT_EQ(outcome.sites, 4U);
    EXPECT_EQ(outcome.sitesWithoutDate, 1U);
    EXPECT_EQ(outcome.sitesWithLostLetters, 1U);
    EXPECT_NE(target.read(L"page.html").find("ADD_DATE=\"1037"), std::string::npos);
}

TEST_F(BookmarkExport, LeavesTheOldFileWhicheverCallFails)
{
    folder.write(L"Work.udb", "n|u||\r\n");
    int failures = 0;
    for (int call = 1;; ++call) {
        target.write(L"page.html", "old");
        FailingFiles files(call, ERROR_DISK_FULL);
        const std::wstring told = failure(page(), files);
        if (!files.hasFailed()) break;
        if (files.calls[static_cast<std::size_t>(call) - 1] == "identity") continue; // no reason not to save
        ++failures;
        EXPECT_EQ(told, page() + L" cannot be written: Disk full.") << call;
        EXPECT_EQ(target.read(L"page.html"), "old");
        EXPECT_EQ(target.names().size(), 1U);
    }
    EXPECT_GE(failures, 5);
    EXPECT_NE(target.read(L"page.html"), "old");
}

TEST_F(BookmarkExport, NamesTheCategoryThatCannotBeReadAndWritesNothing)
{
    folder.write(L"Work.udb", "n|u||\r\n");
    const HeldFile held(folder.file(L"Work.udb"));
    EXPECT_EQ(failure(page()), L"The category Work cannot be read: Permission denied.");
    EXPECT_TRUE(target.names().empty());
}

TEST_F(BookmarkExport, NeverWritesOverACategory)
{
    folder.write(L"Work.udb", "n|u||\r\n");
    for (const wchar_t* const name : {L"Work.udb", L"WORK.UDB", L"New.udb"}) {
        EXPECT_EQ(failure(folder.file(name)), folder.file(name) + L" is the name of a category.");
    }
    EXPECT_EQ(folder.names().size(), 1U);
    EXPECT_EQ(folder.read(L"Work.udb"), "n|u||\r\n");
}

TEST_F(BookmarkExport, OfNoCategoriesSaysSo)
{
    EXPECT_EQ(failure(page()), L"There are no categories in " + folder.path() + L".");
    EXPECT_TRUE(target.names().empty());
}

TEST_F(BookmarkExport, RemovesWhatAnExportThatWasEndedLeftBehind)
{
    folder.write(L"Work.udb", "n|u||\r\n");
    target.write(L"vandrel-4294967292.tmp", "half a page"); // no process has this number
    target.write(L"vandrel-x.tmp", "the user's");
    write();
    EXPECT_FALSE(target.has(L"vandrel-4294967292.tmp"));
    EXPECT_TRUE(target.has(L"vandrel-x.tmp"));
}

TEST_F(BookmarkExport, ThatIsCancelledLeavesNothing)
{
    folder.write(L"Work.udb", "n|u||\r\n");
    progress.cancel();
    EXPECT_EQ(errorOf([&] { write(); }), error_number::cancelled);
    EXPECT_TRUE(target.names().empty());
}

} // namespace
} // namespace vandrel::test
