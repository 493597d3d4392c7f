#pragma once

namespace vandrel {

class DroppedData;
struct Workspace;

// Hands a dropped text to the site editor, whatever it says, and adds the site that comes back. Data
// without text gets a message; any other failure, even that of saving the new site, ends the drop silently.
void lstInfo_OLEDragDrop(Workspace& workspace, const DroppedData& data);

} // namespace vandrel
