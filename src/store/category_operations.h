#pragma once

#include "model/row_table.h"

#include <cstddef>
#include <string>

namespace vandrel {

struct Workspace;

// Asks for a title and makes an empty category of it; see makeCategory. Sites that no category could take
// until now are offered to it. Throws RuntimeError when the file cannot be made.
void AddCategory(Workspace& workspace);

// Asks, then deletes the shown category with its file; none is shown then. Throws RuntimeError when the file
// cannot be deleted.
void RemoveCategory(Workspace& workspace);

// Renames the file of a category after its label was edited.
class CategoryRename {
  public:
    explicit CategoryRename(Workspace& workspace) : workspace_(workspace) {}

    // Remembers the title of the category whose label is edited.
    void lstCategory_BeforeLabelEdit(std::size_t row);
    // Renames it, and says whether it did. The file is named relative to the current directory. Throws
    // RuntimeError when it cannot be renamed.
    bool lstCategory_AfterLabelEdit(const std::wstring& newText);

  private:
    Workspace& workspace_;
    RowTable::Id category_ = 0;
    std::wstring oldTitle_;
};

} // namespace vandrel
