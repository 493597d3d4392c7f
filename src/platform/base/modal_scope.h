#pragma once

#include <windows.h>

#include <vector>

namespace vandrel {

// Disables the program's other windows for as long as it lives, so that nobody can change what a dialog is
// working on. The owner is left alone: whoever shows the dialog disables it.
class ModalScope {
  public:
    ModalScope(HWND dialog, HWND owner);
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();

  private:
    std::vector<HWND> disabled_;
};

} // namespace vandrel
