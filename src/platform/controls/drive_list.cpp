#include "platform/controls/drive_list.h"

#include <commctrl.h>

namespace vandrel {
namespace {

constexpr int openEntries = 10;

} // namespace

DriveList::DriveList(HWND parent, int id)
    : Control(parent, WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS, 0, id)
{
    const DWORD drives = GetLogicalDrives();
    for (unsigned letter = 0; letter < 26; ++letter) {
        if ((drives >> letter & 1U) == 0) continue;
        const std::wstring name{static_cast<wchar_t>(L'A' + letter), L':'};
        SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
}

std::wstring DriveList::drive() const { return text(); }

void DriveList::setDrive(const std::wstring& path)
{
    const std::wstring name = path.substr(0, 2);
    const LRESULT entry = name.size() == 2
                              ? SendMessageW(handle(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                             reinterpret_cast<LPARAM>(name.c_str()))
                              : CB_ERR;
    SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
}

int DriveList::openHeight() const { return height() * openEntries; }

void DriveList::onCommand(WORD code, WORD)
{
    if (code == CBN_SELCHANGE && Change) Change();
}

} // namespace vandrel
