#include "mainwindow/link_opening.h"

#include "dialogs/frm_properties.h"
#include "mainwindow/known_paths.h"
#include "model/site.h"
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
    const RowTable::Id site = workspace.shown.sites.id(*row);
    // Contract: the result is not checked; the date is set all the same.
    shellOpen(workspace.window, siteAt(workspace.shown.sites, *row).url);
    dateToday(workspace, site);
}

void mnuOpenNew_Click(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    const RowTable::Id site = workspace.shown.sites.id(*row);
    // Contract: neither the path nor the address is quoted.
    startProgram(Registry_Module::browserPath() + L" " + siteAt(workspace.shown.sites, *row).url);
    dateToday(workspace, site);
}

void mnuCopyURL_Click(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    const Site site = siteAt(workspace.shown.sites, *row);
    // Contract: a site without a name is not copied.
    if (!site.name.empty()) setClipboardText(workspace.window, site.url);
}

void mnuProperties_Click(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    const TopmostPause pause(workspace.keepOnTop);
    const Site site = siteAt(workspace.shown.sites, *row);
    workspace.properties = {.PropSiteName = site.name,
                            .PropSiteURL = site.url,
                            .PropSiteDate = site.date,
                            .PropSiteDesc = site.description};
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
