#include "mainwindow/command_tables.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr Shortcut ctrl(char key) { return {FCONTROL, static_cast<WORD>(key)}; }
constexpr Shortcut key(WORD code) { return {0, code}; }
constexpr Shortcut shift(WORD code) { return {FSHIFT, code}; }
constexpr bool hidden = true;

constexpr MenuRow menuRows[] = {
    {0, mnuFile, L"&File"},
    {1, mnuFind, L"&Find", ctrl('F')},
    {1, mnuScan, L"&Scan"},
    {2, mnuScanSelected, L"Scan Selec&ted"},
    {2, mnuScanAllURLs, L"Scan &All URLs"},
    {1, sep8, L"-"},
    {1, mnuImport, L"&Import", ctrl('I')},
    {1, mnuExport, L"&Export", ctrl('E')},
    {1, sep15, L"-"},
    {1, mnuGenerate, L"Generate &HTML"},
    {2, mnuCurrentCat, L"From &Current Category"},
    {2, mnuAllCats, L"From &All Categories"},
    {1, mnuBackup, L"&Backup"},
    {2, mnuBUCurrentCat, L"&Current Category"},
    {2, mnuBUAllCat, L"&All Categories"},
    {1, sep1, L"-"},
    {1, mnuQuit, L"&Quit", ctrl('Q')},

    {0, mnuEdit, L"&Edit"},
    {1, mnuAdd, L"&Add/Remove"},
    {2, mnuAddCategory, L"&Add Category", key(VK_F2)},
    {2, mnuRemoveCategory, L"&Remove Category", shift(VK_F2)},
    {2, sep3, L"-"},
    {2, mnuAddWebsite, L"Add &Website", key(VK_F3)},
    {2, mnuRemoveWebsite, L"Remo&ve Website", key(VK_DELETE)},
    {1, mnuSelected, L"&Selected"},
    {2, mnuEditSel, L"&Edit..."},
    {2, mnuRenameCat, L"Rename Category"},
    {2, sep4, L"-"},
    {2, mnuCopyURL, L"&Copy Selected URL", ctrl('C')},
    {2, mnuOpenURL, L"&Open Selected URL", ctrl('O')},

    {0, mnuView, L"&View"},
    {1, mnuProperties, L"&Properties", ctrl('P')},
    {1, sep13, L"-"},
    {1, mnuGridlines, L"Show &Gridlines"},
    {1, mnuHoverSelect, L"&Hover Select"},
    {1, sep10, L"-"},
    {1, mnuKeepTop, L"Keep on &Top"},
    {1, sep14, L"-"},
    {1, mnuOptions, L"&Options..."},

    {0, mnuHelp, L"&Help"},
    {1, mnuViewHelp, L"&View Help", key(VK_F1)},
    {1, sep7, L"-"},
    {1, mnuAbout, L"&About..."},
    {1, sep9, L"-"},
    {1, mnuCheckUpdates, L"Check for Updates"},

    {0, mnuPopUp, L"&Popup", {}, hidden},
    {1, mnuPOpen, L"&Open URL"},
    {1, mnuOpenNew, L"Open in &New Window"},
    {1, mnuPCopyURL, L"&Copy URL"},
    {1, sep5, L"-"},
    {1, mnuPEditSelected, L"&Edit..."},
    {1, sep11, L"-"},
    {1, mnuPExport, L"&Export"},
    {1, mnuPScanSel, L"&Scan Selected"},
    {1, sep6, L"-"},
    {1, mnuPAddSite, L"&Add Website"},
    {1, mnuPRemoveSite, L"Remo&ve Website"},
    {1, mnuMoveTo, L"&Move To...", {}, false, true},
    {1, sep12, L"-"},
    {1, mnuPProperties, L"&Properties"},

    {0, mnuCatPopUp, L"CatPopup", {}, hidden},
    {1, mnuPAddCat, L"Add Category"},
    {1, mnuPRemoveCat, L"Remove Category"},
    {1, sep16, L"-"},
    {1, mnuPRenameCat, L"Rename Category"},
};

using Kind = ToolBar::Kind;
constexpr ToolBar::ButtonRow separator{L"", L"", Kind::separator};

constexpr ToolBar::ButtonRow buttons[] = {
    {L"Add Category", L"category-add"},
    {L"Remove Category", L"category-remove"},
    separator,
    {L"Import IE Favorites", L"import"},
    {L"Export an IE Favorite", L"export"},
    separator,
    {L"Add Website", L"site-add"},
    {L"Remove Website", L"site-remove"},
    {L"Open Selected Website", L"site-open"},
    {L"Scan selected or multiple URLs", L"scan", Kind::dropDown},
    separator,
    {L"About Vandrel", L"about"},
};

constexpr ToolBar::MenuRow scanMenu[] = {
    {L"Scan Selected", L"selected"},
    {L"Scan All URLs", L"allurls"},
};

constexpr MenuEntry needSites[] = {
    mnuCopyURL,    mnuOpenURL,     mnuPCopyURL, mnuPEditSelected, mnuEditSel,       mnuExport,
    mnuPExport,    mnuPRemoveSite, mnuPScanSel, mnuPOpen,         mnuRemoveWebsite, mnuMoveTo,
    mnuProperties, mnuPProperties, mnuOpenNew,  mnuScan,
};
constexpr int buttonsNeedSites[] = {5, 8, 9, 10};
constexpr MenuEntry needCategories[] = {mnuRemoveCategory, mnuPRemoveCat, mnuRenameCat, mnuPRenameCat};
constexpr MenuEntry whileEditing[] = {mnuFind, mnuQuit, mnuViewHelp};
constexpr MenuEntry textKeys[] = {mnuRemoveWebsite, mnuCopyURL};

} // namespace

std::span<const MenuRow> menuTable() { return menuRows; }
std::span<const ToolBar::ButtonRow> toolBarTable() { return buttons; }
std::span<const ToolBar::MenuRow> scanButtonMenu() { return scanMenu; }
std::span<const MenuEntry> entriesThatNeedSites() { return needSites; }
std::span<const int> buttonsThatNeedSites() { return buttonsNeedSites; }
std::span<const MenuEntry> entriesThatNeedCategories() { return needCategories; }

bool worksWhileEditing(MenuEntry entry)
{
    return std::ranges::find(whileEditing, entry) != std::end(whileEditing);
}

bool hasTextKey(MenuEntry entry) { return std::ranges::find(textKeys, entry) != std::end(textKeys); }

} // namespace vandrel
