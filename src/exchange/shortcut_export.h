#pragma once

namespace vandrel {

struct Workspace;

// Writes the current site to the shortcut file that the user names; one that is there keeps what else it
// holds. A failure is told in a message.
void mnuExport_Click(Workspace& workspace);

} // namespace vandrel
