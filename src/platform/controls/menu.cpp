#include "platform/controls/menu.h"

#include <algorithm>
#include <stdexcept>

namespace vandrel {
namespace {

std::wstring captionWithShortcut(const MenuRow& row)
{
    return row.shortcut.key == 0 ? row.caption
                                 : std::wstring(row.caption) + L"\t" + shortcutText(row.shortcut);
}

// Doubles every "&", so that no letter of a title becomes an access key.
std::wstring withoutAccessKeys(const std::wstring& text)
{
    std::wstring shown;
    for (const wchar_t c : text) shown.append(c == L'&' ? 2U : 1U, c);
    return shown;
}

} // namespace

std::wstring shortcutText(Shortcut shortcut)
{
    std::wstring text;
    if ((shortcut.modifiers & FCONTROL) != 0) text += L"Ctrl+";
    if ((shortcut.modifiers & FSHIFT) != 0) text += L"Shift+";
    if (shortcut.key == VK_DELETE) return text + L"Del";
    if (shortcut.key >= VK_F1 && shortcut.key <= VK_F24)
        return text + L"F" + std::to_wstring(shortcut.key - VK_F1 + 1);
    return text + static_cast<wchar_t>(shortcut.key);
}

MenuTree::MenuTree(std::span<const MenuRow> rows) : bar_(CreateMenu())
{
    entries_.reserve(rows.size());
    std::vector<HMENU> parents; // by depth, for the row at hand
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto depth = static_cast<std::size_t>(rows[i].depth);
        parents.resize(depth);
        Entry& added = entries_.emplace_back(
            Entry{rows[i], depth == 0 ? bar_.get() : parents.back(), 0, nullptr});
        append(added, rows[i].hasSubmenu || (i + 1 < rows.size() && rows[i + 1].depth > rows[i].depth));
        parents.push_back(added.submenu);
    }
}

void MenuTree::append(Entry& entry, bool hasChildren)
{
    if (hasChildren) entry.submenu = CreatePopupMenu();
    if (entry.row.hidden) {
        popUps_.emplace_back(entry.submenu);
        entry.parent = nullptr;
        return;
    }
    std::wstring caption = captionWithShortcut(entry.row);
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_ID | MIIM_FTYPE;
    item.wID = static_cast<UINT>(entry.row.id);
    if (std::wstring_view(entry.row.caption) == L"-") {
        item.fType = MFT_SEPARATOR;
    } else {
        item.fMask |= MIIM_STRING;
        item.dwTypeData = caption.data();
    }
    if (entry.submenu != nullptr) {
        item.fMask |= MIIM_SUBMENU;
        item.hSubMenu = entry.submenu;
    }
    entry.position = static_cast<UINT>(GetMenuItemCount(entry.parent));
    InsertMenuItemW(entry.parent, entry.position, TRUE, &item);
}

const MenuTree::Entry& MenuTree::entry(int id) const
{
    const auto found = std::ranges::find_if(entries_, [id](const Entry& e) { return e.row.id == id; });
    if (found == entries_.end()) throw std::out_of_range("no such menu entry");
    return *found;
}

HMENU MenuTree::submenu(int id) const { return entry(id).submenu; }

bool MenuTree::enabled(int id) const
{
    const Entry& e = entry(id);
    return (GetMenuState(e.parent, e.position, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
}

void MenuTree::setEnabled(int id, bool on)
{
    const Entry& e = entry(id);
    EnableMenuItem(e.parent, e.position, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
}

bool MenuTree::checked(int id) const
{
    const Entry& e = entry(id);
    return (GetMenuState(e.parent, e.position, MF_BYPOSITION) & MF_CHECKED) != 0;
}

void MenuTree::setChecked(int id, bool on)
{
    const Entry& e = entry(id);
    CheckMenuItem(e.parent, e.position, MF_BYPOSITION | (on ? MF_CHECKED : MF_UNCHECKED));
}

std::optional<int> MenuTree::popUp(int menuId, HWND owner, POINT screen, int defaultId) const
{
    const HMENU menu = submenu(menuId);
    SetMenuDefaultItem(menu, defaultId != 0 ? entry(defaultId).position : static_cast<UINT>(-1), TRUE);
    const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_LEFTALIGN;
    const int chosen = TrackPopupMenuEx(menu, flags, screen.x, screen.y, owner, nullptr);
    return chosen > 0 ? std::optional(chosen) : std::nullopt;
}

AcceleratorHandle MenuTree::accelerators() const
{
    std::vector<ACCEL> keys;
    for (const Entry& e : entries_) {
        if (e.row.shortcut.key == 0) continue;
        const auto modifiers = static_cast<BYTE>(e.row.shortcut.modifiers | FVIRTKEY);
        keys.push_back({modifiers, e.row.shortcut.key, static_cast<WORD>(e.row.id)});
    }
    return AcceleratorHandle(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

MenuFamily::MenuFamily(HMENU submenu, int firstId) : submenu_(submenu), firstId_(firstId) { load(); }

void MenuFamily::load()
{
    AppendMenuW(submenu_, MF_STRING, static_cast<UINT_PTR>(firstId_) + count(), L"");
    captions_.emplace_back();
}

void MenuFamily::unloadFrom(std::size_t first)
{
    for (first = std::max<std::size_t>(first, 1); count() > first; captions_.pop_back()) {
        DeleteMenu(submenu_, static_cast<UINT>(count()) - 1, MF_BYPOSITION);
    }
}

void MenuFamily::setCaption(std::size_t index, const std::wstring& caption)
{
    captions_[index] = caption;
    std::wstring shown = withoutAccessKeys(caption);
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STRING;
    item.dwTypeData = shown.data();
    SetMenuItemInfoW(submenu_, static_cast<UINT>(index), TRUE, &item);
}

bool MenuFamily::enabled(std::size_t index) const
{
    return (GetMenuState(submenu_, static_cast<UINT>(index), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
}

void MenuFamily::setEnabled(std::size_t index, bool on)
{
    EnableMenuItem(submenu_, static_cast<UINT>(index), MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
}

std::optional<std::size_t> MenuFamily::indexOf(int id) const
{
    const auto index = static_cast<std::size_t>(id - firstId_);
    return id >= firstId_ && index < count() ? std::optional(index) : std::nullopt;
}

} // namespace vandrel
