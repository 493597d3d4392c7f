#pragma once

#include "platform/controls/control.h"

#include <functional>

namespace vandrel {

// Tabs above the pages of a dialog. Which page is seen is the dialog's to arrange; give the strip an own
// place in the order of its controls behind the pages, so that they lie on top of it.
class TabStrip : public Control {
  public:
    TabStrip(HWND parent, int id);

    std::function<void()> Click; // the user has chosen a tab

    void add(const std::wstring& caption); // behind the last tab
    std::size_t count() const;
    std::size_t selected() const;
    void select(std::size_t tab); // raises nothing
    // Gives the strip the place in which its page is `page`, in pixels of the parent's client area. Returns
    // that place.
    RECT placeAround(const RECT& page);
    // Ctrl+Tab, Ctrl+Page Down and their opposites choose the neighbouring tab, wherever the focus is in the
    // dialog. Returns whether the message was one of them.
    bool takeKey(const MSG& message);

    std::optional<LRESULT> onNotify(NMHDR& header) override;
};

} // namespace vandrel
