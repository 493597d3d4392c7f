#include "platform/base/runtime_error.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <new>

namespace vandrel::test {
namespace {

// A folder in which some operations are refused, as to a user without the right. Under Wine every user has
// every right.
class RefusingFolder : public FileLayer {
  public:
    bool newFiles = true;
    bool replacing = true;
    bool accessRights = true;

    HANDLE createForWriting(const std::wstring& path) override
    {
        return newFiles ? FileLayer::createForWriting(path) : refused(INVALID_HANDLE_VALUE);
    }
    bool copyIdentity(const std::wstring& original, const std::wstring& copy) override
    {
        return accessRights ? FileLayer::copyIdentity(original, copy) : refused(false);
    }
    bool replace(const std::wstring& replacement, const std::wstring& target) override
    {
        return replacing ? FileLayer::replace(replacement, target) : refused(false);
    }

  private:
    template <typename T> static T refused(T answer)
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return answer;
    }
};

class SaveWithoutRights : public testing::Test {
  protected:
    SaveWithoutRights() { folder.write(L"Work.udb", before); }
    std::wstring path() const { return folder.file(L"Work.udb"); }
    int save()
    {
        return errorOf([&] { replaceFile(path(), after, files); });
    }
    void expectSavedAtOnce()
    {
        const TestClock clock;
        EXPECT_EQ(save(), 0);
        EXPECT_LT(clock.slept(), 1000U);
        EXPECT_EQ(folder.read(L"Work.udb"), after);
        EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Work.udb"});
    }

    const std::string before = "old|http://old/|of some length|\r\n";
    const std::string after = "new|http://new/||\r\n";
    RefusingFolder files;
    TempFolder folder;
};

TEST_F(SaveWithoutRights, ToSetAccessRightsGetsThoseOfTheFolder)
{
    files.accessRights = false;
    expectSavedAtOnce();
}

TEST_F(SaveWithoutRights, ToCreateFilesIsDoneInPlace)
{
    files.newFiles = false;
    expectSavedAtOnce();
}

TEST_F(SaveWithoutRights, ToReplaceTheFileIsDoneInPlace)
{
    files.replacing = false;
    expectSavedAtOnce();
}

TEST_F(SaveWithoutRights, ToCreateFilesKeepsTheIdentityOfTheFile)
{
    files.newFiles = false;
    SetFileAttributesW(path().c_str(), FILE_ATTRIBUTE_HIDDEN);
    expectSavedAtOnce();
    EXPECT_NE(GetFileAttributesW(path().c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(SaveWithoutRights, ToCreateFilesWritesShorterLongerAndEmptyContents)
{
    files.newFiles = false;
    for (const std::string& bytes : {std::string(300'000, 'x'), std::string("short"), std::string(),
                                     std::string("again"), std::string("other")}) {
        replaceFile(path(), bytes, files);
        EXPECT_EQ(folder.read(L"Work.udb"), bytes);
    }
}

TEST_F(SaveWithoutRights, ToCreateFilesRefusesANewOneWithError75)
{
    files.newFiles = false;
    EXPECT_EQ(errorOf([&] { replaceFile(folder.file(L"New.udb"), after, files); }),
              error_number::pathFileAccess);
    EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Work.udb"});
}

TEST_F(SaveWithoutRights, OfAFileThatAnotherProgramHoldsWaitsForIt)
{
    for (bool* const right : {&files.newFiles, &files.replacing}) {
        folder.write(L"Work.udb", before);
        *right = false;
        HeldFile other(path(), FILE_SHARE_READ);
        EXPECT_EQ(save(), error_number::permissionDenied);
        EXPECT_EQ(folder.read(L"Work.udb"), before);
        other.releaseAfterSleeping(300);
        EXPECT_EQ(save(), 0);
        EXPECT_EQ(folder.read(L"Work.udb"), after);
        EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Work.udb"});
        *right = true;
    }
}

TEST_F(SaveWithoutRights, OfAReadOnlyFileIsRefused)
{
    files.newFiles = false;
    SetFileAttributesW(path().c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(save(), error_number::pathFileAccess);
    EXPECT_EQ(folder.read(L"Work.udb"), before);
}

TEST_F(SaveWithoutRights, ThatRunsOutOfMemoryLeavesTheOldFile)
{
    files.newFiles = false;
    const WriteContents failing = [](const WritePart& write) -> bool {
        write("half of it");
        throw std::bad_alloc();
    };
    EXPECT_THROW(replaceFile(path(), failing, files), std::bad_alloc);
    EXPECT_EQ(folder.read(L"Work.udb"), before);
    EXPECT_EQ(save(), 0) << "nothing is held open";
}

// ---- each step of a save in place

// Refuses to create the file beside the target, and fails at the n-th call after that.
class FailingInPlace : public FailingFiles {
  public:
    using FailingFiles::FailingFiles;

    std::wstring keptPath;

    HANDLE createForWriting(const std::wstring& path) override
    {
        if (path.ends_with(L".tmp")) {
            SetLastError(ERROR_ACCESS_DENIED);
            return INVALID_HANDLE_VALUE;
        }
        keptPath = path;
        return FailingFiles::createForWriting(path);
    }
};

class SaveInPlaceStep : public SaveWithoutRights {
  protected:
    TestClock clock;

    int save(FileLayer& layer, const std::string& bytes)
    {
        return errorOf([&] { replaceFile(path(), bytes, layer); });
    }
    // Fails at one call after another, until a save goes through without a failure. Each time the old file
    // or the new one must be there, whole, or a copy of the old one when it could not be restored. Returns
    // the number of calls.
    int failAtEveryCall(const std::string& bytes, DWORD systemError, FailingFiles::How how, bool mayBeCopy)
    {
        for (int call = 1;; ++call) {
            SCOPED_TRACE("call " + std::to_string(call) + ", error " + std::to_string(systemError));
            folder.write(L"Work.udb", before);
            FailingInPlace layer(call, systemError, how);
            const int number = save(layer, bytes);
            const std::string now = folder.read(L"Work.udb");
            const std::string kept = layer.keptPath.empty() ? "" : readBytes(layer.keptPath);
            EXPECT_TRUE(now == (number == 0 ? bytes : before) || (mayBeCopy && kept == before)) << now;
            if (number == 0 || !mayBeCopy) {
                EXPECT_FALSE(fileExists(layer.keptPath));
            }
            DeleteFileW(layer.keptPath.c_str());
            EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Work.udb"});
            if (!layer.hasFailed()) {
                EXPECT_EQ(number, 0);
                return call - 1;
            }
        }
    }

    const std::string longer = std::string(1000, 'y') + "\r\n";
};

TEST_F(SaveInPlaceStep, KeepsTheOldBytesInTheFolderForTemporaryFilesUntilTheNewOnesAreFlushed)
{
    FailingInPlace layer;
    EXPECT_EQ(save(layer, after), 0);
    // Open the file, keep its bytes, check that the disk can be written to, write, truncate, remove the
    // kept bytes, close.
    EXPECT_EQ(layer.calls,
              (std::vector<std::string>{"remove", "open", "create", "write", "flush", "close", "flush",
                                        "write", "flush", "size", "flush", "remove", "close"}));
    wchar_t temporary[MAX_PATH + 1]{};
    GetTempPathW(MAX_PATH, temporary);
    EXPECT_EQ(layer.keptPath, extendedPath(temporary) + L"vandrel-" + std::to_wstring(GetCurrentProcessId()) +
                                  L"-Work.udb.old");
    EXPECT_FALSE(fileExists(layer.keptPath));
}

TEST_F(SaveInPlaceStep, ThatFailsOnceLeavesTheOldFileOrTheNewOne)
{
    for (const DWORD error : {ERROR_DISK_FULL, ERROR_WRITE_FAULT, ERROR_ACCESS_DENIED,
                              ERROR_SHARING_VIOLATION, ERROR_NOT_READY}) {
        EXPECT_EQ(failAtEveryCall(after, static_cast<DWORD>(error), FailingFiles::How::once, false), 11);
        EXPECT_EQ(failAtEveryCall(longer, static_cast<DWORD>(error), FailingFiles::How::once, false), 10);
    }
}

TEST_F(SaveInPlaceStep, OnADiskThatDisappearsLeavesTheOldBytesSomewhere)
{
    for (const DWORD error : {ERROR_DISK_FULL, ERROR_NOT_READY}) {
        failAtEveryCall(after, static_cast<DWORD>(error), FailingFiles::How::forGood, true);
        failAtEveryCall(longer, static_cast<DWORD>(error), FailingFiles::How::forGood, true);
    }
}

TEST_F(SaveInPlaceStep, NeverOverwritesOldBytesThatWereLeft)
{
    FailingInPlace first;
    EXPECT_EQ(save(first, after), 0);
    {
        std::ofstream stayed(std::filesystem::path(first.keptPath), std::ios::binary);
        stayed << "of another save";
    }
    FailingInPlace second;
    EXPECT_EQ(save(second, before), 0);
    EXPECT_NE(second.keptPath, first.keptPath);
    EXPECT_FALSE(fileExists(second.keptPath));
    EXPECT_EQ(readBytes(first.keptPath), "of another save");
    DeleteFileW(first.keptPath.c_str());
}

TEST_F(SaveInPlaceStep, OfANameAsLongAsNamesCanBeKeepsTheOldBytesToo)
{
    const std::wstring name = std::wstring(251, L'n') + L".udb";
    folder.write(name, before);
    FailingInPlace layer;
    EXPECT_EQ(errorOf([&] { replaceFile(folder.file(name), after, layer); }), 0);
    EXPECT_EQ(std::ranges::count(layer.calls, "create"), 1);
    EXPECT_EQ(std::ranges::count(layer.calls, "write"), 2) << "of the old bytes and the new ones";
    EXPECT_EQ(folder.read(name), after);
}

} // namespace
} // namespace vandrel::test
