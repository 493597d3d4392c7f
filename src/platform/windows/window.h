#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// A window of one of the program's own classes: a top-level window or a panel in one. The object owns the
// window.
class Window {
  public:
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    HWND handle() const { return window_; }
    unsigned dpi() const { return GetDpiForWindow(window_); }
    std::wstring caption() const;
    void setCaption(const std::wstring& caption);

  protected:
    struct Creation {
        const wchar_t* className = nullptr;
        DWORD style = 0;
        DWORD extendedStyle = 0;
        HWND parent = nullptr;
        int id = 0;
        HCURSOR cursor = nullptr; // null for the arrow
    };
    // Creates the window. The system answers its messages until startAnswering is called: onMessage must not
    // run while the members of a derived class are still being constructed.
    explicit Window(const Creation& creation);
    // To be called once the members of the derived class exist. If a base class has called it already, a
    // class derived from that one gets messages while its own members are still being constructed.
    void startAnswering() { answering_ = true; }

    // Overrides pass the messages that they do not handle on to Window::onMessage.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Destroys the window while the members of the derived class still exist, which its last messages may
    // need.
    void destroy();

  private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window_ = nullptr;
    bool answering_ = false;
};

} // namespace vandrel
