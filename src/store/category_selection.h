#pragma once

#include <cstddef>

namespace vandrel {

struct Workspace;

// Reads the clicked category into the site list, in the order of its file, and shows which one it is. A
// file that cannot be read leaves the list empty and raises no error. What no file holds yet is saved first;
// if that fails, the user is asked what to do with it and may stay in the old category.
void lstCategory_ItemClick(Workspace& workspace, std::size_t item);

// Selects the category and does what a click on it does.
void selectCategory(Workspace& workspace, std::size_t item);

// Called before a command goes through the categories: saves what no file holds, and asks whether to
// discard what cannot be saved. False when the list must stay as it is.
bool leaveSites(Workspace& workspace);

// The same before the program ends, until everything is saved or the user says No.
void saveBeforeClosing(Workspace& workspace);

// Whether the list holds only sites that were entered while no category could take them.
bool hasStraySites(const Workspace& workspace);

// Asks whether to add these sites to the category; if so, shows it with them after its own and saves it.
// Returns whether the user agreed.
bool offerStraySites(Workspace& workspace, std::size_t item);

} // namespace vandrel
