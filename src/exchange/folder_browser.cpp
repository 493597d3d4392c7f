#include "exchange/folder_browser.h"

#include "platform/base/current_directory.h"
#include "platform/base/modal_scope.h"

#include <shlobj.h>

#include <array>

namespace vandrel::Module1 {

std::wstring BrowseForFolder(HWND owner, const std::wstring& title)
{
    BROWSEINFOW settings{};
    settings.hwndOwner = owner;
    settings.lpszTitle = title.c_str();
    settings.ulFlags = BIF_RETURNONLYFSDIRS; // Contract: no other flag, so no button that makes folders
    const CurrentDirectoryKept directory;    // renaming a category relies on it
    const ModalScope others(nullptr, owner);
    const PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&settings);
    if (chosen == nullptr) return {};
    std::array<wchar_t, MAX_PATH> path{};
    SHGetPathFromIDListW(chosen, path.data());
    CoTaskMemFree(chosen);
    return path.data();
}

} // namespace vandrel::Module1
