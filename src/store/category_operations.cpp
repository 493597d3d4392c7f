#include "store/category_operations.h"

#include "platform/file_layer.h"
#include "platform/input_box.h"
#include "platform/list_view.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "platform/program.h"
#include "platform/runtime_error.h"
#include "shared/workspace.h"
#include "store/category_files.h"
#include "store/category_title.h"

namespace vandrel {
namespace {

constexpr const wchar_t* invalidTitle = L"Invalid Category Title";

void refuseTitle(const Workspace& workspace)
{
    tell(workspace.window, refusedTitleMessage(), invalidTitle, BoxIcon::critical);
}

} // namespace

void AddCategory(Workspace& workspace)
{
    workspace.mnuMove.unloadFrom(1);
    const std::wstring title = inputBox(workspace.window, L"Please enter a title for the new category.",
                                        L"Category Name");
    if (isBlank(title)) {
        DoMoveMenus(workspace);
        return;
    }
    if (hasRefusedCharacter(title)) {
        refuseTitle(workspace);
        return; // "Move To" keeps only its first entry until it is built again
    }
    const std::size_t row = workspace.lstCategory.add({title}, closedFolderImage);
    try {
        replaceFile(categoryPath(workspace, title), std::string_view());
    } catch (...) {
        workspace.lstCategory.remove(row);
        DoMoveMenus(workspace);
        throw;
    }
    if (workspace.unreadCategory == title) workspace.unreadCategory.reset(); // nothing unseen is left in it
    workspace.lstCategory.ensureVisible(row);
    DoMoveMenus(workspace);
}

void RemoveCategory(Workspace& workspace)
{
    const auto selected = workspace.lstCategory.currentRow();
    if (!selected) return;
    if (!askYesNo(workspace.window, L"Remove category and all websites within?", programTitle,
                  BoxIcon::information)) {
        return;
    }
    removeFile(categoryPath(workspace, workspace.lstCategory.text(*selected)));
    workspace.lstCategory.clearSelection();
    workspace.lstCategory.remove(*selected);
    workspace.lstInfo.clear();
    workspace.unreadCategory.reset();
}

void DoMoveMenus(Workspace& workspace)
{
    MenuFamily& entries = workspace.mnuMove;
    const ListView& categories = workspace.lstCategory;
    entries.unloadFrom(categories.count());
    while (entries.count() < categories.count()) entries.load();
    for (std::size_t i = 0; i < categories.count(); ++i) entries.setCaption(i, categories.text(i));
    if (categories.empty()) entries.setCaption(0, L"");
    entries.setEnabled(0, !categories.empty());
}

void CategoryRename::lstCategory_BeforeLabelEdit()
{
    const auto selected = workspace_.lstCategory.currentRow();
    oldTitle_ = selected ? workspace_.lstCategory.text(*selected) : std::wstring();
}

bool CategoryRename::lstCategory_AfterLabelEdit(const std::wstring& newText)
{
    if (hasRefusedCharacter(newText)) {
        refuseTitle(workspace_);
        return false;
    }
    if (isBlank(newText)) {
        tell(workspace_.window, L"Please type a Category title.", invalidTitle, BoxIcon::exclamation);
        return false;
    }
    const std::wstring extension(categoryExtension);
    renameFile(oldTitle_ + extension, newText + extension);
    if (workspace_.unreadCategory == oldTitle_) workspace_.unreadCategory = newText;
    return true;
}

} // namespace vandrel
