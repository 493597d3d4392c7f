#include "exchange_tool/exchange_commands.h"

#include "platform/base/current_directory.h"
#include "tests/exchange_tool/exchange_folder.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class ExchangeCommands : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the expected bytes are those of code page 1252";
        source.write(L"page.html", smallPage);
    }
    int run(std::vector<std::wstring> words, FileLayer& files = systemFiles())
    {
        output.clear();
        errors.clear();
        words.insert(words.end(), {L"--folder", folder.path()});
        return runCommand(requestOf(words),
                          {[&](std::wstring_view text) {
                               output += text;
                               return outputWorks;
                           },
                           [&](std::wstring_view text) {
                               errors += text;
                               return true;
                           }},
                          files, progress);
    }

    TempFolder source{L"page"};
    TempFolder folder{L"categories"};
    Progress progress;
    std::wstring output;
    std::wstring errors;
    bool outputWorks = true;
};

TEST_F(ExchangeCommands, ImportSaysWhatItMadeAndReturns0)
{
    EXPECT_EQ(run({L"import", source.file(L"page.html")}), 0);
    EXPECT_EQ(output, L"4 sites brought in, in 3 new categories\r\n  Work: 2 sites\r\n  Play: 1 site\r\n"
                      L"  Bookmarks: 1 site\r\n"
                      L"Vandrel shows new categories the next time it is started.\r\n");
    EXPECT_EQ(errors, L"");
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST_F(ExchangeCommands, ImportThatLosesLettersReturns1)
{
    source.write(L"page.html", "<A HREF=x>\xE6\x97\xA5</A>");
    EXPECT_EQ(run({L"import", source.file(L"page.html")}), 1);
    EXPECT_EQ(errors, L"");
}

TEST_F(ExchangeCommands, ImportThatFailsReturns2AndSaysWhyAmongTheErrors)
{
    EXPECT_EQ(run({L"import", source.file(L"none.html")}), 2);
    EXPECT_EQ(errors,
              L"VandrelExchange: " + source.file(L"none.html") + L" cannot be read: File not found.\r\n");
    EXPECT_EQ(output, L"");
    FailingFiles full(1, ERROR_DISK_FULL);
    EXPECT_EQ(run({L"import", source.file(L"page.html")}, full), 2);
    EXPECT_TRUE(folder.names().empty());
    progress.cancel();
    EXPECT_EQ(run({L"import", source.file(L"page.html")}), 2);
    EXPECT_EQ(errors, L"VandrelExchange: Cancelled.\r\n");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(ExchangeCommands, ExportSaysWhatItWroteAndWhetherAllWasKept)
{
    folder.write(L"Work.udb", "n|u||11/16/2002\r\n");
    const std::wstring page = source.file(L"out.html");
    EXPECT_EQ(run({L"export", page}), 0);
    EXPECT_EQ(output, L"1 site of 1 category written\r\n" + page + L"\r\n");
    folder.write(L"Work.udb", "n|u||one day\r\n");
    EXPECT_EQ(run({L"export", page}), 1);
    EXPECT_EQ(run({L"export", source.file(L"none\\out.html")}), 2);
    EXPECT_EQ(errors, L"VandrelExchange: " + source.file(L"none\\out.html") +
                          L" cannot be written: Path not found.\r\n");
}

TEST_F(ExchangeCommands, NamesOfFilesAreRelativeToTheCurrentDirectory)
{
    const CurrentDirectoryKept kept;
    SetCurrentDirectoryW(source.path().c_str());
    EXPECT_EQ(run({L"import", L"page.html"}), 0);
    EXPECT_EQ(run({L"export", L"out.html"}), 0);
    EXPECT_TRUE(source.has(L"out.html"));
    EXPECT_EQ(runCommand(requestOf(std::vector<std::wstring>{L"check", L"--folder", L".\\"}),
                         {[](std::wstring_view) { return true; }, [](std::wstring_view) { return true; }},
                         systemFiles(), progress),
              0);
}

TEST_F(ExchangeCommands, CheckTellsFindingsWithFileAndLineAndChangesNothing)
{
    const std::wstring left = L"vandrel-" + std::to_wstring(GetCurrentProcessId()) + L"-1.tmp";
    folder.write(L"B.udb", "n|http://x.example/|d\r\n;r\r\nm|http://y.example/||\r\n");
    folder.write(L"A.udb", "x|http://y.example/||\r\n");
    folder.write(L"C.udb", "");
    folder.write(left, "");
    const auto before = contentsOf(folder);
    {
        const HeldFile held(folder.file(L"C.udb"));
        EXPECT_EQ(run({L"check"}), 1);
    }
    EXPECT_EQ(output, L"B.udb:1: 3 pieces instead of 4\r\n"
                      L"B.udb:2: a remark, which is gone after the next save\r\n"
                      L"B.udb:3: the address is that of A.udb:1, too: http://y.example/\r\n"
                      L"C.udb: cannot be read: Permission denied\r\n" +
                          left +
                          L": a temporary file, left by a save that did not end\r\n"
                          L"3 categories, 3 sites: 5 findings\r\n");
    EXPECT_EQ(contentsOf(folder), before);
}

TEST_F(ExchangeCommands, CheckOfSoundCategoriesFindsNothing)
{
    folder.write(L"A.udb", "x|http://y.example/||\r\n");
    EXPECT_EQ(run({L"check"}), 0);
    EXPECT_EQ(output, L"1 category, 1 site: nothing found\r\n");
}

TEST_F(ExchangeCommands, WithoutTheirFolderReturn2)
{
    const std::vector<std::wstring> words{L"check", L"--folder", folder.file(L"none")};
    std::wstring told;
    EXPECT_EQ(runCommand(requestOf(words),
                         {[](std::wstring_view) { return true; },
                          [&](std::wstring_view text) {
                              told += text;
                              return true;
                          }},
                         systemFiles(), progress),
              2);
    EXPECT_EQ(told, L"VandrelExchange: The folder " + folder.file(L"none") +
                        L" cannot be read: Path not found.\r\n");
}

TEST_F(ExchangeCommands, HelpAndVersionAreToldAsOutput)
{
    EXPECT_EQ(run({L"--help"}), 0);
    EXPECT_EQ(output, exchangeHelp());
    EXPECT_EQ(run({L"--version"}), 0);
    EXPECT_TRUE(output.starts_with(L"VandrelExchange 1.")) << testing::PrintToString(output);
    EXPECT_EQ(run({L"--loud"}), 2);
    EXPECT_EQ(output, L"");
    EXPECT_EQ(errors,
              L"VandrelExchange: There is no option --loud. VandrelExchange --help says what there is.\r\n");
}

TEST_F(ExchangeCommands, WhoseOutputCannotBeWrittenReturn2UnlessTheirWorkIsDone)
{
    outputWorks = false;
    EXPECT_EQ(run({L"check"}), 2);
    EXPECT_EQ(errors, L"VandrelExchange: The output cannot be written.\r\n");
    EXPECT_EQ(run({L"import", source.file(L"page.html")}), 0);
    EXPECT_EQ(folder.names().size(), 3U);
}

} // namespace
} // namespace vandrel::test
