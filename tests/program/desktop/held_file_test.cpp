#include "platform/base/handle.h"
#include "tests/program/support/program_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

// Another program has a category file open exclusively.
class HeldFile : public ProgramTest {
  protected:
    HeldFile() { folder.write(L"A.udb", before); }

    FileHandle hold(const std::wstring& name) const
    {
        FileHandle file(
            CreateFileW(folder.file(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(static_cast<bool>(file));
        return file;
    }
    std::string contentOf(const FileHandle& file) const
    {
        std::string bytes(1000, '\0');
        DWORD count = 0;
        SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
        ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
        return bytes.substr(0, count);
    }
    std::size_t temporaryFiles() const
    {
        const auto names = folder.names();
        return static_cast<std::size_t>(
            std::ranges::count_if(names, [](const std::wstring& name) { return name.ends_with(L".tmp"); }));
    }

    const std::string before = "Old|http://m/|x|1/1/2001\r\n";
};

TEST_F(HeldFile, ASaveWaitsUntilTheFileIsLetGoOf)
{
    start();
    {
        const FileHandle held = hold(L"A.udb");
        program.key(VK_F3);
        program.dialog(L"Add Site...");
        program.type(L"New");
        program.key(VK_RETURN);
        EXPECT_SOON(program.dialogIsOpen(), false);
        EXPECT_SOON(temporaryFiles(), 1U); // what is saved, waiting to replace the file
        EXPECT_EQ(contentOf(held), before);
    }
    EXPECT_SOON(folder.read(L"A.udb"), "New|http://||" + today() + "\r\n" + before);
    program.back();
    EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
}

TEST_F(HeldFile, ASaveThatWaitsInVainSaysSoAndKeepsTheFileAndTheChange)
{
    start();
    {
        const FileHandle held = hold(L"A.udb");
        program.addSite(L"New", L"http://a/", L"");
        EXPECT_EQ(program.answerBox(L"Vandrel"), L"Run-time error '70':\n\nPermission denied");
        program.back();
        EXPECT_EQ(contentOf(held), before);
        EXPECT_EQ(program.column(0), (Texts{L"New", L"Old"}));
        EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
    }
    program.addSite(L"Newer", L"http://b/", L"");
    program.back();
    EXPECT_SOON(folder.read(L"A.udb"),
                "New|http://a/||" + today() + "\r\nNewer|http://b/||" + today() + "\r\n" + before);
}

TEST_F(HeldFile, ACategoryThatCouldNotBeReadShowsNothingAndIsNotOverwritten)
{
    folder.write(L"B.udb", "Other|http://o/||1/1/2001\r\n");
    start();
    program.click(program.categories(), L"A");
    EXPECT_SOON(program.column(0), Texts{L"Old"});
    {
        const FileHandle held = hold(L"B.udb");
        program.openCategory(L"B");
        EXPECT_EQ(program.siteCount(), 0);
        program.addSite(L"New", L"http://a/", L"");
        EXPECT_EQ(program.answerBox(L"Vandrel"), L"Run-time error '70':\n\nPermission denied");
        program.back();
    }
    EXPECT_EQ(folder.read(L"B.udb"), "Other|http://o/||1/1/2001\r\n");

    // It can be read now, and gets the site after its own.
    program.click(program.categories(), L"A");
    EXPECT_SOON(program.column(0), Texts{L"Old"});
    program.click(program.categories(), L"B");
    EXPECT_SOON(program.column(0), (Texts{L"Other", L"New"}));
}

TEST_F(HeldFile, RemovingACategoryWhoseFileIsHeldSaysSoAndKeepsIt)
{
    start();
    const FileHandle held = hold(L"A.udb");
    program.key(VK_F2, {VK_SHIFT});
    program.answerBox(L"Vandrel", IDYES);
    EXPECT_EQ(program.answerBox(L"Vandrel"), L"Run-time error '70':\n\nPermission denied");
    program.back();
    EXPECT_EQ(program.titles(), Texts{L"A"});
    EXPECT_EQ(program.column(0), Texts{L"Old"});
    EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
}

TEST_F(HeldFile, RenamingACategoryWhoseFileIsHeldSaysSoAndKeepsItsTitle)
{
    start();
    const FileHandle held = hold(L"A.udb");
    program.choose(program.categories(), 0, popRenameCategory);
    EXPECT_TRUE(soon([&] { return program.labelEdit() != nullptr; }));
    program.retype(L"B");
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"Vandrel"), L"Run-time error '70':\n\nPermission denied");
    program.back();
    EXPECT_EQ(program.titles(), Texts{L"A"});
    EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
}

} // namespace
} // namespace vandrel::test
