#pragma once

namespace vandrel {

struct Workspace;

// Asks for a file and writes the sites to it as a page: of the category that is shown, or with AllCat of one
// category after the other. What fails is told in a box and in the status bar.
void CreateHTML(Workspace& workspace, bool AllCat);

} // namespace vandrel
