#include "exchange/backup.h"
#include "exchange/create_html.h"
#include "exchange/frm_import.h"
#include "exchange/shortcut_export.h"
#include "mainwindow/frm_main.h"
#include "mainwindow/link_opening.h"
#include "store/site_operations.h"

namespace vandrel {
namespace {

constexpr CommandKey key(unsigned code) { return {.code = code}; }
constexpr CommandKey ctrl(char letter) { return {.code = static_cast<unsigned>(letter), .control = true}; }
constexpr CommandKey shift(unsigned code) { return {.code = code, .shift = true}; }

constexpr CommandRow menu(int level, MenuEntry id, const wchar_t* caption, Needs needs = Needs::nothing)
{
    return {.kind = RowKind::menu, .level = level, .id = id, .caption = caption, .traits = {.needs = needs}};
}

constexpr CommandRow popUpMenu(MenuEntry id, const wchar_t* caption)
{
    return {.kind = RowKind::popUpMenu, .level = 0, .id = id, .caption = caption};
}

constexpr CommandRow separator(int level, MenuEntry id)
{
    return {.kind = RowKind::separator, .level = level, .id = id, .caption = L"-"};
}

constexpr CommandRow command(int level, MenuEntry id, const wchar_t* caption, void (*procedure)(frmMain&),
                             const CommandTraits& traits = {})
{
    return {.kind = RowKind::command,
            .level = level,
            .id = id,
            .caption = caption,
            .procedure = procedure,
            .traits = traits};
}

// A command of the menu bar, offered again in a pop-up menu.
constexpr CommandRow again(MenuEntry id, const wchar_t* caption, MenuEntry repeats)
{
    return {.kind = RowKind::command, .level = 1, .id = id, .caption = caption, .repeats = repeats};
}

} // namespace

// Menus, tool bar, keys, and what is enabled when: all of it comes from this table.
CommandTable frmMain::commands()
{
    using enum Needs;
    using enum KeyWorks;
    static constexpr CommandRow table[] = {
        menu(0, mnuFile, L"&File"),
        command(1, mnuFind, L"&Find", [](frmMain& m) { m.mnuFind_Click(); },
                {.key = ctrl('F'), .keyWorks = everywhere}),
        menu(1, mnuScan, L"&Scan", sites),
        command(2, mnuScanSelected, L"Scan Selec&ted", [](frmMain& m) { m.scanner_.mnuScanSelected_Click(); },
                {.button = {10, L"scan", L"Scan selected or multiple URLs", true},
                 .dropDown = {L"selected", L"Scan Selected"}}),
        command(2, mnuScanAllURLs, L"Scan &All URLs", [](frmMain& m) { m.scanner_.mnuScanAllURLs_Click(); },
                {.dropDown = {L"allurls", L"Scan All URLs"}}),
        separator(1, sep8),
        command(1, mnuImport, L"&Import", [](frmMain& m) { mnuImport_Click(m.workspace_); },
                {.key = ctrl('I'), .button = {4, L"import", L"Import IE Favorites"}}),
        command(1, mnuExport, L"&Export", [](frmMain& m) { mnuExport_Click(m.workspace_); },
                {.key = ctrl('E'), .needs = sites, .button = {5, L"export", L"Export an IE Favorite"}}),
        separator(1, sep15),
        menu(1, mnuGenerate, L"Generate &HTML"),
        command(2, mnuCurrentCat, L"From &Current Category",
                [](frmMain& m) { CreateHTML(m.workspace_, false); }),
        command(2, mnuAllCats, L"From &All Categories", [](frmMain& m) { CreateHTML(m.workspace_, true); }),
        menu(1, mnuBackup, L"&Backup"),
        command(2, mnuBUCurrentCat, L"&Current Category", [](frmMain& m) { BackUpCurrent(m.workspace_); }),
        command(2, mnuBUAllCat, L"&All Categories", [](frmMain& m) { BackUpAll(m.workspace_); }),
        separator(1, sep1),
        command(1, mnuQuit, L"&Quit", [](frmMain& m) { m.mnuQuit_Click(); },
                {.key = ctrl('Q'), .keyWorks = everywhere}),

        menu(0, mnuEdit, L"&Edit"),
        menu(1, mnuAdd, L"&Add/Remove"),
        command(2, mnuAddCategory, L"&Add Category", [](frmMain& m) { AddCategory(m.workspace_); },
                {.key = key(VK_F2), .button = {1, L"category-add", L"Add Category"}}),
        command(2, mnuRemoveCategory, L"&Remove Category", [](frmMain& m) { RemoveCategory(m.workspace_); },
                {.key = shift(VK_F2),
                 .needs = categories,
                 .button = {2, L"category-remove", L"Remove Category"}}),
        separator(2, sep3),
        // Contract: never disabled: with no category, saving the site asks for one.
        command(2, mnuAddWebsite, L"Add &Website", [](frmMain& m) { AddURL(m.workspace_); },
                {.key = key(VK_F3), .button = {7, L"site-add", L"Add Website"}}),
        command(2, mnuRemoveWebsite, L"Remo&ve Website", [](frmMain& m) { RemoveURL(m.workspace_); },
                {.key = key(VK_DELETE),
                 .keyWorks = outsideText,
                 .needs = sites,
                 .button = {8, L"site-remove", L"Remove Website"}}),
        menu(1, mnuSelected, L"&Selected"),
        command(2, mnuEditSel, L"&Edit...", [](frmMain& m) { EditSel(m.workspace_); }, {.needs = sites}),
        command(2, mnuRenameCat, L"Rename Category", [](frmMain& m) { m.mnuRenameCat_Click(); },
                {.needs = categories}),
        separator(2, sep4),
        command(2, mnuCopyURL, L"&Copy Selected URL", [](frmMain& m) { mnuCopyURL_Click(m.workspace_); },
                {.key = ctrl('C'), .keyWorks = outsideText, .needs = sites}),
        command(2, mnuOpenURL, L"&Open Selected URL", [](frmMain& m) { OpenSite(m.workspace_); },
                {.key = ctrl('O'), .needs = sites, .button = {9, L"site-open", L"Open Selected Website"}}),

        menu(0, mnuView, L"&View"),
        command(1, mnuProperties, L"&Properties", [](frmMain& m) { mnuProperties_Click(m.workspace_); },
                {.key = ctrl('P'), .needs = sites}),
        separator(1, sep13),
        command(1, mnuGridlines, L"Show &Gridlines", [](frmMain& m) { m.mnuGridlines_Click(); }),
        command(1, mnuHoverSelect, L"&Hover Select", [](frmMain& m) { m.mnuHoverSelect_Click(); }),
        separator(1, sep10),
        command(1, mnuKeepTop, L"Keep on &Top", [](frmMain& m) { m.mnuKeepTop_Click(); }),
        separator(1, sep14),
        command(1, mnuOptions, L"&Options...", [](frmMain& m) { m.mnuOptions_Click(); }),

        menu(0, mnuHelp, L"&Help"),
        command(1, mnuViewHelp, L"&View Help", [](frmMain& m) { mnuViewHelp_Click(m.workspace_); },
                {.key = key(VK_F1), .keyWorks = everywhere}),
        separator(1, sep7),
        command(1, mnuAbout, L"&About...", [](frmMain& m) { m.mnuAbout_Click(); },
                {.button = {12, L"about", L"About Vandrel"}}),
        separator(1, sep9),
        command(1, mnuCheckUpdates, L"Check for Updates", [](frmMain& m) { m.mnuCheckUpdates_Click(); }),

        popUpMenu(mnuPopUp, L"&Popup"),
        again(mnuPOpen, L"&Open URL", mnuOpenURL),
        command(1, mnuOpenNew, L"Open in &New Window", [](frmMain& m) { mnuOpenNew_Click(m.workspace_); },
                {.needs = sites}),
        again(mnuPCopyURL, L"&Copy URL", mnuCopyURL),
        separator(1, sep5),
        again(mnuPEditSelected, L"&Edit...", mnuEditSel),
        separator(1, sep11),
        again(mnuPExport, L"&Export", mnuExport),
        again(mnuPScanSel, L"&Scan Selected", mnuScanSelected),
        separator(1, sep6),
        again(mnuPAddSite, L"&Add Website", mnuAddWebsite),
        again(mnuPRemoveSite, L"Remo&ve Website", mnuRemoveWebsite),
        menu(1, mnuMoveTo, L"&Move To...", sites), // its entries are the categories
        separator(1, sep12),
        again(mnuPProperties, L"&Properties", mnuProperties),

        popUpMenu(mnuCatPopUp, L"CatPopup"),
        again(mnuPAddCat, L"Add Category", mnuAddCategory),
        again(mnuPRemoveCat, L"Remove Category", mnuRemoveCategory),
        separator(1, sep16),
        again(mnuPRenameCat, L"Rename Category", mnuRenameCat),
    };
    static_assert(consistent(table),
                  "a row without a menu or a procedure, or an id, a key or a button twice");
    return table;
}

} // namespace vandrel
