#pragma once

#include "platform/controls/control.h"

#include <functional>
#include <vector>

namespace vandrel {

// A list of texts, one of which may be selected. It scrolls sideways to show texts wider than itself.
class ListBox : public Control {
  public:
    ListBox(HWND parent, int id) : ListBox(parent, id, 0) {}

    std::function<void()> Click; // the user selected an entry with the mouse or keyboard

    std::size_t count() const;
    using Control::text;
    std::wstring text(std::size_t entry) const;
    // Replaces all entries; none is selected.
    void fill(const std::vector<std::wstring>& texts);
    std::optional<std::size_t> selected() const;
    void select(std::size_t entry);
    // The entry with that text, ignoring case.
    std::optional<std::size_t> find(const std::wstring& text) const;
    // Scrolls until the entry is the first visible one, as far as the list allows.
    void scrollToTop(std::size_t entry) { SendMessageW(handle(), LB_SETTOPINDEX, entry, 0); }

    void onCommand(WORD code, WORD id) override;

  protected:
    ListBox(HWND parent, int id, DWORD style);

    void applyFont() override;
    virtual void opened() {} // an entry was double-clicked
    // Pixels from the left edge of the list to the text of an entry.
    virtual int indent(std::size_t /*entry*/) const { return 0; }

  private:
    void updateScrollWidth();
};

} // namespace vandrel
