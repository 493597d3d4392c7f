#include "shared/window_edges.h"

namespace vandrel::Off2000 {
namespace {

void setExtendedStyle(HWND window, LONG_PTR style)
{
    SetWindowLongPtrW(window, GWL_EXSTYLE, style);
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED | SWP_NOOWNERZORDER);
}

LONG_PTR withStaticEdge(HWND window) { return GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_STATICEDGE; }

} // namespace

void addStaticEdge(HWND window) { setExtendedStyle(window, withStaticEdge(window)); }

// Contract: 1 is added, not or-ed.
void addStaticAndDialogEdge(HWND window) { setExtendedStyle(window, withStaticEdge(window) + 1); }

} // namespace vandrel::Off2000
