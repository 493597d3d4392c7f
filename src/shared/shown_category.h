#pragma once

#include "platform/controls/list_rows.h"

namespace vandrel {

// Which category the site list shows, and what stands between the list and the category's file.
struct ShownCategory {
    // The category's row in the category list, by its id; 0 while none is shown: there is none, or it was
    // removed.
    ListRows::Id row = 0;
    // The file is there but could not be read. The list has none of its sites, and saving it over the file
    // would throw away what nobody has seen.
    bool unreadable = false;
    // The list has what no file holds: a save has failed, or found no category to save to.
    bool unsaved = false;
    bool marked = false; // panel 1 of the status bar says so
};

} // namespace vandrel
