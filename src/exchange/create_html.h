#pragma once

namespace vandrel {

struct Workspace;

// Asks for a file and writes the sites to it as a page: those of the shown category, or with AllCat those
// of every category in turn. Failures are reported in a box and in the status bar.
void CreateHTML(Workspace& workspace, bool AllCat);

} // namespace vandrel
