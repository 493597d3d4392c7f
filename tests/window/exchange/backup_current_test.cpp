#include "tests/support/backup_drive.h"
#include "tests/support/message_watch.h"
#include "tests/window/exchange/backup_test.h"

namespace vandrel::test {
namespace {

class BackupCurrentTest : public BackupTest {
  protected:
    void backUpTo(const std::wstring& path)
    {
        bool barShown = false;
        const MessageWatch bar(workspace().PB.handle(), WM_SHOWWINDOW, [&] { barShown = true; });
        const std::size_t maximum = workspace().PB.maximum();
        backUp(mnuBUCurrentCat, path);
        EXPECT_FALSE(barShown);
        EXPECT_FALSE(barIsVisible());
        EXPECT_EQ(workspace().PB.maximum(), maximum);
        expectNothingLeftOver();
    }
};

TEST_F(BackupCurrentTest, CopiesTheFileOfTheSelectedCategoryAlone)
{
    startWithThree(L"Arts");
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(target.names(), Lines{L"Arts.udb"});
    EXPECT_EQ(target.read(L"Arts.udb"), arts);
    EXPECT_EQ(folder.read(L"Arts.udb"), arts);
}

TEST_F(BackupCurrentTest, CopiesAnEmptyFile)
{
    startWithThree(L"Bare");
    target.write(L"Bare.udb", "old");
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(target.read(L"Bare.udb"), "");
}

TEST_F(BackupCurrentTest, AnEarlierCopyIsReplacedWithoutAQuestion)
{
    startWithThree();
    target.write(L"Cars.udb", std::string(100'000, 'x'));
    backUpTo(target.path());
    EXPECT_EQ(target.read(L"Cars.udb"), cars);
    folder.write(L"Cars.udb", "changed");
    backUpTo(target.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(target.read(L"Cars.udb"), "changed");
}

TEST_F(BackupCurrentTest, TheFileIsCopiedNotWhatTheListShows)
{
    startWithThree();
    siteRows().add({L"not saved", L"http://n/", L"", L""}, siteImage);
    backUpTo(target.path());
    EXPECT_EQ(target.read(L"Cars.udb"), cars);
}

TEST_F(BackupCurrentTest, TheCopyIsNamedAfterTheListNotAfterTheFile)
{
    startWithThree();
    categoryRows().setText(2, 0, L"CARS");
    backUpTo(target.path());
    EXPECT_EQ(target.names(), Lines{L"CARS.udb"});
}

TEST_F(BackupCurrentTest, TheRootOfADriveIsAFolderLikeAnyOther)
{
    startWithThree();
    const FolderDrive drive(target.path());
    if (!drive.works()) GTEST_SKIP() << "no drive letter can be given to a folder";
    backUpTo(FolderDrive::root);
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(target.read(L"Cars.udb"), cars);
}

TEST_F(BackupCurrentTest, WhatABackupThatWasKilledLeftInTheFolderIsRemoved)
{
    startWithThree();
    target.write(L"vandrel-4000000000.tmp", "half"); // no process has this id
    backUpTo(target.path());
    EXPECT_EQ(target.names(), Lines{L"Cars.udb"});
}

// ---- failures

TEST_F(BackupCurrentTest, WithoutAShownCategoryItFails)
{
    startWithThree();
    showNoCategory(workspace());
    backUpTo(target.path());
    EXPECT_EQ(outcome(), failed);
    EXPECT_EQ(target.names(), Lines{});
}

TEST_F(BackupCurrentTest, WithoutCategoriesItFails)
{
    start();
    backUpTo(target.path());
    EXPECT_EQ(outcome(), failed);
}

TEST_F(BackupCurrentTest, AMissingFileFailsAndItsEarlierCopyStays)
{
    startWithThree();
    DeleteFileW(folder.file(L"Cars.udb").c_str());
    target.write(L"Cars.udb", "old");
    backUpTo(target.path());
    EXPECT_EQ(outcome(), failed);
    EXPECT_EQ(target.read(L"Cars.udb"), "old");
    EXPECT_FALSE(folder.has(L"Cars.udb"));
}

TEST_F(BackupCurrentTest, AReadOnlyCopyFailsAndStaysAsItIs)
{
    startWithThree();
    target.write(L"Cars.udb", "old");
    SetFileAttributesW(target.file(L"Cars.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    backUpTo(target.path());
    EXPECT_EQ(outcome(), failed);
    EXPECT_EQ(target.read(L"Cars.udb"), "old");
}

TEST_F(BackupCurrentTest, ACategoryThatAnotherProgramHoldsFails)
{
    startWithThree();
    const HeldFile held(folder.file(L"Cars.udb"));
    backUpTo(target.path());
    EXPECT_EQ(outcome(), failed);
    EXPECT_EQ(target.names(), Lines{});
}

TEST_F(BackupCurrentTest, IntoTheDataFolderUnderWhateverNameFailsAndDestroysNothing)
{
    startWithThree();
    const FolderDrive drive(folder.path());
    std::wstring upper = folder.path();
    CharUpperW(upper.data());
    for (const std::wstring& path : {folder.path(), upper, std::wstring(FolderDrive::root)}) {
        if (path == FolderDrive::root && !drive.works()) continue;
        backUpTo(path);
        EXPECT_EQ(outcome(), failed);
        EXPECT_EQ(folder.read(L"Cars.udb"), cars);
        EXPECT_EQ(folder.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
    }
}

} // namespace
} // namespace vandrel::test
