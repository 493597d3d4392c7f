#include "exchange/backup.h"

#include "exchange/folder_browser.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "platform/files/file_layer.h"
#include "platform/files/left_behind.h"
#include "platform/windows/message_loop.h"
#include "platform/windows/message_throttle.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"

namespace vandrel {
namespace {

void backUp(const Workspace& workspace, std::size_t category, const std::wstring& folder)
{
    const std::wstring title = titleOf(workspace, category);
    copyFile(categoryPath(workspace.dataFolder, title), categoryPath(folder, title));
}

void backUpEvery(Workspace& workspace, const std::wstring& folder)
{
    const std::size_t count = workspace.categories.size();
    workspace.PB.begin(count);
    MessageThrottle throttle;
    for (std::size_t category = 0; category < count; ++category) {
        workspace.PB.setValue(category + 1);
        if (throttle.due()) throttle.take([] { MessageLoop::current().paintPending(); });
        backUp(workspace, category, folder);
    }
    workspace.PB.setVisible(false);
}

// Calls `copy` with the chosen folder.
template <typename Copy> void intoChosenFolder(Workspace& workspace, const wchar_t* title, Copy copy)
{
    try {
        const std::wstring folder = Module1::BrowseForFolder(workspace.window, title);
        if (folder.empty()) return;
        removeLeftBehind(folder);
        copy(folder);
        workspace.StatusBar1.setPanelText(1, L"Backup successful.");
    } catch (const RuntimeError&) {
        // Contract: no message box, and the progress bar stays as it is.
        workspace.StatusBar1.setPanelText(1, L"Backup failed.");
    }
}

} // namespace

void BackUpAll(Workspace& workspace)
{
    intoChosenFolder(workspace, L"Choose where to backup the files:",
                     [&](const std::wstring& folder) { backUpEvery(workspace, folder); });
}

void BackUpCurrent(Workspace& workspace)
{
    intoChosenFolder(workspace, L"Choose where to backup the selected category:",
                     [&](const std::wstring& folder) {
                         const auto category = shownRow(workspace);
                         if (!category) throw RuntimeError(error_number::objectNotSet);
                         backUp(workspace, *category, folder);
                     });
}

} // namespace vandrel
