#include "platform/windows/topmost.h"

#include <array>
#include <span>

namespace vandrel {
namespace {

// Without memory of the heap: a window goes back into its layer also when that has run out.
struct OwnedWindows {
    HWND owner;
    std::array<HWND, 64> windows{};
    std::size_t count = 0;

    std::span<const HWND> all() const { return std::span(windows).first(count); }
};

OwnedWindows windowsOwnedBy(HWND owner)
{
    OwnedWindows search{owner};
    EnumThreadWindows(
        GetWindowThreadProcessId(owner, nullptr),
        [](HWND window, LPARAM param) -> BOOL {
            auto& found = *reinterpret_cast<OwnedWindows*>(param);
            if (GetWindow(window, GW_OWNER) == found.owner) found.windows[found.count++] = window;
            return found.count < found.windows.size();
        },
        reinterpret_cast<LPARAM>(&search));
    return search;
}

// On the windows that are topmost by their own choice, and stay it when their owner is not.
constexpr const wchar_t* ownChoice = L"Vandrel.Topmost";

} // namespace

void setTopmost(HWND window, bool on) noexcept
{
    // Wine moves the windows that this one owns (tool tips, dialogs) and forgets the window itself. So they
    // are let go of for the moment, and go along one by one, the lowest first, to stay above their owner.
    const HWND active = GetActiveWindow();
    const HWND layer = on ? HWND_TOPMOST : HWND_NOTOPMOST;
    constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE;
    const OwnedWindows found = windowsOwnedBy(window);
    const std::span<const HWND> owned = found.all();
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
