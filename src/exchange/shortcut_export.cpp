#include "exchange/shortcut_export.h"

#include "exchange/module1.h"
#include "exchange/shortcut_name.h"
#include "platform/file_dialog.h"
#include "platform/list_view.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"
#include "shared/site_columns.h"
#include "shared/workspace.h"

namespace vandrel {
namespace {

void exportSite(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) throw RuntimeError(error_number::objectNotSet);
    FileDialog CD1;
    CD1.title = L"Export URL File";
    CD1.filter = L"Internet Shortcut File (*.url)|*.url";
    CD1.fileName = fileNameFor(workspace.lstInfo.text(*row));
    CD1.showSave(workspace.window);
    if (CD1.fileName.empty()) return;
    const std::wstring path = shortcutPath(CD1.fileName);
    const std::wstring url = workspace.lstInfo.text(*row, urlColumn);
    Module1::WriteINIValue(L"DEFAULT", L"BaseURL", url, path);
    Module1::WriteINIValue(L"InternetShortcut", L"URL", url, path);
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
