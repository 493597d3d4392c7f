#include "mainwindow/frm_main.h"
#include "mainwindow/known_paths.h"
#include "mainwindow/window_place.h"
#include "platform/base/guarded.h"
#include "platform/files/left_behind.h"
#include "platform/text/number_text.h"
#include "shared/apply_font.h"
#include "shared/window_edges.h"
#include "store/category_list.h"
#include "store/category_making.h"
#include "store/category_selection.h"
#include "store/site_operations.h"

#include <limits>

namespace vandrel {
namespace {

// Contract: the date column has no fallback, so it stays hidden until the user drags it open.
constexpr std::array<Twips, 3> columnFallbacks{Twips{2160}, Twips{2880}, Twips{2880}};

RECT windowArea(HWND window)
{
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

long wholeTwips(Twips length)
{
    return roundedHalfEven(length.value, std::numeric_limits<long>::min(), std::numeric_limits<long>::max());
}

} // namespace

void frmMain::Form_Load()
{
    // If either of these fails, the program still starts with its categories.
    guarded(handle(), 0, [this]() -> LRESULT {
        for (Control* const control : controls()) {
            if (dynamic_cast<Button*>(control) != nullptr) Off2000::addStaticEdge(control->handle());
        }
        return 0;
    });
    guarded(handle(), 0, [this]() -> LRESULT {
        removeLeftBehind(workspace_.dataFolder);
        return 0;
    });
    loadCategories();
    if (!lstCategory_.empty()) selectCategory(workspace_, 0);
    readSettings();
    LoadPos();
    moveEdgesOnScreen();
    bringOnScreen();
    DoMoveMenus(workspace_);
    availability_.tmrClipboard_Timer();
    if (!commandLine_.empty()) {
        // Shown first, so that the user sees which category the site will go to.
        show(SW_SHOWDEFAULT);
        workspace_.site.IncomingLink = commandLine_;
        // If the site cannot be saved, the error is shown at once and the start goes on.
        guarded(handle(), 0, [this]() -> LRESULT {
            AddURL(workspace_);
            return 0;
        });
    }
    sinkProgressBar();
    ApplyFont(*this, workspace_.options.font);
}

// Without the list there would seem to be no categories, so a failed attempt is repeated.
void frmMain::loadCategories()
{
    constexpr int attempts = 2;
    for (int attempt = 0; attempt < attempts && !workspace_.categoriesListed; ++attempt) {
        guarded(handle(), 0, [this]() -> LRESULT {
            listCategories(workspace_);
            return 0;
        });
    }
}

void frmMain::readSettings()
{
    setGridLines(preferences_.flag(L"GridLines") == 1 ? 1 : 0);
    setHoverSelect(preferences_.flag(L"HoverSel") == 1 ? 1 : 0);
    workspace_.options = preferences_.options();
}

void frmMain::LoadPos()
{
    workspace_.favoritesFolder = Registry_Module::favoritesFolder();
    const StoredPlace place{.left = preferences_.length(L"Left"),
                            .top = preferences_.length(L"Top"),
                            .width = preferences_.length(L"Width"),
                            .height = preferences_.length(L"Height")};
    for (std::size_t column = 0; column < layout_.infoColumns.size(); ++column) {
        lstInfo_.setColumnWidth(column, preferences_.length(L"Col" + std::to_wstring(column + 1)));
    }
    if (preferences_.flag(L"KeepTop") == 1) setKeepOnTop(1);
    for (std::size_t column = 0; column < columnFallbacks.size(); ++column) {
        if (lstInfo_.columnWidth(column) == Twips{0})
            lstInfo_.setColumnWidth(column, columnFallbacks[column]);
    }
    // The corner first: the size depends on the DPI that the window has there.
    const ScreenCorner corner = cornerOf(place, GetDpiForSystem());
    SetWindowPos(handle(), nullptr, corner.left, corner.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const ScreenSize size = sizeOf(place, dpi());
    SetWindowPos(handle(), nullptr, 0, 0, size.width, size.height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void frmMain::moveEdgesOnScreen()
{
    const RECT area = windowArea(handle());
    // Contract: a negative edge becomes 0, each on its own.
    if (area.top >= 0 && area.left >= 0) return;
    SetWindowPos(handle(), nullptr, std::max<int>(area.left, 0), std::max<int>(area.top, 0), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Corrects a position that no monitor shows any more, and a size too large for the monitor.
void frmMain::bringOnScreen()
{
    RECT area = windowArea(handle());
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&area, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& work = monitor.rcWork;
    const LONG width = std::min(area.right - area.left, work.right - work.left);
    const LONG height = std::min(area.bottom - area.top, work.bottom - work.top);
    const bool visible = MonitorFromRect(&area, MONITOR_DEFAULTTONULL) != nullptr;
    const LONG left = visible ? area.left : work.left;
    const LONG top = visible ? area.top : work.top;
    const bool fits = width == area.right - area.left && height == area.bottom - area.top;
    if (visible && fits) return;
    SetWindowPos(handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void frmMain::sinkProgressBar()
{
    SetParent(PB_.handle(), StatusBar1_.handle());
    const RECT panel = StatusBar1_.panelArea(1);
    PB_.place(panel.left, pixels(50_twips), panel.right - panel.left - pixels(65_twips),
              StatusBar1_.height() - pixels(60_twips));
}

void frmMain::Form_QueryUnload()
{
    preferences_.saveOptions(workspace_.options);
    const RECT area = windowArea(handle());
    const StoredPlace place = placeToStore({area.left, area.top},
                                           {area.right - area.left, area.bottom - area.top},
                                           GetDpiForSystem(), dpi());
    const long left = wholeTwips(place.left);
    const long top = wholeTwips(place.top);
    const long width = wholeTwips(place.width);
    const long height = wholeTwips(place.height);
    SavePos(left, top, width, height, wholeTwips(lstInfo_.columnWidth(0)),
            wholeTwips(lstInfo_.columnWidth(1)), wholeTwips(lstInfo_.columnWidth(2)));
}

// Contract: the column arguments are carried but not used; the widths come from the list itself.
void frmMain::SavePos(const long& iLeft, const long& iTop, const long& iWidth, const long& iHeight,
                      const long&, const long&, const long&)
{
    // Contract: a minimised window stores 0 for left and top, but its size as it is.
    const bool minimised = IsIconic(handle()) != 0;
    preferences_.saveWhole(L"Left", minimised ? 0 : iLeft);
    preferences_.saveWhole(L"Top", minimised ? 0 : iTop);
    preferences_.saveWhole(L"Width", iWidth);
    preferences_.saveWhole(L"Height", iHeight);
    for (std::size_t column = 0; column < layout_.infoColumns.size(); ++column) {
        preferences_.saveLength(L"Col" + std::to_wstring(column + 1), lstInfo_.columnWidth(column));
    }
    preferences_.saveFlag(L"GridLines", gridLines_);
    preferences_.saveFlag(L"HoverSel", hoverSelect_);
}

} // namespace vandrel
