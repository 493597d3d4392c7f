#pragma once

#include "tests/support/window_parts.h"

namespace vandrel::test {

// A main window with room on both sides of the bar between the lists.
class SplitterTest : public MainWindowTest {
  protected:
    SplitterTest()
    {
        setPreference(L"Config", L"Width", L"15000");
        setPreference(L"Config", L"Height", L"9000");
        folder.write(L"Work.udb", threeSites);
    }
    HWND bar() { return splitterBar(*main); }
    RECT place() { return placeOf(bar()); }
};

} // namespace vandrel::test
