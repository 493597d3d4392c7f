#include "platform/base/handle.h"
#include "tests/program/files/start_process.h"
#include "tests/program/files/versions.h"
#include "tests/support/temp_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>

namespace vandrel::test {
namespace {

constexpr int killsOfAPart = 125;
constexpr double longestRun = 25; // milliseconds; time for several saves of both files
constexpr DWORD limitMilliseconds = 20'000;

// A process that saves in a loop is killed at random moments, 500 times in all four parts together.
// VANDREL_SEED repeats a run.
class Durability : public testing::TestWithParam<int> {
  protected:
    Durability()
    {
        for (int file = 0; file < 2; ++file) {
            for (int version = 0; version < versionCount; ++version)
                versions[file].push_back(versionOf(file, version));
            folder.write(savedFiles[file], versions[file][0]);
        }
    }
    static std::uint32_t seed()
    {
        wchar_t text[16]{};
        if (GetEnvironmentVariableW(L"VANDREL_SEED", text, 16) > 0)
            return static_cast<std::uint32_t>(std::wcstoul(text, nullptr, 10));
        return std::random_device{}();
    }
    // Starts the saving process, lets it save for this long and kills it.
    void saveAndKill(double milliseconds) const
    {
        const std::wstring name = L"vandrel-saving-" + std::to_wstring(GetCurrentProcessId());
        const HANDLE begun = CreateEventW(nullptr, TRUE, FALSE, name.c_str());
        std::string program = VANDREL_SAVE_LOOP;
        if (program.starts_with("/")) program.insert(0, "Z:"); // on a Unix host every file is on drive Z
        const std::wstring line = L"\"" + std::filesystem::path(program).wstring() + L"\" \"" +
                                  folder.path() + L"\" " + name;
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        ASSERT_TRUE(startProcess(line, startup, started, limitMilliseconds)) << "error " << GetLastError();
        const HANDLE either[] = {begun, started.hProcess};
        EXPECT_EQ(WaitForMultipleObjects(2, either, FALSE, limitMilliseconds), WAIT_OBJECT_0);
        waitExactly(milliseconds);
        EXPECT_EQ(WaitForSingleObject(started.hProcess, 0), static_cast<DWORD>(WAIT_TIMEOUT))
            << "a save failed: the saving process ended by itself";
        TerminateProcess(started.hProcess, 1);
        EXPECT_EQ(WaitForSingleObject(started.hProcess, limitMilliseconds), WAIT_OBJECT_0);
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
        CloseHandle(begun);
    }
    static void waitExactly(double milliseconds)
    {
        LARGE_INTEGER now{}, frequency{};
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&now);
        const auto end = now.QuadPart +
                         static_cast<LONGLONG>(milliseconds * static_cast<double>(frequency.QuadPart) / 1000);
        while (now.QuadPart < end) {
            Sleep(0);
            QueryPerformanceCounter(&now);
        }
    }
    // The version that the file is now, byte for byte; -1 when it is none.
    int versionNow(int file) const
    {
        const auto found = std::ranges::find(versions[file], folder.read(savedFiles[file]));
        return found == versions[file].end() ? -1 : static_cast<int>(found - versions[file].begin());
    }

    TempFolder folder{L"vandrel-durability"};
    std::vector<std::string> versions[2];
};

TEST_P(Durability, AfterEveryKillEachCategoryFileIsOneOfTheVersionsThatWereSaved)
{
    const std::uint32_t start = seed() + static_cast<std::uint32_t>(GetParam());
    std::mt19937 random(start);
    std::uniform_real_distribution<double> moment(0, longestRun);
    std::printf("seed %u\n", static_cast<unsigned>(start));
    int killedInTheMiddle = 0;
    int seen[versionCount]{};
    for (int kill = 0; kill < killsOfAPart; ++kill) {
        ASSERT_NO_FATAL_FAILURE(saveAndKill(moment(random)));
        for (int file = 0; file < 2; ++file) {
            const int version = versionNow(file);
            ASSERT_GE(version, 0) << "kill " << kill << ", seed " << start << ", file " << file;
            ++seen[version];
        }
        for (const std::wstring& name : folder.names()) {
            if (std::ranges::find(savedFiles, name) != std::end(savedFiles)) continue;
            ++killedInTheMiddle;
            EXPECT_FALSE(name.ends_with(L".udb")) << "what a kill leaves behind must be no category";
            DeleteFileW(folder.file(name).c_str());
        }
    }
    std::printf("%d of %d kills fell within a save\n", killedInTheMiddle, killsOfAPart);
    EXPECT_GT(killedInTheMiddle, killsOfAPart / 10); // otherwise nothing was tested
    EXPECT_GT(seen[1] + seen[2], 0);                 // something was saved at all
}

INSTANTIATE_TEST_SUITE_P(Part, Durability, testing::Range(0, 4));

} // namespace
} // namespace vandrel::test
