#include "mainwindow/frm_main.h"

#include "capture/dropped_link.h"
#include "platform/base/delay_loaded.h"
#include "platform/base/guarded.h"
#include "platform/base/program.h"
#include "search/quick_search.h"
#include "store/category_selection.h"
#include "store/save_items.h"

#include <utility>

namespace vandrel {
namespace {

constexpr UINT_PTR tmrClipboard = 1;
constexpr UINT timerMilliseconds = 1;
constexpr Twips splitterStep{120}; // for each press of a key

enum ControlId { idCategories = 201, idSites };

// The key with the modifiers that are held down.
CommandKey pressed(WPARAM key)
{
    return {.code = static_cast<unsigned>(key),
            .control = GetKeyState(VK_CONTROL) < 0,
            .shift = GetKeyState(VK_SHIFT) < 0};
}

} // namespace

frmMain::frmMain(Startup startup)
    : Window({.className = L"Vandrel.Main", .style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN}),
      preferences_(std::move(startup.settings)),
      commandLine_(std::move(startup.commandLine)),
      lstCategory_(handle(), idCategories, ListView::Selection::one, true,
                   {{L"Category", layout_.categoryColumn}}, categories_),
      lstInfo_(handle(), idSites, ListView::Selection::many, false,
               {{L"Site Name", layout_.infoColumns[0]},
                {L"URL", layout_.infoColumns[1]},
                {L"Description", layout_.infoColumns[2]},
                {L"Date", layout_.infoColumns[3]}},
               shown_.sites),
      picSepBar_(handle()),
      picSearch_(handle()),
      Toolbar1_(handle(), buttonRows(commands())),
      StatusBar1_(handle()),
      PB_(handle()),
      menus_(menuRows(commands())),
      mnuMove_(menus_.submenu(mnuMoveTo), firstMoveEntry),
      accelerators_(menus_.accelerators()),
      workspace_{.window = handle(),
                 .categories = categories_,
                 .shown = shown_,
                 .lstCategory = lstCategory_,
                 .lstInfo = lstInfo_,
                 .StatusBar1 = StatusBar1_,
                 .PB = PB_,
                 .mnuMove = mnuMove_,
                 .inetScan = inetScan_,
                 .dataFolder = std::move(startup.dataFolder),
                 .today = std::move(startup.today)},
      scanner_(workspace_),
      rename_(workspace_),
      availability_(commands(), categories_, shown_.sites, menus_, Toolbar1_, picSearch_),
      keys_(MessageLoop::current(), [this](MSG& message) { return filterMessage(message); }),
      rest_(MessageLoop::current(), [this] { deleteClosedWindows(); })
{
    startAnswering();
    setCaption(programTitle);
    icons_.showIn(handle(), dpi());
    workspace_.keepOnTop.window = handle();
    Toolbar1_.setButtonMenu(dropDownButton(commands()), dropDownRows(commands()));
    for (Control* const control : controls()) control->setFont({});
    StatusBar1_.dock();
    drawForDpi();
    SetMenu(handle(), menus_.bar());
    bindEvents();
    // Contract: the timer runs every millisecond and never stops; it has nothing to do with the clipboard.
    SetTimer(handle(), tmrClipboard, timerMilliseconds, nullptr);
}

frmMain::~frmMain()
{
    KillTimer(handle(), tmrClipboard);
    SetMenu(handle(), nullptr); // the menus belong to menus_, not to the window
}

std::vector<Control*> frmMain::controls()
{
    return {&lstCategory_, &lstInfo_, &picSearch_.cmbSearch, &picSearch_.cmdSearch, &Toolbar1_,
            &StatusBar1_,  &PB_};
}

void frmMain::show(int showCommand)
{
    ShowWindow(handle(), showCommand);
    UpdateWindow(handle());
    lstCategory_.setFocus();
}

void frmMain::close()
{
    if (std::exchange(closing_, true)) return; // the first call's questions are still open
    // Contract: closing is never cancelled, even if sites or preferences cannot be written.
    guarded(handle(), 0, [this]() -> LRESULT {
        saveBeforeClosing(workspace_);
        return 0;
    });
    guarded(handle(), 0, [this]() -> LRESULT {
        Form_QueryUnload();
        return 0;
    });
    destroy();
}

// The system does not wait for answers, so only what can be saved without asking is saved.
void frmMain::endSession()
{
    guarded(handle(), 0, [this]() -> LRESULT {
        if (shown_.unsaved && !categories_.empty()) SaveItems(workspace_);
        return 0;
    });
    Form_QueryUnload();
}

LRESULT frmMain::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_TIMER:
        if (!std::exchange(started_, true)) finishStart();
        availability_.tmrClipboard_Timer();
        return 0;
    case WM_SIZE: Form_Resize(); return 0;
    case WM_GETMINMAXINFO: {
        auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
        limits.ptMinTrackSize = {pixels(smallestWidth), pixels(smallestHeight)};
        return 0;
    }
    case WM_COMMAND:
        if (lParam == 0) {
            run(LOWORD(wParam));
            return 0;
        }
        return Window::onMessage(message, wParam, lParam);
    case WM_SYSCOMMAND: endLabelEditFor(wParam); return Window::onMessage(message, wParam, lParam);
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE && IsChild(handle(), GetFocus())) lastFocus_ = GetFocus();
        return Window::onMessage(message, wParam, lParam); // gives the focus to the window itself
    case WM_SETFOCUS: giveFocusBack(); return 0;
    case WM_SYSCOLORCHANGE: tellSystemColors(handle()); return 0;
    case WM_DPICHANGED: dpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_CLOSE: close(); return 0;
    case WM_ENDSESSION:
        if (wParam != 0) endSession();
        return 0;
    case WM_DESTROY:
        if (lstInfoDrop_) lstInfoDrop_->revoke();
        PostQuitMessage(0);
        return 0;
    default: return Window::onMessage(message, wParam, lParam);
    }
}

// ---- keys

bool frmMain::filterMessage(MSG& message)
{
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) return false;
    if (!IsWindowEnabled(handle())) return false;
    ComboBox& box = picSearch_.cmbSearch;
    const bool inBox = box.hasFocus();
    if (inBox && message.wParam == VK_RETURN && message.message == WM_CHAR) {
        cmdSearch_Click(workspace_, box); // swallowed: the box would beep
        return true;
    }
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
    if (inBox && message.wParam == VK_RETURN && box.listIsOpen()) {
        box.takeHighlighted(); // swallowed: its character would start a search
        return true;
    }
    const bool inLabel = lstCategory_.editingLabel();
    if (message.wParam == VK_TAB && GetKeyState(VK_CONTROL) >= 0 && GetKeyState(VK_MENU) >= 0 && !inLabel) {
        return moveFocus(GetKeyState(VK_SHIFT) < 0);
    }
    const Typing typing = inLabel ? Typing::inTitle : inBox ? Typing::inSearchBox : Typing::nowhere;
    const CommandRow* const row = rowOfKey(commands(), pressed(message.wParam));
    if (row != nullptr && !worksWhile(typing, row->traits.keyWorks)) return false;
    return (typing == Typing::nowhere && takeSplitterKey(message)) ||
           TranslateAcceleratorW(handle(), accelerators_.get(), &message) != 0;
}

// Ctrl+Shift+Left and Right move the bar between the lists, for users without a mouse.
bool frmMain::takeSplitterKey(const MSG& message)
{
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_SHIFT) >= 0)
        return false;
    if (message.wParam != VK_LEFT && message.wParam != VK_RIGHT) return false;
    moveSplitter(message.wParam == VK_LEFT ? Twips{} - splitterStep : splitterStep);
    return true;
}

// What is not seen, once the window has been painted, as timers come last: loading what it needs takes longer than
// much else at the start.
void frmMain::finishStart()
{
    loadDelayedLibraries();
    lstInfoDrop_.emplace(lstInfo_.handle());
    lstInfoDrop_->Drop = [this](const DroppedData& data) { lstInfo_OLEDragDrop(workspace_, data); };
    nameForReaders();
}

void frmMain::nameForReaders()
{
    lstCategory_.setAccessibleName(L"Categories");
    lstInfo_.setAccessibleName(L"Sites");
    Toolbar1_.setAccessibleName(L"Toolbar");
    StatusBar1_.setAccessibleName(L"Status");
    PB_.setAccessibleName(L"Progress");
}

// Before a menu of the bar opens, and before the window closes: neither takes the keyboard from the box.
void frmMain::endLabelEditFor(WPARAM systemCommand)
{
    const WPARAM command = systemCommand & 0xFFF0; // the system uses the lower bits itself
    if (command == SC_MOUSEMENU || command == SC_KEYMENU || command == SC_CLOSE)
        lstCategory_.finishLabelEdit();
}

// Returns the focus to where the user was before a dialog or another program took it, if that can still
// take keys. Once only: a control that loses the focus later, by being disabled, must not get it back.
void frmMain::giveFocusBack()
{
    const HWND last = std::exchange(lastFocus_, nullptr);
    const bool usable = IsChild(handle(), last) != 0 && IsWindowVisible(last) != 0 &&
                        IsWindowEnabled(last) != 0 && IsWindowEnabled(GetParent(last)) != 0;
    SetFocus(usable ? last : lstCategory_.handle());
}

// Not while a search runs: its window must outlive it.
bool frmMain::searchIsOver() const
{
    return frmSearch_ && frmSearch_->unloaded() && !frmSearch_->searching();
}

bool frmMain::aboutIsOver() const { return frmAbout_ && frmAbout_->unloaded(); }

// Makes room for a new window.
void frmMain::setClosedWindowsAside()
{
    closedWindows_.reserve(closedWindows_.size() + 2);
    if (searchIsOver()) closedWindows_.push_back(std::move(frmSearch_));
    if (aboutIsOver()) closedWindows_.push_back(std::move(frmAbout_));
}

// Takes no memory, so it cannot fail.
void frmMain::deleteClosedWindows()
{
    if (searchIsOver()) frmSearch_.reset();
    if (aboutIsOver()) frmAbout_.reset();
    closedWindows_.clear();
}

bool frmMain::moveFocus(bool backwards)
{
    const std::array<Control*, 4> stops{&lstCategory_, &lstInfo_, &picSearch_.cmbSearch,
                                        &picSearch_.cmdSearch};
    const auto focused = std::ranges::find_if(stops, [](const Control* stop) { return stop->hasFocus(); });
    const std::size_t step = backwards ? stops.size() - 1 : 1;
    // If none has the focus, forwards leads to the first and backwards to the last.
    auto at = static_cast<std::size_t>(focused - stops.begin());
    if (focused == stops.end()) at = backwards ? 0 : stops.size() - 1;
    for (std::size_t tries = 0; tries < stops.size(); ++tries) {
        at = (at + step) % stops.size();
        if (stops[at]->enabled()) {
            stops[at]->setFocus();
            return true;
        }
    }
    return true;
}

} // namespace vandrel
