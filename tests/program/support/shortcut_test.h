#pragma once

#include "tests/program/support/program_test.h"
#include "tests/support/registry_value.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// The program with a Favorites folder of the test's own. Its import dialog is used by keyboard.
class ShortcutTest : public ProgramTest {
  protected:
    // Presses Ctrl+I; the focus is then in the file list.
    HWND openImport() const
    {
        program.key('I', {VK_CONTROL});
        const HWND dialog = program.dialog(L"Import Favorites");
        EXPECT_SOON(program.focus(), files(dialog));
        return dialog;
    }
    // The lists in tab order.
    static HWND folders(HWND dialog) { return FindWindowExW(dialog, nullptr, L"ListBox", nullptr); }
    static HWND files(HWND dialog) { return FindWindowExW(dialog, folders(dialog), L"ListBox", nullptr); }
    static HWND drives(HWND dialog) { return FindWindowExW(dialog, nullptr, L"ComboBox", nullptr); }

    static std::wstring entry(HWND list, LRESULT row)
    {
        const LRESULT length = ask(list, LB_GETTEXTLEN, static_cast<WPARAM>(row));
        if (length < 0) return L"(none)";
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        ask(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }
    static Texts entries(HWND list)
    {
        Texts texts;
        for (LRESULT row = 0; row < ask(list, LB_GETCOUNT); ++row) texts.push_back(entry(list, row));
        return texts;
    }
    static std::wstring selected(HWND list) { return entry(list, ask(list, LB_GETCURSEL)); }

    // Alt with the underlined letter. Waits until the list has the focus.
    void goTo(HWND list, WORD letter) const
    {
        program.key(letter, {VK_MENU});
        EXPECT_SOON(program.focus(), list);
    }
    // With the arrow keys, at most to the end of the list.
    void arrowTo(HWND list, const std::wstring& text) const
    {
        program.key(VK_HOME);
        const auto rows = static_cast<int>(ask(list, LB_GETCOUNT));
        for (int row = 0; row < rows; ++row) {
            EXPECT_SOON(ask(list, LB_GETCURSEL), static_cast<LRESULT>(row));
            if (selected(list) == text) return;
            program.key(VK_DOWN);
        }
        throw std::runtime_error("the list has no such entry");
    }

    TempFolder favorites{L"favorites"};

  private:
    // The folder that the shell takes for the user's Favorites.
    RegistryValue favoritesFolder_{HKEY_CURRENT_USER,
                                   L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders",
                                   L"Favorites", favorites.path()};
};

} // namespace vandrel::test
