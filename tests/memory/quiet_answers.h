#pragma once

#include <windows.h>

#include <cstddef>

namespace vandrel::test {

// What is typed and chosen in the dialogs of one command; all texts live as long as the answers do.
struct Typed {
    const wchar_t* name = L"Added";
    const wchar_t* address = L"http://m.example/";
    const wchar_t* description = L"written by a test that has no memory";
    const wchar_t* line = L"A text for the input box";
    const wchar_t* file = L""; // of a save dialog, whole
    const wchar_t* folder = L"";
    int importButton = IDOK;
    int question = IDYES; // how questions are answered
};

// Answers every dialog and box of this thread from inside its own loop, again and again until it is closed: a
// dialog in which the answer failed is cancelled. Allocates nothing, since it works while every allocation
// counts.
class QuietAnswers {
  public:
    explicit QuietAnswers(const Typed& typed);
    QuietAnswers(const QuietAnswers&) = delete;
    QuietAnswers& operator=(const QuietAnswers&) = delete;
    ~QuietAnswers();

    // Whether the box of error 7 came.
    bool toldOutOfMemory() const { return outOfMemory_; }
    // Whether some other box or dialog with that text came. It may be the end of the text.
    bool told(const wchar_t* text) const;
    // All boxes, one behind the other, as far as there is room.
    const wchar_t* boxes() const { return boxes_; }
    // A dialog that nobody expected, or that did not close; empty when there was none.
    const wchar_t* complaint() const { return complaint_; }

  private:
    struct Seen {
        HWND dialog = nullptr;
        int times = 0;
        bool busy = false;
    };

    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD);
    void look();
    void answer(HWND dialog, Seen& seen);
    void answerBox(HWND box, const wchar_t* caption);
    void complain(const wchar_t* what, const wchar_t* caption);
    Seen& seenOf(HWND dialog);

    const Typed& typed_;
    UINT_PTR timer_;
    Seen seen_[32];
    std::size_t seenCount_ = 0;
    bool outOfMemory_ = false;
    wchar_t boxes_[2000]{};
    wchar_t complaint_[400]{};
};

} // namespace vandrel::test
