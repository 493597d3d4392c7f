#pragma once

#include "tests/support/recorder.h"
#include "tests/support/store_test.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {

inline constexpr const wchar_t* browserKey =
    L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE";

// The main window with a recorder in place of the web browser.
class LinkTest : public StoreTest {
  protected:
    // Three sites, of which the second is the current one.
    void startWithSites()
    {
        folder.write(L"Work.udb", threeSites);
        start();
        lstInfo().select(1);
    }
    std::string threeSitesWithTheSecondOpened() const
    {
        return "Beta|http://b.example/|second|9/30/2002\r\n"
               "Alpha|http://c.example/|first|11/16/2002\r\n"
               "Gamma|http://a.example/|third|1/15/2003\r\n";
    }

    Recorder recorder;
};

} // namespace vandrel::test
