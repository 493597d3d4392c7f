#pragma once

#include <windows.h>

#include <vector>

namespace vandrel {

// While one lives, the program's other windows take no input: what a dialog is about must not change beside
// it. The owner of the dialog is disabled by whoever shows it.
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
