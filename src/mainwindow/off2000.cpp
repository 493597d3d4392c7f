#include "mainwindow/off2000.h"

namespace vandrel::Off2000 {

void addStaticEdge(HWND window)
{
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_EXSTYLE);
    SetWindowLongPtrW(window, GWL_EXSTYLE, style | WS_EX_STATICEDGE);
    SetWindowPos(window, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED | SWP_NOOWNERZORDER);
}

} // namespace vandrel::Off2000
