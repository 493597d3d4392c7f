#include "platform/base/scope_exit.h"
#include "platform/files/file_layer.h"
#include "tests/program/support/program_test.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace vandrel::test {
namespace {

class DataFolder : public ProgramTest {
  protected:
    // Starts the program in the folder, adds a category and a site, and looks at the file.
    void worksIn(const std::wstring& path) const
    {
        ProgramDriver there(path);
        // A current directory cannot be as long as a data folder can.
        there.startFrom(folder.path());
        there.addCategory(L"Work");
        there.openCategory(L"Work");
        there.addSite(L"One", L"http://1/", L"first");
        there.back();
        const std::wstring file = extendedPath(path + L"\\Work.udb");
        EXPECT_SOON(readBytes(file), "One|http://1/|first|" + today() + "\r\n");
        there.quit();
        there.startFrom(folder.path());
        EXPECT_EQ(there.titles(), Texts{L"Work"});
        EXPECT_EQ(there.column(0), Texts{L"One"});
    }
};

TEST_F(DataFolder, MayHaveBlanksInItsPath)
{
    const std::wstring path = folder.file(L"My  own  links");
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    worksIn(path);
}

TEST_F(DataFolder, MayHaveLettersOutsideTheCodePageInItsPath)
{
    const std::wstring path = folder.file(L"Książki 本");
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    worksIn(path);
}

// The usual system calls cannot remove anything this deep.
void removeDeepFolder(const std::wstring& path)
{
    for (const wchar_t* const name : {L"Work.udb", L"Vandrel.exe"})
        DeleteFileW(extendedPath(path + L"\\" + name).c_str());
    RemoveDirectoryW(extendedPath(path).c_str());
}

TEST_F(DataFolder, MayHaveAPathOfThreeHundredCharacters)
{
    std::wstring path = folder.path() + L"\\";
    path += std::wstring(std::min<std::size_t>(200, 298 - path.size()), L'd');
    ASSERT_TRUE(CreateDirectoryW(extendedPath(path).c_str(), nullptr));
    path += L"\\" + std::wstring(299 - path.size(), L'e');
    ASSERT_EQ(path.size(), 300U);
    ASSERT_TRUE(CreateDirectoryW(extendedPath(path).c_str(), nullptr));
    const ScopeExit clean([&] { removeDeepFolder(path); });
    worksIn(path);
}

TEST_F(DataFolder, IsTheProgramsFolderAndNotTheOneItWasStartedFrom)
{
    folder.write(L"A.udb", "One|http://1/||\r\n");
    const std::wstring elsewhere = folder.file(L"elsewhere");
    ASSERT_TRUE(CreateDirectoryW(elsewhere.c_str(), nullptr));
    program.startFrom(elsewhere);
    EXPECT_EQ(program.titles(), Texts{L"A"});
    program.addCategory(L"B");
    EXPECT_SOON(categoryFiles(), (Texts{L"A.udb", L"B.udb"}));
}

TEST_F(DataFolder, OnlyFilesThatEndInUdbAreCategories)
{
    folder.write(L"My.Links.udb", "");
    folder.write(L"Notes.txt", "x");
    folder.write(L"Old.UDB", "x");
    folder.write(L"A.udb.4711.tmp", "what a killed program left behind");
    ASSERT_TRUE(CreateDirectoryW(folder.file(L"Folder.udb").c_str(), nullptr));
    start();
    EXPECT_EQ(program.titles(), Texts{L"My.Links"});
}

TEST_F(DataFolder, MayHoldTenThousandCategories)
{
    // Under Wine every new file costs a search of the whole folder, so there the folder is made beforehand.
    const auto made = environment(L"VANDREL_MANY_CATEGORIES");
    const std::wstring path = made ? nativePath(std::string(made->begin(), made->end())) : folder.path();
    for (int i = 10'000; !made && i < 20'000; ++i) folder.write(L"C" + std::to_wstring(i) + L".udb", "");
    std::ofstream(std::filesystem::path(path + L"\\C19999.udb"), std::ios::binary) << "Last|http://l/||\r\n";

    ProgramDriver there(path);
    there.start();
    EXPECT_EQ(RemoteControls::rowCount(there.categories()), 10'000);
    there.key(VK_END);
    EXPECT_SOON(there.caption(), std::wstring(L"Vandrel - C19999"));
    EXPECT_SOON(there.column(0), Texts{L"Last"});
    there.addCategory(L"One more");
    EXPECT_EQ(RemoteControls::rowCount(there.categories()), 10'001);
}

} // namespace
} // namespace vandrel::test
