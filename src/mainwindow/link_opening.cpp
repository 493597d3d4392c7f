#include "mainwindow/link_opening.h"

#include "dialogs/frm_properties.h"
#include "mainwindow/known_paths.h"
#include "model/site_columns.h"
#include "platform/base/message_box.h"
#include "platform/controls/list_view.h"
#include "platform/files/file_layer.h"
#include "platform/system/clipboard.h"
#include "platform/system/shell.h"
#include "shared/vendor.h"
#include "shared/workspace.h"
#include "store/site_operations.h"

namespace vandrel {

void OpenSite(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    const ListRows::Id site = workspace.lstInfo.id(*row);
    shellOpen(workspace.window, workspace.lstInfo.text(*row, urlColumn));
    dateToday(workspace, site);
}

void mnuOpenNew_Click(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    const ListRows::Id site = workspace.lstInfo.id(*row);
    startProgram(Registry_Module::browserPath() + L" " + workspace.lstInfo.text(*row, urlColumn));
    dateToday(workspace, site);
}

void mnuCopyURL_Click(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row || workspace.lstInfo.text(*row, nameColumn).empty()) return;
    setClipboardText(workspace.window, workspace.lstInfo.text(*row, urlColumn));
}

void mnuProperties_Click(Workspace& workspace)
{
    const ListView& sites = workspace.lstInfo;
    const auto row = sites.currentRow();
    if (!row) return;
    const TopmostPause pause(workspace.keepOnTop);
    workspace.properties = {.PropSiteName = sites.text(*row, nameColumn),
                            .PropSiteURL = sites.text(*row, urlColumn),
                            .PropSiteDate = sites.text(*row, dateColumn),
                            .PropSiteDesc = sites.text(*row, descriptionColumn)};
    frmProperties dialog(workspace.window, workspace.properties);
    dialog.showModal();
}

void mnuViewHelp_Click(Workspace& workspace)
{
    const std::wstring helpFile = workspace.dataFolder + L"\\help.html";
    if (!fileExists(helpFile)) {
        tell(workspace.window,
             L"Could not find help file. Please visit\r\n" + makersSite +
                 L"/getpage.php?page=vandrel for help.",
             L"Error Opening Help", BoxIcon::information);
        return;
    }
    shellOpen(workspace.window, helpFile);
}

} // namespace vandrel
