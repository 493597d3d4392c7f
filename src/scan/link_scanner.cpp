#include "scan/link_scanner.h"

#include "platform/append_file.h"
#include "platform/internet_transfer.h"
#include "platform/list_view.h"
#include "platform/message_box.h"
#include "platform/message_loop.h"
#include "platform/runtime_error.h"
#include "platform/scope_exit.h"
#include "platform/simple_controls.h"
#include "platform/status_bar.h"
#include "scan/scan_report.h"
#include "shared/site_columns.h"
#include "shared/workspace.h"
#include "store/category_list.h"

#include <limits>
#include <unordered_map>
#include <vector>

namespace vandrel {
namespace {

// Where the rows stand that the list had at the beginning, whatever has become of the list.
class RowsById {
  public:
    explicit RowsById(const ListView& list) : list_(list)
    {
        for (const ListRows::Row& row : list_.rows().all()) ids_.push_back(row.id);
        index();
    }

    const std::vector<ListRows::Id>& ids() const { return ids_; }
    std::optional<std::size_t> rowOf(ListRows::Id id)
    {
        if (list_.changes() != changes_) index();
        const auto found = rows_.find(id);
        return found == rows_.end() ? std::nullopt : std::optional(found->second);
    }

  private:
    void index()
    {
        changes_ = list_.changes();
        rows_.clear();
        std::size_t row = 0;
        for (const ListRows::Row& entry : list_.rows().all()) rows_[entry.id] = row++;
    }

    const ListView& list_;
    std::vector<ListRows::Id> ids_;
    std::unordered_map<ListRows::Id, std::size_t> rows_;
    unsigned changes_ = 0;
};

} // namespace

LinkScanner::LinkScanner(Workspace& workspace) : workspace_(workspace)
{
    workspace_.inetScan.StateChanged = [this](short state) { inetScan_StateChanged(state); };
}

LinkScanner::~LinkScanner() { workspace_.inetScan.StateChanged = nullptr; }

// ---- one site

void LinkScanner::inetScan_StateChanged(short state)
{
    if (state == InternetTransfer::resolvingHost) ScanSuccess_ = false;
    if (state == InternetTransfer::connecting) ScanSuccess_ = true;
}

bool LinkScanner::ScanURL(const std::wstring& url)
{
    InternetTransfer& inetScan = workspace_.inetScan;
    try {
        inetScan.OpenURL(url, InternetTransfer::Body::none);
    } catch (const RuntimeError& error) {
        // Any failure but the end of patience leaves ScanSuccess_ as it was.
        if (error.number() != error_number::requestTimedOut) return false;
    }
    return std::exchange(ScanSuccess_, false);
}

// ---- all sites

std::wstring LinkScanner::logPath() const { return workspace_.dataFolder + L"\\scanned.log"; }

void LinkScanner::mnuScanAllURLs_Click() { scanUnlessScanning(&LinkScanner::scanAll); }

void LinkScanner::mnuScanSelected_Click() { scanUnlessScanning(&LinkScanner::scanSelected); }

void LinkScanner::scanUnlessScanning(void (LinkScanner::*scan)())
{
    if (scanning_) return;
    // While the update check waits, every site would count as one that cannot be reached.
    if (workspace_.inetScan.StillExecuting()) throw RuntimeError(error_number::stillExecuting);
    scanning_ = true;
    const ScopeExit done([this] { scanning_ = false; });
    (this->*scan)();
}

void LinkScanner::scanAll()
{
    ListView& sites = workspace_.lstInfo;
    StatusBar& status = workspace_.StatusBar1;
    ProgressBar& PB = workspace_.PB;
    InternetTransfer& inetScan = workspace_.inetScan;
    PB.setVisible(true);
    bool leaveBar = false;
    const ScopeExit hide([&] {
        if (!leaveBar && !inetScan.quitting()) PB.setVisible(false);
    });
    const std::size_t count = sites.count();
    std::int32_t failures = 0;
    {
        AppendFile log(logPath());
        RowsById rows(sites);
        for (std::size_t i = 0; i < count && !inetScan.quitting(); ++i) {
            const auto row = rows.rowOf(rows.ids()[i]);
            if (!row) continue;
            const std::wstring name = sites.text(*row, nameColumn);
            const std::wstring url = sites.text(*row, urlColumn);
            sites.setImage(*row, siteImage);
            status.setPanelText(2, name);
            status.setPanelText(3, url);
            PB.setMaximum(count);
            PB.setValue(i + 1);
            const bool success = ScanURL(url);
            if (inetScan.quitting()) return; // the check was not made to its end
            if (const auto now = rows.rowOf(rows.ids()[i]))
                sites.setImage(*now, success ? siteImage : deadSiteImage);
            if (!success) {
                if (failures == std::numeric_limits<std::int32_t>::max())
                    throw RuntimeError(error_number::overflow);
                ++failures;
            }
            log.writeLine(scanLogLine(name, url, success));
        }
    }
    if (inetScan.quitting()) return;
    if (const auto summary = scanSummary(failures, count)) {
        tell(workspace_.window, summary->text, summary->title, BoxIcon::information);
        leaveBar = summary->everySiteFailed;
        if (leaveBar) return;
    }
    PB.setVisible(false);
    status.setPanelText(1, L"Scan complete.");
    if (const auto current = sites.currentRow()) showSiteInStatusBar(workspace_, *current);
}

// The current site alone shows a result, that of the last selected one.
void LinkScanner::scanSelected()
{
    ListView& sites = workspace_.lstInfo;
    ProgressBar& PB = workspace_.PB;
    InternetTransfer& inetScan = workspace_.inetScan;
    PB.setVisible(true);
    const ScopeExit hide([&] {
        if (!inetScan.quitting()) PB.setVisible(false);
    });
    PB.setMaximum(sites.count());
    {
        AppendFile log(logPath());
        RowsById rows(sites);
        for (std::size_t i = 0; i < rows.ids().size(); ++i) {
            PB.setValue(i + 1);
            const auto row = rows.rowOf(rows.ids()[i]);
            if (!row || !sites.isSelected(*row)) continue;
            const std::wstring name = sites.text(*row, nameColumn);
            const std::wstring url = sites.text(*row, urlColumn);
            const bool success = ScanURL(url);
            if (inetScan.quitting()) return;
            // Not in a list that has taken the place of the one that is scanned.
            const auto current = sites.currentRow();
            if (current && rows.rowOf(rows.ids()[i]))
                sites.setImage(*current, success ? siteImage : deadSiteImage);
            log.writeLine(scanLogLine(name, url, success));
        }
    }
    if (inetScan.quitting()) return;
    PB.setVisible(false);
    workspace_.StatusBar1.setPanelText(1, L"Scan complete.");
}

} // namespace vandrel
