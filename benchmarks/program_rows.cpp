#include "benchmarks/measure.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"

#include <windows.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace vandrel::bench {
namespace {

fs::path programFolder()
{
    wchar_t path[MAX_PATH + 1]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return fs::path(path).parent_path();
}

// A started program; terminated in the end, because only its start is measured.
class Process {
  public:
    explicit Process(const fs::path& program, const wchar_t* argument = L"")
    {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        std::wstring commandLine = L"program " + std::wstring(argument);
        CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       program.parent_path().c_str(), &startup, &process_);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process()
    {
        TerminateProcess(process_.hProcess, 0);
        WaitForSingleObject(process_.hProcess, 5000);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    // Both programs paint before their first message, so one that answers has painted.
    void waitUntilPainted() const
    {
        const double deadline = now() + 20'000;
        while (now() < deadline) {
            HWND window = nullptr;
            while ((window = FindWindowExW(nullptr, window, L"Vandrel.Main", nullptr)) != nullptr) {
                DWORD owner = 0;
                GetWindowThreadProcessId(window, &owner);
                if (owner != process_.dwProcessId || !IsWindowVisible(window)) continue;
                SendMessageW(window, WM_NULL, 0, 0);
                return;
            }
            Sleep(1);
        }
        std::printf("the window did not come\n");
    }
    double processorMilliseconds() const
    {
        FILETIME created{}, ended{}, kernel{}, user{};
        GetProcessTimes(process_.hProcess, &created, &ended, &kernel, &user);
        const auto ticks = [](FILETIME t) { return t.dwHighDateTime * 4294967296.0 + t.dwLowDateTime; };
        return (ticks(kernel) + ticks(user)) / 10'000;
    }

  private:
    PROCESS_INFORMATION process_{};
};

double startTime(const fs::path& program, const wchar_t* argument = L"")
{
    const double start = now();
    const Process process(program, argument);
    process.waitUntilPainted();
    return now() - start;
}

fs::path programIn(const wchar_t* folderName, int categories)
{
    const fs::path folder = fs::current_path() / folderName;
    fs::create_directories(folder);
    for (int i = 0; i < categories; ++i) {
        std::ofstream(folder / (L"Category " + std::to_wstring(i) + L".udb"), std::ios::binary)
            << generatedSites(10, static_cast<unsigned>(i));
    }
    fs::copy_file(programFolder() / L"Vandrel.exe", folder / L"Vandrel.exe",
                  fs::copy_options::overwrite_existing);
    return folder / L"Vandrel.exe";
}

double idleMilliseconds(const fs::path& program, DWORD seconds)
{
    const Process process(program);
    process.waitUntilPainted();
    Sleep(500);
    const double before = process.processorMilliseconds();
    Sleep(seconds * 1000);
    return process.processorMilliseconds() - before;
}

} // namespace

void programRows()
{
    const fs::path empty = programFolder() / L"empty_window.exe";
    const fs::path onEmptyFolder = programIn(L"start-empty", 0);
    const fs::path onThousand = programIn(L"start-1000", 1000);
    startTime(empty); // warms the system up
    const auto times = timedInTurn(
        {[&] { return startTime(empty); }, [&] { return startTime(empty, L"controls"); },
         [&] { return startTime(onEmptyFolder); }, [&] { return startTime(onThousand); }});
    const double floor = times[0];
    const double bareControls = times[1];
    const double start = times[2];
    const double startOnThousand = times[3];
    print({"start to a painted window, empty folder", "starting an empty window", start, floor, "ms", 1.3});
    print({"the same", "starting a window of bare controls", start, bareControls, "ms", 1.2});
    print({"start to a painted window, 1,000 categories", "starting an empty window", startOnThousand, floor,
           "ms", 1.5});
    print({"the same", "starting a window of bare controls", startOnThousand, bareControls, "ms", 1.3});

    constexpr DWORD seconds = 20;
    const double idleFloor = idleMilliseconds(empty, seconds);
    const double idle = idleMilliseconds(onThousand, seconds);
    if (idleFloor == 0) {
        std::printf("| processor time of 20 idle seconds | not counted by this system | | | | 1.20 |\n");
    } else {
        print({"processor time of 20 idle seconds", "an empty window with the same timer", idle, idleFloor,
               "ms", 1.2});
    }
    const double size = static_cast<double>(fs::file_size(programFolder() / L"Vandrel.exe")) / 1e6;
    print({"the executable", "", size, 1, "MB", 1.5});
}

} // namespace vandrel::bench
