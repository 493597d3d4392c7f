#include "bookmarks/bookmark_reader.h"
#include "model/site_date.h"
#include "model/site_record.h"
#include "platform/base/handle.h"
#include "platform/text/ansi_text.h"
#include "tests/program/support/program_files.h"
#include "tests/support/temp_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

struct ProgramRun {
    DWORD status = 99;
    std::string output;
    std::string errors;
};

// VandrelExchange.exe as a process: its texts and exit status, and what it does to the disk.
class ExchangeProgram : public testing::Test {
  protected:
    ProgramRun run(const std::wstring& arguments)
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        const auto stream = [&](const wchar_t* name) {
            return FileHandle(CreateFileW(streams_.file(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                          &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        };
        FileHandle output = stream(L"output");
        FileHandle errors = stream(L"errors");
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = output.get();
        startup.hStdError = errors.get();
        const std::wstring program = nativePath(VANDREL_EXCHANGE);
        std::wstring line = L"\"" + program + L"\" " + arguments;
        PROCESS_INFORMATION started{};
        EXPECT_NE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                 streams_.path().c_str(), &startup, &started),
                  0);
        ProgramRun result;
        if (WaitForSingleObject(started.hProcess, 60'000) != WAIT_OBJECT_0) {
            ADD_FAILURE() << "still running after a minute";
            TerminateProcess(started.hProcess, 98);
        }
        GetExitCodeProcess(started.hProcess, &result.status);
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
        output.reset();
        errors.reset();
        result.output = streams_.read(L"output");
        result.errors = streams_.read(L"errors");
        return result;
    }
    ProgramRun import(const std::wstring& file, const TempFolder& folder)
    {
        return run(L"import \"" + file + L"\" --folder \"" + folder.path() + L"\"");
    }
    std::wstring sample(const std::wstring& browser) const
    {
        return nativePath(VANDREL_SOURCE_DIR) + L"\\tests\\bookmark_files\\" + browser + L".html";
    }

    TempFolder folder_{L"categories"};

  private:
    TempFolder streams_{L"streams"}; // and the current directory
};

TEST_F(ExchangeProgram, PrintsItsHelpAndItsVersionAndEndsWith0)
{
    const ProgramRun help = run(L"--help");
    EXPECT_EQ(help.status, 0U);
    EXPECT_NE(help.output.find("VandrelExchange import FILE"), std::string::npos);
    EXPECT_EQ(help.errors, "");
    const ProgramRun version = run(L"--version");
    EXPECT_EQ(version.status, 0U);
    EXPECT_EQ(version.output, "VandrelExchange " VANDREL_VERSION "\r\n");
}

TEST_F(ExchangeProgram, SaysWhatItDoesNotUnderstandAmongTheErrorsAndEndsWith2)
{
    const ProgramRun result = run(L"import");
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
    for (const wchar_t* const browser : {L"chrome", L"edge", L"safari"})
        EXPECT_EQ(import(sample(browser), folder_).status, 0U)
            << testing::PrintToString(std::wstring(browser));
    const ProgramRun firefox = import(sample(L"firefox"), folder_);
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
    EXPECT_EQ(import(sample(L"chrome"), folder_).status, 0U);
    for (const auto& [name, bytes] : before) EXPECT_EQ(folder_.read(name), bytes);
    EXPECT_EQ(folder_.names().size(), before.size() + 4);
}

TEST_F(ExchangeProgram, MakesNothingOfAFileWithoutBookmarks)
{
    folder_.write(L"notes.txt", "nothing in here");
    const ProgramRun result = import(folder_.file(L"notes.txt"), folder_);
    EXPECT_EQ(result.status, 2U);
    EXPECT_NE(result.errors.find("There are no bookmarks in "), std::string::npos) << result.errors;
    EXPECT_EQ(folder_.names().size(), 1U);
}

TEST_F(ExchangeProgram, ChecksCategories)
{
    folder_.write(L"A.udb", "n|u|d\r\n");
    const ProgramRun result = run(L"check --folder \"" + folder_.path() + L"\"");
    EXPECT_EQ(result.status, 1U);
    EXPECT_EQ(result.output, "A.udb:1: 3 pieces instead of 4\r\n1 category, 1 site: 1 finding\r\n");
    EXPECT_EQ(run(L"check --folder \"" + folder_.file(L"none") + L"\"").status, 2U);
}

// The fields of every site; a date that can be read as the day that it is.
std::vector<std::wstring> sitesIn(const std::string& bytes)
{
    const std::wstring text = decodeAnsi(bytes);
    std::vector<std::wstring> sites;
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        const auto day = dateOfNumbers(site->date, monthDayYear);
        sites.push_back(std::wstring(site->name) + L"|" + std::wstring(site->url) + L"|" +
                        std::wstring(site->description) + L"|" +
                        (day ? monthDayYearText(*day) : std::wstring()));
    }
    return sites;
}

TEST_F(ExchangeProgram, BringsRealCategoriesBackAsTheyWere)
{
    if (GetACP() != 1252) GTEST_SKIP() << "no collection for this code page";
    const auto source = sharedFolder(L"collection");
    if (!source) GTEST_SKIP() << "no folder shared/collection beside the project";
    const std::wstring page = folder_.file(L"all.html");
    const ProgramRun written = run(L"export \"" + page + L"\" --folder \"" + *source + L"\"");
    EXPECT_NE(written.status, 2U) << written.errors;
    const TempFolder again(L"again");
    const ProgramRun read = import(page, again);
    EXPECT_NE(read.status, 2U) << read.errors;

    std::size_t categories = 0;
    std::size_t sites = 0;
    std::size_t different = 0;
    for (const auto& entry : fs::directory_iterator(*source)) {
        if (entry.path().extension() != L".udb") continue;
        const std::wstring name = entry.path().filename().wstring();
        SCOPED_TRACE(testing::PrintToString(name));
        const auto before = sitesIn(readBytes(entry.path().wstring()));
        const auto after = sitesIn(again.read(name));
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (after[i] != before[i] && different++ < 5)
                ADD_FAILURE() << testing::PrintToString(before[i]) << "\nbecame "
                              << testing::PrintToString(after[i]);
        }
        sites += before.size();
        ++categories;
    }
    EXPECT_EQ(different, 0U);
    EXPECT_EQ(again.names().size(), categories);
    EXPECT_GT(sites, 0U);
    std::printf("%zu sites in %zu categories\n%s%s", sites, categories, written.output.c_str(),
                read.output.substr(0, read.output.find('\n') + 1).c_str());
}

} // namespace
} // namespace vandrel::test
