#include "platform/windows/file_dialog.h"

#include "platform/base/current_directory.h"
#include "platform/base/modal_scope.h"
#include "platform/base/runtime_error.h"

#include <commdlg.h>

#include <cderr.h>
#include <algorithm>

namespace vandrel {

template <typename Show> void FileDialog::show(HWND owner, DWORD flags, Show dialog)
{
    constexpr std::size_t longestName = 32768; // characters, the longest path there is
    std::wstring patterns = filter + L'|';
    std::ranges::replace(patterns, L'|', L'\0');
    std::wstring name = fileName.substr(0, longestName - 1);
    name.resize(longestName);

    OPENFILENAMEW settings{};
    settings.lStructSize = sizeof settings;
    settings.hwndOwner = owner;
    settings.lpstrFilter = patterns.c_str();
    settings.lpstrTitle = title.c_str();
    settings.lpstrFile = name.data();
    settings.nMaxFile = static_cast<DWORD>(name.size());
    settings.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    settings.Flags = flags | OFN_NOCHANGEDIR | OFN_EXPLORER;
    const CurrentDirectoryKept directory; // renaming a category relies on it
    const ModalScope others(nullptr, owner);
    const bool accepted = dialog(&settings) != 0;
    if (!accepted && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        throw RuntimeError(error_number::invalidDialogFileName);
    }
    if (!accepted && cancelError) throw RuntimeError(error_number::cancelled);
    fileName = accepted ? name.substr(0, name.find(L'\0')) : std::wstring();
}

void FileDialog::showOpen(HWND owner)
{
    const DWORD more = mustExist ? OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST : 0;
    show(owner, OFN_HIDEREADONLY | more, GetOpenFileNameW);
}

void FileDialog::showSave(HWND owner)
{
    const DWORD more = asksBeforeReplacing ? OFN_OVERWRITEPROMPT : 0;
    show(owner, OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | more, GetSaveFileNameW);
}

} // namespace vandrel
