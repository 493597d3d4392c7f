// The floor for starting and for idling: a window of the same kind with the same timer, and nothing in it or, with an
// argument, bare controls.
#include "benchmarks/bare_controls.h"

#include <commctrl.h>

namespace {

LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_TIMER) return 0;
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR arguments, int showCommand)
{
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    windowClass.lpszClassName = L"Vandrel.Main";
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(0, L"Vandrel.Main", L"Empty", WS_OVERLAPPEDWINDOW, 0, 0, 609, 379,
                                        nullptr, nullptr, instance, nullptr);
    if (*arguments != L'\0') vandrel::bench::makeBareControls(window);
    SetTimer(window, 1, 1, nullptr);
    ShowWindow(window, showCommand);
    UpdateWindow(window);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
