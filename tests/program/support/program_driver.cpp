#include "tests/program/support/program_driver.h"

#include "platform/files/file_layer.h"
#include "tests/program/support/eventually.h"
#include "tests/program/support/program_files.h"
#include "tests/program/support/real_input.h"
#include "tests/support/window_facts.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace vandrel::test {
namespace {

constexpr const wchar_t* mainClass = L"Vandrel.Main";
constexpr const wchar_t* dialogClass = L"#32770";
constexpr const wchar_t* menuClass = L"#32768";
constexpr int boxTextId = 0xFFFF;
constexpr int categoriesId = 201;
constexpr int sitesId = 202;

// The visible top-level windows of the process: all, or those of one class.
std::vector<HWND> windowsOf(DWORD processId, const std::wstring& className = {})
{
    struct Search {
        DWORD processId;
        const std::wstring& className;
        std::vector<HWND> found;
    } search{processId, className, {}};
    EnumWindows(
        [](HWND window, LPARAM param) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(param);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            const bool right = wanted.className.empty() || classOf(window) == wanted.className;
            if (owner == wanted.processId && right && IsWindowVisible(window)) wanted.found.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return std::move(search.found);
}

std::wstring extendedIfLong(const std::wstring& path)
{
    return path.size() < MAX_PATH ? path : extendedPath(path);
}

HWND descendant(HWND window, const wchar_t* className)
{
    for (HWND child = nullptr; (child = FindWindowExW(window, child, nullptr, nullptr)) != nullptr;) {
        if (classOf(child) == className) return child;
        if (const HWND found = descendant(child, className)) return found;
    }
    return nullptr;
}

} // namespace

ProgramDriver::ProgramDriver(std::wstring folder) : folder_(std::move(folder)) { putProgramInto(folder_); }

ProgramDriver::~ProgramDriver() { kill(); }

void ProgramDriver::await(const char* what, bool happened) const
{
    if (happened) return;
    std::string message = std::string("waited in vain for ") + what + "; open:";
    for (const HWND open : windowsOf(processId_)) {
        message += " <" + utf8(captionOf(open)) + "> of class " + utf8(classOf(open)) + ";";
        if (const HWND text = GetDlgItem(open, boxTextId))
            message += " it says <" + utf8(textOf(text)) + ">;";
    }
    throw std::runtime_error(message);
}

// ---- the process

void ProgramDriver::startIn(const std::wstring& directory, const std::wstring& commandLine)
{
    const std::wstring program = folder_ + L"\\Vandrel.exe";
    if (const auto loader = program.size() < MAX_PATH ? std::nullopt : environment(L"VANDREL_LOADER")) {
        launch(nativePath(std::string(loader->begin(), loader->end())), L"\"" + unixPath(program) + L"\"",
               directory);
        await("the main window",
              soon([&] { return (window_ = FindWindowW(mainClass, nullptr)) != nullptr; }));
        threadId_ = GetWindowThreadProcessId(window_, &processId_);
        CloseHandle(std::exchange(process_, OpenProcess(PROCESS_ALL_ACCESS, FALSE, processId_)));
    } else {
        launch(extendedIfLong(program), commandLine, directory);
    }
    await("the main window", soon([&] {
              const auto found = windowsOf(processId_, mainClass);
              if (!found.empty()) window_ = found.front();
              return !found.empty() || !running();
          }));
    await("the main window of a running program", running());
    controls_ = std::make_unique<RemoteControls>(process_);
    findControls();
    if (commandLine.empty()) back();
}

void ProgramDriver::launch(const std::wstring& program, const std::wstring& arguments,
                           const std::wstring& directory)
{
    std::wstring line = L"\"" + program + L"\"" + (arguments.empty() ? L"" : L" " + arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, directory.c_str(),
                        &startup, &started)) {
        throw std::runtime_error("the program does not start: error " + std::to_string(GetLastError()));
    }
    CloseHandle(started.hThread);
    process_ = started.hProcess;
    processId_ = started.dwProcessId;
    threadId_ = started.dwThreadId;
}

void ProgramDriver::findControls()
{
    categories_ = GetDlgItem(window_, categoriesId);
    sites_ = GetDlgItem(window_, sitesId);
    statusBar_ = descendant(window_, STATUSCLASSNAMEW);
    searchBox_ = descendant(window_, WC_EDITW);
    await("the controls of the main window", categories_ && sites_ && statusBar_ && searchBox_);
}

bool ProgramDriver::running() const
{
    return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

DWORD ProgramDriver::waitForEnd()
{
    await("the end of the program", WaitForSingleObject(process_, limitMilliseconds) == WAIT_OBJECT_0);
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    kill();
    return code;
}

void ProgramDriver::kill()
{
    if (process_ == nullptr) return;
    controls_.reset();
    TerminateProcess(process_, 1);
    WaitForSingleObject(process_, limitMilliseconds);
    CloseHandle(std::exchange(process_, nullptr));
    window_ = nullptr;
}

void ProgramDriver::quit()
{
    key('Q', {VK_CONTROL});
    const DWORD code = waitForEnd();
    if (code != 0) throw std::runtime_error("the program ended with " + std::to_string(code));
}

std::wstring ProgramDriver::caption() const { return captionOf(window_); }

// ---- keys and mouse

// A control in it must have the focus: the window itself has it only for a moment.
bool ProgramDriver::hasKeyboard(HWND window) const
{
    return GetForegroundWindow() == window && IsChild(window, focus());
}

void ProgramDriver::requireKeyboard() const
{
    DWORD owner = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &owner);
    await("the program to have the keyboard", owner == processId_ || soon([&] {
                                                  GetWindowThreadProcessId(GetForegroundWindow(), &owner);
                                                  return owner == processId_;
                                              }));
}

// Earlier moves may reach the program late and take the mouse back for a moment. A click would land there,
// and a menu would lose the entry that the keys have reached. So the program is asked until the mouse
// stays.
void ProgramDriver::settleMouse(POINT screen) const
{
    constexpr int enough = 3;
    int steady = 0;
    POINT now{};
    input::moveTo(screen);
    const bool stays = soon([&] {
        ask(window_, WM_NULL);
        GetCursorPos(&now);
        if (std::abs(now.x - screen.x) <= 1 && std::abs(now.y - screen.y) <= 1) return ++steady >= enough;
        steady = 0;
        input::moveTo(screen);
        return false;
    });
    const auto text = [](POINT point) { return std::to_string(point.x) + "," + std::to_string(point.y); };
    await(("the mouse to stay at " + text(screen) + " and not at " + text(now)).c_str(), stays);
}

void ProgramDriver::key(WORD key, std::initializer_list<WORD> held) const
{
    requireKeyboard();
    input::key(key, held);
}

void ProgramDriver::type(const std::wstring& text) const
{
    requireKeyboard();
    input::type(text);
}

void ProgramDriver::retype(const std::wstring& text) const
{
    key(VK_HOME);
    key(VK_END, {VK_SHIFT});
    type(text);
}

void ProgramDriver::click(HWND list, int row) const { clickAt(controls().rowPoint(list, row)); }

void ProgramDriver::click(HWND list, const std::wstring& text) const
{
    const Texts texts = controls().column(list, 0);
    const auto found = std::ranges::find(texts, text);
    await(("a row <" + utf8(text) + ">").c_str(), found != texts.end());
    click(list, static_cast<int>(found - texts.begin()));
}

void ProgramDriver::clickHeader(HWND list, int column) const
{
    clickAt(controls().headerPoint(list, column));
}

void ProgramDriver::clickAt(POINT screen) const
{
    requireKeyboard();
    settleMouse(screen);
    input::click(screen);
}

void ProgramDriver::drag(POINT from, POINT to) const
{
    requireKeyboard();
    settleMouse(from);
    input::drag(from, to);
}

void ProgramDriver::choose(HWND list, int row, int entry, int subEntry) const
{
    requireKeyboard();
    const POINT point = controls().rowPoint(list, row);
    settleMouse(point);
    input::rightClick(point);
    await("the pop-up menu", soon([&] { return menuIsOpen(); }));
    for (int i = 0; i <= entry; ++i) input::key(VK_DOWN);
    if (subEntry >= 0) {
        input::key(VK_RIGHT);
        await("the submenu", soon([&] { return windowsOf(processId_, menuClass).size() == 2; }));
        for (int i = 0; i < subEntry; ++i) input::key(VK_DOWN);
    }
    input::key(VK_RETURN);
    await("the end of the menu", soon([&] { return !menuIsOpen(); }));
}

// ---- what it shows

std::wstring ProgramDriver::panel(int panel) const { return controls().panelText(statusBar_, panel - 1); }

HWND ProgramDriver::focus() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(threadId_, &info) ? info.hwndFocus : nullptr;
}

std::wstring ProgramDriver::focusText() const
{
    const HWND at = focus();
    return at != nullptr ? textOf(at) : std::wstring();
}

HWND ProgramDriver::labelEdit() const { return reinterpret_cast<HWND>(ask(categories_, LVM_GETEDITCONTROL)); }

bool ProgramDriver::menuIsOpen() const { return !windowsOf(processId_, menuClass).empty(); }

HWND ProgramDriver::openDialog(const std::wstring& caption) const
{
    const auto open = windowsOf(processId_, dialogClass);
    const auto found = std::ranges::find(open, caption, captionOf);
    return found != open.end() ? *found : nullptr;
}

HWND ProgramDriver::dialog(const std::wstring& caption) const
{
    HWND found = nullptr;
    await(("the dialog <" + utf8(caption) + ">").c_str(), soon([&] {
              found = openDialog(caption);
              return found != nullptr && hasKeyboard(found);
          }));
    return found;
}

bool ProgramDriver::dialogIsOpen() const { return !windowsOf(processId_, dialogClass).empty(); }

void ProgramDriver::back() const
{
    await("the main window to have the keyboard",
          soon([&] { return !dialogIsOpen() && IsWindowEnabled(window_) && hasKeyboard(window_); }));
}

std::wstring ProgramDriver::boxText(HWND box)
{
    std::wstring text = textOf(GetDlgItem(box, boxTextId));
    std::erase(text, L'\r'); // the box may return CR LF as LF
    return text;
}

std::wstring ProgramDriver::answerBox(const std::wstring& caption, int button) const
{
    const HWND box = dialog(caption);
    std::wstring text = boxText(box);
    if (button == 0) {
        key(VK_RETURN);
    } else {
        RECT area{};
        GetWindowRect(GetDlgItem(box, button), &area);
        clickAt({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    }
    await("the box to close", soon([&] { return !IsWindow(box) || !IsWindowVisible(box); }));
    return text;
}

// ---- whole steps

void ProgramDriver::openCategory(const std::wstring& title) const
{
    const std::wstring wanted = L"Vandrel - " + title;
    if (caption() == wanted) return;
    click(categories_, title);
    await(("the category <" + utf8(title) + ">").c_str(), soon([&] { return caption() == wanted; }));
}

void ProgramDriver::addSite(const std::wstring& name, const std::wstring& url,
                            const std::wstring& description) const
{
    key(VK_F3);
    const HWND editor = dialog(L"Add Site...");
    type(name);
    key(VK_TAB);
    retype(url);
    key(VK_TAB);
    type(description);
    key(VK_RETURN);
    await("the editor to close", soon([&] { return !IsWindow(editor) || !IsWindowVisible(editor); }));
}

void ProgramDriver::addCategory(const std::wstring& title) const
{
    key(VK_F2);
    dialog(L"Category Name");
    type(title);
    key(VK_RETURN);
    back();
}

} // namespace vandrel::test
