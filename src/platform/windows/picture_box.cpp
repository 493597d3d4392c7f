#include "platform/windows/picture_box.h"

#include "platform/controls/theme.h"

#include <utility>

namespace vandrel {

PictureBox::PictureBox(HWND parent, int id, Border border)
    : Window({.className = L"Vandrel.PictureBox",
              .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
              .extendedStyle = WS_EX_CONTROLPARENT |
                               (border == Border::sunken ? static_cast<DWORD>(WS_EX_CLIENTEDGE) : 0),
              .parent = parent,
              .id = id})
{
    startAnswering();
}

void PictureBox::place(int left, int top, int width, int height)
{
    SetWindowPos(handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE PictureBox::innerSize() const
{
    RECT area{};
    GetClientRect(handle(), &area);
    return {area.right, area.bottom};
}

COLORREF PictureBox::backColor() const
{
    if (backColor_) return *backColor_;
    return tabs_ != nullptr ? tabPageColor(tabs_) : GetSysColor(COLOR_3DFACE);
}

void PictureBox::setBackColor(COLORREF color)
{
    backColor_ = color;
    refresh();
}

void PictureBox::setPageOf(HWND tabs)
{
    tabs_ = tabs;
    refresh();
}

void PictureBox::refresh()
{
    InvalidateRect(handle(), nullptr, TRUE);
    UpdateWindow(handle());
}

void PictureBox::draw(HDC context) const
{
    const SIZE size = innerSize();
    const RECT area{0, 0, size.cx, size.cy};
    const BrushHandle brush(CreateSolidBrush(backColor()));
    FillRect(context, &area, brush.get());
    if (Paint) Paint(context, area);
}

// Drawn off screen first, so that it does not flicker.
void PictureBox::paint()
{
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(handle(), &paint);
    const SIZE size = innerSize();
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    const HGDIOBJ before = SelectObject(context, bitmap);
    draw(context);
    BitBlt(screen, 0, 0, size.cx, size.cy, context, 0, 0, SRCCOPY);
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    EndPaint(handle(), &paint);
}

// The controls in the box have its background; their texts keep the colour that they have elsewhere.
LRESULT PictureBox::colorsFor(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT answer = Window::onMessage(message, wParam, lParam);
    const COLORREF color = backColor();
    if (!brush_ || color != brushColor_) {
        BrushHandle brush(CreateSolidBrush(color));
        if (!brush) return answer;
        brush_ = std::move(brush);
        brushColor_ = color;
    }
    SetBkColor(reinterpret_cast<HDC>(wParam), color);
    return reinterpret_cast<LRESULT>(brush_.get());
}

LRESULT PictureBox::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ERASEBKGND: {
        // On its own surface the box paints everything in WM_PAINT. Themed controls in it have it drawn on theirs.
        const auto context = reinterpret_cast<HDC>(wParam);
        if (WindowFromDC(context) != handle()) draw(context);
        return 1;
    }
    case WM_PRINTCLIENT: draw(reinterpret_cast<HDC>(wParam)); return 0;
    case WM_PAINT: paint(); return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: return colorsFor(message, wParam, lParam);
    case WM_MOUSEMOVE:
        if (MouseMove) MouseMove();
        return 0;
    default: return Window::onMessage(message, wParam, lParam);
    }
}

} // namespace vandrel
