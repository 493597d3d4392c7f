#pragma once

#include "model/category.h"

namespace vandrel {

// The category shown in the site list, and how its sites relate to its file.
struct ShownCategory {
    RowTable sites; // in the order in which they are shown, and saved
    // The id of its row in the category list; 0 while none is shown, because there is none or it was
    // removed.
    RowTable::Id row = 0;
    Reading reading = Reading::missing;
    // There are sites or changes that no file holds: a save has failed, or found no category to save to.
    bool unsaved = false;
    RowTable::Id named = 0; // the site that the status bar names; 0 for none
    bool marked = false;    // panel 1 of the status bar says so

    bool unreadable() const { return reading == Reading::unreadable; }
};

} // namespace vandrel
