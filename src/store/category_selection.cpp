#include "store/category_selection.h"

#include "model/unsaved_text.h"
#include "platform/base/message_box.h"
#include "platform/base/program.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "shared/workspace.h"
#include "store/category_list.h"
#include "store/save_items.h"

#include <new>
#include <optional>

namespace vandrel {
namespace {

bool ask(const Workspace& workspace, const std::wstring& text, FirstButton first = FirstButton::yes)
{
    return askYesNo(workspace.window, text, programTitle, BoxIcon::question, first);
}

// Tries to save. Returns why that failed; none if it worked.
std::optional<std::wstring> reasonNotSaved(Workspace& workspace)
{
    try {
        if (SaveItems(workspace)) return std::nullopt;
        return runtimeErrorDescription(error_number::objectNotSet);
    } catch (const RuntimeError& error) {
        return error.description();
    } catch (const std::bad_alloc&) {
        return runtimeErrorDescription(error_number::outOfMemory);
    }
}

std::wstring shownTitle(const Workspace& workspace)
{
    const auto row = shownRow(workspace);
    return row ? titleOf(workspace, *row) : std::wstring();
}

bool mayDiscard(Workspace& workspace, const std::wstring& reason)
{
    return ask(workspace, discardText(shownTitle(workspace), reason), FirstButton::no);
}

void selectShown(Workspace& workspace)
{
    if (const auto row = shownRow(workspace)) workspace.lstCategory.select(*row);
}

// Shows another category while the list has sites that no file holds.
void showAnother(Workspace& workspace, RowTable::Id category)
{
    const auto reason = shownRow(workspace) ? reasonNotSaved(workspace) : std::wstring();
    const auto row = workspace.categories.rowOf(category); // messages may have run and moved it
    if (!row) return;
    if (reason && hasStraySites(workspace)) {
        if (category == workspace.shown.row) return; // still unreadable
        if (!offerStraySites(workspace, *row)) showCategory(workspace, *row);
    } else if (!reason || mayDiscard(workspace, *reason)) {
        showCategory(workspace, *row);
    } else {
        selectShown(workspace);
    }
}

} // namespace

bool hasStraySites(const Workspace& workspace)
{
    return workspace.shown.unsaved && (workspace.shown.unreadable() || !shownRow(workspace));
}

bool offerStraySites(Workspace& workspace, std::size_t item)
{
    const std::wstring title = titleOf(workspace, item);
    if (!ask(workspace, addToCategoryText(workspace.shown.sites.size(), title))) return false;
    showCategory(workspace, item, workspace.shown.sites.all());
    SaveItems(workspace);
    return true;
}

bool leaveSites(Workspace& workspace)
{
    if (!workspace.shown.unsaved || workspace.categories.empty()) return true;
    const auto reason = reasonNotSaved(workspace);
    if (reason && !mayDiscard(workspace, *reason)) return false;
    markSites(workspace, Sites::saved);
    return true;
}

void saveBeforeClosing(Workspace& workspace)
{
    while (workspace.shown.unsaved) {
        if (workspace.categories.empty()) {
            if (!ask(workspace, makeCategoryText(workspace.shown.sites.size()))) return;
            reasonNotSaved(workspace);
        } else if (const auto reason = reasonNotSaved(workspace)) {
            if (!ask(workspace, tryAgainText(shownTitle(workspace), *reason))) return;
        }
    }
}

void lstCategory_ItemClick(Workspace& workspace, std::size_t item)
{
    if (workspace.shown.unsaved) showAnother(workspace, workspace.categories.id(item));
    else showCategory(workspace, item);
}

void selectCategory(Workspace& workspace, std::size_t item)
{
    workspace.lstCategory.select(item);
    workspace.lstCategory.ensureVisible(item);
    lstCategory_ItemClick(workspace, item);
}

} // namespace vandrel
