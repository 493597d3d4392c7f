#include "platform/controls/simple_controls.h"
#include "platform/system/internet_transfer.h"
#include "scan/link_scanner.h"
#include "tests/support/all_images.h"
#include "tests/support/scan_test.h"
#include "tests/support/test_clock.h"

#include <algorithm>
#include <new>
#include <random>

namespace vandrel::test {
namespace {

// Sites of different hosts, whose addresses are opened before their turn.
class ScanAhead : public ScanTest {
  protected:
    using Rows = std::vector<std::pair<std::wstring, std::wstring>>;

    std::wstring on(unsigned host, const std::wstring& path) { return hosts.addressAt(host, path); }
    bool asked(const std::string& path) const
    {
        const auto all = hosts.requests();
        return std::ranges::find(all, path) != all.end();
    }
    // How many milliseconds a scan of all sites takes.
    ULONGLONG timeToScanAll()
    {
        const ULONGLONG start = GetTickCount64();
        scanAll();
        return GetTickCount64() - start;
    }
    std::string allReachable(const Rows& rows) const
    {
        std::string lines;
        for (const auto& [name, url] : rows) lines += success(name, url);
        return lines;
    }

    TestServer hosts{20};
};

TEST_F(ScanAhead, SlowHostsAreWaitedForTogether)
{
    Rows rows;
    for (unsigned host = 1; host <= 8; ++host)
        rows.emplace_back(L"Site " + std::to_wstring(host), on(host, L"/wait?500"));
    begin(rows);
    EXPECT_LT(timeToScanAll(), 2000U);
    EXPECT_EQ(hosts.mostAtOnce(), 8U);
    EXPECT_EQ(log(), allReachable(rows));
}

TEST_F(ScanAhead, NoMoreThanEightAreOpenedAtOnceAndNeverTwoOfOneHost)
{
    std::mt19937 random(20021116);
    Rows rows;
    for (unsigned row = 0; row < 120; ++row) {
        const unsigned host = 1 + static_cast<unsigned>(random() % 20);
        rows.emplace_back(L"Site " + std::to_wstring(row),
                          on(host, L"/wait?" + std::to_wstring(random() % 40)));
    }
    begin(rows);
    scanAll();
    EXPECT_EQ(hosts.mostAtOnce(), 8U);
    EXPECT_EQ(hosts.mostOfOneHost(), 1U);
    EXPECT_EQ(hosts.requests().size(), rows.size());
    EXPECT_EQ(log(), allReachable(rows));
}

TEST_F(ScanAhead, FewerAreIfSoWished)
{
    Rows rows;
    for (unsigned host = 1; host <= 12; ++host) rows.emplace_back(L"Site", on(host, L"/wait?30"));
    begin(rows);
    workspace().inetScan.setMostAtOnce(3);
    scanAll();
    EXPECT_EQ(hosts.mostAtOnce(), 3U);
    workspace().inetScan.setMostAtOnce(1);
    scanAll();
    EXPECT_EQ(log(), allReachable(rows) + allReachable(rows));
}

TEST_F(ScanAhead, NothingOfASiteIsSeenBeforeItsTurn)
{
    begin({{L"A", hosts.addressAt(1, L"/held")},
           {L"B", dead},
           {L"C", on(2, L"/ok?c")},
           {L"D", on(3, L"/ok?d")}});
    setAllImages(siteRows(), deadSiteImage);
    Meanwhile meanwhile([&] { return hosts.held() == 1 && asked("/ok?c") && asked("/ok?d"); },
                        [&] {
                            EXPECT_EQ(log(), "");
                            EXPECT_EQ(images(), (Images{1, 5, 5, 5}));
                            EXPECT_EQ(panel(2), L"A");
                            EXPECT_EQ(panel(3), on(1, L"/held"));
                            EXPECT_EQ(PB().value(), 1U);
                            hosts.letGo();
                        });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(images(), (Images{1, 5, 1, 1}));
    EXPECT_EQ(log(), success(L"A", on(1, L"/held")) + failed(L"B", dead) + success(L"C", on(2, L"/ok?c")) +
                         success(L"D", on(3, L"/ok?d")));
}

TEST_F(ScanAhead, StatesAreReportedInTheTurnOfTheirSite)
{
    begin({{L"A", on(1, L"/wait?300")},
           {L"B", on(2, L"/wait?100")},
           {L"C", hosts.refusedAddress()},
           {L"D", on(4, L"/ok")}});
    const auto told = workspace().inetScan.StateChanged;
    std::vector<std::wstring> states;
    workspace().inetScan.StateChanged = [&](short state) {
        states.push_back(panel(2) + L" " + std::to_wstring(state));
        told(state);
    };
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_EQ(states, (Lines{L"A 1", L"A 3", L"B 1", L"B 3", L"C 1", L"C 3", L"D 1", L"D 3"}));
}

TEST_F(ScanAhead, AConnectionThatEndedInAnErrorIsNotForgotten)
{
    begin({{L"A", on(1, L"/wait?200")},
           {L"B", hosts.refusedAddress()},
           {L"C", on(3, L"/ok")},
           {L"D", on(4, L"/ok")}});
    const auto told = workspace().inetScan.StateChanged;
    workspace().inetScan.StateChanged = [&](short state) {
        if (panel(2) == L"A" || panel(2) == L"B") told(state);
    };
    scanAllAndTold(L"Unavailable Sites", twoUnavailable);
    EXPECT_EQ(log(), success(L"A", on(1, L"/wait?200")) + failed(L"B", hosts.refusedAddress()) +
                         success(L"C", on(3, L"/ok")) + failed(L"D", on(4, L"/ok")));
}

TEST_F(ScanAhead, TheTimeOfACheckCountsFromWhenItBegan)
{
    const Rows rows{{L"A", on(1, L"/wait?700")}, {L"B", on(2, L"/silent")}, {L"C", on(3, L"/silent")}};
    begin(rows);
    workspace().inetScan.setRequestTimeout(1000);
    const ULONGLONG taken = timeToScanAll();
    EXPECT_GE(taken, 980U);
    EXPECT_LT(taken, 1600U);
    EXPECT_EQ(log(), allReachable(rows)) << "a time-out after the connection";
}

TEST_F(ScanAhead, TheTimeIsThatOfTheProgramsClock)
{
    const Rows rows{{L"A", on(1, L"/silent")}, {L"B", on(2, L"/silent")}};
    begin(rows);
    TestClock clock;
    workspace().inetScan.setRequestTimeout(600'000);
    Meanwhile meanwhile([&] { return hosts.requests().size() == 2; }, [&] { clock.pass(600'000); });
    EXPECT_LT(timeToScanAll(), 5000U);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(log(), allReachable(rows));
}

TEST_F(ScanAhead, ATimeOutLeavesNoLaneBehind)
{
    Rows rows;
    for (unsigned row = 0; row < 20; ++row)
        rows.emplace_back(L"Site", on(1 + row, row % 2 == 0 ? L"/silent" : L"/ok"));
    begin(rows);
    workspace().inetScan.setRequestTimeout(300);
    EXPECT_LT(timeToScanAll(), 2000U) << "ten waits one after the other would take three seconds";
    EXPECT_EQ(log(), allReachable(rows));
}

TEST_F(ScanAhead, ItLooksSoFarAheadAndNoFarther)
{
    Rows rows{{L"A", on(1, L"/held")}};
    for (std::size_t row = 1; row <= LinkScanner::mostAhead + 20; ++row)
        rows.emplace_back(L"Site", on(2, L"/ok?" + std::to_wstring(row)));
    begin(rows);
    workspace().inetScan.setRequestTimeout(30'000);
    int ticks = 0;
    std::size_t requests = 0;
    Meanwhile meanwhile(
        [&] { return hosts.requests().size() >= 1 + LinkScanner::mostAhead && ++ticks == 20; },
        [&] {
            requests = hosts.requests().size();
            hosts.letGo();
        });
    scanAll();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(requests, 1 + LinkScanner::mostAhead);
    EXPECT_EQ(log(), allReachable(rows));
}

// ---- the list changes

TEST_F(ScanAhead, TheAddressAtItsTurnDecides)
{
    begin({{L"A", on(1, L"/held")}, {L"B", on(2, L"/ok?old")}, {L"C", on(3, L"/ok?c")}});
    Meanwhile meanwhile([&] { return asked("/ok?old") && asked("/ok?c"); },
                        [&] {
                            siteRows().setText(1, 1, dead);
                            siteRows().remove(2);
                            siteRows().add({L"New", on(4, L"/ok?new"), L"", L""}, siteImage);
                            hosts.letGo();
                        });
    scanAllAndTold(L"Unavailable Site", oneUnavailable);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(log(), success(L"A", on(1, L"/held")) + failed(L"B", dead) + success(L"C", on(3, L"/ok?c")));
    EXPECT_EQ(images(), (Images{1, 5, 1}));
    EXPECT_FALSE(asked("/ok?new"));
}

TEST_F(ScanAhead, ANewAddressWaitsForItsHost)
{
    begin({{L"A", on(1, L"/held")}, {L"B", on(2, L"/ok")}, {L"C", on(3, L"/wait?400")}});
    Meanwhile meanwhile([&] { return asked("/ok") && asked("/wait?400"); },
                        [&] {
                            siteRows().setText(1, 1, on(3, L"/wait?10"));
                            hosts.letGo();
                        });
    scanAll();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(hosts.mostOfOneHost(), 1U);
    ASSERT_EQ(hosts.requests().size(), 4U);
    EXPECT_EQ(hosts.requests().back(), "/wait?10");
    EXPECT_EQ(log(), success(L"A", on(1, L"/held")) + success(L"B", on(3, L"/wait?10")) +
                         success(L"C", on(3, L"/wait?400")));
}

TEST_F(ScanAhead, AnotherNameLeavesTheCheckAlone)
{
    begin({{L"A", on(1, L"/held")}, {L"B", on(2, L"/ok?b")}});
    Meanwhile meanwhile([&] { return asked("/ok?b"); },
                        [&] {
                            siteRows().setText(1, 0, L"Other");
                            hosts.letGo();
                        });
    scanAll();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(hosts.requests().size(), 2U) << "it is not opened again";
    EXPECT_EQ(log(), success(L"A", on(1, L"/held")) + success(L"Other", on(2, L"/ok?b")));
}

// ---- selected sites

TEST_F(ScanAhead, OfSelectedSitesTheSelectedOnesAloneAreOpened)
{
    begin({{L"A", on(1, L"/wait?300")},
           {L"B", on(2, L"/ok?b")},
           {L"C", on(3, L"/wait?300")},
           {L"D", on(4, L"/wait?300")}});
    selectSites({0, 2, 3});
    const ULONGLONG start = GetTickCount64();
    scanSelected();
    EXPECT_LT(GetTickCount64() - start, 800U);
    EXPECT_FALSE(asked("/ok?b"));
    EXPECT_EQ(log(), success(L"A", on(1, L"/wait?300")) + success(L"C", on(3, L"/wait?300")) +
                         success(L"D", on(4, L"/wait?300")));
}

TEST_F(ScanAhead, TheSelectionAtItsTurnDecides)
{
    begin({{L"A", on(1, L"/held")}, {L"B", on(2, L"/ok?b")}, {L"C", on(3, L"/ok?c")}});
    selectSites({0, 1});
    Meanwhile meanwhile([&] { return asked("/ok?b"); },
                        [&] {
                            selectSites({2});
                            hosts.letGo();
                        });
    scanSelected();
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_EQ(log(), success(L"A", on(1, L"/held")) + success(L"C", on(3, L"/ok?c")));
}

// ---- the end

TEST_F(ScanAhead, ClosingTheWindowWaitsForNone)
{
    Rows rows;
    for (unsigned host = 1; host <= 12; ++host) rows.emplace_back(L"Site", on(host, L"/silent"));
    begin(rows);
    workspace().inetScan.setRequestTimeout(60'000);
    const HWND window = main->handle();
    Meanwhile meanwhile([&] { return hosts.requests().size() == 8; },
                        [&] { SendMessageW(window, WM_CLOSE, 0, 0); });
    const ULONGLONG start = GetTickCount64();
    main->run(mnuScanAllURLs);
    EXPECT_LT(GetTickCount64() - start, 3000U);
    EXPECT_TRUE(meanwhile.happened());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(log(), "");
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(ScanAhead, AnErrorDropsWhatHasBegun)
{
    begin({{L"A", on(1, L"/held")},
           {L"B", on(2, L"/silent")},
           {L"C", on(3, L"/wait?200")},
           {L"D", on(3, L"/ok?d")}});
    const auto told = workspace().inetScan.StateChanged;
    workspace().inetScan.StateChanged = [&](short) {
        if (pumpUntil([&] { return asked("/wait?200"); })) throw std::bad_alloc();
    };
    EXPECT_THROW(main->run(mnuScanAllURLs), std::bad_alloc);
    EXPECT_FALSE(workspace().inetScan.StillExecuting());
    workspace().inetScan.StateChanged = told;
    siteRows().setText(0, 1, on(4, L"/ok?a"));
    siteRows().setText(1, 1, on(4, L"/ok?b"));
    siteRows().setText(2, 1, on(4, L"/ok?c"));
    siteRows().setText(3, 1, on(4, L"/wait?300"));
    scanAll();
    EXPECT_EQ(log(), success(L"A", on(4, L"/ok?a")) + success(L"B", on(4, L"/ok?b")) +
                         success(L"C", on(4, L"/ok?c")) + success(L"D", on(4, L"/wait?300")));
    EXPECT_FALSE(asked("/ok?d")) << "half a second later";
}

} // namespace
} // namespace vandrel::test
