#pragma once

#include "platform/base/twips.h"
#include "platform/controls/font.h"

#include <deque>
#include <functional>
#include <optional>

namespace vandrel {

// A native control. The object owns its window; the parent sends what the window reports back to the object
// (reflect). Neither copied nor moved.
class Control {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    HWND handle() const { return window_; }
    unsigned dpi() const { return GetDpiForWindow(window_); }
    int pixels(Twips length) const { return toPixels(length, dpi()); }

    // Pixels, from the parent's client area.
    void place(int left, int top, int width, int height);
    // Each changes the window only when it is not so already.
    void setEnabled(bool on);
    bool enabled() const { return IsWindowEnabled(window_) != 0; }
    void setVisible(bool on);
    bool visible() const { return (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0; }
    bool hasFocus() const;
    void setFocus() { SetFocus(window_); }

    virtual std::wstring text() const;
    virtual void setText(const std::wstring& text);

    // What the control has in pixels, again for the DPI that the window has come to.
    virtual void dpiChanged(unsigned /*dpi*/) { applyFont(); }
    const FontDescription& font() const { return font_; }
    void setFont(const FontDescription& font);
    // Pixels that a text takes on one line in the control's font; see textSize.
    SIZE sizeOf(const std::wstring& text) const { return textSize(fontHandle_.get(), text); }
    // 0x00BBGGRR; a control that has no text colour of its own ignores it.
    virtual void setForeColor(COLORREF color);
    COLORREF foreColor() const { return foreColor_; }

    // What a screen reader says of a control that shows no text of its own.
    void setAccessibleName(const std::wstring& name) { SetWindowTextW(window_, name.c_str()); }

    // Null when the window, whosever it is, is no control of this thread.
    static Control* of(HWND window);

    // What the parent was told about this control; no value leaves the message to the parent.
    virtual std::optional<LRESULT> onNotify(NMHDR&) { return std::nullopt; }
    virtual void onCommand(WORD /*code*/, WORD /*id*/) {}
    virtual std::optional<LRESULT> onColor(HDC context, UINT message);
    virtual void onDrawItem(const DRAWITEMSTRUCT&) {}

  protected:
    // `style` gets WS_CHILD and WS_VISIBLE added.
    Control(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle, int id);

    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Runs `action` by a message of its own. For what the native control reports in the middle of its work: a
    // command that ran there would keep it from finishing, and might destroy it under its own feet.
    void later(std::function<void()> action);
    // True while the native control answers a message and may run others itself: what is to be done later waits,
    // until whoever says so calls resumeLater.
    virtual bool busy() const { return false; }
    void resumeLater();
    virtual void applyFont();
    HFONT fontHandle() const { return fontHandle_.get(); }
    int outerHeight() const; // pixels

  private:
    static LRESULT CALLBACK controlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void runNext();

    HWND window_ = nullptr;
    WNDPROC nativeProc_ = nullptr;
    FontDescription font_;
    FontHandle fontHandle_;
    COLORREF foreColor_ = 0;
    std::deque<std::function<void()>> waiting_;
    int held_ = 0; // messages of `later` that came while the control was busy
};

// Hands WM_SYSCOLORCHANGE, which the system sends to top-level windows only, to all controls within the
// window.
void tellSystemColors(HWND window);

// Hands WM_NOTIFY, WM_COMMAND, WM_DRAWITEM and the colour messages that a parent got to the control they are
// about.
std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam);

} // namespace vandrel
