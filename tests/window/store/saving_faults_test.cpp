#include "mainwindow/menu_entries.h"
#include "tests/support/failing_files.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

constexpr const char* before = "A|a|x|1\r\nB|b|y|2\r\n";
constexpr const char* after = "A|a|changed|1\r\nB|b|y|2\r\n";
constexpr int identityCall = 5;

class SavingFault : public StoreTest {
  protected:
    void startWithAChange()
    {
        folder.write(L"Work.udb", before);
        start();
        siteRows().setText(0, 2, L"changed");
    }
    void expectTheOldFileAndTheNewList()
    {
        EXPECT_EQ(folder.read(L"Work.udb"), before);
        EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
        EXPECT_EQ(sites(), (Lines{L"A|a|changed|1", L"B|b|y|2"}));
    }
};

TEST_F(SavingFault, WhateverCallFailsTheOldFileIsWholeAndTheListShowsTheChange)
{
    startWithAChange();
    int call = 1;
    for (; call < 20; ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        FailingFiles files(call, ERROR_DISK_FULL);
        const int error = errorOf([&] { SaveItems(workspace(), files); });
        if (!files.hasFailed()) {
            EXPECT_EQ(error, 0);
            break;
        }
        if (call == identityCall) {
            EXPECT_EQ(error, 0) << "what the folder gives will do";
            folder.write(L"Work.udb", before);
            continue;
        }
        EXPECT_EQ(error, 61);
        expectTheOldFileAndTheNewList();
    }
    EXPECT_EQ(call, 7) << "six calls make a save: create, write, flush, close, copy the identity, replace";
    EXPECT_EQ(folder.read(L"Work.udb"), after);
    EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
}

TEST_F(SavingFault, AFileThatAnotherProgramHoldsIsWaitedForAndThenRefused)
{
    startWithAChange();
    HeldFile held(folder.file(L"Work.udb"));
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 70);
    EXPECT_EQ(held.slept(), 2000U);
    held.release();
    expectTheOldFileAndTheNewList();
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), after);
}

TEST_F(SavingFault, AFileThatAnotherProgramHoldsForAMomentIsSavedWhenItLetsGo)
{
    startWithAChange();
    HeldFile held(folder.file(L"Work.udb"));
    held.releaseAfterSleeping(150);
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 0);
    EXPECT_EQ(held.slept(), 150U);
    EXPECT_EQ(folder.read(L"Work.udb"), after);
    EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
}

TEST_F(SavingFault, AReadOnlyFileIsRefused)
{
    startWithAChange();
    makeReadOnly(L"Work.udb");
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 75);
    expectTheOldFileAndTheNewList();
}

TEST_F(SavingFault, AFolderInThePlaceOfTheFileIsRefused)
{
    startWithAChange();
    DeleteFileW(folder.file(L"Work.udb").c_str());
    makeFolder(L"Work.udb");
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 75);
    EXPECT_NE(GetFileAttributesW(folder.file(L"Work.udb").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_EQ(folder.names(), Lines{});
    EXPECT_EQ(lstInfo().text(0, 2), L"changed");
}

TEST_F(SavingFault, AMissingFolderIsPathNotFound)
{
    startWithAChange();
    workspace().dataFolder = folder.file(L"gone");
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 76);
    EXPECT_EQ(lstInfo().text(0, 2), L"changed");
}

TEST_F(SavingFault, TheUserGetsTheRunTimeErrorBoxAndTheProgramGoesOn)
{
    folder.write(L"Work.udb", before);
    start();
    makeReadOnly(L"Work.udb");
    selectSites({0});
    Answers answers;
    answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), Lines{L"B|b|y|2"});
    EXPECT_EQ(folder.read(L"Work.udb"), before);
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
    SetFileAttributesW(folder.file(L"Work.udb").c_str(), FILE_ATTRIBUTE_NORMAL);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), "B|b|y|2\r\n");
}

// ---- a file that exists but could not be read

TEST_F(SavingFault, ACategoryThatCouldNotBeReadIsNotOverwrittenUntilItIsReadAgain)
{
    folder.write(L"Work.udb", before);
    start();
    HeldFile held(folder.file(L"Work.udb"));
    clickCategory(L"Work");
    siteRows().add({L"C", L"c", L"", L"3"}, siteImage);
    EXPECT_EQ(errorOf([&] { SaveItems(workspace()); }), 70);
    EXPECT_EQ(sites(), Lines{L"C|c||3"});
    held.release();
    EXPECT_EQ(folder.read(L"Work.udb"), before);
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Work.udb"), std::string(before) + "C|c||3\r\n");
    EXPECT_EQ(sites(), (Lines{L"A|a|x|1", L"B|b|y|2", L"C|c||3"}));
}

TEST_F(SavingFault, AnotherCategoryIsSavedAsEverAfterOneThatCouldNotBeRead)
{
    folder.write(L"Other.udb", "C|c\r\n");
    folder.write(L"Work.udb", before);
    start();
    {
        const HeldFile held(folder.file(L"Work.udb"));
        clickCategory(L"Work");
    }
    clickCategory(L"Other");
    SaveItems(workspace());
    EXPECT_EQ(folder.read(L"Other.udb"), "C|c||\r\n");
}

} // namespace
} // namespace vandrel::test
