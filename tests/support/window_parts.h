#pragma once

#include "mainwindow/menu_entries.h"
#include "tests/support/main_window_test.h"
#include "tests/support/window_facts.h"

#include <windows.h>
#include <commctrl.h>

#include <cmath>
#include <string>
#include <vector>

// What the tests of the main window look at and use besides the window's own objects.
namespace vandrel::test {

inline constexpr const char* threeSites = "Beta|http://b.example/|second|9/30/2002\r\n"
                                          "Alpha|http://c.example/|first|10/1/2002\r\n"
                                          "Gamma|http://a.example/|third|1/15/2003\r\n";

// A length in twips, in pixels, rounded to the nearest.
inline int px(const frmMain& main, double twips)
{
    return static_cast<int>(std::lround(twips * main.dpi() / 1440));
}

inline HWND splitterBar(const frmMain& main)
{
    return FindWindowExW(main.handle(), nullptr, L"Vandrel.SplitterBar", nullptr);
}

// The controls, and those of their parts that show text.
inline std::vector<HWND> windowsWithTexts(frmMain& main)
{
    std::vector<HWND> all;
    for (Control* const control : main.controls()) all.push_back(control->handle());
    for (ListView* const list : {&main.workspace().lstCategory, &main.workspace().lstInfo}) {
        all.push_back(reinterpret_cast<HWND>(SendMessageW(list->handle(), LVM_GETHEADER, 0, 0)));
    }
    all.push_back(FindWindowExW(main.searchPanel().cmbSearch.handle(), nullptr, L"Edit", nullptr));
    return all;
}

inline int columnPixels(const ListView& list, int column)
{
    return static_cast<int>(SendMessageW(list.handle(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

// Whether no window is locked against drawing. Only one can be at a time, so locking one succeeds only when
// none is.
inline bool nothingIsFrozen(HWND window)
{
    if (LockWindowUpdate(window) == 0) return false;
    LockWindowUpdate(nullptr);
    return true;
}

} // namespace vandrel::test
