#pragma once

#include "mainwindow/frm_main.h"
#include "platform/base/guarded.h"
#include "tests/memory/quiet_answers.h"
#include "tests/support/temp_folder.h"

#include <map>
#include <memory>
#include <string>

namespace vandrel::test {

// The files of a folder with their bytes.
using Files = std::map<std::wstring, std::string>;

// The real main window on a small collection, which is made anew for each run of a command.
class Collection {
  public:
    Collection();
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    ~Collection();

    // The files and preferences as at the beginning of each run, and no window.
    void reset();
    // Makes the window and loads it, as the program does; what is thrown is shown. False when no window came
    // about.
    bool start();
    void stop();

    frmMain& main() { return *main_; }
    bool running() const { return main_ != nullptr && main_->handle() != nullptr; }
    // No window any more, or one that was closed.
    void forgetWindow();
    Workspace& workspace() { return main_->workspace(); }
    // The command through the window.
    void choose(int entry);
    // Runs it as something that a window asks for.
    template <typename Action> void asEvent(Action action);
    // Messages that are waiting, through the program's own loop.
    void dispatch();

    // What a save dialog is told: a file of that name in the target folder.
    void nameFile(const wchar_t* name);

    // What is in the folder of the categories, and whether something was left behind that is no file of the
    // program's.
    Files files() const;
    std::wstring leftBehind() const;
    // Of the last scan.
    bool logSaysFailed() const;

    TempFolder folder;
    TempFolder shortcuts{L"shortcuts"};
    TempFolder target{L"target"};
    Typed typed;
    std::wstring server;     // "http://127.0.0.1:1234"
    bool withServer = false; // the sites are there
    bool escaped = false;    // an error left the program's message loop
    SettingsStore store;

  private:
    frmMain::Startup startup() const;

    std::wstring application_;
    std::wstring named_;
    std::unique_ptr<frmMain> main_;
};

template <typename Action> void Collection::asEvent(Action action)
{
    guarded(main_->handle(), 0, [&]() -> LRESULT {
        action();
        return 0;
    });
}

} // namespace vandrel::test
