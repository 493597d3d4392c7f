#pragma once

#include <cstddef>
#include <string>

namespace vandrel {

struct Workspace;
class FileLayer;

// Where the category of that title is kept: in the data folder, or in another.
std::wstring categoryPath(const Workspace& workspace, const std::wstring& title);
std::wstring categoryPath(const std::wstring& folder, const std::wstring& title);

// Puts the title of every category file of the data folder into the category list, in the folder's order.
void listCategories(Workspace& workspace);

// Reads the clicked category into the site list, in the order of its file, and shows which one it is. A file that
// cannot be read leaves the list empty; nothing is raised.
void lstCategory_ItemClick(Workspace& workspace, std::size_t item);

// Selects the category and does what a click on it does.
void selectCategory(Workspace& workspace, std::size_t item);

// Shows the selected category as the open one: its folder picture and the window's caption.
void showSelectedCategory(Workspace& workspace);

// Name and address of a site in panels 2 and 3 of the status bar.
void showSiteInStatusBar(Workspace& workspace, std::size_t row);

// Writes the site list, in its present order, to the file of the selected category. Asks for a category when there
// is none yet. Throws RuntimeError when the file cannot be replaced (it is whole, then), when it could not be read
// when it was selected (70), and when categories are there but none is selected (91).
void SaveItems(Workspace& workspace);
void SaveItems(Workspace& workspace, FileLayer& files);

} // namespace vandrel
