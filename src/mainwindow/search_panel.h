#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/windows/window.h"

namespace vandrel {

// picSearch: the quick-search box and its button, at the right end of the toolbar.
class SearchPanel : public Window {
  public:
    explicit SearchPanel(HWND parent);

    Label lblSearch; // takes no space: a screen reader takes a box's name from the label before it
    ComboBox cmbSearch;
    Button cmdSearch;

    bool enabled() const { return IsWindowEnabled(handle()) != 0; }
    void setEnabled(bool on);
    // Places the box and its button. The panel does so itself when its size changes; to be called when the
    // font has changed.
    void layOut();
    // The width in pixels at which the box shows its first text in full.
    int fittingWidth() const;
    // Loads the button's picture for the panel's present DPI.
    void drawForDpi();

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

} // namespace vandrel
