#include "platform/base/runtime_error.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <new>

namespace vandrel::test {
namespace {

using Names = std::vector<std::wstring>;

constexpr const wchar_t* savedName = L"Work.udb";
const std::string oldSites = "old|http://old/||\r\n";
const std::string newSites = "new|http://new/||\r\nnew too|http://new/||\r\n";

class FailingSave : public testing::Test {
  protected:
    // The number of the error that the save raises; 0 when it succeeds.
    int save(FileLayer& files)
    {
        return errorOf([&] { replaceFile(folder.file(savedName), newSites, files); });
    }

    // Fails at the first call, then at the second and so on, until a save goes through without a failure.
    void failAtEveryCall(DWORD systemError, FailingFiles::How how, int expectedNumber)
    {
        int failures = 0;
        for (int call = 1;; ++call) {
            folder.write(savedName, oldSites);
            FailingFiles files(call, systemError, how);
            const int number = save(files);
            EXPECT_EQ(folder.names(), Names{savedName}) << "call " << call;
            EXPECT_EQ(folder.read(savedName), number == 0 ? newSites : oldSites) << "call " << call;
            if (!files.hasFailed()) {
                EXPECT_EQ(number, 0);
                break;
            }
            ++failures;
            if (number != 0) {
                EXPECT_EQ(number, expectedNumber) << "call " << call;
            }
        }
        EXPECT_EQ(failures, 6); // create, write, flush, close, identity, replace
    }

    TempFolder folder;
};

TEST_F(FailingSave, WithoutAFailureTheFileIsFlushedAndReplacesTheOldOneLast)
{
    folder.write(savedName, oldSites);
    FailingFiles files;
    EXPECT_EQ(save(files), 0);
    EXPECT_EQ(files.calls,
              (std::vector<std::string>{"create", "write", "flush", "close", "identity", "replace"}));
    EXPECT_EQ(folder.read(savedName), newSites);
    EXPECT_EQ(folder.names(), Names{savedName});
}

TEST_F(FailingSave, OnAFullDiskIsError61AndTheOldFileIsWhole)
{
    failAtEveryCall(ERROR_DISK_FULL, FailingFiles::How::once, error_number::diskFull);
    failAtEveryCall(ERROR_DISK_FULL, FailingFiles::How::forGood, error_number::diskFull);
}

TEST_F(FailingSave, OnADiskThatIsGoneIsError71AndTheOldFileIsWhole)
{
    failAtEveryCall(ERROR_NOT_READY, FailingFiles::How::forGood, error_number::diskNotReady);
}

TEST_F(FailingSave, OnABrokenDiskIsError57AndTheOldFileIsWhole)
{
    failAtEveryCall(ERROR_WRITE_FAULT, FailingFiles::How::forGood, error_number::deviceError);
    failAtEveryCall(ERROR_CRC, FailingFiles::How::once, error_number::deviceError);
}

TEST_F(FailingSave, WhileATemporaryLockLastsLeavesOneOfTheTwoFilesWhole)
{
    failAtEveryCall(ERROR_SHARING_VIOLATION, FailingFiles::How::once, error_number::permissionDenied);
    failAtEveryCall(ERROR_LOCK_VIOLATION, FailingFiles::How::once, error_number::permissionDenied);
}

TEST_F(FailingSave, AWriteProtectedDiskIsError75AndTheOldFileIsWhole)
{
    failAtEveryCall(ERROR_WRITE_PROTECT, FailingFiles::How::forGood, error_number::pathFileAccess);
}

TEST_F(FailingSave, AFolderInWhichNothingMayBeChangedIsError75AtOnce)
{
    folder.write(savedName, oldSites);
    FailingFiles files(1, ERROR_ACCESS_DENIED, FailingFiles::How::forGood);
    EXPECT_EQ(save(files), error_number::pathFileAccess);
    EXPECT_EQ(files.calls, (std::vector<std::string>{"create", "remove", "open"}));
    EXPECT_EQ(folder.read(savedName), oldSites);
}

TEST_F(FailingSave, ATemporaryLockIsWaitedForAndTheSaveSucceeds)
{
    for (const DWORD held : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_ACCESS_DENIED}) {
        folder.write(savedName, oldSites);
        FailingFiles files(6, static_cast<DWORD>(held)); // the call that replaces the old file
        EXPECT_EQ(save(files), 0);
        EXPECT_EQ(files.calls.size(), 7U);
        EXPECT_EQ(folder.read(savedName), newSites);
        EXPECT_EQ(folder.names(), Names{savedName});
    }
}

TEST_F(FailingSave, OfAFileThatIsNotThereYetLeavesNothing)
{
    for (int call = 1; call <= 6; ++call) {
        FailingFiles files(call, ERROR_DISK_FULL, FailingFiles::How::forGood);
        EXPECT_EQ(save(files), error_number::diskFull);
        EXPECT_TRUE(folder.names().empty());
    }
}

TEST_F(FailingSave, WhoseTemporaryFileCannotBeRemovedKeepsTheOldFileAndTheFirstReason)
{
    folder.write(savedName, oldSites);
    FailingFiles files(2, ERROR_DISK_FULL);
    files.removalFails = true;
    EXPECT_EQ(save(files), error_number::diskFull);
    EXPECT_EQ(folder.read(savedName), oldSites);
    ASSERT_EQ(folder.names().size(), 2U);
    EXPECT_EQ(save(files), 0);
    EXPECT_EQ(folder.names(), Names{savedName}); // the next save replaces the left-over file
}

TEST_F(FailingSave, WritesBesideTheFileUnderANameOfThisProcessThatIsNotACategory)
{
    FailingFiles files;
    EXPECT_EQ(save(files), 0);
    EXPECT_TRUE(files.temporaryPath.starts_with(extendedPath(folder.path()) + L"\\")) << files.temporaryPath;
    EXPECT_FALSE(files.temporaryPath.ends_with(L".udb"));
    EXPECT_NE(files.temporaryPath.find(std::to_wstring(GetCurrentProcessId())), std::wstring::npos);
    EXPECT_EQ(files.temporaryPath.rfind(L'\\'), extendedPath(folder.path()).size());
}

TEST_F(FailingSave, OfAnEmptyTextLeavesTheOldOneToo)
{
    folder.write(savedName, oldSites);
    FailingFiles failing(2, ERROR_DISK_FULL);
    EXPECT_THROW(replaceFile(folder.file(savedName), "", failing), RuntimeError);
    EXPECT_EQ(folder.read(savedName), oldSites);
    replaceFile(folder.file(savedName), "");
    EXPECT_EQ(folder.read(savedName), "");
}

TEST_F(FailingSave, ThatRunsOutOfMemoryInTheMiddleLeavesTheOldFileAloneAndNothingBesideIt)
{
    folder.write(savedName, oldSites);
    const WriteContents failing = [](const WritePart& write) -> bool {
        EXPECT_TRUE(write("half of it"));
        throw std::bad_alloc();
    };
    EXPECT_THROW(replaceFile(folder.file(savedName), failing), std::bad_alloc);
    EXPECT_EQ(folder.read(savedName), oldSites);
    EXPECT_EQ(folder.names(), Names{savedName});
    FileLayer& files = systemFiles();
    EXPECT_EQ(save(files), 0) << "nothing is held open";
}

TEST_F(FailingSave, InAnyOfManyPartsLeavesTheOldFile)
{
    for (int call = 2; call <= 4; ++call) {
        folder.write(savedName, oldSites);
        FailingFiles files(call, ERROR_DISK_FULL);
        const WriteContents parts = [](const WritePart& write) {
            return write("one") && write("two") && write("three");
        };
        EXPECT_EQ(errorOf([&] { replaceFile(folder.file(savedName), parts, files); }),
                  error_number::diskFull);
        EXPECT_EQ(folder.read(savedName), oldSites);
        EXPECT_EQ(folder.names(), Names{savedName});
    }
}

TEST_F(FailingSave, ReportsWhyThePartWasRefusedWhateverHappensAfterwards)
{
    folder.write(savedName, oldSites);
    FailingFiles files(2, ERROR_DISK_FULL);
    const WriteContents contents = [](const WritePart& write) {
        const bool good = write("one");
        SetLastError(ERROR_INVALID_HANDLE);
        return good;
    };
    EXPECT_EQ(errorOf([&] { replaceFile(folder.file(savedName), contents, files); }), error_number::diskFull);
    EXPECT_EQ(folder.read(savedName), oldSites);
}

} // namespace
} // namespace vandrel::test
