#pragma once

#include <cstddef>

namespace vandrel {

struct Workspace;

// Each works on the site list and ends with saving it; each throws RuntimeError when that fails, with the list
// showing the change that was not saved. Without a selected site the last four do nothing.

// Opens the site editor, with the waiting link if there is one, and adds what it hands back, dated today. The list
// is sorted by URL from then on.
void AddURL(Workspace& workspace);
// Asks, then removes every selected site.
void RemoveURL(Workspace& workspace);
// Asks for a new description of the current site; an empty answer keeps the old one.
void EditDescription(Workspace& workspace);
// Opens the current site in the site editor and dates it today when it is accepted.
void EditSel(Workspace& workspace);
// Moves the current site to the first category that has the title of "Move To" entry `index`; its date is not
// carried over. A move that fails leaves the site where it was.
void mnuMove_Click(Workspace& workspace, std::size_t index);

} // namespace vandrel
