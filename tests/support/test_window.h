#pragma once

#include "platform/windows/window.h"

namespace vandrel::test {

// A top-level window for controls under test. It passes their notifications back to them, as every parent
// does.
class TestWindow : public Window {
  public:
    TestWindow()
        : Window({.className = L"Vandrel.TestWindow", .style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN})
    {
        startAnswering();
        SetWindowPos(handle(), nullptr, 20, 20, 800, 600, SWP_NOZORDER);
    }
    void show()
    {
        ShowWindow(handle(), SW_SHOW);
        UpdateWindow(handle());
    }
};

} // namespace vandrel::test
