#pragma once

#include "platform/controls/control.h"
#include "platform/controls/image_list.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vandrel {

// A bar of picture buttons, which are known by position: from 1, separators included.
class ToolBar : public Control {
  public:
    enum class Kind { button, dropDown, separator };
    struct ButtonRow {
        const wchar_t* toolTip = nullptr;
        const wchar_t* image = nullptr; // name of the icon resource
        Kind kind = Kind::button;
    };
    // An entry of a button's drop-down menu.
    struct MenuRow {
        const wchar_t* caption;
        const wchar_t* key;
    };

    ToolBar(HWND parent, std::span<const ButtonRow> buttons);

    std::function<void(int position)> ButtonClick;
    std::function<void()> MenuOpening;
    std::function<void(const std::wstring& key)> ButtonMenuClick;

    void setButtonMenu(int position, std::span<const MenuRow> rows);
    HMENU buttonMenu() const { return menu_.get(); }
    void setButtonMenuEnabled(const std::wstring& key, bool on);
    void setButtonEnabled(int position, bool on);
    bool buttonEnabled(int position) const;
    // Sizes pictures and buttons for the current DPI of the bar.
    void drawFor(Twips imageSize);
    int height() const;

    std::optional<LRESULT> onNotify(NMHDR& header) override;
    void onCommand(WORD code, WORD id) override;

  private:
    void openMenu(int position);

    std::vector<ButtonRow> buttons_;
    std::vector<MenuRow> menuRows_;
    int menuPosition_ = 0;
    MenuHandle menu_;
    ImageListHandle images_;
};

} // namespace vandrel
