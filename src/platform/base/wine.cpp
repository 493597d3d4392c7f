#include "platform/base/wine.h"

#include <array>
#include <span>

namespace vandrel {
namespace {

bool disregarded = false;

// Uses no heap: a window must get back into its layer even when memory has run out.
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

// Each row but the first of its block has the control look at all blocks that there are so far; measured, two thousand
// blocks take as long as selecting a row.
std::size_t callsLostToBlocksUnderWine(std::size_t rows, std::size_t blocks) noexcept
{
    return runningUnderWine() ? (rows - blocks) * blocks / 2000 : 0;
}

void putInLayerUnderWine(HWND window, HWND layer) noexcept
{
    // The owned windows are detached for the moment and moved one by one, lowest first, so that they stay
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
    // The move activated this window, but the active one may be a dialog that it owns.
    if (active != nullptr && GetActiveWindow() != active) SetActiveWindow(active);
}

} // namespace vandrel
