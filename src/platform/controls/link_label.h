#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

// A text that is clicked: underlined, in the colour of links, with the hand as its cursor. It takes part in
// Tab; Space and Enter click it. What does not fit ends with an ellipsis.
class LinkLabel : public Control {
  public:
    LinkLabel(HWND parent, int id, const std::wstring& text);

    std::function<void()> Click;
    std::function<void()> MouseMove;

    // Its own colour (0x00BBGGRR) in place of that of links; on a dark surface the system's colour of links
    // or of plain text takes its place.
    void setLook(COLORREF color, bool underlined);
    bool underlined() const { return isUnderlined_; }

    void onCommand(WORD code, WORD id) override;
    std::optional<LRESULT> onColor(HDC context, UINT message) override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void applyFont() override;

  private:
    void drawFocus();
    COLORREF textColor() const;

    std::optional<COLORREF> color_;
    bool isUnderlined_ = true;
    FontHandle underlined_;
};

} // namespace vandrel
