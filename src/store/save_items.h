#pragma once

namespace vandrel {

struct Workspace;
class FileLayer;

// Writes the site list, in its present order, to the file of the shown category.
//
// What the user has entered must not leave the screen unsaved. So where categories are there but none is shown, the one
// with the keyboard's focus, else the first, is selected and read, and gets the list's sites behind its own; and one that
// could not be read is tried again. Where there is no category the user is asked for one; when that is cancelled, false
// is returned and the sites stay in the list, unsaved, which panel 1 of the status bar says.
//
// Throws RuntimeError when the file cannot be replaced (it is whole, then) or the category still cannot be
// read (70).
bool SaveItems(Workspace& workspace);
bool SaveItems(Workspace& workspace, FileLayer& files);

} // namespace vandrel
