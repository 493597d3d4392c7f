#pragma once

#include <windows.h>

#include <vector>

namespace vandrel {

// Moves windows of one parent in one step, so that none is painted where it does not stay. A window that is
// in its place already is not touched.
class WindowBatch {
  public:
    // Pixels, relative to the parent's client area.
    void place(HWND window, int left, int top, int width, int height);
    // Windows that the system does not move together are moved one by one.
    void apply();

  private:
    struct Move {
        HWND window;
        int left, top, width, height;
    };
    bool moveTogether() const;

    std::vector<Move> moves_;
};

} // namespace vandrel
