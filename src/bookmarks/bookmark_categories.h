#pragma once

#include "bookmarks/bookmark_reader.h"
#include "bookmarks/category_titles.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// What depends on the system and on the user.
struct ImportRules {
    std::function<std::wstring(AddDate)> shortDate; // the day in the user's short form
    // Whether the code page of category files has the letter, which is beyond ASCII: a unit or a pair.
    std::function<bool(std::wstring_view)> inCodePage;
    CaseFold foldCase;
    // Called after each site with their number so far; what it throws ends the work.
    std::function<void(std::size_t)> siteTaken = [](std::size_t) {};
};

struct ImportedCategory {
    std::wstring title;
    std::wstring wanted; // the title of its folders: another one, when a category had it already
    std::wstring text;   // of its file: the lines of its sites, with their ends
    std::size_t sites = 0;
};

struct ImportedBookmarks {
    std::vector<ImportedCategory> categories;
    std::size_t sites = 0; // in all of them
    // Sites that have letters which the code page lacks: "?" stands for each of them.
    std::size_t sitesWithLostLetters = 0;
    std::vector<std::wstring> firstWithLostLetters; // the names of some, as they were
};

// What becomes of a page of bookmarks. Each folder that has bookmarks of its own is a category, in the order
// in which the folders begin; folders of the same path are one. Bookmarks outside any folder are in
// "Bookmarks". A folder without a name is a part of the one around it. A folder without bookmarks of its own
// makes no category, since most of those only hold other folders, whose titles name them. `existing` are the
// titles of the categories that are there.
ImportedBookmarks importedBookmarks(std::string_view page, std::span<const std::wstring> existing,
                                    const ImportRules& rules);

} // namespace vandrel
