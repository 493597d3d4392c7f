#include "platform/simple_controls.h"

#include <commctrl.h>

#include <algorithm>

namespace vandrel {
namespace {

constexpr int longestText = 65535;   // characters that can be typed into a box
constexpr int progressSteps = 10000; // of the native bar; the maximum may be any number of rows

} // namespace

Label::Label(HWND parent, const std::wstring& text) : Control(parent, WC_STATICW, SS_NOPREFIX, 0, -1)
{
    setText(text);
}

Frame::Frame(HWND parent, const std::wstring& text)
    : Control(parent, WC_BUTTONW, BS_GROUPBOX, WS_EX_TRANSPARENT, -1)
{
    setText(text);
}

Button::Button(HWND parent, int id, const std::wstring& text, bool isDefault)
    : Control(parent, WC_BUTTONW, WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), 0, id)
{
    setText(text);
}

void Button::setIcon(IconHandle icon)
{
    SetWindowLongPtrW(handle(), GWL_STYLE, GetWindowLongPtrW(handle(), GWL_STYLE) | BS_ICON);
    SendMessageW(handle(), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
}

void Button::onCommand(WORD code, WORD)
{
    if (code == BN_CLICKED && Click) Click();
}

TextBox::TextBox(HWND parent, int id)
    : Control(parent, WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id)
{
    SendMessageW(handle(), EM_SETLIMITTEXT, longestText, 0);
}

std::wstring TextBox::text() const
{
    return SendMessageW(handle(), EM_GETMODIFY, 0, 0) != 0 ? Control::text() : textSet_;
}

void TextBox::setText(const std::wstring& text)
{
    Control::setText(text);
    SendMessageW(handle(), EM_SETMODIFY, FALSE, 0);
    textSet_ = text;
}

void TextBox::select(int start, int length)
{
    SendMessageW(handle(), EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

void TextBox::onCommand(WORD code, WORD)
{
    if (code == EN_SETFOCUS && GotFocus) GotFocus();
}

ComboBox::ComboBox(HWND parent, int id)
    : Control(parent, WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, id)
{}

int ComboBox::height() const
{
    RECT area{};
    GetWindowRect(handle(), &area);
    return area.bottom - area.top;
}

void ComboBox::clearTextSelection() { SendMessageW(handle(), CB_SETEDITSEL, 0, MAKELPARAM(-1, 0)); }

ProgressBar::ProgressBar(HWND parent) : Control(parent, PROGRESS_CLASSW, 0, 0, -1)
{
    ShowWindow(handle(), SW_HIDE);
    SendMessageW(handle(), PBM_SETRANGE32, 0, progressSteps);
}

void ProgressBar::setMaximum(std::size_t maximum) { maximum_ = std::max<std::size_t>(maximum, 1); }

void ProgressBar::setValue(std::size_t value)
{
    value_ = value;
    const int step = static_cast<int>(std::min(value, maximum_) * progressSteps / maximum_);
    if (step / 100 == shown_ / 100 && value != maximum_) return;
    shown_ = step;
    SendMessageW(handle(), PBM_SETPOS, static_cast<WPARAM>(step), 0);
    UpdateWindow(handle());
}

} // namespace vandrel
