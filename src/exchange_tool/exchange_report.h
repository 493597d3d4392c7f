#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vandrel {

// What an import has made.
struct ImportOutcome {
    struct NewCategory {
        std::wstring title;
        std::wstring wanted; // another title, when a category had it already
        std::size_t sites = 0;
    };

    std::vector<NewCategory> categories;
    std::size_t sites = 0;
    std::size_t sitesWithLostLetters = 0;
    std::vector<std::wstring> firstWithLostLetters; // the names of some, as they were
};

// What an export has written.
struct ExportOutcome {
    std::size_t categories = 0;
    std::size_t sites = 0;
    std::size_t sitesWithoutDate = 0; // whose date is none that can be read
    std::size_t sitesWithLostLetters = 0;
};

// What the user is told when the work is done.
struct ExchangeReport {
    std::wstring headline;
    std::vector<std::wstring> details; // a sentence or two each
    std::vector<std::wstring> list;    // one line each; may be long
    bool allKept = true;
};

ExchangeReport reportOf(const ImportOutcome& outcome);
ExchangeReport reportOf(const ExportOutcome& outcome, const std::wstring& file);

// The report in lines, with their ends.
std::wstring linesOf(const ExchangeReport& report);
// The first lines of the list, and how many more there are.
std::wstring firstOf(const std::vector<std::wstring>& list);

// "1 site", "2 sites".
std::wstring counted(std::size_t count, const std::wstring& one, const std::wstring& many);

} // namespace vandrel
