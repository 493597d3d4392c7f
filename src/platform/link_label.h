#pragma once

#include "platform/control.h"

#include <functional>

namespace vandrel {

// A text that is clicked: underlined, in the colour of links, with the hand as its cursor. It takes part in
// Tab; Space and Enter click it. What does not fit ends with an ellipsis.
class LinkLabel : public Control {
  public:
    LinkLabel(HWND parent, int id, const std::wstring& text);

    std::function<void()> Click;

    void onCommand(WORD code, WORD id) override;
    std::optional<LRESULT> onColor(HDC context, UINT message) override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void applyFont() override;

  private:
    void drawFocus();

    FontHandle underlined_;
};

} // namespace vandrel
