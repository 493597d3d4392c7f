#include "platform/topmost.h"

#include <vector>

namespace vandrel {
namespace {

std::vector<HWND> windowsOwnedBy(HWND owner)
{
    struct Search {
        HWND owner;
        std::vector<HWND> found;
    } search{owner, {}};
    EnumThreadWindows(
        GetWindowThreadProcessId(owner, nullptr),
        [](HWND window, LPARAM param) -> BOOL {
            auto& s = *reinterpret_cast<Search*>(param);
            if (GetWindow(window, GW_OWNER) == s.owner) s.found.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// On the windows that are topmost by their own choice, and stay it when their owner is not.
constexpr const wchar_t* ownChoice = L"Vandrel.Topmost";

} // namespace

void setTopmost(HWND window, bool on)
{
    // Wine moves the windows that this one owns (tool tips, dialogs) and forgets the window itself. So they are
    // let go of for the moment, and go along one by one, the lowest first, to stay above their owner.
    const HWND active = GetActiveWindow();
    const HWND layer = on ? HWND_TOPMOST : HWND_NOTOPMOST;
    constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE;
    const std::vector<HWND> owned = windowsOwnedBy(window);
    for (const HWND other : owned) SetWindowLongPtrW(other, GWLP_HWNDPARENT, 0);
    SetWindowPos(window, layer, 0, 0, 0, 0, inPlace);
    for (auto other = owned.rbegin(); other != owned.rend(); ++other) {
        const bool stays = GetPropW(*other, ownChoice) != nullptr;
        SetWindowPos(*other, stays ? HWND_TOPMOST : layer, 0, 0, 0, 0, inPlace | SWP_NOACTIVATE);
    }
    if (on) {
        SetPropW(window, ownChoice, window);
    } else {
        RemovePropW(window, ownChoice);
    }
    for (const HWND other : owned)
        SetWindowLongPtrW(other, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(window));
    // To go into another layer made the window the active one, which may be a dialog of its.
    if (active != nullptr && GetActiveWindow() != active) SetActiveWindow(active);
}

bool isTopmost(HWND window) { return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

} // namespace vandrel
