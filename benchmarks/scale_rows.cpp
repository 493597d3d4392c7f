#include "benchmarks/category_click.h"
#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"
#include "mainwindow/frm_main.h"
#include "store/category_selection.h"
#include "store/save_items.h"
#include "tests/support/answers.h"

#include <functional>

namespace vandrel::bench {
namespace {

struct Times {
    double open;
    double save;
    double search;
    double sort;
};

Times timesOf(frmMain& window, const std::wstring& folder, std::size_t sites, int runs)
{
    Workspace& workspace = window.workspace();
    clickCategory(workspace, L"Empty");
    writeFile((folder + L"\\Large.udb").c_str(), generatedSites(sites));
    const auto leave = [&] { clickCategory(workspace, L"Empty"); };
    const auto open = [&] { clickCategory(workspace, L"Large"); };
    Times times{};
    times.open = timed(open, leave, runs);
    times.save = timed([&] { SaveItems(workspace); }, [] {}, runs);
    times.search = timed([&] { window.searchWindow()->DoSearch(L"quetzal"); }, [] {}, runs);
    const auto clickHeader = [&] {
        workspace.lstInfo.ColumnClick(0);
        UpdateWindow(workspace.lstInfo.handle());
    };
    times.sort = timed(
        clickHeader,
        [&] {
            leave();
            open();
        },
        runs);
    return times;
}

void printScale(const Times& ours, const Times& before, const std::string& sites, const std::string& tenth)
{
    const auto row = [&](const char* work, double Times::*time) {
        print({std::string(work) + sites + " sites", "ten times " + tenth, ours.*time, before.*time * 10,
               "ms", 1.2});
    };
    row("opening ", &Times::open);
    row("saving ", &Times::save);
    row("searching ", &Times::search);
    row("sorting by name ", &Times::sort);
}

} // namespace

void scaleRows()
{
    const std::wstring folder = currentFolder() + L"\\scale";
    CreateDirectoryW(folder.c_str(), nullptr);
    writeFile((folder + L"\\Empty.udb").c_str(), "");
    writeFile((folder + L"\\Large.udb").c_str(), "");
    frmMain window(
        {.dataFolder = folder, .commandLine = {}, .settings = SettingsStore(L"VandrelBench"), .today = [] {
             return std::wstring(L"11/16/2002");
         }});
    window.Form_Load();
    window.show(SW_SHOW);
    window.run(mnuFind);
    test::pump();
    const Times small = timesOf(window, folder, 10'000, repetitions);
    const Times middle = timesOf(window, folder, 100'000, repetitions);
    const Times large = timesOf(window, folder, 1'000'000, 3);
    printScale(middle, small, "100,000", "10,000");
    printScale(large, middle, "1,000,000", "100,000");
    clickCategory(window.workspace(), L"Empty");
}

} // namespace vandrel::bench
