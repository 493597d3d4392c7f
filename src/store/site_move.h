#pragma once

#include <cstddef>

namespace vandrel {

struct Workspace;

// Moves the current site to the first category that has the title of "Move To" entry `index`, and shows
// that category; the site's date is not carried over. At every moment the site is in at least one of the
// two files. Throws RuntimeError when one of them cannot be read or saved; lists and files are then as
// before.
void mnuMove_Click(Workspace& workspace, std::size_t index);

} // namespace vandrel
