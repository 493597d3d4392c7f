#include "benchmarks/category_click.h"
#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "mainwindow/frm_main.h"
#include "platform/base/scope_exit.h"
#include "tests/support/answers.h"
#include "tests/support/test_server.h"

#include <windows.h>
#include <wininet.h>

#include <cstdio>

namespace vandrel::bench {
namespace {

constexpr std::size_t checksAtOnce = 500;
constexpr int runs = 3;
constexpr std::size_t checksForMemory = 5'000;
constexpr unsigned waitingMilliseconds = 3'000;
constexpr unsigned mixedSites = 200; // each of a host of its own
constexpr unsigned silentEvery = 10;

// The processor time of this process so far, in milliseconds.
double processorTime()
{
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto milliseconds = [](const FILETIME& time) {
        return static_cast<double>((static_cast<ULONGLONG>(time.dwHighDateTime) << 32U) +
                                   time.dwLowDateTime) /
               1e4;
    };
    return milliseconds(kernel) + milliseconds(user);
}

// Some systems leave the count at zero.
bool countsProcessorTime()
{
    const double before = processorTime();
    const double start = now();
    while (now() - start < 100) {}
    return processorTime() - before > 50;
}

// The least that any check does: the same call on the same thread, and nothing around it.
void checkPlainly(HINTERNET session, const std::wstring& url, std::size_t count)
{
    constexpr DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_COOKIES |
                            INTERNET_FLAG_NO_UI | INTERNET_FLAG_PRAGMA_NOCACHE;
    for (std::size_t i = 0; i < count; ++i)
        InternetCloseHandle(InternetOpenUrlW(session, url.c_str(), nullptr, 0, flags, 0));
}

std::string lineOf(std::size_t site, const std::wstring& url)
{
    return "Site " + std::to_string(site) + "|" + std::string(url.begin(), url.end()) + "||\r\n";
}

std::wstring scanFolder() { return currentFolder() + L"\\scan"; }

void makeCategory(const wchar_t* title, const std::string& lines)
{
    writeFile((scanFolder() + L"\\" + title + L".udb").c_str(), lines);
}

void makeCategory(const wchar_t* title, const std::wstring& url, std::size_t count)
{
    std::string lines;
    for (std::size_t i = 0; i < count; ++i) lines += lineOf(i, url);
    makeCategory(title, lines);
}

void makeMixedCategory(const test::TestServer& server)
{
    std::string lines;
    for (unsigned i = 0; i < mixedSites; ++i)
        lines += lineOf(i, server.addressAt(i + 1, i % silentEvery == silentEvery / 2 ? L"/silent" : L"/ok"));
    makeCategory(L"Mixed", lines);
}

void waitingRow(frmMain& window)
{
    if (!countsProcessorTime()) {
        std::printf("| processor time while a check waits | | not counted by this system | | | |\n");
        return;
    }
    window.workspace().inetScan.setRequestTimeout(waitingMilliseconds);
    clickCategory(window.workspace(), L"Silent");
    const double before = processorTime();
    window.run(mnuScanAllURLs);
    const double waiting = processorTime() - before;
    window.workspace().inetScan.setRequestTimeout(InternetTransfer::usualSeconds * 1000);
    // The main window's timer runs in both. The count may move in steps of some milliseconds.
    const double start = now();
    const double beforeIdling = processorTime();
    while (now() - start < waitingMilliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        test::pump();
    }
    const double idling = processorTime() - beforeIdling;
    print({"processor time of a check that waits 3 s", "", waiting, 1, "ms", 100});
    print({"processor time of 3 idle seconds", "", idling, 1, "ms", 100});
}

void rateRow(frmMain& window, const std::wstring& url)
{
    const HINTERNET session = InternetOpenW(L"Plain", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    const ScopeExit close([&] { InternetCloseHandle(session); });
    checkPlainly(session, url, 10);
    const auto plain = timing([&] { checkPlainly(session, url, checksAtOnce); });
    InternetTransfer& transfer = window.workspace().inetScan;
    const auto openAll = [&] {
        for (std::size_t i = 0; i < checksAtOnce; ++i) transfer.OpenURL(url, InternetTransfer::Body::none);
    };
    const auto opened = timedInTurn({timing(openAll), plain}, runs);
    print({"opening 500 addresses that answer at once, on the second thread", "500 bare InternetOpenUrl",
           opened[0], opened[1], "ms", 1.5});
    clickCategory(window.workspace(), L"Quick");
    const auto scanned = timedInTurn({timing([&] { window.run(mnuScanAllURLs); }), plain}, runs);
    print({"scanning 500 sites that answer at once", "500 bare InternetOpenUrl", scanned[0], scanned[1], "ms",
           1.2});
}

void memoryRow(frmMain& window)
{
    const double before = memoryInUse();
    for (std::size_t done = 0; done < checksForMemory; done += checksAtOnce) window.run(mnuScanAllURLs);
    print({"memory after 5,000 more checks", "before them", memoryInUse() / 1e6, before / 1e6, "MB", 1.2});
}

// Eight sites may be waited for at a time.
void silentRow(frmMain& window)
{
    window.workspace().inetScan.setRequestTimeout(waitingMilliseconds);
    const test::TestServer hosts(mixedSites); // only now: its threads take memory
    makeMixedCategory(hosts);
    const auto scan = [&] { window.run(mnuScanAllURLs); };
    clickCategory(window.workspace(), L"Silent");
    const double one = timed(
        scan, [] {}, runs);
    clickCategory(window.workspace(), L"Mixed");
    const double ours = timed(
        scan, [] {}, runs);
    window.workspace().inetScan.setRequestTimeout(InternetTransfer::usualSeconds * 1000);
    constexpr unsigned silent = mixedSites / silentEvery;
    print({"scanning 200 sites of which 20 do not answer for 3 s", "one that does not answer, times 20 / 8",
           ours, one * silent / 8, "ms", 1.2});
}

} // namespace

void scanRows()
{
    const test::TestServer server;
    CreateDirectoryW(scanFolder().c_str(), nullptr);
    makeCategory(L"Quick", server.address(L"/ok"), checksAtOnce);
    makeCategory(L"Silent", server.address(L"/silent"), 1);
    makeCategory(L"Mixed", "");
    frmMain window({.dataFolder = scanFolder(),
                    .commandLine = {},
                    .settings = SettingsStore(L"VandrelBench"),
                    .today = [] { return std::wstring(L"11/16/2002"); }});
    window.Form_Load();
    window.show(SW_SHOW);
    test::pump();
    waitingRow(window);
    rateRow(window, server.address(L"/ok"));
    memoryRow(window);
    silentRow(window);
}

} // namespace vandrel::bench
