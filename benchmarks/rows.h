#pragma once

namespace vandrel::bench {

// Reading, saving, sorting, changing and selecting in a category of 100,000 sites.
void storeRows();
// The program as a process: start, idling, size.
void programRows();

} // namespace vandrel::bench
