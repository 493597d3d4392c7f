#include "scan/link_scanner.h"

#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "platform/files/append_file.h"
#include "platform/system/internet_transfer.h"
#include "platform/windows/message_loop.h"
#include "scan/scan_report.h"
#include "scan/scanned_list.h"
#include "shared/workspace.h"
#include "store/category_list.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace vandrel {

LinkScanner::LinkScanner(Workspace& workspace) : workspace_(workspace)
{
    workspace_.inetScan.StateChanged = [this](short state) { inetScan_StateChanged(state); };
}

LinkScanner::~LinkScanner() { workspace_.inetScan.StateChanged = nullptr; }

// ---- one site

void LinkScanner::inetScan_StateChanged(short state)
{
    if (state == InternetTransfer::resolvingHost) ScanSuccess_ = false;
    // Contract: reachable once a connection is begun; status and page do not count.
    if (state == InternetTransfer::connecting) ScanSuccess_ = true;
}

bool LinkScanner::ScanURL(std::size_t number, const std::wstring& url)
{
    InternetTransfer& inetScan = workspace_.inetScan;
    try {
        inetScan.OpenExpected(number, url);
    } catch (const RuntimeError& error) {
        // Contract: any error but a time-out leaves ScanSuccess_ as it was.
        if (error.number() != error_number::requestTimedOut) return false;
    }
    return std::exchange(ScanSuccess_, false);
}

void LinkScanner::announceAfter(std::size_t number, ScannedList& scanned)
{
    while (!ahead_.empty() && ahead_.front() <= number) ahead_.pop_front();
    lookedAt_ = std::max(lookedAt_, number + 1);
    try {
        for (; lookedAt_ < scanned.size() && ahead_.size() < mostAhead; ++lookedAt_) {
            const auto url = scanned.addressToCome(lookedAt_);
            if (!url) continue;
            ahead_.push_back(lookedAt_);
            workspace_.inetScan.expect(lookedAt_, *url);
        }
    } catch (const std::bad_alloc&) {
        ++lookedAt_; // it is opened when its turn comes
    }
}

// ---- all sites

std::wstring LinkScanner::logPath() const { return workspace_.dataFolder + L"\\scanned.log"; }

void LinkScanner::mnuScanAllURLs_Click() { scanUnlessScanning(&LinkScanner::scanAll); }

void LinkScanner::mnuScanSelected_Click() { scanUnlessScanning(&LinkScanner::scanSelected); }

void LinkScanner::scanUnlessScanning(void (LinkScanner::*scan)())
{
    if (scanning_) return;
    // While the update check waits, every site would count as unreachable.
    if (workspace_.inetScan.StillExecuting()) throw RuntimeError(error_number::stillExecuting);
    scanning_ = true;
    lookedAt_ = 0;
    ahead_.clear();
    const ScopeExit done([this] { scanning_ = false; });
    (this->*scan)();
}

void LinkScanner::scanAll()
{
    StatusBar& status = workspace_.StatusBar1;
    ProgressBar& PB = workspace_.PB;
    InternetTransfer& inetScan = workspace_.inetScan;
    PB.setVisible(true);
    bool leaveBar = false;
    const ScopeExit hide([&] {
        if (!leaveBar && !inetScan.quitting()) PB.setVisible(false);
    });
    std::size_t count = 0;
    std::int32_t failures = 0;
    {
        AppendFile log(logPath());
        const ScopeExit drop([&] { inetScan.forgetExpected(); });
        ScannedList scanned(workspace_, ScannedList::Which::all);
        count = scanned.size();
        for (std::size_t i = 0; i < count; ++i) {
            announceAfter(i, scanned);
            const auto site = scanned.next(i);
            const auto& [name, url, description] = site->texts;
            scanned.setImage(*site, siteImage);
            status.setPanelTextSoon(2, name);
            status.setPanelTextSoon(3, url);
            PB.setMaximum(count);
            PB.setValue(i + 1);
            const bool success = ScanURL(i, url);
            if (inetScan.quitting()) return; // the check was cut short
            scanned.setImage(*site, success ? siteImage : deadSiteImage);
            if (!success) {
                if (failures == std::numeric_limits<std::int32_t>::max())
                    throw RuntimeError(error_number::overflow);
                ++failures;
            }
            log.writeLine(scanLogLine(name, url, success));
        }
    }
    if (const auto summary = scanSummary(failures, count)) {
        tell(workspace_.window, summary->text, summary->title, BoxIcon::information);
        // Contract: when every site failed, the bar stays and the status bar is left alone.
        leaveBar = summary->everySiteFailed;
        if (leaveBar) return;
    }
    PB.setVisible(false);
    status.setPanelText(1, L"Scan complete.");
    if (const auto current = workspace_.lstInfo.currentRow()) showSiteInStatusBar(workspace_, *current);
}

void LinkScanner::scanSelected()
{
    ProgressBar& PB = workspace_.PB;
    InternetTransfer& inetScan = workspace_.inetScan;
    PB.setVisible(true);
    const ScopeExit hide([&] {
        if (!inetScan.quitting()) PB.setVisible(false);
    });
    PB.setMaximum(workspace_.shown.sites.size());
    {
        AppendFile log(logPath());
        const ScopeExit drop([&] { inetScan.forgetExpected(); });
        ScannedList scanned(workspace_, ScannedList::Which::selected);
        for (std::size_t i = 0; i < scanned.size(); ++i) {
            PB.setValue(i + 1);
            announceAfter(i, scanned);
            const auto site = scanned.next(i);
            if (!site) continue;
            const bool success = ScanURL(i, site->texts.url);
            if (inetScan.quitting()) return;
            // Contract: only the current site shows a result, in the end that of the last selected row.
            scanned.setImageOfCurrent(*site, success ? siteImage : deadSiteImage);
            log.writeLine(scanLogLine(site->texts.name, site->texts.url, success));
        }
    }
    PB.setVisible(false);
    // Contract: no summary, and panels 2 and 3 stay.
    workspace_.StatusBar1.setPanelText(1, L"Scan complete.");
}

} // namespace vandrel
