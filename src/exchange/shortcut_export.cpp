#include "exchange/shortcut_export.h"

#include "exchange/ini_file.h"
#include "exchange/shortcut_name.h"
#include "exchange/shortcut_value.h"
#include "model/site.h"
#include "platform/base/message_box.h"
#include "platform/base/system_error.h"
#include "platform/controls/list_view.h"
#include "platform/files/file_layer.h"
#include "platform/windows/file_dialog.h"
#include "shared/workspace.h"

#include <algorithm>

namespace vandrel {
namespace {

struct Entry {
    const wchar_t* section;
    const wchar_t* key;
};
// Contract: a new file has them in this order.
constexpr Entry entries[] = {{L"DEFAULT", L"BaseURL"}, {L"InternetShortcut", L"URL"}};

// The error code of the system's writing function does not outlast the call, so the file is tried instead.
RuntimeError whyNotWritten(const std::wstring& path)
{
    const HANDLE file = systemFiles().openForChange(extendedPath(path));
    const DWORD reason = GetLastError();
    if (file == INVALID_HANDLE_VALUE) {
        return reason == ERROR_FILE_NOT_FOUND ? RuntimeError(error_number::pathFileAccess)
                                              : runtimeErrorOf(reason);
    }
    systemFiles().close(file);
    return RuntimeError(error_number::deviceError);
}

bool isWritten(const Entry& entry, const std::wstring& url, const std::wstring& path)
{
    return readsBack(url, Module1::ReadINIValue(entry.section, entry.key, path));
}

void writeShortcut(const std::wstring& url, const std::wstring& path)
{
    const bool isNew = !fileExists(path);
    for (const Entry& entry : entries) Module1::WriteINIValue(entry.section, entry.key, url, path);
    if (fileExists(path) &&
        std::ranges::all_of(entries, [&](const Entry& entry) { return isWritten(entry, url, path); })) {
        return;
    }
    const RuntimeError error = whyNotWritten(path);
    if (isNew) systemFiles().remove(extendedPath(path));
    throw error;
}

void exportSite(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) throw RuntimeError(error_number::objectNotSet);
    // Read now: the row may change while the dialog is open.
    const std::wstring url = siteAt(workspace.shown.sites, *row).url;
    FileDialog CD1;
    CD1.title = L"Export URL File";
    CD1.filter = L"Internet Shortcut File (*.url)|*.url";
    CD1.fileName = fileNameFor(siteAt(workspace.shown.sites, *row).name);
    CD1.showSave(workspace.window);
    if (CD1.fileName.empty()) return;
    writeShortcut(url, shortcutPath(CD1.fileName));
}

} // namespace

void mnuExport_Click(Workspace& workspace)
{
    try {
        exportSite(workspace);
    } catch (const RuntimeError& error) {
        tell(workspace.window, L"Error #" + std::to_wstring(error.number()) + L" - " + error.description(),
             L"Error!", BoxIcon::critical);
    }
}

} // namespace vandrel
