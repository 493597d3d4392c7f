#include "tests/program/files/exchange_process.h"
#include "tests/program/files/key_status.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

constexpr int mostRounds = 10;
constexpr std::size_t folderCount = 300;
constexpr int sitesInEach = 20;

std::string pageOfManyFolders()
{
    std::string page = "<DL><p>\n";
    for (std::size_t folder = 0; folder < folderCount; ++folder) {
        page += "<DT><H3>Folder " + std::to_string(folder) + "</H3>\n<DL><p>\n";
        for (int site = 0; site < sitesInEach; ++site)
            page += "<DT><A HREF=\"http://a.example/\">Site " + std::to_string(site) + "</A>\n";
        page += "</DL><p>\n";
    }
    return page;
}

// The user presses a key in the console while VandrelExchange.exe imports a page.
class InterruptedImport : public testing::TestWithParam<const wchar_t*> {
  protected:
    InterruptedImport() { source_.write(L"page.html", pageOfManyFolders()); }

    static bool isBreak() { return std::wstring(GetParam()) == L"break"; }

    enum class Outcome { nothingLeft, allThere, noKey };

    // Either nothing is left, or the key came too late and everything is there.
    Outcome interrupt()
    {
        const TempFolder folder(L"categories");
        folder.write(L"Folder 7.udb", mine);
        const ProgramRun run = runProgram(nativePath(VANDREL_INTERRUPTED_IMPORT),
                                          std::wstring(GetParam()) + L" \"" + exchangeProgram() + L"\" \"" +
                                              source_.file(L"page.html") + L"\" \"" + folder.path() + L"\"",
                                          CREATE_NO_WINDOW); // but with a console
        if (run.status == key_status::notPressed) return Outcome::noKey;
        const auto names = folder.names();
        EXPECT_EQ(folder.read(L"Folder 7.udb"), mine);
        if (run.status == 0) {
            EXPECT_EQ(run.errors, "");
            EXPECT_TRUE(run.output.starts_with("6000 sites brought in, in 300 new categories\r\n"))
                << run.output;
            EXPECT_EQ(names.size(), folderCount + 1);
            EXPECT_TRUE(std::ranges::all_of(names, [](const auto& name) { return name.ends_with(L".udb"); }));
            return Outcome::allThere;
        }
        EXPECT_EQ(run.status, 2U);
        EXPECT_EQ(run.errors, "VandrelExchange: Cancelled.\r\n");
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(names, (std::vector<std::wstring>{L"Folder 7.udb"}));
        return Outcome::nothingLeft;
    }

  private:
    static constexpr const char* mine = "n|http://mine.example/||\r\n";
    TempFolder source_{L"page"};
};

TEST_P(InterruptedImport, LeavesNothingOrAllIfTheKeyComesTooLate)
{
    Outcome outcome = interrupt();
    int round = 1;
    for (; outcome == Outcome::allThere && !HasFailure() && round < mostRounds; ++round)
        outcome = interrupt();
    if (outcome == Outcome::noKey && runsUnderWine() && isBreak()) GTEST_SKIP() << "Wine has no Ctrl+Break";
    EXPECT_EQ(outcome, Outcome::nothingLeft) << "in round " << round;
}

INSTANTIATE_TEST_SUITE_P(By, InterruptedImport, testing::Values(L"c", L"break"), [](const auto& key) {
    return std::wstring(key.param) == L"c" ? "CtrlC" : "CtrlBreak";
});

} // namespace
} // namespace vandrel::test
