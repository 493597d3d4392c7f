#pragma once

namespace vandrel::bench {

// Reading, saving, sorting, changing and selecting in a category of 100,000 sites.
void storeRows();
// Importing the shortcuts of a folder.
void exchangeRows();
// Bringing in bookmarks and writing them; a million only when named.
void bookmarkRows();
void manyBookmarkRows();
// Writing all categories as a page, and backing them up.
void outputRows();
// Searching all categories of a million sites; beside grep when VANDREL_GREP_MS says how long that took.
void makeSearchFiles();
void searchRows();
// Checking sites against a server of this machine.
void scanRows();
// Ten and a hundred times as many sites: a cost that grows faster than the work has a ratio above 1.
void scaleRows();
// The program as a process: start, idling, size.
void programRows();

} // namespace vandrel::bench
