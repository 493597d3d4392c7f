#include "platform/base/handle.h"
#include "platform/base/system_error.h"
#include "platform/files/file_layer.h"
#include "platform/files/folder.h"
#include "tests/support/error_of.h"
#include "tests/support/temp_folder.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

class FileOperations : public testing::Test {
  protected:
    TempFolder folder;
};

TEST_F(FileOperations, AFileIsRemoved)
{
    folder.write(L"Work.udb", "old");
    removeFile(folder.file(L"Work.udb"));
    EXPECT_FALSE(folder.has(L"Work.udb"));
}

TEST_F(FileOperations, RemovingAFileThatIsNotThereIsError53)
{
    EXPECT_EQ(errorOf([&] { removeFile(folder.file(L"none.udb")); }), error_number::fileNotFound);
}

TEST_F(FileOperations, AFileThatAnotherProgramHoldsIsNotRemoved)
{
    folder.write(L"Work.udb", "old");
    FileHandle other(
        CreateFileW(folder.file(L"Work.udb").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(errorOf([&] { removeFile(folder.file(L"Work.udb")); }), error_number::permissionDenied);
    other.reset();
    EXPECT_EQ(folder.read(L"Work.udb"), "old");
}

TEST_F(FileOperations, AFileIsRenamedWithItsContent)
{
    folder.write(L"Work.udb", "old");
    renameFile(folder.file(L"Work.udb"), folder.file(L"Home.udb"));
    EXPECT_EQ(folder.names(), std::vector<std::wstring>{L"Home.udb"});
    EXPECT_EQ(folder.read(L"Home.udb"), "old");
}

TEST_F(FileOperations, RenamingOntoAnotherFileIsError58AndBothStay)
{
    folder.write(L"Work.udb", "work");
    folder.write(L"Home.udb", "home");
    EXPECT_EQ(errorOf([&] { renameFile(folder.file(L"Work.udb"), folder.file(L"Home.udb")); }),
              error_number::fileAlreadyExists);
    EXPECT_EQ(folder.read(L"Work.udb"), "work");
    EXPECT_EQ(folder.read(L"Home.udb"), "home");
}

TEST_F(FileOperations, ANameCanBeChangedInCaseOnly)
{
    folder.write(L"work.udb", "work");
    renameFile(folder.file(L"work.udb"), folder.file(L"Work.udb"));
    // Wine takes both names for the same file and leaves it alone.
    EXPECT_EQ(folder.names(), std::vector<std::wstring>{runsUnderWine() ? L"work.udb" : L"Work.udb"});
    EXPECT_EQ(folder.read(L"Work.udb"), "work");
}

TEST_F(FileOperations, RenamingWhatIsNotThereIsError53)
{
    EXPECT_EQ(errorOf([&] { renameFile(folder.file(L"none.udb"), folder.file(L"a.udb")); }),
              error_number::fileNotFound);
}

TEST_F(FileOperations, AFolderIsNotAFile)
{
    CreateDirectoryW(folder.file(L"Dir.udb").c_str(), nullptr);
    EXPECT_FALSE(fileExists(folder.file(L"Dir.udb")));
    EXPECT_FALSE(fileExists(folder.file(L"none.udb")));
    folder.write(L"Work.udb", "");
    EXPECT_TRUE(fileExists(folder.file(L"Work.udb")));
    EXPECT_EQ(fileNamesIn(folder.path()), std::vector<std::wstring>{L"Work.udb"});
}

TEST_F(FileOperations, HiddenFilesAreListedToo)
{
    folder.write(L"Work.udb", "");
    SetFileAttributesW(folder.file(L"Work.udb").c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(fileNamesIn(folder.path()), std::vector<std::wstring>{L"Work.udb"});
}

TEST_F(FileOperations, ManyFilesAreListedEachOnce)
{
    std::vector<std::wstring> names;
    for (int i = 100; i < 400; ++i) {
        names.push_back(std::to_wstring(i) + L".udb");
        folder.write(names.back(), "");
    }
    auto listed = fileNamesIn(folder.path());
    std::ranges::sort(listed);
    EXPECT_EQ(listed, names);
}

TEST_F(FileOperations, AFolderThatCannotBeListedHasNoFiles)
{
    EXPECT_TRUE(fileNamesIn(folder.file(L"gone")).empty());
    EXPECT_TRUE(fileNamesIn(folder.path()).empty());
}

TEST_F(FileOperations, TheProgramsFolderHoldsTheProgram)
{
    const std::wstring found = programFolder();
    EXPECT_FALSE(found.ends_with(L'\\'));
    EXPECT_TRUE(fileExists(found + L"\\window_tests.exe"));
}

TEST(ExtendedPath, TakesAnyPathThatIsWholeAndLeavesOthersAlone)
{
    EXPECT_EQ(extendedPath(L"C:\\a b\\c.udb"), L"\\\\?\\C:\\a b\\c.udb");
    EXPECT_EQ(extendedPath(L"\\\\server\\share\\c.udb"), L"\\\\?\\UNC\\server\\share\\c.udb");
    EXPECT_EQ(extendedPath(L"\\\\?\\C:\\c.udb"), L"\\\\?\\C:\\c.udb");
    EXPECT_EQ(extendedPath(L"c.udb"), L"c.udb");
    EXPECT_EQ(extendedPath(L"C:c.udb"), L"C:c.udb");
    EXPECT_EQ(extendedPath(L""), L"");
}

TEST(SystemError, EveryFileErrorHasItsNumber)
{
    const std::pair<unsigned long, int> codes[] = {
        {ERROR_FILE_NOT_FOUND, 53},    {ERROR_PATH_NOT_FOUND, 76}, {ERROR_BAD_NETPATH, 76},
        {ERROR_SHARING_VIOLATION, 70}, {ERROR_LOCK_VIOLATION, 70}, {ERROR_ACCESS_DENIED, 75},
        {ERROR_WRITE_PROTECT, 75},     {ERROR_DISK_FULL, 61},      {ERROR_HANDLE_DISK_FULL, 61},
        {ERROR_NOT_READY, 71},         {ERROR_ALREADY_EXISTS, 58}, {ERROR_FILE_EXISTS, 58},
        {ERROR_INVALID_NAME, 52},      {ERROR_BAD_PATHNAME, 52},   {ERROR_FILENAME_EXCED_RANGE, 52},
        {ERROR_NOT_ENOUGH_MEMORY, 7},  {ERROR_OUTOFMEMORY, 7},     {ERROR_CRC, 57},
        {ERROR_GEN_FAILURE, 57},       {ERROR_DIRECTORY, 76}};
    for (const auto& [code, number] : codes) EXPECT_EQ(runtimeErrorOf(code).number(), number) << code;
}

} // namespace
} // namespace vandrel::test
