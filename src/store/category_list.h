#pragma once

#include "model/row_table.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace vandrel {

struct Workspace;

// Puts the title of every category file of the data folder into the category list, in the folder's order.
void listCategories(Workspace& workspace);

std::wstring titleOf(const Workspace& workspace, std::size_t item);

// The row of the shown category in the category list, whatever the control has selected; none while none is
// shown.
std::optional<std::size_t> shownRow(const Workspace& workspace);

// Selects the category, reads it into the site list and shows that it is the open one. The rows of
// `behind`, which may be those of the site list itself, are added after its own. A category that cannot be
// read raises no error and is not saved over; the list is then empty or, if `behind` has rows, as it was.
void showCategory(Workspace& workspace, std::size_t item, std::span<const RowTable::Row> behind = {});

// Shows the category as the open one, with the sites already in the list, and reads nothing: for a category
// just made.
void showAsEmptyCategory(Workspace& workspace, std::size_t item);

// Empties the site list and shows no category; the caption stays.
void showNoCategory(Workspace& workspace);

// Records whether the list has what no file holds, and says so in panel 1 of the status bar.
enum class Sites { saved, unsaved };
void markSites(Workspace& workspace, Sites sites);

// Name and address of a site in panels 2 and 3 of the status bar.
void showSiteInStatusBar(Workspace& workspace, std::size_t row);

} // namespace vandrel
