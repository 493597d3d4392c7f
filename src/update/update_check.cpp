#include "update/update_check.h"

#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/system/internet_transfer.h"
#include "platform/system/shell.h"
#include "shared/workspace.h"
#include "update/version_report.h"

namespace vandrel {

void CheckUpdates(Workspace& workspace, const std::wstring& site,
                  const std::function<void(bool on)>& enableEntry)
{
    enableEntry(false);
    const ScopeExit enable([&] { enableEntry(true); });
    const std::wstring running = runningVersion();
    std::wstring latest;
    try {
        latest = workspace.inetScan.OpenURL(site + L"/update/VDVer.txt");
    } catch (const RuntimeError&) {
        if (workspace.inetScan.quitting()) return; // the program is closing: there is nobody to tell
        throw;
    }
    // Contract: any difference counts as a newer version, even a line end or an empty answer.
    if (latest == running) {
        tell(workspace.window, noUpdateText(latest), noUpdateTitle, BoxIcon::information);
    } else if (askYesNo(workspace.window, newVersionText(running, latest), newVersionTitle,
                        BoxIcon::question)) {
        shellOpen(workspace.window, site + L"/files/VDUpdate.exe");
        PostMessageW(workspace.window, WM_CLOSE, 0, 0);
    } else {
        tell(workspace.window, declinedText(), declinedTitle, BoxIcon::information);
    }
}

} // namespace vandrel
