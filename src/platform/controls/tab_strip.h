#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

// The tabs above the pages of a dialog, which shows and hides the pages itself. The strip must come after
// the pages in the order of its controls, so that they are in front of it.
class TabStrip : public Control {
  public:
    TabStrip(HWND parent, int id);

    std::function<void()> Click; // the user has chosen a tab

    void add(const std::wstring& caption); // after the last tab
    std::size_t count() const;
    std::size_t selected() const;
    void select(std::size_t tab); // raises no event
    // Places the strip so that its page area is `page`, in pixels of the parent's client area. Returns the
    // strip's own area.
    RECT placeAround(const RECT& page);
    // Makes Ctrl+Tab, Ctrl+Page Down and their reverses choose the neighbouring tab, wherever the focus is
    // in the dialog. Returns whether the message was one of these keys.
    bool takeKey(const MSG& message);

    std::optional<LRESULT> onNotify(NMHDR& header) override;
};

} // namespace vandrel
