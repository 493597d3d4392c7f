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
    // The drive with which the path begins. One that the machine does not have leaves none chosen.
    void setDrive(const std::wstring& path);
    // Pixels of the closed box, and of what it takes to open it.
    int height() const { return outerHeight(); }
    int openHeight() const;

    void onCommand(WORD code, WORD id) override;
};

} // namespace vandrel
