#pragma once

namespace vandrel {

struct Workspace;

// The commands on the current site of the site list. The first two date it today and save the category,
// whether or not anything could show it; they throw RuntimeError when the category cannot be saved.

// In whatever the user opens such addresses with.
void OpenSite(Workspace& workspace);
// In a new window of the system's browser. Throws RuntimeError, with nothing changed, when that cannot be
// started.
void mnuOpenNew_Click(Workspace& workspace);
// Puts the address on the clipboard. A site without a name is not copied.
void mnuCopyURL_Click(Workspace& workspace);
void mnuProperties_Click(Workspace& workspace);
// Opens the help page beside the program, or tells where there is one.
void mnuViewHelp_Click(Workspace& workspace);

} // namespace vandrel
