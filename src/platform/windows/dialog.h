#pragma once

#include "platform/windows/form.h"
#include "platform/windows/message_loop.h"

#include <optional>
#include <string>

namespace vandrel {

// A dialog of ours: a window of the system's dialog class with controls that the derived class owns. Making
// the object loads it, unseen; showing comes after. Enter presses the default button, Esc cancels, Tab goes
// through the controls in the order in which they were made.
class Dialog : public Form {
  public:
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    ~Dialog() override;

    HWND handle() const { return window_; }
    unsigned dpi() const { return GetDpiForWindow(window_); }

    // Returns when the dialog was unloaded; meanwhile the owner takes no input.
    void showModal();
    // Returns at once. The dialog goes from the screen when it is unloaded, and is then the owner's to
    // delete.
    void showModeless();
    // Makes a modeless dialog that is open already the active window.
    void bringForward();
    bool unloaded() const { return unloaded_; }

    void fontsChanged() override { layOut(); }

  protected:
    enum class Border { fixed, sizable };
    Dialog(HWND owner, const std::wstring& caption, Border border = Border::fixed);

    void setCaption(const std::wstring& caption) { SetWindowTextW(window_, caption.c_str()); }
    void setClientSize(int width, int height); // pixels
    void setFirstFocus(HWND control) { firstFocus_ = control; }
    void unload();

    // Places the controls by the size of their fonts and, where the border is fixed, sets the client size.
    virtual void layOut() = 0;
    // Pixels, with the frame; what a sizable dialog is not made smaller than.
    virtual SIZE smallestSize() const { return {}; }
    // The upper left corner at which a window of that size opens. Screen coordinates: `around` is the owner, or
    // the whole of `work` when it cannot be seen, `work` what the screen has beside the taskbar.
    virtual POINT firstCorner(SIZE own, const RECT& around, const RECT& work) const;
    // Asked before the dialog's own keys; returns whether it has dealt with the message.
    virtual bool filterKey(const MSG& /*message*/) { return false; }
    virtual void onOk() { unload(); }
    virtual void onCancel() { unload(); }

  private:
    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void placeByOwner();
    void dpiChanged(unsigned dpi, const RECT& suggested);
    void giveFirstFocus();
    bool filterMessage(MSG& message);

    HWND window_ = nullptr;
    HWND owner_;
    Border border_;
    HWND firstFocus_ = nullptr;
    std::optional<MessageLoop::Registration> modelessKeys_;
    bool unloaded_ = false;
};

} // namespace vandrel
