#include "platform/base/runtime_error.h"
#include "platform/files/file_layer.h"
#include "tests/support/backup_drive.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using Names = std::vector<std::wstring>;

class FileCopy : public testing::Test {
  protected:
    int copy(const std::wstring& from, const std::wstring& to)
    {
        return errorOf([&] { copyFile(folder.file(from), target.file(to)); });
    }
    static DWORD readOnlyMark(const std::wstring& path)
    {
        return GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY;
    }

    TempFolder folder;
    TempFolder target{L"target"};
};

TEST_F(FileCopy, HasTheSameBytesAndTheOriginalStays)
{
    const std::string bytes = std::string("a|\r\n\0\x1A\xFF", 7) + std::string(200'000, 'x');
    folder.write(L"a.udb", bytes);
    EXPECT_EQ(copy(L"a.udb", L"b.udb"), 0);
    EXPECT_EQ(target.names(), Names{L"b.udb"});
    EXPECT_EQ(target.read(L"b.udb"), bytes);
    EXPECT_EQ(folder.read(L"a.udb"), bytes);
    EXPECT_EQ(folder.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, OfAnEmptyFileIsAnEmptyFile)
{
    folder.write(L"a.udb", "");
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.names(), Names{L"a.udb"});
    EXPECT_EQ(target.read(L"a.udb"), "");
}

TEST_F(FileCopy, TakesThePlaceOfALongerFile)
{
    folder.write(L"a.udb", "new");
    target.write(L"a.udb", std::string(10'000, 'x'));
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.read(L"a.udb"), "new");
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, TakesPathsOfAnyLength)
{
    std::wstring deep = target.path();
    for (int i = 0; i < 8; ++i) {
        deep += L"\\" + std::wstring(50, L'd');
        ASSERT_TRUE(CreateDirectoryW(extendedPath(deep).c_str(), nullptr));
    }
    folder.write(L"a.udb", "bytes");
    const std::wstring path = deep + L"\\" + std::wstring(200, L'n') + L".udb";
    EXPECT_EQ(errorOf([&] { copyFile(folder.file(L"a.udb"), path); }), 0);
    EXPECT_EQ(errorOf([&] { copyFile(path, folder.file(L"back.udb")); }), 0);
    EXPECT_EQ(folder.read(L"back.udb"), "bytes");
    removeFile(path);
    for (; deep != target.path(); deep.resize(deep.rfind(L'\\'))) {
        EXPECT_TRUE(RemoveDirectoryW(extendedPath(deep).c_str()));
    }
}

TEST_F(FileCopy, TakesNamesThatTheCodePageLacks)
{
    folder.write(L"\u65E5\u672C \u0416.udb", "bytes");
    EXPECT_EQ(copy(L"\u65E5\u672C \u0416.udb", L"\u65E5\u672C \u0416.udb"), 0);
    EXPECT_EQ(target.read(L"\u65E5\u672C \u0416.udb"), "bytes");
}

TEST_F(FileCopy, TwoBackslashesAreOne)
{
    folder.write(L"a.udb", "bytes");
    EXPECT_EQ(copy(L"a.udb", L"\\a.udb"), 0);
    EXPECT_EQ(target.names(), Names{L"a.udb"});
    EXPECT_EQ(copy(L"\\a.udb", L"\\\\b.udb"), 0);
    EXPECT_EQ(target.names(), (Names{L"a.udb", L"b.udb"}));
}

TEST_F(FileCopy, TheRootOfADriveMayEndWithABackslashBeforeTheAddedOne)
{
    const FolderDrive drive(target.path());
    if (!drive.works()) GTEST_SKIP() << "no drive letter can be given to a folder";
    folder.write(L"a.udb", "bytes");
    EXPECT_EQ(errorOf([&] { copyFile(folder.file(L"a.udb"), L"R:\\\\a.udb"); }), 0);
    EXPECT_EQ(target.names(), Names{L"a.udb"});
    EXPECT_EQ(target.read(L"a.udb"), "bytes");
}

TEST_F(FileCopy, OfAReadOnlyFileIsMade)
{
    folder.write(L"a.udb", "bytes");
    SetFileAttributesW(folder.file(L"a.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.read(L"a.udb"), "bytes");
    EXPECT_NE(readOnlyMark(folder.file(L"a.udb")), 0U);
}

TEST_F(FileCopy, OfAHiddenFileIsMadeAgainAndAgain)
{
    folder.write(L"a.udb", "bytes");
    SetFileAttributesW(folder.file(L"a.udb").c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.read(L"a.udb"), "bytes");
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, AFileThatOthersReadIsCopied)
{
    folder.write(L"a.udb", "bytes");
    const HeldFile reader(folder.file(L"a.udb"), FILE_SHARE_READ);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.read(L"a.udb"), "bytes");
}

TEST_F(FileCopy, WaitsForATargetThatAnotherProgramHoldsForAMoment)
{
    folder.write(L"a.udb", "new");
    target.write(L"a.udb", "old");
    HeldFile other(target.file(L"a.udb"));
    other.releaseAfterSleeping(200);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(other.slept(), 200U);
    EXPECT_EQ(target.read(L"a.udb"), "new");
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

// ---- failures: the target stays as it is, and nothing is left beside it

TEST_F(FileCopy, OfAMissingFileIsError53)
{
    target.write(L"a.udb", "old");
    EXPECT_EQ(copy(L"none.udb", L"a.udb"), error_number::fileNotFound);
    EXPECT_EQ(target.read(L"a.udb"), "old");
    EXPECT_EQ(copy(L"none.udb", L"b.udb"), error_number::fileNotFound);
    EXPECT_EQ(target.names(), Names{L"a.udb"});
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(FileCopy, OfAFolderFails)
{
    CreateDirectoryW(folder.file(L"a.udb").c_str(), nullptr);
    EXPECT_NE(copy(L"a.udb", L"a.udb"), 0);
    EXPECT_EQ(target.names(), Names{});
}

TEST_F(FileCopy, IntoAMissingFolderIsError76)
{
    folder.write(L"a.udb", "bytes");
    EXPECT_EQ(copy(L"a.udb", L"gone\\a.udb"), error_number::pathNotFound);
    EXPECT_EQ(target.names(), Names{});
}

TEST_F(FileCopy, OverAReadOnlyFileIsError75)
{
    folder.write(L"a.udb", "new");
    target.write(L"a.udb", "old");
    SetFileAttributesW(target.file(L"a.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), error_number::pathFileAccess);
    EXPECT_EQ(target.read(L"a.udb"), "old");
    EXPECT_NE(readOnlyMark(target.file(L"a.udb")), 0U);
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, OverAFolderIsError75)
{
    folder.write(L"a.udb", "new");
    CreateDirectoryW(target.file(L"a.udb").c_str(), nullptr);
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), error_number::pathFileAccess);
    EXPECT_EQ(target.names(), Names{});
}

TEST_F(FileCopy, OfAFileThatAnotherProgramHoldsIsError70)
{
    folder.write(L"a.udb", "new");
    target.write(L"a.udb", "old");
    const HeldFile other(folder.file(L"a.udb"));
    EXPECT_EQ(copy(L"a.udb", L"a.udb"), error_number::permissionDenied);
    EXPECT_EQ(target.read(L"a.udb"), "old");
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, OverAFileThatAnotherProgramHoldsFailsAndLeavesNothing)
{
    folder.write(L"a.udb", "new");
    target.write(L"a.udb", "old");
    HeldFile other(target.file(L"a.udb"));
    EXPECT_NE(copy(L"a.udb", L"a.udb"), 0);
    other.release();
    EXPECT_EQ(target.read(L"a.udb"), "old");
    EXPECT_EQ(target.names(), Names{L"a.udb"});
}

TEST_F(FileCopy, OfAReadOnlyFileThatFailsLeavesNothing)
{
    folder.write(L"a.udb", "new");
    SetFileAttributesW(folder.file(L"a.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    target.write(L"a.udb", "old");
    HeldFile other(target.file(L"a.udb"));
    EXPECT_NE(copy(L"a.udb", L"a.udb"), 0);
    other.release();
    EXPECT_EQ(target.names(), Names{L"a.udb"});
    EXPECT_EQ(target.read(L"a.udb"), "old");
}

// ---- onto itself

TEST_F(FileCopy, OntoItselfUnderWhateverNameIsError70AndTheFileStaysWhole)
{
    folder.write(L"Work.udb", "bytes");
    const std::wstring path = folder.file(L"Work.udb");
    std::wstring otherCase = path;
    for (wchar_t& letter : otherCase) letter = static_cast<wchar_t>(towupper(static_cast<wint_t>(letter)));
    const std::wstring name = folder.path().substr(folder.path().rfind(L'\\') + 1);
    for (const std::wstring& to : {path, otherCase, folder.file(L"\\Work.udb"), folder.file(L".\\Work.udb"),
                                   folder.file(L"..\\" + name + L"\\WORK.udb")}) {
        EXPECT_NE(errorOf([&] { copyFile(path, to); }), 0) << testing::PrintToString(to);
        EXPECT_EQ(folder.names(), Names{L"Work.udb"});
        EXPECT_EQ(folder.read(L"Work.udb"), "bytes");
    }
    EXPECT_EQ(errorOf([&] { copyFile(path, path); }), error_number::permissionDenied);
    EXPECT_EQ(errorOf([&] { copyFile(path, otherCase); }), error_number::permissionDenied);
}

TEST_F(FileCopy, OntoItselfThroughAnotherDriveLetterIsError70)
{
    const FolderDrive drive(folder.path());
    if (!drive.works()) GTEST_SKIP() << "no drive letter can be given to a folder";
    folder.write(L"Work.udb", "bytes");
    EXPECT_EQ(errorOf([&] { copyFile(folder.file(L"Work.udb"), L"R:\\\\Work.udb"); }),
              error_number::permissionDenied);
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
    EXPECT_EQ(folder.read(L"Work.udb"), "bytes");
}

TEST_F(FileCopy, OntoAnotherNameOfTheSameFileIsError70)
{
    folder.write(L"Work.udb", "bytes");
    if (!CreateHardLinkW(target.file(L"Work.udb").c_str(), folder.file(L"Work.udb").c_str(), nullptr)) {
        GTEST_SKIP() << "a file has one name here";
    }
    EXPECT_EQ(copy(L"Work.udb", L"Work.udb"), error_number::permissionDenied);
    EXPECT_EQ(folder.read(L"Work.udb"), "bytes");
    EXPECT_EQ(target.read(L"Work.udb"), "bytes");
}

TEST_F(FileCopy, OverAFileThatOnlyLooksLikeItIsMade)
{
    folder.write(L"Work.udb", "bytes");
    target.write(L"Work.udb", "bytes");
    EXPECT_EQ(copy(L"Work.udb", L"Work.udb"), 0);
}

// ---- a file written in its place

class PlainWrite : public testing::Test {
  protected:
    TempFolder folder;
};

TEST_F(PlainWrite, TakesThePlaceOfWhateverTheFileHeld)
{
    for (const std::string& bytes : {std::string(5000, 'x'), std::string("short"), std::string()}) {
        writeFile(folder.file(L"a.htm"), bytes);
        EXPECT_EQ(folder.read(L"a.htm"), bytes);
        EXPECT_EQ(folder.names(), Names{L"a.htm"});
    }
}

TEST_F(PlainWrite, AFailureLeavesTheFileAsFarAsItWasWritten)
{
    folder.write(L"a.htm", std::string(100, 'x'));
    FailingFiles files(2, ERROR_DISK_FULL);
    EXPECT_EQ(errorOf([&] { writeFile(folder.file(L"a.htm"), "0123456789", files); }),
              error_number::diskFull);
    EXPECT_EQ(files.calls, (std::vector<std::string>{"create", "write", "close"}));
    EXPECT_EQ(folder.read(L"a.htm"), "01234");
    EXPECT_EQ(folder.names(), Names{L"a.htm"});
}

TEST_F(PlainWrite, AFailureOfTheCloseCountsToo)
{
    FailingFiles files(3, ERROR_DISK_FULL);
    EXPECT_EQ(errorOf([&] { writeFile(folder.file(L"a.htm"), "0123456789", files); }),
              error_number::diskFull);
}

TEST_F(PlainWrite, AFileThatCannotBeMadeIsAnErrorWithItsReason)
{
    EXPECT_EQ(errorOf([&] { writeFile(folder.file(L"gone\\a.htm"), ""); }), error_number::pathNotFound);
    CreateDirectoryW(folder.file(L"dir.htm").c_str(), nullptr);
    EXPECT_EQ(errorOf([&] { writeFile(folder.file(L"dir.htm"), ""); }), error_number::pathFileAccess);
    folder.write(L"fixed.htm", "old");
    SetFileAttributesW(folder.file(L"fixed.htm").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(errorOf([&] { writeFile(folder.file(L"fixed.htm"), ""); }), error_number::pathFileAccess);
    EXPECT_EQ(folder.read(L"fixed.htm"), "old");
}

} // namespace
} // namespace vandrel::test
