#pragma once

#include "platform/base/handle.h"
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
    COLORREF backColor() const;
    void setBackColor(COLORREF color);
    // From now on the box and what is in it have the background of a page of that tab control.
    void setPageOf(HWND tabs);
    void refresh();

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void paint();
    void draw(HDC context) const;
    LRESULT colorsFor(UINT message, WPARAM wParam, LPARAM lParam);

    HWND tabs_ = nullptr;
    std::optional<COLORREF> backColor_;
    BrushHandle brush_; // of brushColor_, lent to the system
    COLORREF brushColor_ = 0;
};

} // namespace vandrel
