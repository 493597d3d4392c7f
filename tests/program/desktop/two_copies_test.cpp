#include "mainwindow/menu_entries.h"
#include "tests/program/support/program_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

// Two running copies of the program on one folder. There is only one keyboard, so most of it is done by
// messages.
class TwoCopies : public ProgramTest {
  protected:
    static HWND open(const ProgramDriver& copy, MenuEntry entry, const std::wstring& caption)
    {
        PostMessageW(copy.window(), WM_COMMAND, static_cast<WPARAM>(entry), 0);
        HWND dialog = nullptr;
        EXPECT_TRUE(soon([&] { return (dialog = copy.openDialog(caption)) != nullptr; }));
        return dialog;
    }
    static void waitUntilDone(const ProgramDriver& copy)
    {
        EXPECT_TRUE(soon([&] { return !copy.dialogIsOpen() && IsWindowEnabled(copy.window()); }));
    }
    static void addSite(const ProgramDriver& copy, const std::wstring& name)
    {
        const int before = copy.siteCount();
        const HWND editor = open(copy, mnuAddWebsite, L"Add Site...");
        for (const wchar_t letter : name) PostMessageW(GetDlgItem(editor, 101), WM_CHAR, letter, 0);
        PostMessageW(editor, WM_COMMAND, IDOK, 0);
        EXPECT_SOON(copy.siteCount(), before + 1);
        waitUntilDone(copy);
    }
    static std::string added(const std::string& name) { return name + "|http://||" + today() + "\r\n"; }

    ProgramDriver second{folder.path()};
};

TEST_F(TwoCopies, TheLaterSaveWinsWhole)
{
    const std::string old = "Old|http://m/|x|1/1/2001\r\n";
    folder.write(L"A.udb", old);
    program.start();
    second.start();
    addSite(program, L"first");
    EXPECT_SOON(folder.read(L"A.udb"), added("first") + old);
    addSite(second, L"second"); // which knows nothing of the other's site
    EXPECT_SOON(folder.read(L"A.udb"), added("second") + old);
    addSite(program, L"third");
    EXPECT_TRUE(soon([&] {
        const std::string now = folder.read(L"A.udb");
        return now.find("first|") != now.npos && now.find("third|") != now.npos && now.ends_with(old) &&
               now.size() == (added("first") + added("third") + old).size();
    }));
    EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
}

TEST_F(TwoCopies, SavesAtTheSameMomentLeaveAWholeListAndNothingElse)
{
    std::vector<std::string> sites;
    for (int i = 0; i < 5000; ++i)
        sites.push_back("Site|http://m/" + std::to_string(100'000 + i) + "|some words|1/1/2001\r\n");
    std::string content;
    for (const std::string& site : sites) content += site;
    folder.write(L"A.udb", content);
    program.start();
    second.start();
    for (int round = 1; round <= 12; ++round) {
        const HWND editors[] = {open(program, mnuAddWebsite, L"Add Site..."),
                                open(second, mnuAddWebsite, L"Add Site...")};
        for (const HWND editor : editors) PostMessageW(editor, WM_COMMAND, IDOK, 0);
        for (const ProgramDriver* const copy : {&program, &second}) {
            EXPECT_SOON(copy->siteCount(), 5000 + round);
            waitUntilDone(*copy);
        }
        // Both know the same sites, so both write the same file.
        content.insert(0, added(""));
        ASSERT_TRUE(folder.read(L"A.udb") == content) << "round " << round;
        EXPECT_EQ(categoryFiles(), Texts{L"A.udb"});
    }
}

TEST_F(TwoCopies, ACategoryThatTheOtherCopyRemovedShowsNoSites)
{
    folder.write(L"A.udb", "Other|http://o/||1/1/2001\r\n");
    folder.write(L"B.udb", "");
    program.start();
    program.openCategory(L"B");
    second.start();
    second.click(second.categories(), L"A");
    EXPECT_SOON(second.column(0), Texts{L"Other"});
    second.key(VK_F2, {VK_SHIFT});
    second.answerBox(L"Vandrel", IDYES);
    second.back();
    EXPECT_SOON(categoryFiles(), Texts{L"B.udb"});
    second.quit(); // gives the focus back

    program.back();
    program.openCategory(L"A");
    EXPECT_EQ(program.siteCount(), 0);
    EXPECT_FALSE(program.dialogIsOpen());
}

} // namespace
} // namespace vandrel::test
