#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

// A drop-down list of the machine's drives: "A:", "C:" ...
class DriveList : public Control {
  public:
    DriveList(HWND parent, int id);

    std::function<void()> Change; // the user chose a drive

    std::wstring drive() const; // empty when none is chosen
    // Selects the drive that the path begins with; none if the machine does not have it.
    void setDrive(const std::wstring& path);
    // In pixels: of the closed box, and of the box with its list open.
    int height() const { return outerHeight(); }
    int openHeight() const;

    void onCommand(WORD code, WORD id) override;
};

} // namespace vandrel
