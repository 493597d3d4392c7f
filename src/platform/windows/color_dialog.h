#pragma once

#include <windows.h>

#include <array>

namespace vandrel {

// The system's colour dialog.
class ColorDialog {
  public:
    // 0x00BBGGRR: the last colour that the user chose, black until then.
    // Contract: the dialog does not start with it.
    COLORREF color = 0;

    // Returns when the user has finished; cancelling leaves `color` unchanged.
    void show(HWND owner);

  private:
    std::array<COLORREF, 16> custom_ = allWhite(); // the user's custom colours
    static std::array<COLORREF, 16> allWhite();
};

} // namespace vandrel
