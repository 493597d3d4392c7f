#include "platform/base/wine.h"

#include <array>
#include <span>

namespace vandrel {
namespace {

bool disregarded = false;

// Without memory of the heap: a window goes back into its layer also when that has run out.
struct OwnedWindows {
    HWND owner;
    std::array<HWND, 64> windows{};
    std::size_t count = 0;

    std::span<const HWND> all() const { return std::span(windows).first(count); }
};

OwnedWindows windowsOwnedBy(HWND owner) noexcept
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

} // namespace

bool runningUnderWine() noexcept
{
    static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine && !disregarded;
}

WineDisregarded::WineDisregarded() noexcept { disregarded = true; }

WineDisregarded::~WineDisregarded() { disregarded = false; }

bool pausesPressesUnderWine() noexcept { return runningUnderWine(); }

void putInLayerUnderWine(HWND window, HWND layer) noexcept
{
    // The owned windows are let go of for the moment, and go along one by one, the lowest first, to stay
    // above their owner.
    constexpr UINT inPlace = SWP_NOMOVE | SWP_NOSIZE;
    const HWND active = GetActiveWindow();
    const OwnedWindows found = windowsOwnedBy(window);
    const std::span<const HWND> owned = found.all();
    for (const HWND other : owned) SetWindowLongPtrW(other, GWLP_HWNDPARENT, 0);
    SetWindowPos(window, layer, 0, 0, 0, 0, inPlace);
    for (auto other = owned.rbegin(); other != owned.rend(); ++other)
        SetWindowPos(*other, layer, 0, 0, 0, 0, inPlace | SWP_NOACTIVATE);
    for (const HWND other : owned)
        SetWindowLongPtrW(other, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(window));
    // To go into another layer made the window the active one, which may be a dialog of its.
    if (active != nullptr && GetActiveWindow() != active) SetActiveWindow(active);
}

} // namespace vandrel
