#pragma once

namespace vandrel {

struct Workspace;

// Each asks for a folder and copies category files there, replacing any of the same names: of every
// category in the list, up to the first that cannot be copied, or of the shown one. The status bar says how
// it went.
void BackUpAll(Workspace& workspace);
void BackUpCurrent(Workspace& workspace);

} // namespace vandrel
