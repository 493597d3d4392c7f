#include "store/category_making.h"

#include "model/category_title.h"
#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/menu.h"
#include "platform/files/file_layer.h"
#include "platform/windows/input_box.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"

#include <exception>

namespace vandrel {
namespace {

RowTable::Id addCategory(Workspace& workspace, const std::wstring& title)
{
    RowTable& categories = workspace.categories;
    // Contract: no test for an existing title: its file is emptied and the list shows it twice.
    const std::size_t row = categories.add({title}, closedFolderImage);
    try {
        replaceFile(categoryPath(workspace.dataFolder, title), std::string_view());
    } catch (const std::exception&) {
        categories.remove(row);
        throw;
    }
    const auto shown = shownRow(workspace);
    // The file is empty now, so saving over it loses nothing.
    if (shown && titleOf(workspace, *shown) == title) workspace.shown.reading = Reading::read;
    workspace.lstCategory.ensureVisible(row);
    return categories.id(row);
}

} // namespace

void requireCategoryList(Workspace& workspace)
{
    if (workspace.categoriesListed) return;
    listCategories(workspace);
    DoMoveMenus(workspace);
}

NewCategory makeCategory(Workspace& workspace)
{
    using Answer = NewCategory::Answer;
    requireCategoryList(workspace);
    workspace.mnuMove.unloadFrom(1);
    const std::wstring title = inputBox(workspace.window, L"Please enter a title for the new category.",
                                        L"Category Name");
    if (hasRefusedCharacter(title)) {
        tell(workspace.window, refusedTitleMessage(), invalidTitle, BoxIcon::critical);
        // Contract: "Move To" keeps only its first entry until it is built again.
        return {Answer::refused};
    }
    if (isBlank(title)) {
        DoMoveMenus(workspace);
        return {Answer::cancelled};
    }
    NewCategory category{Answer::made};
    try {
        // Contract: the title is used untrimmed.
        category.row = addCategory(workspace, title);
    } catch (const std::exception&) {
        DoMoveMenus(workspace);
        throw;
    }
    DoMoveMenus(workspace);
    return category;
}

void makeFirstCategory(Workspace& workspace)
{
    tell(workspace.window, L"There are no categories. Please make a category before adding a site.",
         L"No Categories", BoxIcon::information);
    auto answer = NewCategory::Answer::refused;
    while (answer == NewCategory::Answer::refused) {
        try {
            answer = makeCategory(workspace).answer;
        } catch (const RuntimeError& error) {
            showRuntimeError(workspace.window, error); // another title may work
        }
    }
    if (!workspace.categories.empty()) showAsEmptyCategory(workspace, 0);
}

void DoMoveMenus(Workspace& workspace)
{
    MenuFamily& entries = workspace.mnuMove;
    const RowTable& categories = workspace.categories;
    entries.unloadFrom(categories.size());
    while (entries.count() < categories.size()) entries.load();
    for (std::size_t i = 0; i < categories.size(); ++i) entries.setCaption(i, titleOf(workspace, i));
    if (categories.empty()) entries.setCaption(0, L"");
    entries.setEnabled(0, !categories.empty());
}

} // namespace vandrel
