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
    const auto row = workspace.lstCategory.rowOf(category.row);
    if (!row || offerStraySites(workspace, *row)) return;
    workspace.lstInfo.clear();
    markSites(workspace, Sites::saved);
}

void RemoveCategory(Workspace& workspace)
{
    const ListView& categories = workspace.lstCategory;
    const ListRows::Id category = workspace.shown.row;
    if (!shownRow(workspace)) return;
    if (!askYesNo(workspace.window, L"Remove category and all websites within?", programTitle,
                  BoxIcon::information)) {
        return;
    }
    const auto row = categories.rowOf(category);
    if (!row) return;
    removeFile(categoryPath(workspace.dataFolder, categories.text(*row)));
    showNoCategory(workspace);
    workspace.lstCategory.remove(*row);
}

void CategoryRename::lstCategory_BeforeLabelEdit(std::size_t row)
{
    oldTitle_ = workspace_.lstCategory.text(row);
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
    const std::wstring extension(categoryExtension);
    renameFile(oldTitle_ + extension, newText + extension);
    return true;
}

} // namespace vandrel
