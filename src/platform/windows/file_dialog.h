#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// The system's file dialog. Set what it shows, show it, read the file name.
class FileDialog {
  public:
    std::wstring title;
    std::wstring filter; // pairs of text and pattern, all joined by "|"
    std::wstring fileName;
    bool cancelError = false; // cancelling raises error 32755 instead of leaving an empty file name

    // Each waits for the user; cancelling leaves an empty file name. The current directory stays what it was.
    // Throws RuntimeError 20477 when `fileName` is none that the dialog can propose.
    void showOpen(HWND owner);
    void showSave(HWND owner);

  private:
    template <typename Show> void show(HWND owner, DWORD flags, Show dialog);
};

} // namespace vandrel
