#include "benchmarks/measure.h"
#include "benchmarks/rows.h"

#include <windows.h>
#include <commctrl.h>

#include <string_view>

// Ratios in one run: each figure stands beside the floor of the same work, measured in the same minute.
// With --make-search-files it only writes the files that the search is measured on, so that another program can search
// them as well.
int main(int argc, char** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "--make-search-files") {
        vandrel::bench::makeSearchFiles();
        return 0;
    }
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    vandrel::bench::printHeader();
    vandrel::bench::programRows();
    vandrel::bench::storeRows();
    vandrel::bench::exchangeRows();
    vandrel::bench::outputRows();
    vandrel::bench::searchRows();
    vandrel::bench::scanRows();
    return 0;
}
