#pragma once

#include "platform/windows/form.h"
#include "platform/windows/message_loop.h"
#include "platform/windows/title_icons.h"

#include <optional>
#include <string>

namespace vandrel {

// A window of the system's dialog class, with controls that the derived class owns. The constructor creates
// it hidden. Enter presses the default button, Esc cancels, Tab visits the controls in the order of their
// creation.
class Dialog : public Form {
  public:
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    ~Dialog() override;

    HWND handle() const { return window_; }
    unsigned dpi() const { return GetDpiForWindow(window_); }

    // Returns once the dialog is unloaded; until then the owner is disabled.
    void showModal();
    // Returns at once. Unloading hides the dialog; whoever created it may then delete it.
    void showModeless();
    // Activates a modeless dialog that is already open.
    void bringForward();
    bool unloaded() const { return unloaded_; }

    void fontsChanged() override { layOut(); }

  protected:
    // A sizable dialog can be minimised, and has a button of its own in the taskbar.
    enum class Border { fixed, sizable };
    Dialog(HWND owner, const std::wstring& caption, Border border = Border::fixed);

    void setCaption(const std::wstring& caption) { SetWindowTextW(window_, caption.c_str()); }
    void setClientSize(int width, int height); // pixels
    void setFirstFocus(HWND control) { firstFocus_ = control; }
    void unload();

    // Places the controls according to the size of their fonts and, if the border is fixed, sets the client
    // size.
    virtual void layOut() = 0;
    // The smallest size of a sizable dialog: pixels, with the frame.
    virtual SIZE smallestSize() const { return {}; }
    // The upper left corner at which a window of that size opens. Screen coordinates: `around` is the owner,
    // or the whole of `work` if it cannot be seen; `work` is the screen without the taskbar.
    virtual POINT firstCorner(SIZE own, const RECT& around, const RECT& work) const;
    // Called when the dialog has come to another DPI: updates what is in pixels and no control's.
    virtual void scaleChanged(unsigned /*dpi*/) {}
    // Called before the dialog handles keys itself; returns whether it has handled the message.
    virtual bool filterKey(const MSG& /*message*/) { return false; }
    virtual void onOk() { unload(); }
    virtual void onCancel() { unload(); }

  private:
    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void placeOverOwner();
    void dpiChanged(unsigned dpi, const RECT& suggested);
    void giveFirstFocus();
    bool filterMessage(MSG& message);

    TitleIcons icons_;
    HWND window_ = nullptr;
    HWND owner_;
    Border border_;
    HWND firstFocus_ = nullptr;
    std::optional<MessageLoop::Registration> modelessKeys_;
    bool unloaded_ = false;
};

} // namespace vandrel
