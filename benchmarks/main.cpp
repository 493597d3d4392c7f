#include "benchmarks/measure.h"
#include "benchmarks/rows.h"

#include <windows.h>
#include <commctrl.h>

// Ratios in one run: each figure stands beside the floor of the same work, measured in the same minute.
int main()
{
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    vandrel::bench::printHeader();
    vandrel::bench::programRows();
    vandrel::bench::storeRows();
    return 0;
}
