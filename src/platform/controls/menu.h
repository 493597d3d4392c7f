#pragma once

#include "platform/base/handle.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vandrel {

struct Shortcut {
    BYTE modifiers = 0; // FCONTROL, FSHIFT
    WORD key = 0;       // virtual key code; 0 where there is no shortcut
};

std::wstring shortcutText(Shortcut shortcut);

// One line of a menu tree: an entry lies in the last entry above it that stands further left.
struct MenuRow {
    int depth;
    int id;                 // unique, from 1
    const wchar_t* caption; // "-" is a separator
    Shortcut shortcut{};
    bool hidden = false;     // of a top-level entry: on no bar, shown as a pop-up menu
    bool hasSubmenu = false; // has one although no row of the table lies in it
};

// The menus of a window, built from one table. An entry is named by its id, entries with a submenu too.
class MenuTree {
  public:
    explicit MenuTree(std::span<const MenuRow> rows);

    HMENU bar() const { return bar_.get(); }
    HMENU submenu(int id) const;

    bool enabled(int id) const;
    void setEnabled(int id, bool on);
    bool checked(int id) const;
    void setChecked(int id, bool on);

    // The id chosen from the pop-up; none when it was dismissed. `defaultId` is shown bold, 0 for none.
    std::optional<int> popUp(int menuId, HWND owner, POINT screen, int defaultId) const;

    AcceleratorHandle accelerators() const;

  private:
    struct Entry {
        MenuRow row;
        HMENU parent;
        UINT position;
        HMENU submenu;
    };
    const Entry& entry(int id) const;
    void append(Entry& entry, bool hasChildren);

    std::vector<Entry> entries_;
    std::vector<MenuHandle> popUps_;
    MenuHandle bar_;
};

// Entries of one submenu that are counted, from 0. Entry 0 is always there.
class MenuFamily {
  public:
    // The submenu is borrowed. Ids from `firstId` on belong to the family.
    MenuFamily(HMENU submenu, int firstId);

    std::size_t count() const { return captions_.size(); }
    // Entries from `first` on are taken off; entry 0 stays, whatever is asked.
    void unloadFrom(std::size_t first);
    void load(); // one more entry, without a caption
    const std::wstring& caption(std::size_t index) const { return captions_[index]; }
    void setCaption(std::size_t index, const std::wstring& caption);
    bool enabled(std::size_t index) const;
    void setEnabled(std::size_t index, bool on);
    // The index that a command id means.
    std::optional<std::size_t> indexOf(int id) const;

  private:
    HMENU submenu_;
    int firstId_;
    std::vector<std::wstring> captions_;
};

} // namespace vandrel
