#pragma once

#include "model/row_table.h"

namespace vandrel {

struct Workspace;

struct NewCategory {
    enum class Answer { made, refused, cancelled };
    Answer answer = Answer::cancelled;
    RowTable::Id row = 0; // of the category list
};

// Lists the categories if that failed at start-up: without the list, a new category could overwrite an
// existing one.
void requireCategoryList(Workspace& workspace);

// Asks for a title and adds an empty category of that title to the category list, not selected. An existing
// category of the same title is emptied, on purpose. A title with a refused character gets a message.
// Throws RuntimeError when the file cannot be made; the list is then as before.
NewCategory makeCategory(Workspace& workspace);

// Says that there is no category and asks for a title until one is made and shown or the user cancels.
void makeFirstCategory(Workspace& workspace);

// Rebuilds the "Move To" entries from the category list.
void DoMoveMenus(Workspace& workspace);

} // namespace vandrel
