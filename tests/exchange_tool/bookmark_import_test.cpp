#include "exchange_tool/bookmark_import.h"

#include "platform/files/left_behind.h"
#include "tests/exchange_tool/exchange_folder.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

// A page and a folder of categories, which has one already.
class BookmarkImport : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the expected bytes are those of code page 1252";
        source.write(L"page.html", smallPage);
        folder.write(L"Old.udb", "Old|http://old.example/||\r\n");
    }
    std::wstring page() const { return source.file(L"page.html"); }
    ImportOutcome import(FileLayer& files = systemFiles())
    {
        return importBookmarks(folder.path(), page(), files, progress);
    }
    // The error's text.
    std::wstring failure(FileLayer& files = systemFiles())
    {
        return errorTextOf([&] { import(files); });
    }

    TempFolder source{L"page"};
    TempFolder folder{L"categories"};
    Progress progress;
};

TEST_F(BookmarkImport, MakesACategoryOfEachFolder)
{
    const ImportOutcome outcome = import();
    EXPECT_EQ(folder.names(),
              (std::vector<std::wstring>{L"Bookmarks.udb", L"Old.udb", L"Play.udb", L"Work.udb"}));
    EXPECT_EQ(folder.read(L"Work.udb"), workFile);
    EXPECT_EQ(folder.read(L"Play.udb"), playFile);
    EXPECT_EQ(folder.read(L"Bookmarks.udb"), outsideFile);
    EXPECT_EQ(outcome.sites, 4U);
    ASSERT_EQ(outcome.categories.size(), 3U);
    EXPECT_EQ(outcome.categories[0].title, L"Work");
    EXPECT_EQ(outcome.categories[0].sites, 2U);
    EXPECT_EQ(outcome.sitesWithLostLetters, 0U);
    EXPECT_EQ(progress.part(), Progress::whole);
}

TEST_F(BookmarkImport, NeverChangesAFileThatIsThere)
{
    folder.write(L"Work.udb", "mine");
    folder.write(L"PLAY.UDB", "no category, but the file system takes it for Play.udb");
    CreateDirectoryW(folder.file(L"Bookmarks.udb").c_str(), nullptr);
    const auto before = contentsOf(folder);
    const ImportOutcome outcome = import();
    auto after = contentsOf(folder);
    EXPECT_EQ(after[L"Work (2).udb"], workFile);
    EXPECT_EQ(after[L"Play (2).udb"], playFile);
    EXPECT_EQ(after[L"Bookmarks (2).udb"], outsideFile);
    for (const auto& [name, bytes] : before) EXPECT_EQ(after[name], bytes) << testing::PrintToString(name);
    EXPECT_EQ(after.size(), before.size() + 3);
    EXPECT_EQ(outcome.categories[0].title, L"Work (2)");
    EXPECT_EQ(outcome.categories[0].wanted, L"Work");
}

TEST_F(BookmarkImport, LeavesNothingWhicheverCallFails)
{
    const auto before = contentsOf(folder);
    int failures = 0;
    for (int call = 1;; ++call) {
        FailingFiles files(call, ERROR_DISK_FULL);
        const int error = errorOf([&] { import(files); });
        if (!files.hasFailed()) {
            EXPECT_EQ(error, 0);
            break;
        }
        ++failures;
        EXPECT_EQ(error, error_number::diskFull) << "call " << call << ", " << files.calls.back();
        EXPECT_EQ(contentsOf(folder), before) << "call " << call;
    }
    EXPECT_EQ(failures, 3 * 5); // create, write, flush, close and rename each
    EXPECT_EQ(folder.names().size(), 4U);
}

TEST_F(BookmarkImport, SaysWhyNothingWasMade)
{
    FailingFiles files(2, ERROR_DISK_FULL);
    EXPECT_EQ(failure(files), L"The new categories cannot be saved in " + folder.path() + L": Disk full.");
}

TEST_F(BookmarkImport, NamesWhatCouldNotBeRemovedAgain)
{
    FailingFiles files(3 * 4 + 3, ERROR_DISK_FULL); // the last of the renamings
    files.removalFails = true;
    EXPECT_EQ(failure(files), L"The new categories cannot be saved in " + folder.path() +
                                  L": Disk full. These could not be removed again: Work, Play");
}

// Makes a category just before the tool gives that name to one of its own.
class RacingFiles : public FileLayer {
  public:
    explicit RacingFiles(const TempFolder& folder) : folder_(folder) {}
    bool rename(const std::wstring& from, const std::wstring& to) override
    {
        if (to.ends_with(L"\\Play.udb")) folder_.write(L"Play.udb", "somebody else's");
        return FileLayer::rename(from, to);
    }

  private:
    const TempFolder& folder_;
};

TEST_F(BookmarkImport, ReplacesNoCategoryThatIsMadeMeanwhile)
{
    RacingFiles files(folder);
    EXPECT_EQ(errorOf([&] { import(files); }), error_number::fileAlreadyExists);
    EXPECT_EQ(folder.names(), (std::vector<std::wstring>{L"Old.udb", L"Play.udb"}));
    EXPECT_EQ(folder.read(L"Play.udb"), "somebody else's");
}

// The user cancels while the n-th file is written or named.
class CancellingFiles : public FileLayer {
  public:
    CancellingFiles(int at, Progress& progress) : at_(at), progress_(progress) {}
    bool hasCancelled() const { return at_ <= 0; }
    bool flush(HANDLE file) override
    {
        count();
        return FileLayer::flush(file);
    }
    bool rename(const std::wstring& from, const std::wstring& to) override
    {
        count();
        return FileLayer::rename(from, to);
    }

  private:
    void count()
    {
        if (--at_ == 0) progress_.cancel();
    }

    int at_;
    Progress& progress_;
};

TEST_F(BookmarkImport, LeavesNothingWhenItIsCancelledAnywhere)
{
    const auto before = contentsOf(folder);
    for (int step = 1; step <= 6; ++step) {
        Progress own;
        CancellingFiles files(step, own);
        EXPECT_EQ(errorOf([&] { importBookmarks(folder.path(), page(), files, own); }),
                  error_number::cancelled)
            << step;
        EXPECT_TRUE(files.hasCancelled());
        EXPECT_EQ(contentsOf(folder), before) << step;
    }
}

TEST_F(BookmarkImport, IsCancelledWhileItReads)
{
    std::string many;
    for (int site = 0; site < 1000; ++site) many += "<A HREF=x>n</A>";
    source.write(L"page.html", many);
    progress.cancel();
    FailingFiles files;
    EXPECT_EQ(errorOf([&] { import(files); }), error_number::cancelled);
    EXPECT_TRUE(files.calls.empty());
}

TEST_F(BookmarkImport, OfAPageWithoutBookmarksMakesNothingAndSaysSo)
{
    source.write(L"page.html", "<H3>Work</H3><DL></DL>");
    EXPECT_EQ(failure(), L"There are no bookmarks in " + page() + L".");
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST_F(BookmarkImport, SaysWhichFileOrFolderItCannotRead)
{
    DeleteFileW(page().c_str());
    EXPECT_EQ(failure(), page() + L" cannot be read: File not found.");
    source.write(L"page.html", smallPage);
    {
        const HeldFile held(page());
        EXPECT_EQ(failure(), page() + L" cannot be read: Permission denied.");
    }
    try {
        importBookmarks(folder.file(L"none"), page(), systemFiles(), progress);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), error_number::pathNotFound);
        EXPECT_EQ(error.description(),
                  L"The folder " + folder.file(L"none") + L" cannot be read: Path not found.");
    }
}

TEST_F(BookmarkImport, RemovesTemporaryFilesOfEndedProcessesAndNoOthers)
{
    const std::wstring mine = L"vandrel-" + std::to_wstring(GetCurrentProcessId()) + L"-7.tmp";
    folder.write(mine, "left by an earlier process with this number");
    folder.write(L"vandrel-x-7.tmp", "the user's");
    folder.write(L"vandrel-4-07.tmp", "the user's");
    import();
    EXPECT_FALSE(folder.has(mine));
    EXPECT_TRUE(folder.has(L"vandrel-x-7.tmp"));
    EXPECT_TRUE(folder.has(L"vandrel-4-07.tmp"));
}

TEST_F(BookmarkImport, CountsSitesThatLoseLetters)
{
    source.write(L"page.html", "<A HREF=x>\xE6\x97\xA5\xE6\x9C\xAC</A><A HREF=y>\xE2\x82\xAC \xC5\x93</A>");
    const ImportOutcome outcome = import();
    EXPECT_EQ(folder.read(L"Bookmarks.udb"), "??|x||\r\n\x80 \x9C|y||\r\n");
    EXPECT_EQ(outcome.sitesWithLostLetters, 1U);
    EXPECT_EQ(outcome.firstWithLostLetters, (std::vector<std::wstring>{L"\u65E5\u672C"}));
}

TEST_F(BookmarkImport, TakesTitlesThatAreNotInTheCodePage)
{
    source.write(L"page.html", "<H3>\xE6\x97\xA5\xE6\x9C\xAC</H3><DL><A HREF=x>n</A></DL>");
    import();
    EXPECT_EQ(folder.read(L"\u65E5\u672C.udb"), "n|x||\r\n");
}

} // namespace
} // namespace vandrel::test
