#include "platform/controls/tool_bar.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr DWORD style = TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;

BYTE nativeStyle(ToolBar::Kind kind)
{
    switch (kind) {
    case ToolBar::Kind::separator: return BTNS_SEP;
    case ToolBar::Kind::dropDown: return BTNS_DROPDOWN;
    default: return BTNS_BUTTON;
    }
}

} // namespace

ToolBar::ToolBar(HWND parent, std::span<const ButtonRow> buttons)
    : Control(parent, TOOLBARCLASSNAMEW, style, 0, -1), buttons_(buttons.begin(), buttons.end())
{
    SendMessageW(handle(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(handle(), TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
    int image = 0;
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        TBBUTTON button{};
        button.idCommand = static_cast<int>(i) + 1;
        button.fsStyle = nativeStyle(buttons_[i].kind);
        button.fsState = TBSTATE_ENABLED;
        button.iBitmap = buttons_[i].kind == Kind::separator ? 0 : image++;
        SendMessageW(handle(), TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
}

void ToolBar::drawFor(Twips imageSize)
{
    std::vector<const wchar_t*> names;
    for (const ButtonRow& button : buttons_) {
        if (button.kind != Kind::separator) names.push_back(button.image);
    }
    ImageListHandle images = loadImages(names, pixels(imageSize));
    SendMessageW(handle(), TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
    images_ = std::move(images);
    SendMessageW(handle(), TB_AUTOSIZE, 0, 0);
}

int ToolBar::height() const { return HIWORD(SendMessageW(handle(), TB_GETBUTTONSIZE, 0, 0)); }

void ToolBar::setButtonEnabled(int position, bool on)
{
    if (buttonEnabled(position) != on)
        SendMessageW(handle(), TB_ENABLEBUTTON, static_cast<WPARAM>(position), on);
}

bool ToolBar::buttonEnabled(int position) const
{
    return SendMessageW(handle(), TB_ISBUTTONENABLED, static_cast<WPARAM>(position), 0) > 0;
}

void ToolBar::setButtonMenu(int position, std::span<const MenuRow> rows)
{
    menuPosition_ = position;
    menuRows_.assign(rows.begin(), rows.end());
    menu_.reset(CreatePopupMenu());
    UINT_PTR id = 0;
    for (const MenuRow& row : menuRows_) AppendMenuW(menu_.get(), MF_STRING, ++id, row.caption);
}

void ToolBar::setButtonMenuEnabled(const std::wstring& key, bool on)
{
    const auto row = std::ranges::find_if(menuRows_, [&](const MenuRow& r) { return key == r.key; });
    if (row == menuRows_.end()) return;
    const auto position = static_cast<UINT>(row - menuRows_.begin());
    EnableMenuItem(menu_.get(), position, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
}

void ToolBar::openMenu(int position)
{
    if (position != menuPosition_ || !menu_) return;
    if (MenuOpening) MenuOpening();
    RECT area{};
    SendMessageW(handle(), TB_GETRECT, static_cast<WPARAM>(position), reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&area), 2);
    TPMPARAMS keepFree{sizeof(TPMPARAMS), area};
    // The menu opens where the button's tip is.
    const auto tip = reinterpret_cast<HWND>(SendMessageW(handle(), TB_GETTOOLTIPS, 0, 0));
    SendMessageW(tip, TTM_POP, 0, 0);
    SendMessageW(tip, TTM_ACTIVATE, FALSE, 0);
    // The bar considers the click over, and would show the button released while its menu is open.
    SendMessageW(handle(), TB_PRESSBUTTON, static_cast<WPARAM>(position), TRUE);
    const int chosen = TrackPopupMenuEx(menu_.get(), TPM_RETURNCMD | TPM_LEFTBUTTON, area.left, area.bottom,
                                        GetAncestor(handle(), GA_ROOT), &keepFree);
    SendMessageW(tip, TTM_ACTIVATE, TRUE, 0);
    SendMessageW(handle(), TB_PRESSBUTTON, static_cast<WPARAM>(position), FALSE);
    if (chosen > 0 && ButtonMenuClick) ButtonMenuClick(menuRows_[static_cast<std::size_t>(chosen) - 1].key);
}

std::optional<LRESULT> ToolBar::onNotify(NMHDR& header)
{
    switch (header.code) {
    case TBN_GETINFOTIPW: {
        auto& tip = reinterpret_cast<NMTBGETINFOTIPW&>(header);
        const std::wstring_view text = buttons_[static_cast<std::size_t>(tip.iItem) - 1].toolTip;
        tip.pszText[text.copy(tip.pszText, static_cast<std::size_t>(tip.cchTextMax) - 1)] = L'\0';
        return 0;
    }
    case TBN_DROPDOWN:
        later([this, position = reinterpret_cast<const NMTOOLBARW&>(header).iItem] { openMenu(position); });
        return TBDDRET_DEFAULT;
    default: return std::nullopt;
    }
}

void ToolBar::onCommand(WORD, WORD id)
{
    later([this, position = static_cast<int>(id)] {
        if (ButtonClick) ButtonClick(position);
    });
}

} // namespace vandrel
