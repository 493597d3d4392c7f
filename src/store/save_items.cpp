#include "store/save_items.h"

#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/files/file_layer.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"
#include "store/category_making.h"

namespace vandrel {
namespace {

// Adds the list's sites after those of a category's file.
void takeIntoCategory(Workspace& workspace)
{
    auto row = shownRow(workspace);
    if (!row) row = workspace.lstCategory.focusedRow().value_or(0);
    showCategory(workspace, *row, workspace.shown.sites.all());
}

// False when there is no category and the user made none.
bool haveCategory(Workspace& workspace)
{
    requireCategoryList(workspace);
    if (workspace.categories.empty()) {
        makeFirstCategory(workspace);
        return !workspace.categories.empty();
    }
    if (workspace.shown.unreadable() || !shownRow(workspace)) takeIntoCategory(workspace);
    return true;
}

} // namespace

bool SaveItems(Workspace& workspace) { return SaveItems(workspace, systemFiles()); }

bool SaveItems(Workspace& workspace, FileLayer& files)
{
    workspace.shown.unsaved = true;
    if (!haveCategory(workspace)) {
        markSites(workspace, workspace.shown.sites.empty() ? Sites::saved : Sites::unsaved);
        return false;
    }
    const auto row = shownRow(workspace);
    if (!row) throw RuntimeError(error_number::objectNotSet);
    if (workspace.shown.unreadable()) throw RuntimeError(error_number::permissionDenied);
    writeCategory(workspace.dataFolder, titleOf(workspace, *row), workspace.shown.sites.all(), files);
    markSites(workspace, Sites::saved);
    return true;
}

} // namespace vandrel
