#pragma once

#include "model/row_table.h"

#include <string>

namespace vandrel {

struct Workspace;

// Each works on the site list and ends with saving it; each throws RuntimeError when that fails, with the
// list showing the change that was not saved. Without a selected site the commands but the first do nothing.

// Opens the site editor, with the waiting link if there is one, and adds what it hands back, dated today. The
// list is sorted by URL from then on.
void AddURL(Workspace& workspace);
// Asks, then removes every selected site.
void RemoveURL(Workspace& workspace);
// Asks for a new description of the current site; an empty answer keeps the old one.
void EditDescription(Workspace& workspace);
// Opens the current site in the site editor and dates it today when it is accepted.
void EditSel(Workspace& workspace);

// Adds a site, its texts as the file will hold them, and sorts the list by URL. Returns whether it was saved;
// false when there is no category and the user made none.
bool addSite(Workspace& workspace, const std::wstring& name, const std::wstring& url,
             const std::wstring& description, const std::wstring& date);
// The same, and scrolls the list to the site, which is not selected.
bool addSiteInView(Workspace& workspace, const std::wstring& name, const std::wstring& url,
                   const std::wstring& description, const std::wstring& date);
// Dates the site today; nothing happens when it is gone from the list.
void dateToday(Workspace& workspace, RowTable::Id site);
} // namespace vandrel
