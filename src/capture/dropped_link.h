#pragma once

namespace vandrel {

class DroppedData;
struct Workspace;

// Hands a dropped text to the site editor, whatever it says, and adds the site that comes back. Data without
// text is answered with a message; any other failure, that of saving the new site among them, ends it without
// a word.
void lstInfo_OLEDragDrop(Workspace& workspace, const DroppedData& data);

} // namespace vandrel
