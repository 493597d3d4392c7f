#pragma once

#include "platform/base/twips.h"
#include "platform/windows/window.h"

#include <functional>

namespace vandrel {

// picSepBar: the bar between the two lists. It only reports what the mouse does to it.
class SplitterBar : public Window {
  public:
    explicit SplitterBar(HWND parent);

    // `x` is the mouse's distance from the bar's left edge; the mouse may be outside the bar.
    std::function<void(Twips x)> MouseDown;
    std::function<void(Twips x)> MouseMove; // with the left button down and no other
    std::function<void()> MouseUp;          // also when something else takes the mouse

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    Twips mouseX(LPARAM lParam) const;
    void endPress();

    bool pressed_ = false;
};

} // namespace vandrel
