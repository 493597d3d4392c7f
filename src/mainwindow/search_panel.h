#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/windows/window.h"

namespace vandrel {

// picSearch: the quick-search box and its button, at the right end of the toolbar.
class SearchPanel : public Window {
  public:
    explicit SearchPanel(HWND parent);

    Label lblSearch; // takes no room: a screen reader looks for a box's name in front of it
    ComboBox cmbSearch;
    Button cmdSearch;

    bool enabled() const { return IsWindowEnabled(handle()) != 0; }
    void setEnabled(bool on);
    // Pixels, from the parent's client area.
    void place(int left, int top, int width, int height);
    // Pixels, in which the box shows its first text whole.
    int fittingWidth() const;
    // The button's picture for the DPI that the panel now has.
    void drawForDpi();
};

} // namespace vandrel
