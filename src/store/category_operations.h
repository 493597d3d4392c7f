#pragma once

#include <cstddef>
#include <string>

namespace vandrel {

struct Workspace;

// Asks for a title and makes an empty category of it. A category of the same title is emptied, by design. Throws
// RuntimeError when the file cannot be made; the list is then as before.
void AddCategory(Workspace& workspace);

// Asks, then deletes the selected category with its file. Throws RuntimeError when the file cannot be deleted.
void RemoveCategory(Workspace& workspace);

// Rebuilds the "Move To" entries from the category list.
void DoMoveMenus(Workspace& workspace);

// Renames the file of a category after its label was edited.
class CategoryRename {
  public:
    explicit CategoryRename(Workspace& workspace) : workspace_(workspace) {}

    // Remembers the title of the selected category.
    void lstCategory_BeforeLabelEdit();
    // Whether the label may take the new text. The file is named relative to the current directory. Throws
    // RuntimeError when it cannot be renamed.
    bool lstCategory_AfterLabelEdit(const std::wstring& newText);

  private:
    Workspace& workspace_;
    std::wstring oldTitle_;
};

} // namespace vandrel
