#pragma once

#include "platform/windows/window.h"

#include <functional>
#include <optional>

namespace vandrel {

// A rectangle within a dialog: a page with controls of its own, a swatch, or something drawn.
class PictureBox final : public Window {
  public:
    enum class Border { none, sunken };
    PictureBox(HWND parent, int id, Border border = Border::none);

    std::function<void(HDC context, const RECT& area)> Paint; // on the background
    std::function<void()> MouseMove;                          // over it, and over its labels

    // Pixels, from the parent's client area.
    void place(int left, int top, int width, int height);
    SIZE innerSize() const; // pixels
    void setVisible(bool on) { ShowWindow(handle(), on ? SW_SHOWNA : SW_HIDE); }
    bool visible() const { return (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0; }
    // 0x00BBGGRR; a surface's colour until it is set.
    COLORREF backColor() const { return backColor_.value_or(GetSysColor(COLOR_3DFACE)); }
    void setBackColor(COLORREF color);
    void refresh();

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void paint();

    std::optional<COLORREF> backColor_;
};

} // namespace vandrel
