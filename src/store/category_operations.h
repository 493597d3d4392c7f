#pragma once

#include "model/row_table.h"

#include <cstddef>
#include <string>

namespace vandrel {

struct Workspace;

// Asks for a title and makes an empty category of it; see makeCategory. Sites that no category could take
// so far are then offered to it. Throws RuntimeError when the file cannot be made.
void AddCategory(Workspace& workspace);

// Asks, then deletes the shown category and its file; none is shown afterwards. Throws RuntimeError when
// the file cannot be deleted.
void RemoveCategory(Workspace& workspace);

// Renames the file of a category after its label was edited.
class CategoryRename {
  public:
    explicit CategoryRename(Workspace& workspace) : workspace_(workspace) {}

    // Remembers the title of the category whose label is edited.
    void lstCategory_BeforeLabelEdit(std::size_t row);
    // Renames it and returns whether it did. Files are named relative to the current directory. Throws
    // RuntimeError when the file cannot be renamed.
    bool lstCategory_AfterLabelEdit(const std::wstring& newText);

  private:
    Workspace& workspace_;
    RowTable::Id category_ = 0;
    std::wstring oldTitle_;
};

} // namespace vandrel
