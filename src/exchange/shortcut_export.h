#pragma once

namespace vandrel {

struct Workspace;

// Writes the current site to the shortcut file that the user names; an existing one keeps what else it
// holds. Failures are shown in a message box.
void mnuExport_Click(Workspace& workspace);

} // namespace vandrel
