#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// A window of our own class: a top-level window, or a panel within one. The object owns the window.
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
        const wchar_t* className;
        DWORD style;
        DWORD extendedStyle = 0;
        HWND parent = nullptr;
        int id = 0;
        HCURSOR cursor = nullptr; // the arrow where there is none
    };
    // The window exists from here on. Its messages are answered by the system until startAnswering: while the
    // members of a derived class are being made, its onMessage would be called already.
    explicit Window(const Creation& creation);
    // To be called once the members of the object's own class stand; where a base has called it, those of a
    // class that derives from it are on their own.
    void startAnswering() { answering_ = true; }

    // Decodes and calls a named method; what it does not know goes to Window::onMessage.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // Destroys the window while the derived class still stands, so that its last messages find it whole.
    void destroy();

  private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window_ = nullptr;
    bool answering_ = false;
};

} // namespace vandrel
