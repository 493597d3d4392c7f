#include "tests/program/support/program_test.h"
#include "tests/support/registry_value.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace vandrel::test {
namespace {

const std::string footer =
    "</table><center><font size=2>Generated with Vandrel by "
    "<a href=\"https://www.brisan.example\">Brisan Software</a></font></center></font>\r\n";

std::string row(const std::string& name, const std::string& url, const std::string& description)
{
    return "<tr><td>" + name + "</td><td><a href=\"" + url + "\">" + url + "</a></td><td>" + description +
           "</td></tr>\r\n";
}

// Alt with the letter of the menu, then the letters of its entries. The mouse is kept away, because over
// the menu it would choose as well.
void chooseByKeys(const ProgramDriver& program, WORD entry, WORD subEntry)
{
    RECT area{};
    GetWindowRect(program.window(), &area);
    input::moveTo({area.right - 50, area.bottom - 50});
    program.key('F', {VK_MENU});
    EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
    program.key(entry);
    program.key(subEntry);
}

// The folder that the shell takes for the user's desktop, where the folder browser begins.
struct DesktopFolder : RegistryValue {
    explicit DesktopFolder(const std::wstring& path)
        : RegistryValue(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                        L"Desktop", path)
    {}
};

// Chooses the first folder of the browser by keyboard.
void chooseDesktop(const ProgramDriver& program)
{
    const HWND dialog = program.dialog(L"Browse for Folder");
    const HWND tree = FindWindowExW(dialog, nullptr, L"SysTreeView32", nullptr);
    for (int control = 0; control < 5 && program.focus() != tree; ++control) {
        const HWND before = program.focus();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != before; }));
    }
    EXPECT_EQ(program.focus(), tree);
    program.key(VK_HOME);
    program.key(VK_RETURN);
    program.back();
}

class PageAndBackupByKeyboard : public ProgramTest {
  protected:
    PageAndBackupByKeyboard()
    {
        folder.write(L"Arts.udb", arts);
        folder.write(L"Bare.udb", "");
        folder.write(L"Cars.udb", cars);
        start();
        program.openCategory(L"Cars");
        EXPECT_SOON(program.siteCount(), 1);
    }
    static constexpr const wchar_t* saveCaption = L"Output an HTML file...";
    static constexpr const wchar_t* question = L"Output successful! Open file?";
    const std::string arts = "b|http://b/|B|1/1/2001\r\na|http://a/|A|1/2/2001\r\n";
    const std::string cars = "c|http://c/|C & D|1/3/2001\r\n";
    TempFolder target{L"target"};
    DesktopFolder desktop{target.path()};
};

TEST_F(PageAndBackupByKeyboard, APageOfTheCurrentCategory)
{
    chooseByKeys(program, 'H', 'C');
    program.dialog(saveCaption);
    program.retype(target.file(L"page.htm"));
    program.key(VK_RETURN);
    const HWND box = program.dialog(L"Success!");
    EXPECT_EQ(ProgramDriver::boxText(box), question);
    EXPECT_NE(program.panel(1), L"HTML Generated.");
    const std::string page = target.read(L"page.htm");
    EXPECT_TRUE(page.starts_with("<font face=\"Arial\"><table align=center width=75% border=0 "));
    EXPECT_TRUE(page.ends_with("</tr>\r\n" + row("c", "http://c/", "C & D") + footer));
    program.key('N');
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"HTML Generated."));
    EXPECT_EQ(program.caption(), L"Vandrel - Cars");
}

TEST_F(PageAndBackupByKeyboard, APageOfAllCategoriesAndTheWindowIsAsBefore)
{
    chooseByKeys(program, 'H', 'A');
    program.dialog(saveCaption);
    program.retype(target.file(L"page.htm"));
    program.key(VK_RETURN);
    program.dialog(L"Success!");
    program.key(VK_TAB);
    program.key(VK_RETURN); // No
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"HTML Generated."));
    EXPECT_TRUE(target.read(L"page.htm")
                    .ends_with("</tr>\r\n<tr><td colspan=3 align=center><b>Arts</b></td></tr>" +
                               row("b", "http://b/", "B") + row("a", "http://a/", "A") +
                               "<tr><td colspan=3 align=center><b>Cars</b></td></tr>" +
                               row("c", "http://c/", "C & D") + footer));
    EXPECT_EQ(program.caption(), L"Vandrel - Cars");
    EXPECT_SOON(program.column(0), Texts{L"c"});
    EXPECT_EQ(categoryFiles(), (Texts{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
}

TEST_F(PageAndBackupByKeyboard, EscInTheSaveDialogWritesNothing)
{
    const std::wstring before = program.panel(1);
    chooseByKeys(program, 'H', 'A');
    program.dialog(saveCaption);
    program.retype(target.file(L"page.htm"));
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(target.names(), Texts{});
    EXPECT_EQ(program.panel(1), before);
}

TEST_F(PageAndBackupByKeyboard, ABackupOfTheCurrentCategoryAndThenOfAll)
{
    chooseByKeys(program, 'B', 'C');
    chooseDesktop(program);
    EXPECT_SOON(program.panel(1), std::wstring(L"Backup successful."));
    EXPECT_EQ(target.names(), Texts{L"Cars.udb"});
    EXPECT_EQ(target.read(L"Cars.udb"), cars);

    DeleteFileW(folder.file(L"Bare.udb").c_str());
    chooseByKeys(program, 'B', 'A');
    chooseDesktop(program);
    EXPECT_SOON(program.panel(1), std::wstring(L"Backup failed."));
    EXPECT_FALSE(target.has(L"Bare.udb"));

    folder.write(L"Bare.udb", "");
    chooseByKeys(program, 'B', 'A');
    chooseDesktop(program);
    EXPECT_SOON(program.panel(1), std::wstring(L"Backup successful."));
    EXPECT_EQ(target.names(), (Texts{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
    EXPECT_EQ(target.read(L"Arts.udb"), arts);
}

TEST_F(PageAndBackupByKeyboard, EscInTheFolderBrowserCopiesNothing)
{
    const std::wstring before = program.panel(1);
    chooseByKeys(program, 'B', 'A');
    program.dialog(L"Browse for Folder");
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(program.panel(1), before);
}

// A small disk with only as much space as the test leaves free.
class OutputToAFullDisk : public ProgramTest {
  protected:
    void SetUp() override
    {
        const auto disk = environment(L"VANDREL_SMALL_DISK");
        if (!disk) GTEST_SKIP() << "no small disk could be mounted for this test";
        path = nativePath(std::string(disk->begin(), disk->end()));
        desktop.emplace(path);
    }
    void TearDown() override
    {
        ProgramTest::TearDown();
        for (const std::wstring& name : names()) DeleteFileW(at(name).c_str());
    }
    std::wstring at(const std::wstring& name) const { return path + L"\\" + name; }
    Texts names() const
    {
        Texts found;
        if (path.empty()) return found;
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            found.push_back(entry.path().filename().wstring());
        }
        std::ranges::sort(found);
        return found;
    }
    // Starts with a category that is larger than the disk.
    void startWithBulk()
    {
        folder.write(L"Bulk.udb", bulk);
        start();
        EXPECT_SOON(program.siteCount(), siteCount);
    }
    static std::string sites()
    {
        std::string bytes;
        for (int i = 0; i < siteCount; ++i) {
            bytes += "Site|http://m/" + std::to_string(i) + "|words|1/1/2001\r\n";
        }
        return bytes;
    }

    static constexpr int siteCount = 100'000;
    const std::string bulk = sites();
    std::wstring path;
    std::optional<DesktopFolder> desktop;
};

TEST_F(OutputToAFullDisk, ABackupFailsAndLeavesOnlyTheEarlierCopyWhole)
{
    std::ofstream(std::filesystem::path(at(L"Bulk.udb")), std::ios::binary) << "an earlier copy";
    startWithBulk();
    chooseByKeys(program, 'B', 'C');
    chooseDesktop(program);
    EXPECT_SOON(program.panel(1), std::wstring(L"Backup failed."));
    EXPECT_FALSE(program.dialogIsOpen());
    EXPECT_EQ(names(), Texts{L"Bulk.udb"});
    EXPECT_EQ(readBytes(at(L"Bulk.udb")), "an earlier copy");
    EXPECT_EQ(folder.read(L"Bulk.udb"), bulk);
    EXPECT_TRUE(program.running());
}

TEST_F(OutputToAFullDisk, APageFailsWithAMessageAndIsLeftAsFarAsItWasWritten)
{
    startWithBulk();
    chooseByKeys(program, 'H', 'C');
    program.dialog(L"Output an HTML file...");
    program.retype(at(L"page.htm"));
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"Error"), L"61 - Disk full");
    program.back();
    EXPECT_SOON(program.panel(1), std::wstring(L"Generation failed."));
    EXPECT_EQ(names(), Texts{L"page.htm"});
    EXPECT_EQ(program.siteCount(), siteCount);
}

} // namespace
} // namespace vandrel::test
