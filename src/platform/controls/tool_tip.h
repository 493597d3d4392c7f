#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// The tip that a window shows while the mouse rests on it. It must not outlive the window.
class ToolTip {
  public:
    explicit ToolTip(HWND window);
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip();

    HWND handle() const { return tip_; }
    const std::wstring& text() const { return text_; }
    void setText(const std::wstring& text);
    // To be called when the window has come to another DPI: the width at which texts are broken into lines follows.
    void dpiChanged(unsigned dpi);

  private:
    HWND window_;
    HWND tip_;
    std::wstring text_;
};

} // namespace vandrel
