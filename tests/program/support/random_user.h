#pragma once

#include "tests/program/support/program_driver.h"
#include "tests/program/support/random_input.h"

#include <deque>
#include <map>
#include <random>

namespace vandrel::test {

// Somebody who does anything that the program lets them do, in no order: keys, letters, clicks, menu entries, and
// whatever answer a dialog takes. What is next is decided by the seed and by what is open. When the program quits it is
// started again.
//
// Files are a dialog's to choose only in `files`, a folder of its own.
class RandomUser {
  public:
    RandomUser(ProgramDriver& program, unsigned seed, std::wstring files);

    // One action, or a few that follow one another; returns their number when the program has taken them.
    // Throws std::runtime_error when the program has ended otherwise than by quitting, when it does not take
    // what it is given, and when it tells of an error within itself.
    int act();
    // Cancels whatever is open.
    void closeDialogs();
    // Closes the program; what is not saved is given up.
    void quit();

    // The last actions, the newest last.
    std::string story() const;
    // How many actions of each kind there were; the texts of the boxes, and how often each was seen.
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
    HWND seen_ = nullptr; // the dialog that was looked through last
    Place seenPlace_ = Place::dialog;
    bool popUp_ = false; // what menu is open was opened by the right button or its key
    std::deque<std::string> story_;
    std::map<std::string, int> kinds_;
    std::map<std::wstring, int> boxes_;
    int actions_ = 0;
    int starts_ = 0;
};

} // namespace vandrel::test
