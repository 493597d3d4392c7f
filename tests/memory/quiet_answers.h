#pragma once

#include <windows.h>

#include <cstddef>

namespace vandrel::test {

// What is typed and chosen in the dialogs of one command. All texts must outlive the answers.
struct Typed {
    const wchar_t* name = L"Added";
    const wchar_t* address = L"http://m.example/";
    const wchar_t* description = L"written by a test that has no memory";
    const wchar_t* line = L"A text for the input box";
    const wchar_t* file = L""; // the whole path, for a save dialog
    const wchar_t* folder = L"";
    int importButton = IDOK;
    int question = IDYES; // how questions are answered
};

// Answers every dialog and message box of this thread from inside its own loop until it is closed. A dialog
// in which the answer failed is cancelled. Allocates nothing, because it works while allocations are
// counted.
class QuietAnswers {
  public:
    explicit QuietAnswers(const Typed& typed);
    QuietAnswers(const QuietAnswers&) = delete;
    QuietAnswers& operator=(const QuietAnswers&) = delete;
    ~QuietAnswers();

    // Whether the message box of error 7 came.
    bool toldOutOfMemory() const { return outOfMemory_; }
    // Whether this is part of what a message box showed.
    bool told(const wchar_t* text) const;
    // The texts of all message boxes, one after another, cut where the buffer ends.
    const wchar_t* boxes() const { return boxes_; }
    // Names a dialog that was not expected or did not close; empty when there was none.
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
