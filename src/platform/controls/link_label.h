#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

// A clickable text: underlined, in the link colour, with a hand cursor. It is a tab stop; Space and Enter
// click it. Text that does not fit ends with an ellipsis.
class LinkLabel : public Control {
  public:
    LinkLabel(HWND parent, int id, const std::wstring& text);

    std::function<void()> Click;
    std::function<void()> MouseMove;

    // `color` (0x00BBGGRR) replaces the link colour. On a dark surface the system's colour for links or
    // plain text is used instead.
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
