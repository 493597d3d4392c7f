#include "exchange_tool/exchange_commands.h"
#include "exchange_tool/exchange_window.h"
#include "exchange_tool/standard_output.h"
#include "platform/base/guarded.h"
#include "platform/base/system_error.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

// A console program, so that a shell waits for it and learns its exit status; no shell waits for a window
// program. Its manifest asks for no console when Explorer starts it (Windows 11, 24H2, and later). Before
// that, Explorer's start makes a console for a moment, which is let go before the window comes.

namespace {

using namespace vandrel;

// Where Ctrl+C finds the work of a command. It lives as long as the process: Ctrl+C comes on a thread of the
// system's.
Progress& commandProgress()
{
    static Progress progress;
    return progress;
}

BOOL WINAPI onControlKey(DWORD key) noexcept
{
    if (key != CTRL_C_EVENT && key != CTRL_BREAK_EVENT) return FALSE;
    commandProgress().cancel(); // which leaves nothing half done
    return TRUE;
}

void leaveOwnConsole()
{
    DWORD processes[2]{};
    if (GetConsoleProcessList(processes, 2) == 1) FreeConsole();
}

int inWindows(const ExchangeRequest& request)
{
    leaveOwnConsole();
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    return runInWindows(request, systemFiles());
}

int onCommandLine(const ExchangeRequest& request)
{
    commandProgress();
    SetConsoleCtrlHandler(onControlKey, TRUE);
    const StandardStream output(STD_OUTPUT_HANDLE);
    const StandardStream errors(STD_ERROR_HANDLE);
    const CommandStreams streams{[&](std::wstring_view text) { return output.write(text); },
                                 [&](std::wstring_view text) { return errors.write(text); }};
    return runCommand(request, streams, systemFiles(), commandProgress());
}

} // namespace

int wmain(int count, wchar_t** values)
{
    keepSystemBoxesAway();
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    return static_cast<int>(guarded(nullptr, exit_status::nothingDone, [&]() -> LRESULT {
        const std::vector<std::wstring> arguments(values + std::min(count, 1), values + count);
        const ExchangeRequest request = requestOf(arguments);
        return request.inWindows() ? inWindows(request) : onCommandLine(request);
    }));
}
