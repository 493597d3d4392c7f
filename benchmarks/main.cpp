#include "benchmarks/measure.h"
#include "benchmarks/rows.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

struct Group {
    std::string_view name;
    void (*measure)();
    bool onlyWhenNamed = false;
};

constexpr Group groups[] = {
    {"program", vandrel::bench::programRows},
    {"store", vandrel::bench::storeRows},
    {"exchange", vandrel::bench::exchangeRows},
    {"output", vandrel::bench::outputRows},
    {"search", vandrel::bench::searchRows},
    {"scan", vandrel::bench::scanRows},
    {"bookmarks", vandrel::bench::bookmarkRows},
    {"scale", vandrel::bench::scaleRows},
    {"million-bookmarks", vandrel::bench::manyBookmarkRows, true},
};

} // namespace

// Prints ratios from one run: each figure beside the floor of the same work, measured in the same minute.
// Arguments name the groups to measure; without any, all are. With --make-search-files it only writes the
// files for the search, so that another program can search them as well.
int main(int argc, char** argv)
{
    const std::vector<std::string_view> wanted(argv + 1, argv + argc);
    if (std::ranges::count(wanted, "--make-search-files") > 0) {
        vandrel::bench::makeSearchFiles();
        return 0;
    }
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    vandrel::bench::printHeader();
    for (const Group& group : groups) {
        if ((wanted.empty() && !group.onlyWhenNamed) || std::ranges::count(wanted, group.name) > 0)
            group.measure();
    }
    return 0;
}
