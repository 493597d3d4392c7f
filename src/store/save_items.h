#pragma once

namespace vandrel {

struct Workspace;
class FileLayer;

// Writes the site list, in its present order, to the file of the shown category.
//
// Nothing that the user has entered may leave the screen unsaved. If there are categories but none is
// shown, the focused one, or else the first, is selected and read, and the list's sites are added after its
// own. A category that could not be read is tried again. If there is no category, the user is asked for
// one; if that is cancelled, false is returned and the sites stay in the list, unsaved, which panel 1 of
// the status bar says.
//
// Throws RuntimeError when the file cannot be replaced (it is then still whole) or the category still
// cannot be read (70).
bool SaveItems(Workspace& workspace);
bool SaveItems(Workspace& workspace, FileLayer& files);

} // namespace vandrel
