#include "platform/base/handle.h"
#include "platform/files/file_layer.h"
#include "platform/files/left_behind.h"
#include "tests/program/files/disk_calls.h"
#include "tests/program/files/start_process.h"
#include "tests/support/own_process.h"
#include "tests/support/temp_folder.h"
#include "tests/support/wine.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

namespace vandrel::test {
namespace {

using Files = std::map<std::wstring, std::string>;

constexpr DWORD longestRunMilliseconds = 60'000;
constexpr int usualPerCent = 10;

const std::string alpha = "Alpha|zzz://a.example/|first|1/1/2001\r\n";
const std::string beta = "Beta|zzz://b.example/|second|1/2/2001\r\n";
const std::string gamma = "Gamma|zzz://c.example/|third|1/3/2001\r\n";
const std::string typed = "Typed|zzz://typed.example/|by hand|11/16/2002\r\n";

const Files threeCategories{{L"News.udb", alpha + beta}, {L"Tools.udb", gamma}, {L"Unused.udb", ""}};

// The three files, some of them changed.
Files with(const Files& changed)
{
    Files files = threeCategories;
    for (const auto& [name, bytes] : changed) files[name] = bytes;
    return files;
}

Files without(const std::wstring& name, const Files& added = {})
{
    Files files = with(added);
    files.erase(name);
    return files;
}

// A command, and the contents of the category files before it, in between and after it.
struct Case {
    const wchar_t* command;
    std::vector<Files> states;
};

std::ostream& operator<<(std::ostream& out, const Case& tested)
{
    const std::wstring name = tested.command;
    return out << std::string(name.begin(), name.end());
}

std::vector<Case> cases()
{
    const std::string one = "One|zzz://one.example/||\r\n";
    const std::string three = "Three|zzz://three.example/||\r\n";
    const std::string two = "Two|zzz://two.example/||\r\n";
    const Files changed = with({{L"News.udb", typed + beta}});
    // At every moment the site is in at least one of the two.
    const Files inBoth = with({{L"Tools.udb", gamma + "Alpha|zzz://a.example/|first|\r\n"}});
    Files moved = inBoth;
    moved[L"News.udb"] = beta;
    return {
        {L"move", {threeCategories, inBoth, moved}},
        {L"add", {threeCategories, with({{L"News.udb", alpha + beta + typed}})}},
        {L"edit", {threeCategories, changed}},
        {L"refused-edit", {threeCategories, changed}},
        {L"describe",
         {threeCategories, with({{L"News.udb", "Alpha|zzz://a.example/|described|1/1/2001\r\n" + beta}})}},
        {L"remove", {threeCategories, with({{L"News.udb", beta}})}},
        {L"refused-remove", {threeCategories, with({{L"News.udb", beta}})}},
        {L"open",
         {threeCategories, with({{L"News.udb", "Alpha|zzz://a.example/|first|11/16/2002\r\n" + beta}})}},
        {L"add-category", {threeCategories, with({{L"Fresh.udb", ""}})}},
        {L"add-category-again", {threeCategories, with({{L"Tools.udb", ""}})}},
        {L"rename-category", {threeCategories, without(L"News.udb", {{L"Renamed.udb", alpha + beta}})}},
        {L"remove-category", {threeCategories, without(L"News.udb")}},
        {L"first-site", {{}, {{L"Fresh.udb", ""}}, {{L"Fresh.udb", typed}}}},
        {L"import-one",
         {threeCategories, with({{L"News.udb", alpha + beta + "One|zzz://one.example/|imported|\r\n"}})}},
        {L"import-all",
         {threeCategories, with({{L"News.udb", alpha + beta + one}}),
          with({{L"News.udb", alpha + beta + one + three}}),
          with({{L"News.udb", alpha + beta + one + three + two}})}},
        {L"export", {threeCategories}},
        {L"page-current", {threeCategories}},
        {L"page-all", {threeCategories}},
        {L"backup-current", {threeCategories}},
        {L"backup-all", {threeCategories}},
        {L"scan", {threeCategories}},
        {L"start-up", {threeCategories}},
        {L"shutdown", {threeCategories}},
    };
}

// One run of the command in its own process.
class CommandRun {
  public:
    explicit CommandRun(const Case& tested) : command_(tested.command)
    {
        for (const auto& [name, bytes] : tested.states.front()) data_.write(name, bytes);
        CreateDirectoryW(target_.file(L"favorites").c_str(), nullptr);
        CreateDirectoryW(target_.file(L"temp").c_str(), nullptr);
        for (const auto& [name, host] : {std::pair(L"One", "one"), {L"Two", "two"}, {L"Three", "three"}}) {
            target_.write(L"favorites\\" + std::wstring(name) + L".url",
                          "[InternetShortcut]\r\nURL=zzz://" + std::string(host) + ".example/\r\n");
        }
        target_.write(L"Tools.udb", oldCopy);
        if (command_ != L"start-up") return;
        for (const DWORD process : {4'000'000'000U, 4'000'000'004U}) {
            data_.write(L"vandrel-" + std::to_wstring(process) + L".tmp", "half");
        }
    }

    // Runs it up to the call, or to the command's own end when `call` is 0.
    DWORD upTo(int call, const wchar_t* when) const
    {
        return runChild(command_ + L" \"" + data_.path() + L"\" \"" + target_.path() + L"\" " +
                            std::to_wstring(call) + L" " + when,
                        target_.file(L"temp"));
    }
    static DWORD startAgain(const std::vector<std::unique_ptr<CommandRun>>& runs)
    {
        std::wstring arguments = L"start";
        for (const auto& run : runs) arguments += L" \"" + run->data_.path() + L"\"";
        return runChild(arguments, runs.front()->target_.file(L"temp"));
    }

    Files categories() const { return filesOf(data_, L".udb"); }
    const TempFolder& data() const { return data_; }
    const TempFolder& target() const { return target_; }
    // One letter per call.
    std::string calls() const { return target_.read(L"calls"); }
    // The copies of old bytes that a save in place keeps until it is done.
    std::vector<std::string> keptBytes() const
    {
        std::vector<std::string> kept;
        for (const auto& entry : std::filesystem::directory_iterator(target_.file(L"temp"))) {
            if (entry.path().extension() == L".old") kept.push_back(readBytes(entry.path().wstring()));
        }
        return kept;
    }

    static Files filesOf(const TempFolder& folder, const std::wstring& extension)
    {
        Files files;
        for (const std::wstring& name : folder.names()) {
            if (name.ends_with(extension)) files[name] = folder.read(name);
        }
        return files;
    }

    static constexpr const char* oldCopy = "an older copy\r\n";

  private:
    // Under Wine it runs on a hidden desktop.
    static DWORD runChild(const std::wstring& arguments, const std::wstring& temporary)
    {
        std::string program = VANDREL_DISK_CALL_CHILD;
        if (program.starts_with("/")) program.insert(0, "Z:"); // on a Unix host every file is on drive Z
        std::wstring line = L"\"" + std::filesystem::path(program).wstring() + L"\" " + arguments;
        std::wstring desktop = L"VandrelUnseen\\Default";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        if (runsUnderWine()) startup.lpDesktop = desktop.data();
        const auto usual = environmentText(L"TMP");
        SetEnvironmentVariableW(L"TMP", temporary.c_str());
        PROCESS_INFORMATION started{};
        const bool begun = startProcess(line, startup, started, longestRunMilliseconds);
        SetEnvironmentVariableW(L"TMP", usual ? usual->c_str() : nullptr);
        if (!begun) return static_cast<DWORD>(-1);
        CloseHandle(started.hThread);
        auto code = static_cast<DWORD>(-2);
        if (WaitForSingleObject(started.hProcess, longestRunMilliseconds) == WAIT_OBJECT_0) {
            GetExitCodeProcess(started.hProcess, &code);
        } else {
            TerminateProcess(started.hProcess, 1);
        }
        CloseHandle(started.hProcess);
        return code;
    }
    std::wstring command_;
    TempFolder data_{L"disk-call"};
    TempFolder target_{L"disk-call-target"};
};

// The program ends itself immediately before and after each call by which a command changes the disk, and
// in the middle of each that writes. Only a part of these moments is tried; VANDREL_ENDURANCE sets how many
// per cent.
class DiskCall : public testing::TestWithParam<Case> {
  protected:
    ~DiskCall() override
    {
        RegDeleteTreeW(
            HKEY_CURRENT_USER,
            (std::wstring(L"Software\\VB and VBA Program Settings\\") + disk_calls::application).c_str());
    }

    struct Point {
        int call;
        const wchar_t* when;
    };
    static std::vector<Point> pointsOf(const std::string& calls)
    {
        std::vector<Point> points;
        for (int call = 1; call <= static_cast<int>(calls.size()); ++call) {
            points.push_back({call, L"before"});
            if (calls[static_cast<std::size_t>(call) - 1] == 'w') points.push_back({call, L"within"});
            points.push_back({call, L"after"});
        }
        return points;
    }
    // Spread evenly. They begin at a different call for each command, so that together they reach every
    // kind of call.
    static std::vector<Point> chosenOf(const std::vector<Point>& points)
    {
        const auto part = environmentText(L"VANDREL_ENDURANCE");
        const int perCent = std::clamp(part ? std::stoi(*part) : usualPerCent, 1, 100);
        std::size_t sum = 0;
        for (const wchar_t letter : std::wstring(GetParam().command)) sum += letter;
        int due = static_cast<int>(sum % 100);
        std::vector<Point> chosen;
        for (const Point& point : points) {
            due += perCent;
            if (due < 100) continue;
            due -= 100;
            chosen.push_back(point);
        }
        return chosen;
    }

    // The index of the command's state that the category files are in; -1 when they are in none.
    static int stateOf(const CommandRun& run)
    {
        const auto& states = GetParam().states;
        const auto found = std::ranges::find(states, run.categories());
        return found == states.end() ? -1 : static_cast<int>(found - states.begin());
    }
    // The old bytes of a file that is written in place may be in another file.
    static bool oldBytesAreKept(const CommandRun& run)
    {
        const auto& old = GetParam().states.front();
        const auto kept = run.keptBytes();
        return std::ranges::all_of(run.categories(), [&](const auto& file) {
            const auto before = old.find(file.first);
            return before != old.end() &&
                   (file.second == before->second || std::ranges::find(kept, before->second) != kept.end());
        });
    }
    static void expectWholeCopies(const CommandRun& run)
    {
        for (const auto& [name, bytes] : CommandRun::filesOf(run.target(), L".udb")) {
            EXPECT_TRUE(bytes == run.data().read(name) || bytes == CommandRun::oldCopy)
                << testing::PrintToString(name);
        }
        removeLeftBehind(run.target().path()); // the next backup does this
        for (const std::wstring& name : run.target().names()) {
            EXPECT_FALSE(name.ends_with(L".tmp")) << testing::PrintToString(name);
        }
    }
    // Nothing is left that the next start does not know.
    static void expectOnlyFilesWithAMeaning(const CommandRun& run, bool started)
    {
        for (const std::wstring& name : run.data().names()) {
            EXPECT_TRUE(name.ends_with(L".udb") || name == L"scanned.log" ||
                        (!started && name.ends_with(L".tmp")))
                << testing::PrintToString(name);
        }
    }

    // Returns the state reached, which is never earlier than the one reached at an earlier moment.
    int endAt(const CommandRun& run, const Point& point, int lastState)
    {
        SCOPED_TRACE(testing::Message() << "ended " << point.when << " call " << point.call);
        EXPECT_EQ(run.upTo(point.call, point.when), static_cast<DWORD>(disk_calls::endedAtTheCall));
        const int state = stateOf(run);
        EXPECT_TRUE(state >= lastState || (state == -1 && oldBytesAreKept(run))) << "state " << state;
        expectOnlyFilesWithAMeaning(run, false);
        expectWholeCopies(run);
        return std::max(state, lastState);
    }
};

TEST_P(DiskCall, ThatIsTheLastLeavesEveryCategoryOldOrNewAndNothingElseForLong)
{
    const CommandRun whole(GetParam());
    ASSERT_EQ(whole.upTo(0, L"after"), static_cast<DWORD>(disk_calls::endedByItself));
    EXPECT_EQ(whole.categories(), GetParam().states.back());
    expectOnlyFilesWithAMeaning(whole, true);
    const auto points = pointsOf(whole.calls());
    const auto chosen = chosenOf(points);
    std::printf("%d of %d moments of the calls %s\n", static_cast<int>(chosen.size()),
                static_cast<int>(points.size()), whole.calls().c_str());
    if (chosen.empty()) return;

    std::vector<std::unique_ptr<CommandRun>> runs;
    std::vector<Files> left;
    int state = 0;
    for (const Point& point : chosen) {
        runs.push_back(std::make_unique<CommandRun>(GetParam()));
        state = endAt(*runs.back(), point, state);
        left.push_back(runs.back()->categories());
    }
    // The process id may belong to another process by now, whose files a start leaves alone.
    const auto nothingLeft = [&] {
        return std::ranges::all_of(runs, [](const auto& run) {
            return CommandRun::filesOf(run->data(), L".tmp").empty();
        });
    };
    for (int start = 0; start == 0 || (start < 3 && !nothingLeft()); ++start) {
        EXPECT_EQ(CommandRun::startAgain(runs), static_cast<DWORD>(disk_calls::endedByItself));
    }
    for (std::size_t run = 0; run < runs.size(); ++run) {
        expectOnlyFilesWithAMeaning(*runs[run], true);
        EXPECT_EQ(runs[run]->categories(), left[run]);
    }
}

std::string nameOf(const testing::TestParamInfo<Case>& tested)
{
    std::string name = testing::PrintToString(tested.param);
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Command, DiskCall, testing::ValuesIn(cases()), nameOf);

// ---- the calls

// Otherwise the tests above would miss changes to the disk.
TEST(DiskCalls, AreMadeByTheFileLayerAlone)
{
    const std::set<std::wstring> layer{L"file_layer.cpp"};
    const char* const calls[] = {"WriteFile(",
                                 "GENERIC_WRITE",
                                 "FILE_APPEND_DATA",
                                 "FILE_WRITE_",
                                 "DeleteFile",
                                 "MoveFile",
                                 "CopyFile",
                                 "ReplaceFile",
                                 "SetFileAttributes",
                                 "SetFileTime",
                                 "SetFileSecurity",
                                 "SetEndOfFile",
                                 "SetFileInformation",
                                 "FlushFileBuffers",
                                 "WritePrivateProfile",
                                 "CreateDirectory",
                                 "RemoveDirectory",
                                 "CREATE_ALWAYS",
                                 "CREATE_NEW",
                                 "OPEN_ALWAYS",
                                 "ofstream",
                                 "fopen",
                                 "SHFileOperation",
                                 "std::filesystem"};
    std::string source = VANDREL_SOURCE_DIR;
    if (source.starts_with("/")) source.insert(0, "Z:");
    int looked = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::filesystem::path(source) / "src")) {
        const std::wstring extension = entry.path().extension().wstring();
        if ((extension != L".cpp" && extension != L".h") || layer.contains(entry.path().filename().wstring()))
            continue;
        ++looked;
        const std::string text = readBytes(entry.path().wstring());
        for (const char* const call : calls) {
            EXPECT_EQ(text.find(call), std::string::npos)
                << call << " in " << entry.path().filename().string();
        }
    }
    EXPECT_GT(looked, 100);
}

} // namespace
} // namespace vandrel::test
