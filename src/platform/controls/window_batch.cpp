#include "platform/controls/window_batch.h"

#include <algorithm>

namespace vandrel {
namespace {

// While drawing is locked, contents that move along would be what was on the screen before.
constexpr UINT how = SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS;

} // namespace

void WindowBatch::place(HWND window, int left, int top, int width, int height)
{
    RECT now{};
    GetWindowRect(window, &now);
    MapWindowPoints(HWND_DESKTOP, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
    const RECT wanted{left, top, left + std::max(width, 0), top + std::max(height, 0)};
    if (EqualRect(&now, &wanted) == 0) moves_.push_back({window, left, top, width, height});
}

bool WindowBatch::moveTogether() const
{
    HDWP batch = BeginDeferWindowPos(static_cast<int>(moves_.size()));
    for (const Move& move : moves_) {
        if (batch == nullptr) return false;
        batch = DeferWindowPos(batch, move.window, nullptr, move.left, move.top, move.width, move.height,
                               how);
    }
    return batch != nullptr && EndDeferWindowPos(batch) != 0;
}

void WindowBatch::apply()
{
    if (!moveTogether()) {
        for (const Move& move : moves_)
            SetWindowPos(move.window, nullptr, move.left, move.top, move.width, move.height, how);
    }
    moves_.clear();
}

} // namespace vandrel
