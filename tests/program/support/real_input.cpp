#include "tests/program/support/real_input.h"

#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace vandrel::test::input {
namespace {

void send(std::vector<INPUT> events)
{
    if (SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT)) != events.size())
        throw std::runtime_error("the system refused the input");
}

bool isExtended(WORD key)
{
    switch (key) {
    case VK_INSERT:
    case VK_DELETE:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_APPS: return true;
    default: return false;
    }
}

INPUT keyEvent(WORD key, bool up)
{
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (isExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0U);
    return event;
}

INPUT letterEvent(wchar_t letter, bool up)
{
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = letter;
    event.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0U);
    return event;
}

INPUT mouseEvent(DWORD flags)
{
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = flags;
    return event;
}

INPUT moveEvent(POINT screen, DWORD button = 0)
{
    constexpr LONG whole = 65536;
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    INPUT event = mouseEvent(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button);
    event.mi.dx = (screen.x * whole + width / 2) / width;
    event.mi.dy = (screen.y * whole + height / 2) / height;
    return event;
}

// Where to click so that it is a single click: two in quick succession at one place would be a double
// click.
POINT apartFromLast(POINT screen)
{
    static POINT last{-100, -100};
    const int spot = GetSystemMetrics(SM_CXDOUBLECLK);
    if (std::abs(screen.x - last.x) < spot && std::abs(screen.y - last.y) < spot) screen.x += 2 * spot;
    return last = screen;
}

// Place and button in one event each, so that nothing moves the mouse between the two.
void clickAt(POINT screen, DWORD down, DWORD up) { send({moveEvent(screen, down), moveEvent(screen, up)}); }

} // namespace

void key(WORD key, std::initializer_list<WORD> held)
{
    std::vector<INPUT> events;
    for (const WORD other : held) events.push_back(keyEvent(other, false));
    events.push_back(keyEvent(key, false));
    events.push_back(keyEvent(key, true));
    for (const WORD other : held) events.push_back(keyEvent(other, true));
    send(std::move(events));
}

void type(const std::wstring& text)
{
    std::vector<INPUT> events;
    for (const wchar_t letter : text) {
        events.push_back(letterEvent(letter, false));
        events.push_back(letterEvent(letter, true));
    }
    send(std::move(events));
}

void moveTo(POINT screen) { send({moveEvent(screen)}); }

void click(POINT screen) { clickAt(apartFromLast(screen), MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP); }

void rightClick(POINT screen) { clickAt(apartFromLast(screen), MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP); }

void doubleClick(POINT screen)
{
    for (int i = 0; i < 2; ++i) clickAt(screen, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
}

void drag(POINT from, POINT to)
{
    constexpr LONG steps = 8;
    send({moveEvent(from), mouseEvent(MOUSEEVENTF_LEFTDOWN)});
    for (LONG step = 1; step <= steps; ++step) {
        send({moveEvent({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps})});
    }
    send({mouseEvent(MOUSEEVENTF_LEFTUP)});
}

} // namespace vandrel::test::input
