#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace vandrel {

class ScannedList;
struct Workspace;

// Finds out which sites of the current category can still be reached, marks the others, and writes a log. A
// site is reachable when a connection to its host was begun; what the host answers does not matter.
//
// Messages are dispatched while it waits for an answer. Whatever the user does meanwhile, every site that
// was in the list at the beginning is checked and logged, and none gets another's mark.
//
// Sites are marked, counted and logged in the list's order, one after the other. The addresses of some that
// follow are opened meanwhile (InternetTransfer::expect), so that slow hosts are waited for together.
class LinkScanner {
  public:
    explicit LinkScanner(Workspace& workspace);
    LinkScanner(const LinkScanner&) = delete;
    LinkScanner& operator=(const LinkScanner&) = delete;
    ~LinkScanner();

    // How many of the sites that follow may be opened before their turn: so many that eight slow hosts are
    // found even if only one in thirty is slow, and no more, because the user may end the scan.
    static constexpr std::size_t mostAhead = 256;

    // Each ends with a RuntimeError when the log cannot be written, and with 35764 while the update check
    // waits. While one of them runs, neither does anything.
    void mnuScanAllURLs_Click();
    void mnuScanSelected_Click();

  private:
    bool ScanURL(std::size_t number, const std::wstring& url);
    void announceAfter(std::size_t number, ScannedList& scanned);
    void inetScan_StateChanged(short state);

    void scanUnlessScanning(void (LinkScanner::*scan)());
    void scanAll();
    void scanSelected();
    std::wstring logPath() const;

    Workspace& workspace_;
    bool ScanSuccess_ = false;
    bool scanning_ = false;
    std::size_t lookedAt_ = 0;      // sites of this scan, to announce those that are wanted
    std::deque<std::size_t> ahead_; // the numbers of those whose turn has not come
};

} // namespace vandrel
