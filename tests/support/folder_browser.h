#pragma once

#include "tests/support/answers.h"

#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <string>

namespace vandrel::test {

// Reads the text of an entry of the system's folder browser: TVGN_CARET, the selected one, or TVGN_ROOT.
// Allocates nothing.
inline void readFolder(HWND browser, WPARAM entry, wchar_t (&text)[MAX_PATH])
{
    const HWND tree = FindWindowExW(browser, nullptr, WC_TREEVIEWW, nullptr);
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, entry, 0));
    item.pszText = text;
    item.cchTextMax = MAX_PATH;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

inline std::wstring selectedFolder(HWND browser)
{
    wchar_t text[MAX_PATH]{};
    readFolder(browser, TVGN_CARET, text);
    return text;
}

// False when the folder is not to be found within the limit.
inline bool selectFolder(HWND browser, const std::wstring& path)
{
    const auto lower = [](std::wstring text) {
        CharLowerW(text.data());
        return text;
    };
    // The root of a drive is shown by its letter, among other words.
    const bool isRoot = path.ends_with(L'\\');
    const std::wstring wanted = lower(isRoot ? path.substr(0, 2) : path.substr(path.rfind(L'\\') + 1));
    // Wine does not always find a new folder the first time it is asked.
    return pumpUntil([&] {
        SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
        return lower(selectedFolder(browser)).find(wanted) != std::wstring::npos;
    });
}

} // namespace vandrel::test
