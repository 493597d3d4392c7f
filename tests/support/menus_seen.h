#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

// The native menus as the user sees them.
namespace vandrel::test {

struct MenuItem {
    std::wstring text; // caption, then a tab and the key if there is one; "-" for a separator
    UINT id = 0;
    UINT state = 0; // MFS_...
    HMENU submenu = nullptr;

    bool enabled() const { return (state & MFS_GRAYED) == 0; }
    bool checked() const { return (state & MFS_CHECKED) != 0; }
    bool isDefault() const { return (state & MFS_DEFAULT) != 0; }
};

inline MenuItem itemOf(HMENU menu, int position)
{
    wchar_t text[300]{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = text;
    info.cch = 300;
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    return {(info.fType & MFT_SEPARATOR) != 0 ? L"-" : text, info.wID, info.fState, info.hSubMenu};
}

inline std::vector<MenuItem> itemsOf(HMENU menu)
{
    std::vector<MenuItem> items;
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        items.push_back(itemOf(menu, position));
    }
    return items;
}

// The items of the menu and of all its submenus.
inline std::vector<MenuItem> allItemsOf(HMENU menu)
{
    std::vector<MenuItem> all;
    for (const MenuItem& item : itemsOf(menu)) {
        all.push_back(item);
        if (item.submenu == nullptr) continue;
        const auto below = allItemsOf(item.submenu);
        all.insert(all.end(), below.begin(), below.end());
    }
    return all;
}

inline std::optional<MenuItem> itemWithId(HMENU menu, int id)
{
    for (const MenuItem& item : allItemsOf(menu)) {
        if (item.id == static_cast<UINT>(id)) return item;
    }
    return std::nullopt;
}

// One line per item, two blanks before the items of a submenu, a key in brackets.
inline std::string treeOf(HMENU menu, const std::string& indent = "")
{
    std::string tree;
    for (const MenuItem& item : itemsOf(menu)) {
        std::string line(item.text.begin(), item.text.end()); // captions are ASCII
        if (const auto tab = line.find('\t'); tab != std::string::npos) {
            line = line.substr(0, tab) + " [" + line.substr(tab + 1) + "]";
        }
        tree += indent + line + "\n";
        if (item.submenu != nullptr) tree += treeOf(item.submenu, indent + "  ");
    }
    return tree;
}

// Waits for the pop-up menu that a call opens, looks at it from inside, then presses the keys, such as
// VK_DOWN and VK_RETURN. Without keys the menu is dismissed. Create it before the call.
class MenuVisit {
  public:
    explicit MenuVisit(std::function<void(HMENU)> look, std::vector<WORD> keys = {})
        : look_(std::move(look)), keys_(std::move(keys))
    {
        active() = this;
        timer_ = SetTimer(nullptr, 0, 10, tick);
    }
    MenuVisit(const MenuVisit&) = delete;
    MenuVisit& operator=(const MenuVisit&) = delete;
    ~MenuVisit()
    {
        KillTimer(nullptr, timer_);
        active() = nullptr;
    }

    bool opened() const { return opened_; }

  private:
    static MenuVisit*& active()
    {
        static MenuVisit* visit = nullptr; // tests run one at a time
        return visit;
    }

    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
    {
        MenuVisit* const visit = active();
        GUITHREADINFO thread{};
        thread.cbSize = sizeof thread;
        if (visit == nullptr || !GetGUIThreadInfo(GetCurrentThreadId(), &thread) ||
            (thread.flags & GUI_INMENUMODE) == 0) {
            return;
        }
        if (visit->opened_) {
            EndMenu(); // the keys have not closed it
            return;
        }
        visit->opened_ = true;
        const HWND window = FindWindowExW(nullptr, nullptr, L"#32768", nullptr);
        visit->look_(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
        if (visit->keys_.empty()) EndMenu();
        for (const WORD key : visit->keys_) PostMessageW(thread.hwndMenuOwner, WM_KEYDOWN, key, 1);
    }

    std::function<void(HMENU)> look_;
    std::vector<WORD> keys_;
    UINT_PTR timer_ = 0;
    bool opened_ = false;
};

} // namespace vandrel::test
