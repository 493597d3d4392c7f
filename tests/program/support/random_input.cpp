#include "tests/program/support/random_input.h"

#include "mainwindow/menu_entries.h"
#include "tests/program/support/real_input.h"

#include <array>
#include <vector>

namespace vandrel::test {
namespace {

constexpr KeyStroke windowKeys[] = {
    {"Up", VK_UP},
    {"Down", VK_DOWN},
    {"Down", VK_DOWN},
    {"Left", VK_LEFT},
    {"Right", VK_RIGHT},
    {"Home", VK_HOME},
    {"End", VK_END},
    {"Page Up", VK_PRIOR},
    {"Page Down", VK_NEXT},
    {"Shift+Down", VK_DOWN, false, true},
    {"Shift+Up", VK_UP, false, true},
    {"Ctrl+Down", VK_DOWN, true},
    {"Shift+End", VK_END, false, true},
    {"Space", VK_SPACE},
    {"Ctrl+Space", VK_SPACE, true},
    {"Tab", VK_TAB},
    {"Tab", VK_TAB},
    {"Tab", VK_TAB},
    {"Shift+Tab", VK_TAB, false, true},
    {"Enter", VK_RETURN},
    {"Esc", VK_ESCAPE},
    {"Backspace", VK_BACK},
    {"Del", VK_DELETE},
    {"F1", VK_F1},
    {"F2", VK_F2},
    {"Shift+F2", VK_F2, false, true},
    {"F3", VK_F3},
    {"F3", VK_F3},
    {"F10", VK_F10},
    {"Menu key", VK_APPS},
    {"Shift+F10", VK_F10, false, true},
    {"Ctrl+A", 'A', true},
    {"Ctrl+C", 'C', true},
    {"Ctrl+E", 'E', true},
    {"Ctrl+F", 'F', true},
    {"Ctrl+I", 'I', true},
    {"Ctrl+P", 'P', true},
    {"Ctrl+V", 'V', true},
    {"Ctrl+X", 'X', true},
    {"Ctrl+Z", 'Z', true},
    {"Alt", VK_MENU},
    {"Alt+F", 'F', false, false, true},
    {"Alt+E", 'E', false, false, true},
    {"Alt+V", 'V', false, false, true},
    {"Alt+H", 'H', false, false, true},
    {"Alt+Down", VK_DOWN, false, false, true},
};

constexpr KeyStroke movingKeys[] = {
    {"Up", VK_UP},
    {"Down", VK_DOWN},
    {"Down", VK_DOWN},
    {"Left", VK_LEFT},
    {"Right", VK_RIGHT},
    {"Home", VK_HOME},
    {"End", VK_END},
    {"Page Up", VK_PRIOR},
    {"Page Down", VK_NEXT},
    {"Shift+Down", VK_DOWN, false, true},
    {"Shift+Home", VK_HOME, false, true},
    {"Ctrl+Up", VK_UP, true},
    {"Tab", VK_TAB},
    {"Shift+Tab", VK_TAB, false, true},
    {"letter Q", 'Q'},
    {"letter B", 'B'},
    {"Ctrl+A", 'A', true},
};

constexpr KeyStroke dialogKeys[] = {
    {"Tab", VK_TAB},
    {"Tab", VK_TAB},
    {"Tab", VK_TAB},
    {"Shift+Tab", VK_TAB, false, true},
    {"Up", VK_UP},
    {"Down", VK_DOWN},
    {"Home", VK_HOME},
    {"End", VK_END},
    {"Space", VK_SPACE},
    {"Ctrl+A", 'A', true},
    {"Ctrl+C", 'C', true},
    {"F1", VK_F1},
    {"F3", VK_F3},
    {"Ctrl+F", 'F', true},
    {"Menu key", VK_APPS},
    {"Alt+I", 'I', false, false, true},
    {"Alt+A", 'A', false, false, true},
    {"Alt+F", 'F', false, false, true},
};

// Not Left and Right: beside the first and the last menu of the bar is the system menu, which moves and
// sizes the window with keys of the window manager that a test does not have.
constexpr KeyStroke menuKeys[] = {
    {"Down", VK_DOWN}, {"Down", VK_DOWN}, {"Down", VK_DOWN},    {"Down", VK_DOWN},
    {"Up", VK_UP},     {"Up", VK_UP},     {"Enter", VK_RETURN}, {"Enter", VK_RETURN},
    {"letter A", 'A'}, {"letter S", 'S'}, {"Esc", VK_ESCAPE},
};

constexpr KeyStroke popUpKeys[] = {
    {"Down", VK_DOWN},    {"Down", VK_DOWN},   {"Down", VK_DOWN},  {"Up", VK_UP},
    {"Up", VK_UP},        {"Right", VK_RIGHT}, {"Left", VK_LEFT},  {"Enter", VK_RETURN},
    {"Enter", VK_RETURN}, {"letter M", 'M'},   {"Esc", VK_ESCAPE},
};

constexpr KeyStroke boxKeys[] = {
    {"Enter", VK_RETURN}, {"Enter", VK_RETURN}, {"Esc", VK_ESCAPE},  {"letter Y", 'Y'},
    {"letter N", 'N'},    {"Tab", VK_TAB},      {"Right", VK_RIGHT}, {"Space", VK_SPACE},
};

// None of them is a program that the system would start when the word is opened as an address.
constexpr const wchar_t* someWords[] = {
    L"qa",
    L"qb",
    L"Qc",
    L"Qd",
    L"qe 5",
    L"Ärger",
    L"日本語",
    L"\U0001F600 q",
    L"q|r",
    L"|",
    L";note",
    L"   ",
    L" q ",
    L"\"quoted\"",
    L"100%q",
    L"&qamp",
    L"q.udb",
    L"nul",
    L"[DEFAULT]",
    L"q=r",
    L"?*<>",
    (L"qqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqq"
     L"qqqq"),
};

constexpr const wchar_t* someAddresses[] = {
    L"http://127.0.0.1:1/",       L"http://127.0.0.1:1/a?b=c&d=%20", L"http://127.0.0.1:1/|x",
    L"http://127.0.0.1:1/\u00E4", L"http://127.0.0.1:1/q",
};

constexpr int someCommands[] = {
    mnuFind,
    mnuScanSelected,
    mnuScanAllURLs,
    mnuImport,
    mnuExport,
    mnuCurrentCat,
    mnuAllCats,
    mnuBUCurrentCat,
    mnuBUAllCat,
    mnuAddCategory,
    mnuRemoveCategory,
    mnuAddWebsite,
    mnuAddWebsite,
    mnuAddWebsite,
    mnuRemoveWebsite,
    mnuEditSel,
    mnuEditSel,
    mnuEditSel,
    mnuRenameCat,
    mnuRenameCat,
    mnuCopyURL,
    mnuOpenURL,
    mnuOpenNew,
    mnuProperties,
    mnuGridlines,
    mnuHoverSelect,
    mnuKeepTop,
    mnuOptions,
    mnuViewHelp,
    mnuAbout,
    mnuCheckUpdates,
    mnuPOpen,
    mnuPCopyURL,
    mnuPEditSelected,
    mnuPExport,
    mnuPScanSel,
    mnuPAddSite,
    mnuPRemoveSite,
    mnuPProperties,
    mnuPAddCat,
    mnuPRemoveCat,
    mnuPRenameCat,
    firstMoveEntry,
    firstMoveEntry + 1,
    firstMoveEntry + 2,
    firstMoveEntry + 3,
    firstMoveEntry + 4,
    firstMoveEntry + 9,
};

// The last function keys that Windows knows; no keyboard has them.
constexpr WORD firstMarker = VK_F13;
constexpr WORD markers = 12;

} // namespace

std::span<const KeyStroke> keysForWindows() { return windowKeys; }
std::span<const KeyStroke> keysToMoveBy() { return movingKeys; }
std::span<const KeyStroke> keysForDialogs() { return dialogKeys; }
std::span<const KeyStroke> keysForMenus() { return menuKeys; }
std::span<const KeyStroke> keysForPopUps() { return popUpKeys; }
std::span<const KeyStroke> keysForBoxes() { return boxKeys; }
std::span<const wchar_t* const> words() { return someWords; }
std::span<const wchar_t* const> addresses() { return someAddresses; }
std::span<const int> commands() { return someCommands; }

void send(const KeyStroke& stroke)
{
    if (stroke.ctrl && stroke.shift) {
        input::key(stroke.key, {VK_CONTROL, VK_SHIFT});
    } else if (stroke.ctrl) {
        input::key(stroke.key, {VK_CONTROL});
    } else if (stroke.shift) {
        input::key(stroke.key, {VK_SHIFT});
    } else if (stroke.alt) {
        input::key(stroke.key, {VK_MENU});
    } else {
        input::key(stroke.key);
    }
}

void turnWheel(POINT screen, int notches)
{
    input::moveTo(screen);
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = MOUSEEVENTF_WHEEL;
    event.mi.mouseData = static_cast<DWORD>(notches) * WHEEL_DELTA;
    SendInput(1, &event, sizeof event);
}

TakenInput::TakenInput(DWORD thread) : thread_(thread)
{
    AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
}

TakenInput::~TakenInput() { AttachThreadInput(GetCurrentThreadId(), thread_, FALSE); }

bool TakenInput::wait(DWORD milliseconds)
{
    const WORD key = static_cast<WORD>(firstMarker + next_);
    next_ = static_cast<WORD>((next_ + 1) % markers);
    const int before = GetKeyState(key) & 1; // toggled by every press
    input::key(key);
    for (const ULONGLONG deadline = GetTickCount64() + milliseconds; (GetKeyState(key) & 1) == before;
         Sleep(1)) {
        if (GetTickCount64() > deadline) return false;
    }
    return true;
}

} // namespace vandrel::test
