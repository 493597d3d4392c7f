#include "platform/controls/simple_controls.h"

#include "platform/base/tick_clock.h"
#include "platform/controls/theme.h"

#include <commctrl.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace vandrel {
namespace {

constexpr int longestText = 65535; // characters that can be typed into a box
constexpr ULONGLONG progressMilliseconds = 100;

// Leaves room for one more (see showPosition).
int nativePosition(std::size_t value)
{
    return static_cast<int>(std::min<std::size_t>(value, std::numeric_limits<int>::max() - 1));
}

} // namespace

Label::Label(HWND parent, const std::wstring& text, Ampersand ampersand)
    : Control(parent, WC_STATICW, ampersand == Ampersand::letter ? SS_NOPREFIX : 0, 0, -1)
{
    setText(text);
}

void Label::center()
{
    SetWindowLongPtrW(handle(), GWL_STYLE, GetWindowLongPtrW(handle(), GWL_STYLE) | SS_CENTER);
    InvalidateRect(handle(), nullptr, TRUE);
}

void StyledControl::setForeColor(COLORREF color)
{
    if (color == foreColor()) return;
    Control::setForeColor(color);
    setThemed(handle(), color == 0);
}

Frame::Frame(HWND parent, const std::wstring& text)
    : StyledControl(parent, WC_BUTTONW, BS_GROUPBOX, WS_EX_TRANSPARENT, -1)
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

CheckBox::CheckBox(HWND parent, int id, const std::wstring& text)
    : StyledControl(parent, WC_BUTTONW, WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX, 0, id)
{
    setText(text);
}

bool CheckBox::checked() const { return SendMessageW(handle(), BM_GETCHECK, 0, 0) == BST_CHECKED; }

void CheckBox::setChecked(bool on)
{
    SendMessageW(handle(), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

void CheckBox::onCommand(WORD code, WORD)
{
    if (code == BN_CLICKED && Click) Click();
}

OptionButton::OptionButton(HWND parent, int id, const std::wstring& text, Place place)
    : StyledControl(parent, WC_BUTTONW,
                    BS_AUTORADIOBUTTON | (place == Place::first ? WS_GROUP | WS_TABSTOP : 0), 0, id)
{
    setText(text);
}

bool OptionButton::on() const { return SendMessageW(handle(), BM_GETCHECK, 0, 0) == BST_CHECKED; }

void OptionButton::setOn(bool on)
{
    SendMessageW(handle(), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

TextBox::TextBox(HWND parent, int id, Lines lines)
    : Control(parent, WC_EDITW,
              WS_TABSTOP |
                  (lines == Lines::one ? ES_AUTOHSCROLL : ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL),
              WS_EX_CLIENTEDGE, id)
{
    SendMessageW(handle(), EM_SETLIMITTEXT, longestText, 0);
}

std::wstring TextBox::text() const
{
    std::wstring shown = Control::text();
    return shown == shownForSet_ ? textSet_ : shown;
}

void TextBox::setText(const std::wstring& text)
{
    std::wstring kept = text;
    Control::setText(text);
    textSet_ = std::move(kept);
    shownForSet_ = Control::text();
}

void TextBox::select(int start, int length)
{
    SendMessageW(handle(), EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

void TextBox::setGrey()
{
    grey_ = true;
    InvalidateRect(handle(), nullptr, TRUE);
}

void TextBox::onCommand(WORD code, WORD)
{
    if (code == EN_SETFOCUS && GotFocus) GotFocus();
}

std::optional<LRESULT> TextBox::onColor(HDC context, UINT message)
{
    if (!grey_) return Control::onColor(context, message);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    SetBkColor(context, GetSysColor(COLOR_3DFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
}

ComboBox::ComboBox(HWND parent, int id)
    : Control(parent, WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, id)
{}

std::size_t ComboBox::count() const
{
    return static_cast<std::size_t>(SendMessageW(handle(), CB_GETCOUNT, 0, 0));
}

std::wstring ComboBox::entry(std::size_t index) const
{
    const LRESULT length = SendMessageW(handle(), CB_GETLBTEXTLEN, index, 0);
    if (length == CB_ERR) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    SendMessageW(handle(), CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void ComboBox::add(const std::wstring& text)
{
    SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ComboBox::onCommand(WORD code, WORD)
{
    if (code == CBN_SETFOCUS && GotFocus) GotFocus();
    if (code != CBN_SELCHANGE || !Click) return;
    // The box gets its text only after this message.
    const LRESULT chosen = SendMessageW(handle(), CB_GETCURSEL, 0, 0);
    if (chosen == CB_ERR) return;
    setText(entry(static_cast<std::size_t>(chosen)));
    Click();
}

bool ComboBox::listIsOpen() const { return SendMessageW(handle(), CB_GETDROPPEDSTATE, 0, 0) != 0; }

void ComboBox::takeHighlighted()
{
    const LRESULT chosen = SendMessageW(handle(), CB_GETCURSEL, 0, 0);
    SendMessageW(handle(), CB_SHOWDROPDOWN, FALSE, 0);
    if (chosen != CB_ERR) SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
}

void ComboBox::clearTextSelection() { SendMessageW(handle(), CB_SETEDITSEL, 0, MAKELPARAM(-1, 0)); }

ProgressBar::ProgressBar(HWND parent) : Control(parent, PROGRESS_CLASSW, 0, 0, -1)
{
    ShowWindow(handle(), SW_HIDE);
    setMaximum(1);
}

void ProgressBar::begin(std::size_t steps)
{
    setMaximum(steps);
    value_ = 0;
    if (behind_ || shown_ != 0) showValue();
    nextTime_ = 0;
    setVisible(true);
}

void ProgressBar::setMaximum(std::size_t maximum)
{
    const std::size_t before = std::exchange(maximum_, std::max<std::size_t>(maximum, 1));
    if (maximum_ == before) return; // the native bar would be painted anew
    SendMessageW(handle(), PBM_SETRANGE32, 0, nativePosition(maximum_));
    shown_ = std::min(shown_, maximum_);
}

void ProgressBar::setValue(std::size_t value)
{
    value_ = value;
    if (!behind_ && std::min(value, maximum_) == shown_) return;
    const ULONGLONG now = tickClock().now();
    if (now < nextTime_ && value < maximum_) {
        if (!std::exchange(behind_, true)) InvalidateRect(handle(), nullptr, FALSE);
        return;
    }
    nextTime_ = now + progressMilliseconds;
    showValue();
    UpdateWindow(handle());
}

LRESULT ProgressBar::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (behind_ && (message == WM_PAINT || message == PBM_GETPOS)) showValue();
    return Control::onMessage(message, wParam, lParam);
}

void ProgressBar::showValue()
{
    behind_ = false;
    shown_ = std::min(value_, maximum_);
    showPosition(nativePosition(shown_));
}

// A themed bar takes about a second to fill up to a higher position, and goes to a lower one at once: a short job
// would end with a bar that has hardly begun. So it comes from above.
void ProgressBar::showPosition(int position)
{
    const int end = nativePosition(maximum_);
    if (position == end) SendMessageW(handle(), PBM_SETRANGE32, 0, end + 1);
    const auto before = static_cast<int>(SendMessageW(handle(), PBM_GETPOS, 0, 0));
    SendMessageW(handle(), PBM_DELTAPOS, static_cast<WPARAM>(position + 1 - before), 0);
    SendMessageW(handle(), PBM_SETPOS, static_cast<WPARAM>(position), 0);
    if (position == end) SendMessageW(handle(), PBM_SETRANGE32, 0, end);
}

} // namespace vandrel
