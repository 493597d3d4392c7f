#include "tests/program/support/random_user.h"

#include "platform/system/settings_store.h"
#include "tests/program/support/eventually.h"
#include "tests/program/support/random_windows.h"
#include "tests/program/support/real_input.h"
#include "tests/support/window_facts.h"

#include <algorithm>
#include <stdexcept>

namespace vandrel::test {
namespace {

constexpr std::size_t storyLength = 30;
constexpr int addressId = 102; // of the site editor
constexpr DWORD markMilliseconds = 500;
constexpr const wchar_t* placePreference = L"Top";

} // namespace

RandomUser::RandomUser(ProgramDriver& program, unsigned seed, std::wstring files)
    : program_(program), engine_(seed), files_(std::move(files))
{
    start();
}

void RandomUser::start()
{
    program_.start();
    taken_ = std::make_unique<TakenInput>(GetWindowThreadProcessId(program_.window(), nullptr));
    seen_ = nullptr;
    ++starts_;
    // It has been read by now, and only an orderly end writes it again.
    RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Vandrel\\Config",
                       placePreference);
}

void RandomUser::startAgain()
{
    taken_.reset();
    if (const DWORD code = program_.waitForEnd(); code != 0)
        throw std::runtime_error("the program ended with " + std::to_string(code));
    if (SettingsStore(L"Vandrel").get(L"Config", placePreference).empty())
        throw std::runtime_error("the program ended in the middle of its work");
    note("start", "again");
    start();
}

void RandomUser::note(const char* kind, const std::string& what)
{
    ++kinds_[kind];
    ++actions_;
    story_.push_back(std::string(kind) + " " + what);
    if (story_.size() > storyLength) story_.pop_front();
}

std::string RandomUser::story() const
{
    std::string lines;
    for (const std::string& action : story_) lines += "  " + action + "\n";
    return lines;
}

// ---- what is there

// Something else on the screen, such as the stand-in for the browser, may have taken the focus. A user then
// clicks on the window.
void RandomUser::regainKeyboard()
{
    const HWND main = program_.window();
    if (IsIconic(main) != 0) ShowWindowAsync(main, SW_RESTORE);
    SetForegroundWindow(frontWindowOf(main));
}

RandomUser::Place RandomUser::look()
{
    const HWND main = program_.window();
    const bool there = soon([&] {
        front_ = GetForegroundWindow();
        if (!program_.running()) return true;
        const bool usable = IsWindowEnabled(front_) != 0 || inputOf(main).flags != 0;
        if (isOf(front_, main) && usable && IsIconic(front_) == 0) return true;
        regainKeyboard();
        return false;
    });
    if (!there) {
        throw std::runtime_error("no window of the program takes the keyboard; it is at " +
                                 described(front_) + ", the foremost is " + described(frontWindowOf(main)) +
                                 ", the main one " + described(main));
    }
    if ((inputOf(main).flags & GUI_INMENUMODE) != 0) return Place::menu;
    if (front_ == main) return Place::window;
    if (front_ != seen_) { // looking through a dialog takes time
        seen_ = front_;
        seenPlace_ = showsFiles(front_) ? Place::files : isMessageBox(front_) ? Place::box : Place::dialog;
        if (seenPlace_ == Place::box) readBox();
    }
    return seenPlace_;
}

void RandomUser::readBox()
{
    const std::wstring text = ProgramDriver::boxText(front_);
    ++boxes_[text];
    if (text.find(L"'51'") != text.npos)
        throw std::runtime_error("the program tells of an error within itself");
}

// Waits until the program has handled all input.
void RandomUser::settle()
{
    const bool taken = soon([&] {
        if (taken_->wait(markMilliseconds)) return true;
        if (!program_.running()) return true;
        regainKeyboard();
        return false;
    });
    if (!taken) throw std::runtime_error("the program does not take its input");
}

// ---- actions

int RandomUser::act()
{
    const int before = actions_;
    try {
        switch (look()) {
        case Place::window: actInWindow(); break;
        case Place::menu: actInMenu(); break;
        case Place::dialog: actInDialog(); break;
        case Place::box: answerBox(); break;
        case Place::files: answerFiles(); break;
        }
        settle();
    } catch (const std::runtime_error&) {
        // It may have quit halfway through.
        if (!soon([this] { return !program_.running(); }, 2000)) throw;
    }
    if (!program_.running()) startAgain();
    return actions_ - before;
}

void RandomUser::actInWindow()
{
    if (chance(30)) return moveAround();
    if (chance(30)) return command();
    if (chance(45)) return press(oneOf(keysForWindows()));
    if (chance(60)) return mouse(front_);
    if (chance(80)) return typeWord();
    reshape();
}

void RandomUser::actInMenu()
{
    if (chance(10)) return mouse(inputOf(program_.window()).hwndMenuOwner);
    press(popUp_ ? oneOf(keysForPopUps()) : oneOf(keysForMenus()));
}

void RandomUser::actInDialog()
{
    // A modeless one can also be left by going back to the main window.
    if (IsWindowEnabled(program_.window()) != 0 && chance(40)) return command();
    if (chance(22)) return press({"Enter", VK_RETURN});
    if (chance(12)) return press({"Esc", VK_ESCAPE});
    if (chance(3)) return close(front_);
    if (chance(40)) return moveAround();
    if (chance(45)) return typeWord();
    if (chance(60)) return press(oneOf(keysForDialogs()));
    mouse(front_);
}

void RandomUser::answerBox()
{
    if (chance(75)) return press(oneOf(keysForBoxes()));
    mouse(front_);
}

// Chooses only what keeps to the folder that is meant for it.
void RandomUser::answerFiles()
{
    const HWND name = GetDlgItem(front_, fileNameId);
    if (name == nullptr || chance(60)) return press({"Esc", VK_ESCAPE});
    const std::wstring path = files_ + L"\\q" + std::to_wstring(below(20)) + L".txt";
    note("file", narrow(path));
    ask(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    SendNotifyMessageW(front_, WM_COMMAND, IDOK, 0);
}

void RandomUser::press(const KeyStroke& stroke)
{
    note("key", std::string(stroke.name) + " in <" + narrow(captionOf(front_)) + ">");
    popUp_ = stroke.key == VK_APPS || (stroke.key == VK_F10 && stroke.shift) ||
             (popUp_ && stroke.key != VK_MENU && stroke.key != VK_F10 && !stroke.alt);
    send(stroke);
}

// Several keys at once, as from a fast typist or a key held down. None of them opens anything.
void RandomUser::moveAround()
{
    for (std::size_t keys = 8 + below(17); keys > 0; --keys) press(oneOf(keysToMoveBy()));
}

void RandomUser::typeWord()
{
    const HWND focus = program_.focus();
    const bool address = GetParent(focus) == front_ && GetDlgCtrlID(focus) == addressId;
    const std::wstring text = address ? oneOf(addresses()) : oneOf(words());
    note("type", "<" + narrow(text) + "> in <" + narrow(captionOf(front_)) + ">");
    if (address) { // whole addresses only: others would be looked up outside this machine
        input::key(VK_HOME);
        input::key(VK_END, {VK_SHIFT});
    }
    input::type(text);
}

// Within the window's client area and menu bar: what begins on its frame only the window manager can end.
void RandomUser::mouse(HWND window)
{
    constexpr int grip = 24; // of a status bar, which sizes the window
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    if (window == program_.window() && chance(15)) {
        area.bottom = area.top;
        area.top -= GetSystemMetrics(SM_CYMENU) - 2;
    }
    area.left = std::max(area.left, 0L);
    area.top = std::max(area.top, 0L);
    area.right = std::min<LONG>(area.right, GetSystemMetrics(SM_CXSCREEN)) - grip;
    area.bottom = std::min<LONG>(area.bottom, GetSystemMetrics(SM_CYSCREEN));
    if (area.right <= area.left || area.bottom <= area.top) return;
    const auto point = [&] {
        return POINT{area.left + static_cast<LONG>(below(static_cast<std::size_t>(area.right - area.left))),
                     area.top + static_cast<LONG>(below(static_cast<std::size_t>(area.bottom - area.top)))};
    };
    const POINT at = point();
    const auto tell = [&](const char* what) {
        note("mouse", std::string(what) + " at " + std::to_string(at.x) + "," + std::to_string(at.y) +
                          " in <" + narrow(captionOf(window)) + ">");
    };
    popUp_ = false;
    if (chance(50)) {
        tell("click");
        input::click(at);
    } else if (chance(30)) {
        tell("right click");
        popUp_ = true;
        input::rightClick(at);
    } else if (chance(40)) {
        tell("double click");
        input::doubleClick(at);
    } else if (chance(50)) {
        tell("drag");
        input::drag(at, point());
    } else {
        tell("wheel");
        turnWheel(at, chance(50) ? 1 : -2);
    }
}

// Sent as the menu of the main window sends it. Posting would let an earlier command open a dialog first,
// under which no user could reach the menu.
void RandomUser::command()
{
    const int entry = oneOf(commands());
    note("command", std::to_string(entry));
    SendNotifyMessageW(program_.window(), WM_COMMAND, static_cast<WPARAM>(entry), 0);
}

void RandomUser::reshape()
{
    const HWND main = program_.window();
    if (chance(40)) {
        const int width = 500 + static_cast<int>(below(700));
        const int height = 300 + static_cast<int>(below(600));
        note("window", std::to_string(width) + " x " + std::to_string(height));
        SetWindowPos(main, nullptr, static_cast<int>(below(80)), static_cast<int>(below(80)), width, height,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
    } else if (chance(60)) {
        const bool large = IsZoomed(main) != 0;
        note("window", large ? "restored" : "maximised");
        ShowWindowAsync(main, large ? SW_RESTORE : SW_MAXIMIZE);
    } else if (chance(60)) {
        note("window", "minimised");
        ShowWindowAsync(main, SW_MINIMIZE);
    } else {
        note("quit", "");
        close(main);
    }
}

void RandomUser::close(HWND window)
{
    note("close", "<" + narrow(captionOf(window)) + ">");
    PostMessageW(window, WM_CLOSE, 0, 0);
}

void RandomUser::closeDialogs()
{
    const bool closed = soon([this] {
        const Place place = look();
        if (place == Place::window) {
            // What is open beside the window.
            EnumThreadWindows(
                GetWindowThreadProcessId(program_.window(), nullptr),
                [](HWND window, LPARAM main) -> BOOL {
                    if (window != reinterpret_cast<HWND>(main) && IsWindowVisible(window) != 0)
                        PostMessageW(window, WM_CLOSE, 0, 0);
                    return TRUE;
                },
                reinterpret_cast<LPARAM>(program_.window()));
        } else {
            press({"Esc", VK_ESCAPE});
            if (place == Place::box) press({"letter N", 'N'}); // a question that cannot be cancelled
        }
        settle();
        return place == Place::window && !program_.dialogIsOpen();
    });
    if (!closed) throw std::runtime_error("a dialog cannot be cancelled");
}

void RandomUser::quit()
{
    PostMessageW(program_.window(), WM_CLOSE, 0, 0);
    const bool ended = soon([this] {
        if (!program_.running()) return true;
        if (look() == Place::box) press({"letter N", 'N'});
        return false;
    });
    if (!ended) throw std::runtime_error("the program does not end");
    taken_.reset();
    if (const DWORD code = program_.waitForEnd(); code != 0)
        throw std::runtime_error("the program ended with " + std::to_string(code));
}

} // namespace vandrel::test
