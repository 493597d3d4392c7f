#pragma once

#include <windows.h>

#include <array>

namespace vandrel {

// The system's colour dialog.
class ColorDialog {
  public:
    // 0x00BBGGRR; what the user chose last, black before. It is not shown to the dialog.
    COLORREF color = 0;

    // Waits for the user; cancelling leaves the colour as it was.
    void show(HWND owner);

  private:
    std::array<COLORREF, 16> custom_ = allWhite(); // what the user mixed
    static std::array<COLORREF, 16> allWhite();
};

} // namespace vandrel
