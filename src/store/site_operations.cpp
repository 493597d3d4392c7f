#include "store/site_operations.h"

#include "dialogs/frm_input.h"
#include "platform/input_box.h"
#include "platform/list_view.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "platform/runtime_error.h"
#include "platform/scope_exit.h"
#include "platform/status_bar.h"
#include "shared/site_columns.h"
#include "shared/workspace.h"
#include "store/category_files.h"
#include "store/category_title.h"

namespace vandrel {
namespace {

void showSiteEditor(Workspace& workspace)
{
    frmInput editor(workspace.window, workspace.site, workspace.options.font);
    editor.showModal();
}

std::optional<std::size_t> categoryOfTitle(const ListView& categories, const std::wstring& title)
{
    for (std::size_t row = 0; row < categories.count(); ++row) {
        if (categories.text(row) == title) return row;
    }
    return std::nullopt;
}

} // namespace

void AddURL(Workspace& workspace)
{
    const TopmostPause pause(workspace.keepOnTop);
    SiteHandOff& site = workspace.site;
    showSiteEditor(workspace);
    if (site.SiteDialogCancelled) {
        site.SiteDialogCancelled = false;
        return;
    }
    const ScopeExit reset([&site] { site.forgetNewSite(); });
    ListView& sites = workspace.lstInfo;
    sites.add({site.newSiteName, site.newSiteURL, site.newSiteDescription, workspace.today()}, siteImage);
    sites.sortBy(urlColumn, sites.sortOrder());
    SaveItems(workspace);
}

void RemoveURL(Workspace& workspace)
{
    ListView& sites = workspace.lstInfo;
    if (sites.empty() || !sites.firstSelected()) return;
    if (!askYesNo(workspace.window, L"Remove selected site(s)?", L"Remove site(s)", BoxIcon::information))
        return;
    {
        ProgressBar& PB = workspace.PB;
        PB.begin(sites.count());
        const ScopeExit hide([&PB] { PB.setVisible(false); });
        sites.removeSelected([&PB](std::size_t row) { PB.setValue(row); });
    }
    workspace.StatusBar1.setPanelText(1, L"Remove successful.");
    SaveItems(workspace);
}

void EditDescription(Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    if (!row) return;
    std::wstring description = inputBox(workspace.window, L"Enter a new description for this site.",
                                        L"Enter Description");
    if (isBlank(description)) description = workspace.lstInfo.text(*row, descriptionColumn);
    workspace.lstInfo.setText(*row, descriptionColumn, description);
    SaveItems(workspace);
}

void EditSel(Workspace& workspace)
{
    ListView& sites = workspace.lstInfo;
    const auto row = sites.currentRow();
    if (!row) return;
    SiteHandOff& site = workspace.site;
    site.SiteEditName = sites.text(*row, nameColumn);
    site.SiteEditURL = sites.text(*row, urlColumn);
    site.SiteEditDesc = sites.text(*row, descriptionColumn);
    site.SiteEditMode = true;
    const ScopeExit endEditing([&site] { site.SiteEditMode = false; });
    {
        const TopmostPause pause(workspace.keepOnTop);
        showSiteEditor(workspace);
    }
    if (site.SiteDialogCancelled) return;
    sites.setText(*row, nameColumn, site.SiteEditName);
    sites.setText(*row, urlColumn, site.SiteEditURL);
    sites.setText(*row, descriptionColumn, site.SiteEditDesc);
    sites.setText(*row, dateColumn, workspace.today());
    SaveItems(workspace);
}

void mnuMove_Click(Workspace& workspace, std::size_t index)
{
    ListView& sites = workspace.lstInfo;
    const auto row = sites.currentRow();
    const auto source = workspace.lstCategory.currentRow();
    const auto target = categoryOfTitle(workspace.lstCategory, workspace.mnuMove.caption(index));
    if (!row || !source || !target) return;
    const std::wstring name = sites.text(*row, nameColumn);
    const std::wstring url = sites.text(*row, urlColumn);
    const std::wstring description = sites.text(*row, descriptionColumn);
    const std::wstring date = sites.text(*row, dateColumn);

    sites.remove(*row);
    SaveItems(workspace);
    selectCategory(workspace, *target);
    sites.add({name, url, description, L""}, siteImage);
    try {
        SaveItems(workspace);
    } catch (const RuntimeError&) {
        // The file it came from no longer has the site, and this one does not take it.
        selectCategory(workspace, *source);
        sites.insert(*row, {name, url, description, date}, siteImage);
        SaveItems(workspace);
        throw;
    }
}

} // namespace vandrel
