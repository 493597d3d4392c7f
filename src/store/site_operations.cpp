#include "store/site_operations.h"

#include "dialogs/frm_input.h"
#include "model/category_title.h"
#include "model/site_columns.h"
#include "platform/base/message_box.h"
#include "platform/base/scope_exit.h"
#include "platform/controls/list_view.h"
#include "platform/controls/status_bar.h"
#include "platform/windows/input_box.h"
#include "shared/workspace.h"
#include "store/category_list.h"
#include "store/save_items.h"
#include "store/saved_text.h"

namespace vandrel {
namespace {

void showSiteEditor(Workspace& workspace)
{
    frmInput editor(workspace.window, workspace.site, workspace.options.font);
    editor.showModal();
}

// The current site's id; none if no site is selected.
std::optional<RowTable::Id> currentSite(const Workspace& workspace)
{
    const auto row = workspace.lstInfo.currentRow();
    return row ? std::optional(workspace.shown.sites.id(*row)) : std::nullopt;
}

// Adds the site at its place by address.
RowTable::Id addRow(Workspace& workspace, const std::wstring& name, const std::wstring& url,
                    const std::wstring& description, const std::wstring& date)
{
    RowTable& sites = workspace.shown.sites;
    workspace.shown.unsaved = true;
    const std::size_t row =
        sites.add({savedText(name), savedText(url), savedText(description), savedText(date)}, siteImage);
    const RowTable::Id site = sites.id(row);
    // Contract: by URL, whatever column the user sorted by before.
    sites.sortBy(urlColumn, sites.sortOrder());
    return site;
}

} // namespace

bool addSite(Workspace& workspace, const std::wstring& name, const std::wstring& url,
             const std::wstring& description, const std::wstring& date)
{
    addRow(workspace, name, url, description, date);
    return SaveItems(workspace);
}

bool addSiteInView(Workspace& workspace, const std::wstring& name, const std::wstring& url,
                   const std::wstring& description, const std::wstring& date)
{
    const RowTable::Id site = addRow(workspace, name, url, description, date);
    if (const auto row = workspace.shown.sites.rowOf(site)) workspace.lstInfo.ensureVisible(*row);
    return SaveItems(workspace);
}

void dateToday(Workspace& workspace, RowTable::Id site)
{
    const auto row = workspace.shown.sites.rowOf(site);
    if (!row) return;
    workspace.shown.unsaved = true;
    workspace.shown.sites.setText(*row, dateColumn, savedText(workspace.today()));
    SaveItems(workspace);
}

void AddURL(Workspace& workspace)
{
    const TopmostPause pause(workspace.keepOnTop);
    SiteHandOff& site = workspace.site;
    showSiteEditor(workspace);
    if (site.SiteDialogCancelled) {
        // Contract: cleared here, but not by EditSel.
        site.SiteDialogCancelled = false;
        return;
    }
    const ScopeExit reset([&site] { site.forgetNewSite(); });
    addSiteInView(workspace, site.newSiteName, site.newSiteURL, site.newSiteDescription, workspace.today());
}

void RemoveURL(Workspace& workspace)
{
    RowTable& sites = workspace.shown.sites;
    if (sites.empty() || !workspace.lstInfo.firstSelected()) return;
    const FirstButton first = workspace.lstInfo.selectedCount() > 1 ? FirstButton::no : FirstButton::yes;
    if (!askYesNo(workspace.window, L"Remove selected site(s)?", L"Remove site(s)", BoxIcon::information,
                  first)) {
        return;
    }
    {
        ProgressBar& PB = workspace.PB;
        PB.begin(sites.size());
        const ScopeExit hide([&PB] { PB.setVisible(false); });
        workspace.shown.unsaved = true;
        // Contract: the bar runs over every row, not only the selected ones.
        for (std::size_t row = 1; row <= sites.size(); ++row) PB.setValue(row);
        sites.removeMarked(); // the list marks what is selected before rows go
    }
    workspace.StatusBar1.setPanelText(1, L"Remove successful.");
    SaveItems(workspace);
}

void EditDescription(Workspace& workspace)
{
    RowTable& sites = workspace.shown.sites;
    const auto site = currentSite(workspace);
    if (!site) return;
    const std::wstring description = inputBox(workspace.window, L"Enter a new description for this site.",
                                              L"Enter Description");
    const auto row = sites.rowOf(*site);
    if (!row) return;
    workspace.shown.unsaved = true;
    // Contract: a description cannot be cleared here, and a "|" in it is saved as it is.
    if (!isBlank(description)) sites.setText(*row, descriptionColumn, savedText(description));
    SaveItems(workspace);
}

void EditSel(Workspace& workspace)
{
    RowTable& sites = workspace.shown.sites;
    const auto edited = currentSite(workspace);
    if (!edited) return;
    SiteHandOff& site = workspace.site;
    const std::size_t before = *sites.rowOf(*edited);
    site.SiteEditName = std::wstring(sites.text(before, nameColumn));
    site.SiteEditURL = std::wstring(sites.text(before, urlColumn));
    site.SiteEditDesc = std::wstring(sites.text(before, descriptionColumn));
    site.SiteEditMode = true;
    const ScopeExit endEditing([&site] { site.SiteEditMode = false; });
    {
        const TopmostPause pause(workspace.keepOnTop);
        showSiteEditor(workspace);
    }
    const auto row = sites.rowOf(*edited);
    if (site.SiteDialogCancelled || !row) return;
    workspace.shown.unsaved = true;
    // An untouched text keeps every character, even line ends that another editor left in it.
    const auto textOf = [&](std::size_t column, const std::wstring& text) {
        return text == sites.text(*row, column) ? text : savedText(text);
    };
    sites.setTexts(*row, {textOf(nameColumn, site.SiteEditName), textOf(urlColumn, site.SiteEditURL),
                          textOf(descriptionColumn, site.SiteEditDesc),
                          // Contract: editing dates the site today.
                          savedText(workspace.today())});
    if (*edited == workspace.shown.named) showSiteInStatusBar(workspace, *row);
    SaveItems(workspace);
}

} // namespace vandrel
