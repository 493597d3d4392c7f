#include "tests/memory/quiet_answers.h"

#include "tests/support/folder_browser.h"
#include "tests/support/site_editor.h"

#include <commctrl.h>
#include <shlobj.h>

#include <cwchar>
#include <string_view>

namespace vandrel::test {
namespace {

using std::wstring_view;

constexpr UINT tickMilliseconds = 10;
constexpr int boxTextId = 0xFFFF;
constexpr int nameField = 1148; // of the system's file dialog
constexpr int importFiles = 103;
constexpr int mostLooks = 200; // at one dialog

QuietAnswers* active = nullptr;

// Modeless windows are left to the commands.
bool isModeless(wstring_view caption)
{
    return caption == L"About Vandrel" || caption == L"Search All Categories";
}

HWND openDialog()
{
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            wchar_t text[64]{};
            GetClassNameW(window, text, 64);
            if (wstring_view(text) != L"#32770" || !IsWindowVisible(window) || !IsWindowEnabled(window))
                return TRUE;
            GetWindowTextW(window, text, 64);
            if (isModeless(text)) return TRUE;
            *reinterpret_cast<HWND*>(param) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// Whether it is a message box: the program's own dialogs keep an object with the window, and the system's
// other dialogs have no such text.
bool isBox(HWND dialog)
{
    return GetDlgItem(dialog, boxTextId) != nullptr && GetDlgItem(dialog, nameField) == nullptr &&
           GetWindowLongPtrW(dialog, GWLP_USERDATA) == 0 &&
           FindWindowExW(dialog, nullptr, L"Edit", nullptr) == nullptr &&
           FindWindowExW(dialog, nullptr, WC_TREEVIEWW, nullptr) == nullptr;
}

// Unlike selectFolder, this allocates nothing, so the caller asks again when Wine does not find a new folder
// at first.
bool selectsFolder(HWND browser, wstring_view path)
{
    SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.data()));
    wchar_t text[MAX_PATH]{};
    readFolder(browser, TVGN_CARET, text);
    return _wcsicmp(text, path.data() + path.rfind(L'\\') + 1) == 0;
}

void append(wchar_t* texts, std::size_t room, const wchar_t* text)
{
    const std::size_t used = std::wcslen(texts);
    std::size_t at = used;
    for (; *text != L'\0' && at + 1 < room; ++text) {
        if (*text != L'\r') texts[at++] = *text == L'\n' ? L' ' : *text;
    }
    texts[at] = L'\0';
}

// As typing it over the selected text does.
void typeInto(HWND field, const wchar_t* text)
{
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
}

} // namespace

QuietAnswers::QuietAnswers(const Typed& typed) : typed_(typed)
{
    active = this;
    timer_ = SetTimer(nullptr, 0, tickMilliseconds, tick);
}

QuietAnswers::~QuietAnswers()
{
    KillTimer(nullptr, timer_);
    active = nullptr;
}

bool QuietAnswers::told(const wchar_t* text) const
{
    return wstring_view(boxes_).find(text) != wstring_view::npos;
}

void CALLBACK QuietAnswers::tick(HWND, UINT, UINT_PTR, DWORD)
{
    if (active != nullptr) active->look();
}

void QuietAnswers::look()
{
    const HWND dialog = openDialog();
    if (dialog == nullptr) return;
    Seen& seen = seenOf(dialog);
    if (seen.busy) return; // what was pressed in it is still running
    seen.busy = true;
    ++seen.times;
    answer(dialog, seen);
    seen.busy = false;
}

QuietAnswers::Seen& QuietAnswers::seenOf(HWND dialog)
{
    for (std::size_t i = 0; i < seenCount_; ++i) {
        if (seen_[i].dialog == dialog) return seen_[i];
    }
    Seen& seen = seen_[seenCount_ < std::size(seen_) ? seenCount_++ : seenCount_ - 1];
    seen = {dialog};
    return seen;
}

void QuietAnswers::complain(const wchar_t* what, const wchar_t* caption)
{
    for (const wchar_t* const part : {what, L" <", caption, L">; "})
        append(complaint_, std::size(complaint_), part);
}

void QuietAnswers::answerBox(HWND box, const wchar_t* caption)
{
    wchar_t text[600]{};
    GetWindowTextW(GetDlgItem(box, boxTextId), text, 600);
    const std::size_t before = std::wcslen(boxes_);
    for (const wchar_t* const part : std::initializer_list<const wchar_t*>{L"[", caption, L": ", text, L"]"})
        append(boxes_, std::size(boxes_), part);
    if (wstring_view(boxes_ + before) == L"[Vandrel: Run-time error '7':  Out of memory]")
        outOfMemory_ = true;
    press(box, GetDlgItem(box, IDYES) != nullptr && IsWindowVisible(GetDlgItem(box, IDYES)) ? typed_.question
                                                                                            : IDOK);
}

void QuietAnswers::answer(HWND dialog, Seen& seen)
{
    wchar_t caption[200]{};
    GetWindowTextW(dialog, caption, 200);
    if (seen.times > mostLooks) {
        complain(L"does not close", caption);
        DestroyWindow(dialog);
        return;
    }
    const wstring_view kind = caption;
    const bool first = seen.times == 1;
    // When the text could not be typed for lack of memory, the import goes on without it, so it gets a
    // second try.
    const bool again = kind == L"Site Description" && seen.times == 2;
    int button = first || again ? IDOK : IDCANCEL;
    if (isBox(dialog)) {
        answerBox(dialog, caption);
        return;
    }
    const bool isBrowser = kind == L"Browse for Folder" || kind == L"Browse For Folder";
    if (!first && !again && !isBrowser) {
        // cancelled
    } else if (kind == addCaption || kind == editCaption) {
        typeInto(GetDlgItem(dialog, editor::name), typed_.name);
        typeInto(GetDlgItem(dialog, editor::address), typed_.address);
        typeInto(GetDlgItem(dialog, editor::description), typed_.description);
    } else if (kind == L"Category Name" || kind == L"Enter Description" || kind == L"Site Description") {
        typeInto(FindWindowExW(dialog, nullptr, L"Edit", nullptr), typed_.line);
    } else if (kind == L"Import Favorites") {
        const HWND files = GetDlgItem(dialog, importFiles);
        SendMessageW(files, LB_SETCURSEL, 0, 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(importFiles, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(files));
        button = typed_.importButton;
    } else if (isBrowser) {
        if (!selectsFolder(dialog, typed_.folder)) return;
        button = IDOK;
    } else if (GetDlgItem(dialog, nameField) != nullptr) {
        SendDlgItemMessageW(dialog, nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed_.file));
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        return;
    } else if (kind != L"Options" && !kind.ends_with(L"'s Properties")) {
        complain(L"unexpected", caption);
        button = IDCANCEL;
    }
    if (GetDlgItem(dialog, button) == nullptr) {
        SendMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    } else {
        press(dialog, button);
    }
}

} // namespace vandrel::test
