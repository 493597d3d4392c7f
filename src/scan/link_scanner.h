#pragma once

#include <string>

namespace vandrel {

class AppendFile;
struct Workspace;

// Finds out which sites of the current category can still be reached, marks the others, and writes a log. A
// site is reachable when a connection to its host was begun; what the host answers does not matter.
//
// Messages are dispatched while it waits for an answer. Whatever the user does meanwhile, every site that
// was in the list at the beginning is checked and logged, and none gets another's mark.
class LinkScanner {
  public:
    explicit LinkScanner(Workspace& workspace);
    LinkScanner(const LinkScanner&) = delete;
    LinkScanner& operator=(const LinkScanner&) = delete;
    ~LinkScanner();

    // Each ends with a RuntimeError when the log cannot be written, and with 35764 while the update check
    // waits. While one of them runs, neither does anything.
    void mnuScanAllURLs_Click();
    void mnuScanSelected_Click();

  private:
    bool ScanURL(const std::wstring& url);
    void inetScan_StateChanged(short state);

    void scanUnlessScanning(void (LinkScanner::*scan)());
    void scanAll();
    void scanSelected();
    std::wstring logPath() const;

    Workspace& workspace_;
    bool ScanSuccess_ = false;
    bool scanning_ = false;
};

} // namespace vandrel
