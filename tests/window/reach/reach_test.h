#pragma once

#include "mainwindow/menu_entries.h"
#include "tests/support/store_test.h"
#include "tests/support/window_facts.h"
#include "tests/support/window_parts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

// How the program's windows are used without a mouse, and what a screen reader says about them.
namespace vandrel::test {

using Names = std::vector<std::wstring>;

enum class Shown {
    mainWindow,
    siteEditor,
    properties,
    import,
    search,
    options,
    htmlOptions,
    about,
    inputBox
};

inline constexpr Shown allShown[] = {Shown::mainWindow,  Shown::siteEditor, Shown::properties,
                                     Shown::import,      Shown::search,     Shown::options,
                                     Shown::htmlOptions, Shown::about,      Shown::inputBox};
inline constexpr Shown allDialogs[] = {Shown::siteEditor, Shown::properties,  Shown::import, Shown::search,
                                       Shown::options,    Shown::htmlOptions, Shown::about,  Shown::inputBox};

inline void PrintTo(Shown shown, std::ostream* out)
{
    constexpr const char* names[] = {"main window", "site editor",  "properties", "import",   "search",
                                     "options",     "HTML options", "about box",  "input box"};
    *out << names[static_cast<std::size_t>(shown)];
}

inline bool isLabel(HWND window)
{
    return classOf(window) == WC_STATICW && (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) == 0;
}

inline bool isFrame(HWND window)
{
    return classOf(window) == WC_BUTTONW &&
           (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

// A static control without text only holds other controls.
inline bool isPanel(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0 && windowText(window).empty();
}

inline std::wstring withoutMarks(std::wstring text)
{
    std::erase(text, L'&');
    return text;
}

// What a screen reader calls the control: its own text, or the label before it when its text is its
// content.
inline std::wstring spokenName(HWND control)
{
    const std::wstring kind = classOf(control);
    const bool holdsText = kind == WC_EDITW || kind == WC_COMBOBOXW || kind == WC_LISTBOXW;
    if (!holdsText) return withoutMarks(windowText(control));
    const HWND before = GetWindow(control, GW_HWNDPREV);
    if (before == nullptr || !isLabel(before) || !IsWindowVisible(before)) return L"";
    return withoutMarks(windowText(before));
}

// The control that the window is a part of, as a text box is of a combo box and a header of a list;
// otherwise the window itself.
inline HWND wholeControl(HWND window)
{
    const std::wstring parent = classOf(GetParent(window));
    return parent == WC_COMBOBOXW || parent == WC_LISTVIEWW ? GetParent(window) : window;
}

// All visible controls in the window, without their parts.
inline std::vector<HWND> visibleWithin(HWND window)
{
    std::vector<HWND> all;
    EnumChildWindows(
        window,
        [](HWND child, LPARAM list) -> BOOL {
            if (IsWindowVisible(child) && wholeControl(child) == child)
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    return all;
}

// Presses a key, with Shift or without, through the program's own message loop.
inline void typeIn(HWND window, WPARAM key, bool shift = false)
{
    BYTE before[256]{};
    GetKeyboardState(before);
    BYTE state[256]{};
    if (shift) state[VK_SHIFT] = state[VK_LSHIFT] = 0x80;
    SetKeyboardState(state);
    PostMessageW(window, WM_KEYDOWN, key, 1);
    MessageLoop::current().dispatchPending();
    SetKeyboardState(before);
}

// Every window of the program, opened by its command in the main window.
class ReachTest : public StoreTest {
  protected:
    ReachTest()
    {
        folder.write(L"Home.udb", threeSites);
        folder.write(L"Work.udb", threeSites);
        favorites.write(L"One.url", "[InternetShortcut]\r\nURL=http://one.example/\r\n");
        favorites.write(L"Two.url", "[InternetShortcut]\r\nURL=http://two.example/\r\n");
        start();
        workspace().favoritesFolder = favorites.path();
        lstInfo().select(0);
    }

    // Opens the window, calls `look` with it, and closes it unless `look` does.
    void in(Shown shown, const std::function<void(HWND)>& look, bool closesItself = true)
    {
        SCOPED_TRACE(testing::PrintToString(shown));
        if (shown == Shown::mainWindow) return look(main->handle());
        const auto lookAndClose = [&](HWND window) {
            if (shown == Shown::htmlOptions) {
                BYTE state[256]{};
                state[VK_CONTROL] = state[VK_LCONTROL] = 0x80;
                SetKeyboardState(state);
                PostMessageW(window, WM_KEYDOWN, VK_NEXT, 1);
                MessageLoop::current().dispatchPending();
                state[VK_CONTROL] = state[VK_LCONTROL] = 0;
                SetKeyboardState(state);
            }
            look(window);
            if (closesItself) SendMessageW(window, WM_CLOSE, 0, 0);
        };
        if (shown == Shown::search || shown == Shown::about) {
            main->run(shown == Shown::search ? mnuFind : mnuAbout);
            pump();
            lookAndClose(shown == Shown::search ? main->searchWindow()->handle()
                                                : main->aboutBox()->handle());
            EXPECT_TRUE(pumpUntil([&] { return !main->searchWindow() && !main->aboutBox(); }));
            return;
        }
        struct Opening {
            int command;
            const wchar_t* caption;
        };
        static const std::map<Shown, Opening> openings{
            {Shown::siteEditor, {mnuAddWebsite, L"Add Site..."}},
            {Shown::properties, {mnuProperties, L"Beta's Properties"}},
            {Shown::import, {mnuImport, L"Import Favorites"}},
            {Shown::options, {mnuOptions, L"Options"}},
            {Shown::htmlOptions, {mnuOptions, L"Options"}},
            {Shown::inputBox, {mnuAddCategory, L"Category Name"}},
        };
        Answers answers;
        answers.expect(openings.at(shown).caption, lookAndClose);
        main->run(openings.at(shown).command);
        EXPECT_ANSWERED(answers);
    }

    // The controls that Tab leads to, from the focused one until it comes round again.
    static Names stopsFromFocus(bool backwards)
    {
        Names stops;
        const HWND first = wholeControl(GetFocus());
        do {
            stops.push_back(spokenName(wholeControl(GetFocus())));
            typeIn(GetFocus(), VK_TAB, backwards);
        } while (wholeControl(GetFocus()) != first && stops.size() < 40);
        return stops;
    }

    TempFolder favorites{L"favorites"};
};

} // namespace vandrel::test
