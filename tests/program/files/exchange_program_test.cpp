#include "tests/program/files/exchange_process.h"
#include "tests/program/files/there_and_back.h"
#include "tests/support/folder_contents.h"
#include "tests/support/held_file.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <map>

namespace vandrel::test {
namespace {

// VandrelExchange.exe as a process: its texts and exit status, and what it does to the disk.
class ExchangeProgram : public testing::Test {
  protected:
    std::wstring sample(const std::wstring& browser) const
    {
        return nativePath(VANDREL_SOURCE_DIR) + L"\\tests\\bookmark_files\\" + browser + L".html";
    }

    TempFolder folder_{L"categories"};
};

TEST_F(ExchangeProgram, PrintsItsHelpAndItsVersionAndEndsWith0)
{
    const ProgramRun help = runExchange(L"--help");
    EXPECT_EQ(help.status, 0U);
    EXPECT_NE(help.output.find("VandrelExchange import FILE"), std::string::npos);
    EXPECT_EQ(help.errors, "");
    const ProgramRun version = runExchange(L"--version");
    EXPECT_EQ(version.status, 0U);
    EXPECT_EQ(version.output, "VandrelExchange " VANDREL_VERSION "\r\n");
}

TEST_F(ExchangeProgram, SaysWhatItDoesNotUnderstandAmongTheErrorsAndEndsWith2)
{
    const ProgramRun result = runExchange(L"import");
    EXPECT_EQ(result.status, 2U);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "VandrelExchange: import needs the name of one file. VandrelExchange --help says what "
              "there is.\r\n");
}

TEST_F(ExchangeProgram, BringsInThePagesOfEveryBrowserAndChangesNoCategory)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the expected bytes are those of code page 1252";
    folder_.write(L"Bookmarks.udb", "mine");
    for (const wchar_t* const browser : {L"chrome", L"edge", L"safari"}) {
        EXPECT_EQ(runImport(sample(browser), folder_).status, 0U)
            << testing::PrintToString(std::wstring(browser));
    }
    const ProgramRun firefox = runImport(sample(L"firefox"), folder_);
    EXPECT_EQ(firefox.status, 1U); // a name in Japanese
    EXPECT_NE(firefox.output.find("\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E"), std::string::npos)
        << firefox.output;
    EXPECT_EQ(folder_.read(L"Bookmarks.udb"), "mine");
    EXPECT_EQ(folder_.names().size(), 1U + 4 + 4 + 3 + 3);
    EXPECT_TRUE(folder_.has(L"Bookmarks (2).udb"));
    EXPECT_TRUE(folder_.has(L"Bookmarks (3).udb"));
    EXPECT_TRUE(folder_.has(L"Favourites bar - CON.udb"));
    EXPECT_EQ(folder_.read(L"Favourites.udb"),
              "Maps|https://maps.example.org/||\r\n"
              "Track a parcel|https://post.example.org/track?id=1&lang=en||\r\n");

    // Every category is as it was when all come once more.
    std::map<std::wstring, std::string> before;
    for (const std::wstring& name : folder_.names()) before[name] = folder_.read(name);
    EXPECT_EQ(runImport(sample(L"chrome"), folder_).status, 0U);
    for (const auto& [name, bytes] : before) EXPECT_EQ(folder_.read(name), bytes);
    EXPECT_EQ(folder_.names().size(), before.size() + 4);
}

TEST_F(ExchangeProgram, MakesNothingOfAFileWithoutBookmarks)
{
    folder_.write(L"notes.txt", "nothing in here");
    const ProgramRun result = runImport(folder_.file(L"notes.txt"), folder_);
    EXPECT_EQ(result.status, 2U);
    EXPECT_NE(result.errors.find("There are no bookmarks in "), std::string::npos) << result.errors;
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(ExchangeProgram, SaysWhatItDidAndWhetherAllWasKept)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the letters and dates are those of code page 1252";
    folder_.write(L"page.html", "<A HREF=x>n</A>");
    const ProgramRun read = runImport(folder_.file(L"page.html"), folder_);
    EXPECT_EQ(read.status, 0U);
    EXPECT_EQ(read.output, "1 site brought in, in 1 new category\r\n  Bookmarks: 1 site\r\n"
                           "Vandrel shows new categories the next time it is started.\r\n");
    EXPECT_EQ(read.errors, "");
    const std::wstring page = folder_.file(L"out.html");
    const std::string written = "1 site of 1 category written\r\n" + utf8(page) + "\r\n";
    const ProgramRun whole = runExchange(L"export \"" + page + L"\"" + inFolder(folder_));
    EXPECT_EQ(whole.status, 0U);
    EXPECT_EQ(whole.output, written);
    EXPECT_EQ(whole.errors, "");
    folder_.write(L"Bookmarks.udb", "n|x||one day\r\n");
    const ProgramRun partly = runExchange(L"export \"" + page + L"\"" + inFolder(folder_));
    EXPECT_EQ(partly.status, 1U);
    EXPECT_EQ(partly.output,
              written + "1 site has a date that cannot be read, and is in the file without.\r\n");
    EXPECT_EQ(partly.errors, "");
}

TEST_F(ExchangeProgram, LeavesAPageThatIsThereWhenACategoryCannotBeRead)
{
    folder_.write(L"A.udb", "n|u||\r\n");
    folder_.write(L"out.html", "an older page");
    const HeldFile held(folder_.file(L"A.udb"));
    const ProgramRun run = runExchange(L"export \"" + folder_.file(L"out.html") + L"\"" + inFolder(folder_));
    EXPECT_EQ(run.status, 2U);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "VandrelExchange: The category A cannot be read: Permission denied.\r\n");
    EXPECT_EQ(folder_.read(L"out.html"), "an older page");
    EXPECT_EQ(folder_.names(), (std::vector<std::wstring>{L"A.udb", L"out.html"}));
}

TEST_F(ExchangeProgram, ChecksCategoriesAndChangesNothing)
{
    folder_.write(L"A.udb", "n|http://one.example/|d\r\n;a remark\r\nB?cher|http://two.example/|||more\r\n");
    folder_.write(L"B.udb", "n|http://two.example/||\r\n");
    folder_.write(L"C.udb", "n|http://three.example/||\r\n");
    for (const wchar_t* const left : {L"vandrel-4000000000.tmp", L"vandrel-4000000000-12.tmp"})
        folder_.write(left, "half");
    folder_.write(L"vandrel-notes.tmp", "somebody else's");
    const auto before = contentsOf(folder_);
    ProgramRun run;
    {
        const HeldFile held(folder_.file(L"C.udb"));
        run = runExchange(L"check" + inFolder(folder_));
    }
    EXPECT_EQ(run.status, 1U);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "A.udb:1: 3 pieces instead of 4\r\n"
                          "A.udb:2: a remark, which is gone after the next save\r\n"
                          "A.udb:3: 5 pieces instead of 4; those after the fourth are not read\r\n"
                          "A.udb:3: letters seem to be lost in the name: B?cher\r\n"
                          "B.udb:1: the address is that of A.udb:3, too: http://two.example/\r\n"
                          "C.udb: cannot be read: Permission denied\r\n"
                          "vandrel-4000000000-12.tmp: a temporary file, left by a save that did not end\r\n"
                          "vandrel-4000000000.tmp: a temporary file, left by a save that did not end\r\n"
                          "3 categories, 3 sites: 8 findings\r\n");
    EXPECT_EQ(contentsOf(folder_), before);
}

TEST_F(ExchangeProgram, ChecksItsOwnFolderUnlessOneIsNamed)
{
    const std::wstring program = folder_.file(L"VandrelExchange.exe");
    ASSERT_TRUE(CopyFileW(exchangeProgram().c_str(), program.c_str(), TRUE));
    folder_.write(L"A.udb", "n|u||\r\n");
    const ProgramRun own = runProgram(program, L"check");
    EXPECT_EQ(own.status, 0U);
    EXPECT_EQ(own.output, "1 category, 1 site: nothing found\r\n");
    const TempFolder empty(L"empty");
    EXPECT_EQ(runProgram(program, L"check" + inFolder(empty)).output,
              "0 categories, 0 sites: nothing found\r\n");
    const ProgramRun missing = runProgram(program, L"check --folder \"" + empty.file(L"none") + L"\"");
    EXPECT_EQ(missing.status, 2U);
    EXPECT_EQ(missing.output, "");
    EXPECT_EQ(missing.errors, "VandrelExchange: The folder " + utf8(empty.file(L"none")) +
                                  " cannot be read: Path not found.\r\n");
}

TEST_F(ExchangeProgram, BringsRealCategoriesBackAsTheyWere)
{
    if (GetACP() != 1252) GTEST_SKIP() << "no collection for this code page";
    const auto source = sharedFolder(L"collection");
    if (!source) GTEST_SKIP() << "no folder shared/collection beside the project";
    const ThereAndBack way = takeThereAndBack(*source, monthDayYear);
    std::printf("%zu sites in %zu categories\n%s%s", way.sites, way.categories, way.written.output.c_str(),
                way.read.output.substr(0, way.read.output.find('\n') + 1).c_str());
}

} // namespace
} // namespace vandrel::test
