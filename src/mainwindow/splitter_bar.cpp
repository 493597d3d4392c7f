#include "mainwindow/splitter_bar.h"

#include <windowsx.h>

#include <utility>

namespace vandrel {
namespace {

constexpr WPARAM anyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;

} // namespace

SplitterBar::SplitterBar(HWND parent)
    : Window({.className = L"Vandrel.SplitterBar",
              .style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
              .parent = parent,
              .cursor = LoadCursorW(nullptr, IDC_SIZEWE)})
{
    startAnswering();
}

Twips SplitterBar::mouseX(LPARAM lParam) const { return toTwips(GET_X_LPARAM(lParam), dpi()); }

// Once for each press: ReleaseCapture sends WM_CAPTURECHANGED, which leads here again.
void SplitterBar::endPress()
{
    if (!std::exchange(pressed_, false)) return;
    if (GetCapture() == handle()) ReleaseCapture();
    if (MouseUp) MouseUp();
}

LRESULT SplitterBar::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        SetCapture(handle());
        pressed_ = true;
        if (MouseDown) MouseDown(mouseX(lParam));
        return 0;
    case WM_MOUSEMOVE:
        // Contract: any button sets the anchor, but only the left one alone drags.
        if (pressed_ && (wParam & anyButton) == MK_LBUTTON && MouseMove) MouseMove(mouseX(lParam));
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        if ((wParam & anyButton) == 0) {
            endPress();
        } else if (pressed_ && MouseUp) {
            MouseUp();
        }
        return 0;
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != handle()) endPress();
        return 0;
    case WM_CANCELMODE: endPress(); return 0;
    default: return Window::onMessage(message, wParam, lParam);
    }
}

} // namespace vandrel
