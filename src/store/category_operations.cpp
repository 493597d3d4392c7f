#include "store/category_operations.h"

#include "model/category_title.h"
#include "platform/base/message_box.h"
#include "platform/base/program.h"
#include "platform/controls/list_view.h"
#include "platform/files/file_layer.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"
#include "store/category_making.h"
#include "store/category_selection.h"

namespace vandrel {

void AddCategory(Workspace& workspace)
{
    const NewCategory category = makeCategory(workspace);
    if (category.answer != NewCategory::Answer::made || !hasStraySites(workspace)) return;
    const auto row = workspace.categories.rowOf(category.row);
    if (!row || offerStraySites(workspace, *row)) return;
    workspace.shown.sites.clear();
    markSites(workspace, Sites::saved);
}

void RemoveCategory(Workspace& workspace)
{
    const RowTable::Id category = workspace.shown.row;
    if (!shownRow(workspace)) return;
    if (!askYesNo(workspace.window, L"Remove category and all websites within?", programTitle,
                  BoxIcon::information, FirstButton::no)) {
        return;
    }
    const auto row = workspace.categories.rowOf(category);
    if (!row) return;
    removeFile(categoryPath(workspace.dataFolder, titleOf(workspace, *row)));
    // Contract: no other category is selected, the caption stays, and "Move To" is not rebuilt.
    showNoCategory(workspace);
    workspace.categories.remove(*row);
}

void CategoryRename::lstCategory_BeforeLabelEdit(std::size_t row)
{
    category_ = workspace_.categories.id(row);
    oldTitle_ = titleOf(workspace_, row);
}

bool CategoryRename::lstCategory_AfterLabelEdit(const std::wstring& newText)
{
    if (hasRefusedCharacter(newText)) {
        tell(workspace_.window, refusedTitleMessage(), invalidTitle, BoxIcon::critical);
        return false;
    }
    if (isBlank(newText)) {
        tell(workspace_.window, L"Please type a Category title.", invalidTitle, BoxIcon::exclamation);
        return false;
    }
    RowTable& categories = workspace_.categories;
    // Before the rename, so that showing the new title cannot fail.
    const RowTexts kept = categories.keep({newText});
    const std::wstring extension(categoryExtension);
    // Contract: both names are relative to the current directory, and "Move To" is not rebuilt.
    renameFile(oldTitle_ + extension, newText + extension);
    if (const auto row = categories.rowOf(category_)) categories.useTexts(*row, kept);
    return true;
}

} // namespace vandrel
