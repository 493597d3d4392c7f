#pragma once

#include "tests/program/support/program_driver.h"
#include "tests/program/support/random_input.h"

#include <deque>
#include <map>
#include <random>

namespace vandrel::test {

// A user who does anything that the program allows, in no order: keys, letters, clicks, menu entries, and any
// answer that a dialog takes. The seed, and what is open, decide what comes next. When the program quits, it
// is started again.
//
// Dialogs choose files only in the folder `files`.
class RandomUser {
  public:
    RandomUser(ProgramDriver& program, unsigned seed, std::wstring files);

    // Does one action, or a few in a row, and returns how many when the program has handled them. Throws
    // std::runtime_error when the program has ended other than by quitting, when it does not handle its
    // input, and when it reports an internal error.
    int act();
    // Cancels whatever is open.
    void closeDialogs();
    // Closes the program and gives up what is not saved.
    void quit();

    // The last actions, the newest last.
    std::string story() const;
    // How many actions of each kind there were, and how often each message box was seen, by its text.
    const std::map<std::string, int>& kinds() const { return kinds_; }
    const std::map<std::wstring, int>& boxes() const { return boxes_; }
    int starts() const { return starts_; }

  private:
    enum class Place { window, menu, dialog, box, files };

    void start();
    void startAgain();
    void regainKeyboard();
    Place look();
    void readBox();
    void settle();

    void actInWindow();
    void actInMenu();
    void actInDialog();
    void answerBox();
    void answerFiles();

    void press(const KeyStroke& stroke);
    void moveAround();
    void typeWord();
    void mouse(HWND window);
    void command();
    void reshape();
    void close(HWND window);

    void note(const char* kind, const std::string& what);
    std::size_t below(std::size_t count) { return engine_() % count; }
    bool chance(unsigned percent) { return engine_() % 100 < percent; }
    template <typename List> const auto& oneOf(const List& list) { return list[below(std::size(list))]; }

    ProgramDriver& program_;
    std::mt19937 engine_;
    std::wstring files_;
    std::unique_ptr<TakenInput> taken_;
    HWND front_ = nullptr;
    HWND seen_ = nullptr; // the dialog that was examined last
    Place seenPlace_ = Place::dialog;
    bool popUp_ = false; // the open menu was opened by the right button or its key
    std::deque<std::string> story_;
    std::map<std::string, int> kinds_;
    std::map<std::wstring, int> boxes_;
    int actions_ = 0;
    int starts_ = 0;
};

} // namespace vandrel::test
