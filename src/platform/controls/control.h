#pragma once

#include "platform/base/twips.h"
#include "platform/controls/font.h"

#include <deque>
#include <functional>
#include <optional>

namespace vandrel {

// A native control. The object owns its window; the parent passes the notifications of the window on to the
// object (see reflect).
class Control {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    HWND handle() const { return window_; }
    unsigned dpi() const { return GetDpiForWindow(window_); }
    int pixels(Twips length) const { return toPixels(length, dpi()); }

    // Pixels, relative to the parent's client area.
    void place(int left, int top, int width, int height);
    // Neither touches the window if nothing changes.
    void setEnabled(bool on);
    bool enabled() const { return IsWindowEnabled(window_) != 0; }
    void setVisible(bool on);
    bool visible() const { return (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0; }
    bool hasFocus() const;
    void setFocus() { SetFocus(window_); }

    virtual std::wstring text() const;
    virtual void setText(const std::wstring& text);

    // To be called when the window has come to another DPI: updates whatever the control has in pixels.
    virtual void dpiChanged(unsigned /*dpi*/) { applyFont(); }
    const FontDescription& font() const { return font_; }
    void setFont(const FontDescription& font);
    // The size in pixels of a text on one line in the control's font; see textSize.
    SIZE sizeOf(const std::wstring& text) const { return textSize(fontHandle_.get(), text); }
    // 0x00BBGGRR; ignored by a control without a text colour.
    virtual void setForeColor(COLORREF color);
    COLORREF foreColor() const { return foreColor_; }

    // What a screen reader calls a control that shows no text.
    virtual void setAccessibleName(const std::wstring& name);

    // Null if the window, which may be any, is not a Control of this thread.
    static Control* of(HWND window);

    // Notifications that the parent got about this control; no value leaves the message to the parent.
    virtual std::optional<LRESULT> onNotify(NMHDR&) { return std::nullopt; }
    virtual void onCommand(WORD /*code*/, WORD /*id*/) {}
    virtual std::optional<LRESULT> onColor(HDC context, UINT message);
    virtual void onDrawItem(const DRAWITEMSTRUCT&) {}

  protected:
    // Adds WS_CHILD and WS_VISIBLE to `style`.
    Control(HWND parent, const wchar_t* className, DWORD style, DWORD extendedStyle, int id);

    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Runs `action` from a posted message. For what the native control reports in the middle of its work: a
    // command run there would hold it up, and might destroy it. Throws RuntimeError if nothing can be
    // posted.
    void later(std::function<void()> action);
    // True while the native control handles a message within which it may dispatch others. What was put off
    // then waits until resumeLater is called.
    virtual bool busy() const { return false; }
    void resumeLater();
    virtual void applyFont();
    // The name alone, for a control whose text is something else.
    void annotateName(const std::wstring& name);
    HFONT fontHandle() const { return fontHandle_.get(); }
    int outerHeight() const; // pixels
    // Has the native control answer without the system in between, which takes longer than most answers.
    LRESULT callNative(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return CallWindowProcW(nativeProc_, window_, message, wParam, lParam);
    }

  private:
    static LRESULT CALLBACK controlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void runNext();
    void forgetName();

    HWND window_ = nullptr;
    WNDPROC nativeProc_ = nullptr;
    bool annotated_ = false;
    FontDescription font_;
    FontHandle fontHandle_;
    COLORREF foreColor_ = 0;
    std::deque<std::function<void()>> waiting_;
    int held_ = 0; // messages of `later` that came while the control was busy
};

// Passes WM_SYSCOLORCHANGE, which the system sends to top-level windows only, on to all controls in the
// window, and repaints them.
void tellSystemColors(HWND window);

// Passes the WM_NOTIFY, WM_COMMAND, WM_DRAWITEM and colour messages that a parent gets on to the control
// concerned.
std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam);

} // namespace vandrel
