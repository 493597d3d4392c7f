#pragma once

#include "model/row_table.h"

#include <string>

namespace vandrel {

struct Workspace;

// Each changes the site list, then saves it; if saving fails, each throws RuntimeError and the list keeps
// the unsaved change. Without a selected site, all commands but AddURL do nothing.

// Opens the site editor, with the waiting link if there is one, and adds the site it hands back, dated
// today. The list is sorted by URL from then on.
void AddURL(Workspace& workspace);
// Asks, then removes every selected site.
void RemoveURL(Workspace& workspace);
// Asks for a new description of the current site; an empty answer keeps the old one.
void EditDescription(Workspace& workspace);
// Opens the current site in the site editor and dates it today if the user accepts.
void EditSel(Workspace& workspace);

// Adds a site, its texts as the file will hold them, and sorts the list by URL. Returns whether it was
// saved: false when there is no category and the user made none.
bool addSite(Workspace& workspace, const std::wstring& name, const std::wstring& url,
             const std::wstring& description, const std::wstring& date);
// The same, and scrolls the list to the site without selecting it.
bool addSiteInView(Workspace& workspace, const std::wstring& name, const std::wstring& url,
                   const std::wstring& description, const std::wstring& date);
// Sets the site's date to today and saves; does nothing if the site is gone from the list.
void dateToday(Workspace& workspace, RowTable::Id site);
} // namespace vandrel
