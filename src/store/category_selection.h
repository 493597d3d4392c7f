#pragma once

#include <cstddef>

namespace vandrel {

struct Workspace;

// Reads the clicked category into the site list, in the order of its file, and shows which one it is. A file
// that cannot be read leaves the list empty; nothing is raised for that. What the list has that no file holds
// is saved first; when that cannot be done, the user is asked what is to become of it, and may stay where
// they are.
void lstCategory_ItemClick(Workspace& workspace, std::size_t item);

// Selects the category and does what a click on it does.
void selectCategory(Workspace& workspace, std::size_t item);

// Before a command shows one category after the other: saves what no file holds, and asks whether what cannot
// be saved may be lost. False when the list has to stay as it is.
bool leaveSites(Workspace& workspace);

// Before the program ends: the same, until it is saved or the user says No.
void saveBeforeClosing(Workspace& workspace);

// Whether all that the list has are sites that were entered while no category could take them.
bool hasStraySites(const Workspace& workspace);

// Asks whether the category takes them; if so it is shown, with them behind its own sites, and saved. Returns
// whether it was.
bool offerStraySites(Workspace& workspace, std::size_t item);

} // namespace vandrel
