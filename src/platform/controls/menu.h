#pragma once

#include "platform/base/handle.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vandrel {

struct Shortcut {
    BYTE modifiers = 0; // FCONTROL, FSHIFT
    WORD key = 0;       // virtual key code; 0 for none
};

std::wstring shortcutText(Shortcut shortcut);

// One entry of a menu tree. It belongs to the nearest entry above it with a smaller depth.
struct MenuRow {
    int depth = 0;
    int id = 0;                       // unique, from 1
    const wchar_t* caption = nullptr; // "-" is a separator
    Shortcut shortcut{};
    bool hidden = false;     // for a top-level entry: a pop-up menu, not on the bar
    bool hasSubmenu = false; // has one, although the table has no entries for it
};

// The menus of a window, built from one table. Entries, including those with a submenu, are known by their
// ids.
class MenuTree {
  public:
    explicit MenuTree(std::span<const MenuRow> rows);

    HMENU bar() const { return bar_.get(); }
    HMENU submenu(int id) const;

    bool enabled(int id) const;
    void setEnabled(int id, bool on);
    bool checked(int id) const;
    void setChecked(int id, bool on);

    // The id chosen from the pop-up; no value if it was dismissed. `defaultId` is shown in bold, 0 for none.
    std::optional<int> popUp(int menuId, HWND owner, POINT screen, int defaultId) const;

    AcceleratorHandle accelerators() const;

  private:
    struct Entry {
        MenuRow row;
        HMENU parent = nullptr;
        UINT position = 0;
        HMENU submenu = nullptr;
    };
    const Entry& entry(int id) const;
    void append(Entry& entry, bool hasChildren);

    std::vector<Entry> entries_;
    std::vector<MenuHandle> popUps_;
    MenuHandle bar_;
};

// Numbered entries of one submenu, from 0.
// Contract: entry 0 is never removed.
class MenuFamily {
  public:
    // Borrows the submenu and uses the ids from `firstId` on.
    MenuFamily(HMENU submenu, int firstId);

    std::size_t count() const { return captions_.size(); }
    // Removes the entries from `first` on, except entry 0.
    void unloadFrom(std::size_t first);
    void load(); // adds an entry without a caption
    const std::wstring& caption(std::size_t index) const { return captions_[index]; }
    void setCaption(std::size_t index, const std::wstring& caption);
    bool enabled(std::size_t index) const;
    void setEnabled(std::size_t index, bool on);
    // The index of the entry with that id.
    std::optional<std::size_t> indexOf(int id) const;

  private:
    HMENU submenu_;
    int firstId_;
    std::vector<std::wstring> captions_;
};

} // namespace vandrel
