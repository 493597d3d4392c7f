#include "mainwindow/splitter_bar.h"

#include <windowsx.h>

namespace vandrel {
namespace {

constexpr WPARAM anyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;

} // namespace

SplitterBar::SplitterBar(HWND parent)
    : Window({.className = L"Vandrel.SplitterBar",
              .style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
              .parent = parent,
              .cursor = LoadCursorW(nullptr, IDC_SIZEWE)})
{}

Twips SplitterBar::mouseX(LPARAM lParam) const { return toTwips(GET_X_LPARAM(lParam), dpi()); }

LRESULT SplitterBar::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        SetCapture(handle());
        if (MouseDown) MouseDown(mouseX(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if ((wParam & anyButton) == MK_LBUTTON && MouseMove) MouseMove(mouseX(lParam));
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        if ((wParam & anyButton) == 0) ReleaseCapture();
        if (MouseUp) MouseUp();
        return 0;
    default: return Window::onMessage(message, wParam, lParam);
    }
}

} // namespace vandrel
