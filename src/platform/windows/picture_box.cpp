#include "platform/windows/picture_box.h"

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

void PictureBox::setBackColor(COLORREF color)
{
    backColor_ = color;
    refresh();
}

void PictureBox::refresh()
{
    InvalidateRect(handle(), nullptr, TRUE);
    UpdateWindow(handle());
}

// Drawn off screen first, so that it does not flicker.
void PictureBox::paint()
{
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(handle(), &paint);
    const SIZE size = innerSize();
    const RECT area{0, 0, size.cx, size.cy};
    const HDC context = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    const HGDIOBJ before = SelectObject(context, bitmap);
    const HBRUSH brush = CreateSolidBrush(backColor());
    FillRect(context, &area, brush);
    DeleteObject(brush);
    if (Paint) Paint(context, area);
    BitBlt(screen, 0, 0, size.cx, size.cy, context, 0, 0, SRCCOPY);
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    EndPaint(handle(), &paint);
}

LRESULT PictureBox::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: paint(); return 0;
    case WM_MOUSEMOVE:
        if (MouseMove) MouseMove();
        return 0;
    default: return Window::onMessage(message, wParam, lParam);
    }
}

} // namespace vandrel
