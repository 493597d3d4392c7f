#pragma once

#include "mainwindow/menu_entries.h"
#include "platform/controls/status_bar.h"
#include "tests/support/store_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace vandrel::test {

// The import dialog's controls besides IDOK (Import) and IDCANCEL.
namespace importer {
inline constexpr const wchar_t* caption = L"Import Favorites";
inline constexpr int drives = 101;
inline constexpr int folders = 102;
inline constexpr int files = 103;
inline constexpr int importAll = 104;
} // namespace importer

inline std::string shortcutOf(const std::string& url) { return "[InternetShortcut]\r\nURL=" + url + "\r\n"; }

inline std::vector<std::wstring> entriesOf(HWND list)
{
    std::vector<std::wstring> entries;
    const auto count = static_cast<std::size_t>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    for (std::size_t entry = 0; entry < count; ++entry) {
        std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, entry, 0)), L'\0');
        SendMessageW(list, LB_GETTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
        entries.push_back(text);
    }
    return entries;
}

inline std::wstring selectedEntry(HWND list)
{
    const LRESULT entry = SendMessageW(list, LB_GETCURSEL, 0, 0);
    return entry == LB_ERR ? L"(none)" : entriesOf(list)[static_cast<std::size_t>(entry)];
}

// Presses the mouse on an entry as the user does, once or twice.
inline void clickEntry(HWND list, const std::wstring& text, bool twice = false)
{
    const auto entries = entriesOf(list);
    const auto found = std::ranges::find(entries, text);
    ASSERT_NE(found, entries.end()) << testing::PrintToString(text);
    const auto entry = static_cast<WPARAM>(found - entries.begin());
    SendMessageW(list, LB_SETTOPINDEX, entry, 0);
    RECT area{};
    SendMessageW(list, LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
    const LPARAM at = MAKELPARAM(area.left + 5, (area.top + area.bottom) / 2);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(list, WM_LBUTTONUP, 0, at);
    if (!twice) return;
    SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    SendMessageW(list, WM_LBUTTONUP, 0, at);
}

// A key pressed in the control that has the focus, through the program's own message loop.
inline void typeInDialog(WPARAM key)
{
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    MessageLoop::current().dispatchPending();
}

// The parts of the dialog that the tests look at and use.
struct ImportDialog {
    HWND window;

    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND folders() const { return control(importer::folders); }
    HWND files() const { return control(importer::files); }
    std::vector<std::wstring> fileNames() const { return entriesOf(files()); }
    bool enabled(int id) const { return IsWindowEnabled(control(id)) != 0; }
    std::wstring drive() const { return windowText(control(importer::drives)); }
    // Whether the path below the lists is this folder's.
    bool shows(const std::wstring& folder) const { return childWithText(window, folder) != nullptr; }
    HWND progressBar() const { return FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr); }

    void focus(int id) const
    {
        SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(id)), TRUE);
    }
    void clickFile(const std::wstring& name) const { clickEntry(files(), name); }
    void openFolder(const std::wstring& entry) const { clickEntry(folders(), entry, true); }
    void chooseDrive(const std::wstring& name) const
    {
        const HWND list = control(importer::drives);
        const LRESULT entry = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(name.c_str()));
        ASSERT_NE(entry, CB_ERR) << testing::PrintToString(name);
        SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(importer::drives, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list));
    }
    void press(int id) const { test::press(window, id); }
    void cancel() const { press(IDCANCEL); }
};

// A drive that the system lists but nobody can read, like a drive with no disk in it; for one test.
class UnreadableDrive {
  public:
    UnreadableDrive() { EXPECT_TRUE(DefineDosDeviceW(DDD_RAW_TARGET_PATH, name, L"\\Device\\NoSuchDisk")); }
    UnreadableDrive(const UnreadableDrive&) = delete;
    UnreadableDrive& operator=(const UnreadableDrive&) = delete;
    ~UnreadableDrive() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, name, nullptr); }

    static constexpr const wchar_t* name = L"Q:";
};

inline std::function<void(HWND)> inDialog(std::function<void(const ImportDialog&)> act)
{
    return [act = std::move(act)](HWND window) { act({window}); };
}

inline Answers& expectDescription(Answers& answers, const std::wstring& text)
{
    return answers.expectInput(L"Site Description", L"Enter a description for the site.", text);
}

inline Answers& expectReminder(Answers& answers)
{
    return answers.expectBox(L"Import All",
                             L"Please remember to edit the description for all imported files.", IDOK,
                             MB_ICONASTERISK);
}

// The main window with one category, "Work", and a Favorites folder of its own.
class ImportTest : public StoreTest {
  protected:
    void startWith(const std::string& category)
    {
        folder.write(L"Work.udb", category);
        start();
        workspace().favoritesFolder = favorites.path();
    }
    void startEmpty() { startWith(""); }
    void addShortcut(const std::wstring& name, const std::string& url)
    {
        favorites.write(name, shortcutOf(url));
    }
    void makeSubfolder(const std::wstring& name) { CreateDirectoryW(favorites.file(name).c_str(), nullptr); }

    // Opens the dialog from the menu; `act` must close it. `further` sets up answers for the windows that
    // follow.
    void open(
        const std::function<void(const ImportDialog&)>& act,
        const std::function<void(Answers&)>& further = [](Answers&) {})
    {
        Answers answers;
        HWND progress = nullptr;
        answers.expect(importer::caption, inDialog([&](const ImportDialog& dialog) {
                           progress = dialog.progressBar();
                           act(dialog);
                       }));
        further(answers);
        // A busy dialog, which a slow machine may keep busy for a while, is not waiting for an answer.
        const MessageLoop::Registration busyDialog(MessageLoop::current(), [&](const MSG& message) {
            return message.message == WM_TIMER && message.hwnd == nullptr && progress != nullptr &&
                   GetActiveWindow() == GetParent(progress) &&
                   (GetWindowLongPtrW(progress, GWL_STYLE) & WS_VISIBLE) != 0;
        });
        choose(mnuImport);
        EXPECT_ANSWERED(answers);
    }
    // Imports one file, with this description.
    void importOne(const std::wstring& file, const std::wstring& description = L"")
    {
        open(
            [&](const ImportDialog& dialog) {
                dialog.clickFile(file);
                dialog.press(IDOK);
            },
            [&](Answers& answers) { expectDescription(answers, description); });
    }
    // Closes the dialog, which must still be open.
    static void cancelOpenDialog(Answers& answers)
    {
        answers.expect(importer::caption, inDialog([](const ImportDialog& dialog) { dialog.cancel(); }));
    }
    void importAll()
    {
        open([](const ImportDialog& dialog) { dialog.press(importer::importAll); },
             [](Answers& answers) { expectReminder(answers); });
    }
    std::string saved() { return folder.read(L"Work.udb"); }
    std::wstring outcome() { return workspace().StatusBar1.panelText(1); }

    TempFolder favorites{L"favorites"};
};

} // namespace vandrel::test
