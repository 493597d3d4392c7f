#include "benchmarks/bare_list.h"
#include "benchmarks/category_click.h"
#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"
#include "mainwindow/frm_main.h"
#include "store/category_selection.h"
#include "store/save_items.h"
#include "tests/support/answers.h"

#include <algorithm>
#include <numeric>

namespace vandrel::bench {
namespace {

using test::Answers;
using test::press;

constexpr std::size_t siteCount = 100'000;

// The program's main window on two categories: a large one and an empty one.
class Bench {
  public:
    Bench()
        : window_({.dataFolder = currentFolder(),
                   .commandLine = {},
                   .settings = SettingsStore(L"VandrelBench"),
                   .today = [] { return std::wstring(L"11/16/2002"); }})
    {
        window_.Form_Load();
        window_.show(SW_SHOW);
        SetWindowPos(window_.handle(), nullptr, 0, 0, 1100, 800, SWP_NOZORDER);
        test::pump();
    }
    ListView& sites() { return window_.workspace().lstInfo; }
    Workspace& workspace() { return window_.workspace(); }
    frmMain& window() { return window_; }

    void clickLarge() { clickCategory(workspace(), L"Large"); }
    void clickEmpty() { clickCategory(workspace(), L"Empty"); }

  private:
    frmMain window_;
};

void openRow(Bench& bench)
{
    const auto click = [&] {
        bench.clickEmpty();
        return timeOf([&] { bench.clickLarge(); });
    };
    const auto read = timing([] { decodePlainly(readWhole(L"Large.udb")); });
    const auto times = timedInTurn({click, read});
    print({"click on a category of 100,000 sites until painted", "reading and decoding the file", times[0],
           times[1], "ms", 1.4});
    const auto bareTimes = timedInTurn({click, read, [] { return BareList(siteCount).timeOfShowing(); }});
    print({"the same", "that, and a bare list view of as many rows", bareTimes[0],
           bareTimes[1] + bareTimes[2], "ms", 1.3});

    bench.clickEmpty();
    const double before = memoryInUse();
    bench.clickLarge();
    const double added = (memoryInUse() - before) / 1e6;
    const double fileSize = static_cast<double>(readWhole(L"Large.udb").size()) / 1e6;
    print({"memory added by this", "the file's bytes", added, fileSize, "MB", 2});
}

void saveRow(Bench& bench)
{
    const std::wstring text = decodePlainly(readWhole(L"Large.udb"));
    const auto times = timedInTurn(
        {timing([&] { SaveItems(bench.workspace()); }), timing([&] { writePlainly(L"plain.txt", text); })});
    print({"SaveItems of it", "encoding, plain overwriting, flushing", times[0], times[1], "ms", 1.3});
}

// Returns the time of the bare sort.
double sortRow(Bench& bench, std::size_t column, const char* work)
{
    ListView& sites = bench.sites();
    std::vector<std::wstring> texts;
    const auto takeTexts = [&] {
        bench.clickEmpty();
        bench.clickLarge();
        texts.clear();
        for (std::size_t row = 0; row < sites.count(); ++row) texts.push_back(sites.text(row, column));
    };
    const double floor = timed(
        [&] {
            std::vector<std::uint32_t> index(texts.size());
            std::iota(index.begin(), index.end(), 0U);
            std::ranges::stable_sort(index, [&](auto a, auto b) { return texts[a] < texts[b]; });
        },
        takeTexts);
    const double ours = timed(
        [&] {
            sites.ColumnClick(column);
            UpdateWindow(sites.handle());
        },
        [&] {
            bench.clickEmpty();
            bench.clickLarge();
        });
    print({work, "a bare stable sort of an index", ours, floor, "ms", 1.5});
    return floor;
}

// The time from pressing a button in a dialog to the end of the command, in milliseconds.
double fromAnswer(Bench& bench, MenuEntry entry, const wchar_t* caption, int button)
{
    double pressed = 0;
    Answers answers;
    answers.expect(caption, [&](HWND dialog) {
        pressed = now();
        press(dialog, button);
    });
    bench.window().run(entry);
    return now() - pressed;
}

// The category as it is made, in no order.
void openGenerated(Bench& bench)
{
    bench.clickEmpty();
    writeFile(L"Large.udb", generatedSites(siteCount));
    bench.clickLarge();
}

// Of a command that saves, and of SaveItems just before it, in milliseconds.
struct BesideSave {
    double work;
    double save;
};

// `open` gives the bench its category, which is not timed.
BesideSave timedBesideSave(Bench& bench, int runs, const std::function<void()>& open,
                           const std::function<double()>& work)
{
    std::vector<double> works;
    std::vector<double> saves;
    for (int run = 0; run < runs; ++run) {
        open();
        saves.push_back(timeOf([&] { SaveItems(bench.workspace()); }));
        works.push_back(work());
    }
    return {median(works), median(saves)};
}

void addRows(Bench& bench, double bareSort)
{
    const auto add = [&] { return fromAnswer(bench, mnuAddWebsite, L"Add Site...", IDOK); };
    const BesideSave unsorted = timedBesideSave(
        bench, repetitions, [&] { openGenerated(bench); }, add);
    const BesideSave sorted = timedBesideSave(
        bench, repetitions,
        [&] {
            bench.clickEmpty();
            bench.clickLarge(); // as the run before has saved it
        },
        add);
    print(
        {"adding a site, OK to saved (file in URL order)", "SaveItems", sorted.work, sorted.save, "ms", 1.3});
    print({"the same", "SaveItems, and a bare list view of as many rows", sorted.work,
           sorted.save + BareList(siteCount).timeOfShowing(), "ms", 1.2});
    print({"adding a site (file in no order)", "SaveItems", unsorted.work, unsorted.save, "ms", 1.6});
    print({"the same", "SaveItems, and a bare stable sort by the address", unsorted.work,
           unsorted.save + bareSort, "ms", 1.0});
}

// Sends the list a key with that state of Ctrl and Shift.
void sendKey(HWND list, WPARAM code, bool control, bool shift)
{
    BYTE keys[256]{};
    keys[VK_CONTROL] = control ? 0x80 : 0;
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
    SendMessageW(list, WM_KEYDOWN, code, 0);
    keys[VK_CONTROL] = keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    UpdateWindow(list);
}

RowNumbers everyOtherRow()
{
    RowNumbers rows;
    for (std::size_t row = 0; row < siteCount; row += 2) rows.push_back(row);
    return rows;
}

BesideSave timeOfRemoving(Bench& bench, int runs, const std::function<void(ListView&)>& select)
{
    return timedBesideSave(
        bench, runs, [&] { openGenerated(bench); },
        [&] {
            select(bench.sites());
            const double time = fromAnswer(bench, mnuRemoveWebsite, L"Remove site(s)", IDYES);
            if (bench.sites().count() != siteCount / 2) std::printf("remove: wrong count\n");
            return time;
        });
}

void removeRows(Bench& bench)
{
    const BesideSave block = timeOfRemoving(bench, repetitions, [](ListView& sites) {
        sites.select(siteCount / 2);
        sendKey(sites.handle(), VK_END, false, true);
    });
    print({"removing 50,000 of 100,000 sites, one block", "SaveItems", block.work, block.save, "ms", 1.5});
    const RowNumbers rows = everyOtherRow();
    const BesideSave scattered = timeOfRemoving(bench, slowRepetitions,
                                                [&](ListView& sites) { selectRows(sites.handle(), rows); });
    print({"the same, every other row", "SaveItems", scattered.work, scattered.save, "ms", 3});
    print({"the same", "SaveItems, and asking a bare list view for its selection", scattered.work,
           scattered.save + BareList(siteCount).timeOfAsking(rows), "ms", 1.5});
}

void scatteredRows(Bench& bench)
{
    openGenerated(bench);
    ListView& sites = bench.sites();
    const RowNumbers rows = everyOtherRow();
    print({"selecting every other of 100,000 rows", "a bare list view",
           timed([&] { selectRows(sites.handle(), rows); }, [&] { sites.clearSelection(); }, slowRepetitions),
           BareList(siteCount).timeOfSelecting(rows), "ms", 1.2});
    std::size_t column = 0;
    const auto click = [&] {
        column = 1 - column;
        sites.ColumnClick(column);
        UpdateWindow(sites.handle());
    };
    const double scattered = timed(
        click, [] {}, slowRepetitions);
    const RowNumbers sorted = selectedRows(sites.handle());
    sites.select(0);
    const double one = timed(click);
    print({"a click on a header with these selected", "with one row selected", scattered, one, "ms", 2});
    print({"the same", "that, and selecting the same rows of a bare list view", scattered,
           one + BareList(siteCount).timeOfSelecting(sorted), "ms", 1.2});
}

void selectRow(Bench& bench)
{
    openGenerated(bench);
    const HWND list = bench.sites().handle();
    SetFocus(list);
    const auto selectAll = [&] { sendKey(list, 'A', true, false); };
    const auto goHome = [&] { sendKey(list, VK_HOME, false, false); };
    const double all = timed(selectAll, goHome);
    if (bench.sites().selectedCount() != siteCount) std::printf("select: wrong count\n");
    const double none = timed(goHome, selectAll);
    print({"Ctrl+A on 100,000 sites", "", all, 1, "ms", 1000});
    print({"clearing that selection with Home", "", none, 1, "ms", 1000});
}

} // namespace

void storeRows()
{
    writeFile(L"Large.udb", generatedSites(siteCount));
    writeFile(L"Empty.udb", "");
    Bench bench;
    bench.clickLarge();
    openRow(bench);
    saveRow(bench);
    sortRow(bench, 0, "a click on the header \"Site Name\"");
    const double bareSort = sortRow(bench, 1, "a click on the header \"URL\"");
    addRows(bench, bareSort);
    removeRows(bench);
    selectRow(bench);
    scatteredRows(bench);
}

} // namespace vandrel::bench
