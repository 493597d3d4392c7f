#pragma once

#include "mainwindow/frm_main.h"
#include "platform/base/guarded.h"
#include "tests/memory/quiet_answers.h"
#include "tests/support/temp_folder.h"

#include <map>
#include <memory>
#include <string>

namespace vandrel::test {

// The files of a folder: names and bytes.
using Files = std::map<std::wstring, std::string>;

// The real main window on a small collection, which is made afresh for each run of a command.
class Collection {
  public:
    Collection();
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;
    ~Collection();

    // Restores the files and preferences for the next run, and leaves no window.
    void reset();
    // Creates the window and loads it as the program does, showing what is thrown. False when there is no
    // window.
    bool start();
    void stop();

    frmMain& main() { return *main_; }
    bool running() const { return main_ != nullptr && main_->handle() != nullptr; }
    // Drops a window that no longer exists or was closed.
    void forgetWindow();
    Workspace& workspace() { return main_->workspace(); }
    // Sends the command through the window.
    void choose(int entry);
    // Runs it as the handler of a window's event.
    template <typename Action> void asEvent(Action action);
    // Dispatches the waiting messages through the program's own loop.
    void dispatch();

    // Sets the answer to a save dialog: a file of this name in the target folder.
    void nameFile(const wchar_t* name);

    // The files in the data folder, and whether anything else was left behind there.
    Files files() const;
    std::wstring leftBehind() const;
    // Whether the last scan logged a failure.
    bool logSaysFailed() const;

    TempFolder folder;
    TempFolder shortcuts{L"shortcuts"};
    TempFolder target{L"target"};
    Typed typed;
    std::wstring server;     // "http://127.0.0.1:1234"; 127.0.0.2 and 127.0.0.3 are the same one
    bool withServer = false; // the sites answer
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
