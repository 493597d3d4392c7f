#pragma once

#include "tests/program/support/remote_controls.h"

#include <windows.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace vandrel::test {

using Texts = std::vector<std::wstring>;

// One run of Vandrel.exe as a user runs it: a copy of the program in a folder of its own, driven by real
// keys and mouse, its controls read from outside. Whatever does not happen within the limit throws
// std::runtime_error, with what was awaited and which windows were open; the test fails with that.
class ProgramDriver {
  public:
    // Puts the program into the folder, which becomes its data folder, unless it is there already.
    explicit ProgramDriver(std::wstring folder);
    ProgramDriver(const ProgramDriver&) = delete;
    ProgramDriver& operator=(const ProgramDriver&) = delete;
    ~ProgramDriver(); // ends the program if it is still running

    // ---- the process

    // Starts it there and waits until its window has the focus. With a command line the user sees the site
    // editor first; wait for that with dialog().
    void start(const std::wstring& commandLine = L"") { startIn(folder_, commandLine); }
    // The same with a current directory other than the program's folder.
    void startFrom(const std::wstring& directory) { startIn(directory, L""); }
    bool running() const;
    // Waits until it ends of its own accord; returns its exit code.
    DWORD waitForEnd();
    void kill();
    // Ctrl+Q, and waits for the end.
    void quit();

    HWND window() const { return window_; }
    std::wstring caption() const;

    // ---- keys and mouse; only while a window of this program has the focus

    void key(WORD key, std::initializer_list<WORD> held = {}) const;
    void type(const std::wstring& text) const;
    void drag(POINT from, POINT to) const;
    // Selects all in the focused text box and types over it.
    void retype(const std::wstring& text) const;
    void click(HWND list, int row) const;
    void click(HWND list, const std::wstring& text) const; // the first row whose first column shows it
    void clickHeader(HWND list, int column) const;
    void clickAt(POINT screen) const;
    // Opens the pop-up menu of the row with the right button and goes down to the entry with the arrow
    // keys. `entry` counts from 0 without separators, and so does `subEntry` in the submenu.
    void choose(HWND list, int row, int entry, int subEntry = -1) const;

    // ---- what it shows

    HWND categories() const { return categories_; }
    HWND sites() const { return sites_; }
    HWND searchBox() const { return searchBox_; } // the Edit in it
    Texts titles() const { return controls().column(categories_, 0); }
    Texts column(int column) const { return controls().column(sites_, column); }
    int siteCount() const { return RemoteControls::rowCount(sites_); }
    std::wstring panel(int panel) const; // 1 is the first
    const RemoteControls& controls() const { return *controls_; }

    // The control of the program that has the focus.
    HWND focus() const;
    // The text of the focused control.
    std::wstring focusText() const;
    HWND labelEdit() const; // of the category list; null while no label is being edited
    bool menuIsOpen() const;

    // Waits until a dialog or message box with this caption has the focus.
    HWND dialog(const std::wstring& caption) const;
    // The dialog or message box with this caption; null when none is open.
    HWND openDialog(const std::wstring& caption) const;
    // Whether any dialog or message box is open.
    bool dialogIsOpen() const;
    // Waits until the dialog is gone and the main window has the focus again.
    void back() const;
    // The text of a message box.
    static std::wstring boxText(HWND box);
    // Waits for a message box and answers it with the button of this id, or with Enter. Returns its text.
    std::wstring answerBox(const std::wstring& caption, int button = 0) const;

    // ---- whole steps

    // Clicks on the category unless it is shown already: a second click would load it again, and from
    // outside nobody can tell when.
    void openCategory(const std::wstring& title) const;
    // F3, the three texts, Enter. Waits until the editor is gone.
    void addSite(const std::wstring& name, const std::wstring& url, const std::wstring& description) const;
    // F2, the title, Enter.
    void addCategory(const std::wstring& title) const;

  private:
    void startIn(const std::wstring& directory, const std::wstring& commandLine);
    void launch(const std::wstring& program, const std::wstring& arguments, const std::wstring& directory);
    void await(const char* what, bool happened) const;
    void findControls();
    bool hasKeyboard(HWND window) const;
    void requireKeyboard() const;
    void settleMouse(POINT screen) const;

    std::wstring folder_;
    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
    DWORD threadId_ = 0;
    HWND window_ = nullptr;
    HWND categories_ = nullptr;
    HWND sites_ = nullptr;
    HWND statusBar_ = nullptr;
    HWND searchBox_ = nullptr;
    std::unique_ptr<RemoteControls> controls_;
};

// The pop-up menus' entries, separators left out.
enum SitePopUp {
    popOpen,
    popOpenNew,
    popCopy,
    popEdit,
    popExport,
    popScan,
    popAddSite,
    popRemoveSite,
    popMoveTo,
    popProperties,
};
enum CategoryPopUp { popAddCategory, popRemoveCategory, popRenameCategory };

} // namespace vandrel::test
