#include "platform/base/handle.h"
#include "tests/program/support/program_test.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace vandrel::test {
namespace {

class Unwritable : public ProgramTest {};

TEST_F(Unwritable, AReadOnlyFileIsReportedAndStaysAsItIs)
{
    folder.write(L"A.udb", "Old|http://m/|x|1/1/2001\r\n");
    SetFileAttributesW(folder.file(L"A.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    start();
    program.addSite(L"New", L"http://a/", L"");
    EXPECT_EQ(program.answerBox(L"Vandrel"), L"Run-time error '75':\n\nPath/File access error");
    program.back();
    EXPECT_EQ(folder.read(L"A.udb"), "Old|http://m/|x|1/1/2001\r\n");
    EXPECT_EQ(program.column(0), (Texts{L"New", L"Old"}));
    EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
    EXPECT_NE(GetFileAttributesW(folder.file(L"A.udb").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(Unwritable, ACategoryFileThatVanishedShowsNoSiteAndTheNextSaveMakesItAgain)
{
    folder.write(L"A.udb", "Old|http://m/|x|1/1/2001\r\n");
    folder.write(L"B.udb", "Other|http://o/||1/1/2001\r\n");
    start();
    program.click(program.categories(), L"A");
    EXPECT_SOON(program.column(0), Texts{L"Old"});
    ASSERT_TRUE(DeleteFileW(folder.file(L"B.udb").c_str()));
    program.openCategory(L"B");
    EXPECT_EQ(program.siteCount(), 0);
    program.addSite(L"New", L"http://a/", L"");
    program.back();
    EXPECT_SOON(folder.read(L"B.udb"), "New|http://a/||" + today() + "\r\n");
}

TEST_F(Unwritable, ATitleThatTheSystemRefusesIsReportedAndMakesNoCategory)
{
    start();
    program.key(VK_F2);
    program.dialog(L"Category Name");
    program.type(L"a<b");
    program.key(VK_RETURN);
    EXPECT_TRUE(program.answerBox(L"Vandrel").starts_with(L"Run-time error '"));
    program.back();
    EXPECT_EQ(program.titles(), Texts{});
    EXPECT_EQ(categoryFiles(), Texts{});
}

// A small disk with only as much space as the test leaves free.
class FullDisk : public ProgramTest {
  protected:
    void SetUp() override
    {
        const auto disk = environment(L"VANDREL_SMALL_DISK");
        if (!disk) GTEST_SKIP() << "no small disk could be mounted for this test";
        path = nativePath(std::string(disk->begin(), disk->end()));
    }
    void TearDown() override
    {
        ProgramTest::TearDown();
        for (const wchar_t* const name : {L"filler", L"A.udb", L"B.udb", L"Vandrel.exe"}) {
            DeleteFileW(at(name).c_str());
        }
    }
    std::wstring at(const std::wstring& name) const { return path + L"\\" + name; }
    void fill() const
    {
        const FileHandle file(CreateFileW(at(L"filler").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        const std::string block(4096, 'f');
        DWORD written = 0;
        while (WriteFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &written, nullptr) &&
               written == block.size()) {}
    }
    Texts names() const
    {
        Texts found;
        WIN32_FIND_DATAW data{};
        const FindHandle search(FindFirstFileW(at(L"*.*").c_str(), &data));
        do {
            if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) found.emplace_back(data.cFileName);
        } while (FindNextFileW(search.get(), &data));
        std::ranges::sort(found);
        return found;
    }

    std::wstring path;
};

TEST_F(FullDisk, ASaveFailsWithAMessageAndLeavesOnlyTheOldFile)
{
    ProgramDriver here(path);
    std::string before;
    for (int i = 0; i < 3000; ++i) before += "Site|http://m/" + std::to_string(i) + "|words|1/1/2001\r\n";
    std::ofstream(std::filesystem::path(at(L"A.udb")), std::ios::binary) << before;
    here.start();
    EXPECT_EQ(here.siteCount(), 3000);
    fill();
    here.addSite(L"New", L"http://a/", L"");
    EXPECT_EQ(here.answerBox(L"Vandrel"), L"Run-time error '61':\n\nDisk full");
    here.back();
    EXPECT_EQ(readBytes(at(L"A.udb")), before);
    EXPECT_EQ(names(), (Texts{L"A.udb", L"Vandrel.exe", L"filler"}));
    EXPECT_EQ(here.siteCount(), 3001);

    DeleteFileW(at(L"filler").c_str());
    here.key(VK_F2);
    here.dialog(L"Category Name");
    here.key(VK_ESCAPE);
    here.back();
    here.addSite(L"Newer", L"http://b/", L"");
    here.back();
    EXPECT_TRUE(soon([&] {
        const std::string now = readBytes(at(L"A.udb"));
        return now.starts_with("New|http://a/||") && now.find("\r\nNewer|http://b/||") != now.npos &&
               std::ranges::count(now, '\n') == 3002;
    }));
}

TEST_F(FullDisk, ANewCategoryIsMadeWholeOrFailsWithAMessage)
{
    ProgramDriver here(path);
    here.start();
    fill();
    here.addCategory(L"B"); // an empty file needs no space but for its name
    EXPECT_EQ(here.titles(), Texts{L"B"});
    EXPECT_EQ(names(), (Texts{L"B.udb", L"Vandrel.exe", L"filler"}));
    here.openCategory(L"B");
    here.addSite(L"New", L"http://a/", L"");
    EXPECT_EQ(here.answerBox(L"Vandrel"), L"Run-time error '61':\n\nDisk full");
    here.back();
    EXPECT_EQ(readBytes(at(L"B.udb")), "");
    EXPECT_EQ(here.column(0), Texts{L"New"});
}

} // namespace
} // namespace vandrel::test
