#include "platform/windows/message_throttle.h"
#include "tests/support/backup_drive.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_clock.h"
#include "tests/window/exchange/backup_test.h"

namespace vandrel::test {
namespace {

class BackupAllTest : public BackupTest {
  protected:
    void backUpTo(
        const std::wstring& path, const std::function<void()>& then = [] {})
    {
        backUp(mnuBUAllCat, path, then);
    }
    void expectThreeCopies()
    {
        EXPECT_EQ(target.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
        EXPECT_EQ(target.read(L"Arts.udb"), arts);
        EXPECT_EQ(target.read(L"Bare.udb"), "");
        EXPECT_EQ(target.read(L"Cars.udb"), cars);
    }
    void expectUntouched(const TempFolder& place)
    {
        EXPECT_EQ(place.read(L"Arts.udb"), arts);
        EXPECT_EQ(place.read(L"Bare.udb"), "");
        EXPECT_EQ(place.read(L"Cars.udb"), cars);
    }
    void expectFailure()
    {
        EXPECT_EQ(outcome(), failed);
        EXPECT_TRUE(barIsVisible());
        expectNothingLeftOver();
    }
};

TEST_F(BackupAllTest, CopiesTheFileOfEachCategoryByteForByteAndNothingElse)
{
    folder.write(L"scanned.log", "a log");
    folder.write(L"notes.txt", "notes");
    startWithThree();
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    expectThreeCopies();
    expectUntouched(folder);
}

TEST_F(BackupAllTest, TheCategoriesAreThoseInTheList)
{
    startWithThree();
    folder.write(L"Later.udb", "not listed");
    backUpTo(target.path());
    expectThreeCopies();
}

TEST_F(BackupAllTest, FilesAreCopiedNotWhatTheListShows)
{
    startWithThree();
    siteRows().add({L"not saved", L"http://n/", L"", L""}, siteImage);
    backUpTo(target.path());
    expectThreeCopies();
    EXPECT_EQ(lstInfo().count(), 2U);
}

TEST_F(BackupAllTest, EarlierCopiesAreReplacedWithoutAQuestion)
{
    startWithThree();
    target.write(L"Arts.udb", std::string(100'000, 'x'));
    target.write(L"Other.udb", "stays");
    backUpTo(target.path());
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    expectUntouched(target);
    EXPECT_EQ(target.read(L"Other.udb"), "stays");
    EXPECT_EQ(target.names().size(), 4U);
}

TEST_F(BackupAllTest, ACopyIsNamedAfterTheListNotAfterTheFile)
{
    startWithThree();
    categoryRows().setText(0, 0, L"ARTS");
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(target.names(), (Lines{L"ARTS.udb", L"Bare.udb", L"Cars.udb"}));
}

TEST_F(BackupAllTest, TheRootOfADriveIsAFolderLikeAnyOther)
{
    startWithThree();
    const FolderDrive drive(target.path());
    if (!drive.works()) GTEST_SKIP() << "no drive letter can be given to a folder";
    backUpTo(FolderDrive::root);
    EXPECT_EQ(outcome(), done);
    expectThreeCopies();
}

TEST_F(BackupAllTest, WithoutCategoriesNothingIsCopiedAndNothingFails)
{
    start();
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_FALSE(barIsVisible());
    EXPECT_EQ(target.names(), Lines{});
}

TEST_F(BackupAllTest, ChangesNothingElseInTheWindow)
{
    startWithThree(L"Arts");
    siteRows().sortBy(0, SortOrder::ascending);
    lstInfo().select(1);
    const Lines before = sites();
    backUpTo(target.path());
    EXPECT_EQ(selectedTitle(), L"Arts");
    EXPECT_EQ(sites(), before);
    EXPECT_EQ(lstInfo().currentRow(), 1U);
    EXPECT_EQ(windowText(main->handle()), L"Vandrel - Arts");
}

// ---- the progress bar

TEST_F(BackupAllTest, TheBarShowsEachCategoryBeforeItIsCopied)
{
    startWithThree();
    std::vector<std::size_t> values;
    std::vector<std::size_t> copies;
    TestClock clock;
    const MessageWatch watch(workspace().PB.handle(), PBM_SETPOS, [&] {
        clock.pass(100); // long enough for each to be shown
        values.push_back(workspace().PB.value());
        copies.push_back(target.names().size());
        EXPECT_TRUE(barIsVisible());
        EXPECT_EQ(workspace().PB.maximum(), 3U);
    });
    backUpTo(target.path());
    EXPECT_EQ(values, (std::vector<std::size_t>{1, 2, 3}));
    EXPECT_EQ(copies, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_FALSE(barIsVisible());
}

TEST_F(BackupAllTest, TheWindowIsPaintedMeanwhileAndTakesNoInput)
{
    startWithThree();
    TestClock clock;
    int paints = 0;
    bool typed = false;
    const MessageWatch paint(lstInfo().handle(), WM_PAINT, [&] { ++paints; });
    const MessageWatch keys(lstCategory().handle(), WM_KEYDOWN, [&] { typed = true; });
    const MessageWatch slow(workspace().PB.handle(), PBM_SETPOS, [&] {
        InvalidateRect(lstInfo().handle(), nullptr, FALSE);
        PostMessageW(lstCategory().handle(), WM_KEYDOWN, VK_HOME, 1);
        PostMessageW(main->handle(), WM_COMMAND, mnuGridlines, 0);
        clock.pass(MessageThrottle::usualMilliseconds);
    });
    const bool before = lstInfo().gridLines();
    backUpTo(target.path());
    EXPECT_GE(paints, 3);
    EXPECT_FALSE(typed);
    EXPECT_EQ(lstInfo().gridLines(), before);
    expectThreeCopies();
    pump();
    EXPECT_TRUE(typed); // it was only delayed
    EXPECT_NE(lstInfo().gridLines(), before);
}

// ---- failures

TEST_F(BackupAllTest, AMissingFileStopsItWhereItIsMissed)
{
    startWithThree();
    DeleteFileW(folder.file(L"Bare.udb").c_str());
    target.write(L"Cars.udb", "old");
    backUpTo(target.path());
    expectFailure();
    EXPECT_EQ(workspace().PB.value(), 2U);
    EXPECT_EQ(target.names(), (Lines{L"Arts.udb", L"Cars.udb"}));
    EXPECT_EQ(target.read(L"Arts.udb"), arts);
    EXPECT_EQ(target.read(L"Cars.udb"), "old");
    EXPECT_FALSE(folder.has(L"Bare.udb"));
}

TEST_F(BackupAllTest, AReadOnlyCopyStopsItAndStaysAsItIs)
{
    startWithThree();
    target.write(L"Bare.udb", "old");
    SetFileAttributesW(target.file(L"Bare.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    backUpTo(target.path());
    expectFailure();
    EXPECT_EQ(target.names(), (Lines{L"Arts.udb", L"Bare.udb"}));
    EXPECT_EQ(target.read(L"Bare.udb"), "old");
}

TEST_F(BackupAllTest, AFolderInThePlaceOfACopyStopsIt)
{
    startWithThree();
    CreateDirectoryW(target.file(L"Arts.udb").c_str(), nullptr);
    backUpTo(target.path());
    expectFailure();
    EXPECT_EQ(workspace().PB.value(), 1U);
    EXPECT_EQ(target.names(), Lines{});
}

TEST_F(BackupAllTest, AnEarlierCopyThatAnotherProgramHoldsStaysWhole)
{
    startWithThree();
    target.write(L"Arts.udb", "old");
    {
        const HeldFile held(target.file(L"Arts.udb"));
        backUpTo(target.path());
    }
    expectFailure();
    EXPECT_EQ(target.read(L"Arts.udb"), "old");
    EXPECT_EQ(target.names(), Lines{L"Arts.udb"});
}

TEST_F(BackupAllTest, ACategoryThatAnotherProgramHoldsStopsItAndItsEarlierCopyStaysWhole)
{
    startWithThree();
    target.write(L"Bare.udb", "old");
    {
        const HeldFile held(folder.file(L"Bare.udb"));
        backUpTo(target.path());
    }
    expectFailure();
    EXPECT_EQ(target.names(), (Lines{L"Arts.udb", L"Bare.udb"}));
    EXPECT_EQ(target.read(L"Bare.udb"), "old");
}

TEST_F(BackupAllTest, AFolderThatVanishedFails)
{
    startWithThree();
    const std::wstring gone = target.file(L"gone");
    CreateDirectoryW(gone.c_str(), nullptr);
    backUpTo(gone, [&] { RemoveDirectoryW(gone.c_str()); });
    expectFailure();
    EXPECT_EQ(GetFileAttributesW(gone.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(BackupAllTest, TheNextBackupThatSucceedsHidesTheBar)
{
    startWithThree();
    CreateDirectoryW(target.file(L"Arts.udb").c_str(), nullptr);
    backUpTo(target.path());
    expectFailure();
    RemoveDirectoryW(target.file(L"Arts.udb").c_str());
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_FALSE(barIsVisible());
    expectThreeCopies();
}

TEST_F(BackupAllTest, IntoTheDataFolderItselfFailsAndDestroysNothing)
{
    startWithThree();
    backUpTo(folder.path());
    expectFailure();
    expectUntouched(folder);
    EXPECT_EQ(folder.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
}

TEST_F(BackupAllTest, IntoTheDataFolderUnderAnotherSpellingFailsAndDestroysNothing)
{
    startWithThree();
    std::wstring upper = folder.path();
    CharUpperW(upper.data());
    backUpTo(upper);
    expectFailure();
    expectUntouched(folder);
}

TEST_F(BackupAllTest, IntoTheDataFolderThroughAnotherDriveFailsAndDestroysNothing)
{
    startWithThree();
    const FolderDrive drive(folder.path());
    if (!drive.works()) GTEST_SKIP() << "no drive letter can be given to a folder";
    backUpTo(FolderDrive::root);
    expectFailure();
    expectUntouched(folder);
    EXPECT_EQ(folder.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
}

} // namespace
} // namespace vandrel::test
