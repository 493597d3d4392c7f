#pragma once

#include "platform/controls/menu.h"
#include "platform/controls/tool_bar.h"

#include <span>

namespace vandrel {

// The entries of the menus, by the names that the whole program uses for them. Separators have ids, too, so
// that the table stays one table.
enum MenuEntry : int {
    mnuFile = 1,
    mnuFind,
    mnuScan,
    mnuScanSelected,
    mnuScanAllURLs,
    sep8,
    mnuImport,
    mnuExport,
    sep15,
    mnuGenerate,
    mnuCurrentCat,
    mnuAllCats,
    mnuBackup,
    mnuBUCurrentCat,
    mnuBUAllCat,
    sep1,
    mnuQuit,
    mnuEdit,
    mnuAdd,
    mnuAddCategory,
    mnuRemoveCategory,
    sep3,
    mnuAddWebsite,
    mnuRemoveWebsite,
    mnuSelected,
    mnuEditSel,
    mnuRenameCat,
    sep4,
    mnuCopyURL,
    mnuOpenURL,
    mnuView,
    mnuProperties,
    sep13,
    mnuGridlines,
    mnuHoverSelect,
    sep10,
    mnuKeepTop,
    sep14,
    mnuOptions,
    mnuHelp,
    mnuViewHelp,
    sep7,
    mnuAbout,
    sep9,
    mnuCheckUpdates,
    mnuPopUp,
    mnuPOpen,
    mnuOpenNew,
    mnuPCopyURL,
    sep5,
    mnuPEditSelected,
    sep11,
    mnuPExport,
    mnuPScanSel,
    sep6,
    mnuPAddSite,
    mnuPRemoveSite,
    mnuMoveTo,
    sep12,
    mnuPProperties,
    mnuCatPopUp,
    mnuPAddCat,
    mnuPRemoveCat,
    sep16,
    mnuPRenameCat,
};

// The entries of the "Move To" submenu count on from here.
inline constexpr int firstMoveEntry = 1000;

std::span<const MenuRow> menuTable();
std::span<const ToolBar::ButtonRow> toolBarTable();

// The drop-down menu of the toolbar's scan button.
inline constexpr int scanButton = 10;
std::span<const ToolBar::MenuRow> scanButtonMenu();

// What is usable only while the site list, or the category list, has entries.
std::span<const MenuEntry> entriesThatNeedSites();
std::span<const int> buttonsThatNeedSites();
std::span<const MenuEntry> entriesThatNeedCategories();

// Whether the shortcut stays a command while a category's title is being edited: those that neither edit text
// nor act on the lists.
bool worksWhileEditing(MenuEntry entry);
// Whether the shortcut is a key that edits text, so that it is the search box's while that has the focus.
bool hasTextKey(MenuEntry entry);

} // namespace vandrel
