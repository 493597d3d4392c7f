#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace vandrel::test {

struct KeyStroke {
    const char* name = nullptr;
    WORD key = 0;
    bool ctrl = false;
    bool shift = false;
    bool alt = false;
};

// What random input is chosen from. Some entries occur more than once, to be chosen more often.
std::span<const KeyStroke> keysForWindows();
std::span<const KeyStroke> keysToMoveBy(); // open nothing, whichever window gets them
std::span<const KeyStroke> keysForDialogs();
std::span<const KeyStroke> keysForMenus();
std::span<const KeyStroke> keysForPopUps();
std::span<const KeyStroke> keysForBoxes();
std::span<const wchar_t* const> words();
std::span<const wchar_t* const> addresses(); // on this machine, where nobody answers
std::span<const int> commands();

void send(const KeyStroke& stroke);
// Turns the mouse wheel by this many notches, with the mouse at the point.
void turnWheel(POINT screen, int notches);

// Finds out when another thread has handled all its input: a key that means nothing is sent after that
// input, and the state of the keyboard as that thread knows it is read until it shows the key.
class TakenInput {
  public:
    explicit TakenInput(DWORD thread);
    TakenInput(const TakenInput&) = delete;
    TakenInput& operator=(const TakenInput&) = delete;
    ~TakenInput();

    // False when the key did not arrive in time.
    bool wait(DWORD milliseconds);

  private:
    DWORD thread_;
    WORD next_ = 0;
};

} // namespace vandrel::test
