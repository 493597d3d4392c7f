#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace vandrel::test {

struct KeyStroke {
    const char* name;
    WORD key;
    bool ctrl = false;
    bool shift = false;
    bool alt = false;
};

// What there is to choose from. Some stand there more than once, to be chosen more often.
std::span<const KeyStroke> keysForWindows();
std::span<const KeyStroke> keysToMoveBy(); // open nothing, wherever they go
std::span<const KeyStroke> keysForDialogs();
std::span<const KeyStroke> keysForMenus();
std::span<const KeyStroke> keysForPopUps();
std::span<const KeyStroke> keysForBoxes();
std::span<const wchar_t* const> words();
std::span<const wchar_t* const> addresses(); // of this machine, where nobody answers
std::span<const int> commands();

void send(const KeyStroke& stroke);
// MessageThrottle the mouse's wheel by so many notches where the mouse is.
void turnWheel(POINT screen, int notches);

// Tells when another thread has taken all input that was sent to it: behind that input a key is sent that
// means nothing to anybody, and the state of the keyboard as that thread knows it is read until it shows the
// key.
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
