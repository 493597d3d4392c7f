#pragma once

#include "model/row_table.h"

namespace vandrel {

struct Workspace;

struct NewCategory {
    enum class Answer { made, refused, cancelled };
    Answer answer;
    RowTable::Id row = 0; // of the category list
};

// Lists the categories when that failed at the start: without its list the program would make a new category
// over one that is there.
void requireCategoryList(Workspace& workspace);

// Asks for a title, makes an empty category of it and puts it into the category list, not selected. A
// category of the same title is emptied, by design. A title with a character that none may have is refused
// with a message. Throws RuntimeError when the file cannot be made; the list is then as before.
NewCategory makeCategory(Workspace& workspace);

// Tells that there is none and asks for a title, again and again until a category is made and shown or the
// question is cancelled.
void makeFirstCategory(Workspace& workspace);

// Rebuilds the "Move To" entries from the category list.
void DoMoveMenus(Workspace& workspace);

} // namespace vandrel
