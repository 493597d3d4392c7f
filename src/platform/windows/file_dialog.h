#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// The system's file dialog: set the fields, show it, read `fileName`.
class FileDialog {
  public:
    std::wstring title;
    std::wstring filter; // pairs of text and pattern, all separated by "|"
    std::wstring fileName;
    std::wstring extension;           // for a name typed without one; none is added if empty
    bool mustExist = false;           // to be opened
    bool asksBeforeReplacing = false; // the file to be saved
    bool cancelError = false;         // cancelling raises error 32755 instead of leaving an empty file name

    // Each returns when the user has finished; cancelling leaves `fileName` empty. The current directory
    // does not change. Throws RuntimeError 20477 if the dialog cannot suggest `fileName`.
    void showOpen(HWND owner);
    void showSave(HWND owner);

  private:
    template <typename Show> void show(HWND owner, DWORD flags, Show dialog);
};

} // namespace vandrel
