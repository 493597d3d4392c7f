#include "capture/dropped_link.h"

#include "platform/base/message_box.h"
#include "platform/windows/drop_target.h"
#include "shared/workspace.h"
#include "store/site_operations.h"

namespace vandrel {

void lstInfo_OLEDragDrop(Workspace& workspace, const DroppedData& data)
{
    // The drag came from another program, which still has the keyboard.
    SetForegroundWindow(workspace.window);
    try {
        // Contract: the text is taken as it is, whether or not it is an address.
        workspace.site.IncomingLink = data.text();
        AddURL(workspace);
    } catch (const RuntimeError& error) {
        // Contract: every other failure ends the drop silently, even that of saving the site.
        if (error.number() != error_number::noSuchFormat) return;
        tell(workspace.window, L"That is not a valid URL. Please drag links from browsers only.",
             L"Invalid URL", BoxIcon::information);
    } catch (const std::exception&) {
        return;
    }
}

} // namespace vandrel
