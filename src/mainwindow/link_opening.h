#pragma once

namespace vandrel {

struct Workspace;

// Commands on the current site of the site list. The first two set its date to today and save the category;
// they throw RuntimeError when it cannot be saved.

// Opens it in the default browser, and dates it even if nothing could open it.
void OpenSite(Workspace& workspace);
// Opens it in a new window of the system's browser. Throws RuntimeError, with nothing changed, when that
// cannot be started.
void mnuOpenNew_Click(Workspace& workspace);
// Puts the address on the clipboard. A site without a name is not copied.
void mnuCopyURL_Click(Workspace& workspace);
void mnuProperties_Click(Workspace& workspace);
// Opens the help page in the program's folder or, if there is none, says where to find one.
void mnuViewHelp_Click(Workspace& workspace);

} // namespace vandrel
