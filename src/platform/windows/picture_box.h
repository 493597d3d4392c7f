#pragma once

#include "platform/windows/window.h"

#include <functional>
#include <optional>

namespace vandrel {

// A rectangle in a dialog: a page with controls, a colour swatch or a drawing.
class PictureBox final : public Window {
  public:
    enum class Border { none, sunken };
    PictureBox(HWND parent, int id, Border border = Border::none);

    std::function<void(HDC context, const RECT& area)> Paint; // draws on the background
    std::function<void()> MouseMove;                          // over the box or its labels

    // Pixels, relative to the parent's client area.
    void place(int left, int top, int width, int height);
    SIZE innerSize() const; // pixels
    void setVisible(bool on) { ShowWindow(handle(), on ? SW_SHOWNA : SW_HIDE); }
    bool visible() const { return (GetWindowLongPtrW(handle(), GWL_STYLE) & WS_VISIBLE) != 0; }
    // 0x00BBGGRR; the system's COLOR_3DFACE until it is set.
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
