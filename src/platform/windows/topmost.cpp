#include "platform/windows/topmost.h"

#include "platform/base/wine.h"

namespace vandrel {
namespace {

// A property of the windows that setTopmost itself has made topmost.
constexpr const wchar_t* ownChoice = L"Vandrel.Topmost";

void putInLayer(HWND window, HWND layer) noexcept
{
    if (runningUnderWine()) {
        putInLayerUnderWine(window, layer);
        return;
    }
    SetWindowPos(window, layer, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

// A window that leaves the topmost layer takes along all the windows that it owns.
BOOL CALLBACK putBackByOwnChoice(HWND window, LPARAM owner) noexcept
{
    if (GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner) &&
        GetPropW(window, ownChoice) != nullptr) {
        putInLayer(window, HWND_TOPMOST);
    }
    return TRUE;
}

} // namespace

void setTopmost(HWND window, bool on) noexcept
{
    putInLayer(window, on ? HWND_TOPMOST : HWND_NOTOPMOST);
    if (on) {
        SetPropW(window, ownChoice, window);
        return;
    }
    RemovePropW(window, ownChoice);
    EnumThreadWindows(GetWindowThreadProcessId(window, nullptr), putBackByOwnChoice,
                      reinterpret_cast<LPARAM>(window));
}

bool isTopmost(HWND window) { return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

} // namespace vandrel
