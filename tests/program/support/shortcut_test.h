#pragma once

#include "tests/program/support/program_test.h"

#include <optional>

namespace vandrel::test {

// Where the shell says that the user's Favorites are, until the end of the test.
class FavoritesFolder {
  public:
    explicit FavoritesFolder(const std::wstring& path)
    {
        RegCreateKeyExW(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders", 0, nullptr,
                        0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
        DWORD bytes = 0;
        if (RegQueryValueExW(key_, valueName, nullptr, &type_, nullptr, &bytes) == ERROR_SUCCESS) {
            before_.emplace(bytes, '\0');
            RegQueryValueExW(key_, valueName, nullptr, &type_, reinterpret_cast<BYTE*>(before_->data()),
                             &bytes);
        }
        EXPECT_EQ(RegSetValueExW(key_, valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                                 static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    FavoritesFolder(const FavoritesFolder&) = delete;
    FavoritesFolder& operator=(const FavoritesFolder&) = delete;
    ~FavoritesFolder()
    {
        if (before_) {
            RegSetValueExW(key_, valueName, 0, type_, reinterpret_cast<const BYTE*>(before_->data()),
                           static_cast<DWORD>(before_->size()));
        } else {
            RegDeleteValueW(key_, valueName);
        }
        RegCloseKey(key_);
    }

  private:
    static constexpr const wchar_t* valueName = L"Favorites";

    HKEY key_ = nullptr;
    DWORD type_ = REG_SZ;
    std::optional<std::string> before_;
};

// The program with a Favorites folder of the test's own; its dialog for shortcut files is used by keys.
class ShortcutTest : public ProgramTest {
  protected:
    // Ctrl+I; the keyboard is in the file list then.
    HWND openImport() const
    {
        program.key('I', {VK_CONTROL});
        const HWND dialog = program.dialog(L"Import Favorites");
        EXPECT_SOON(program.focus(), files(dialog));
        return dialog;
    }
    // The lists in the order in which Tab goes through them.
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

    // Alt with the letter under the line, and waits until the list has the keyboard.
    void goTo(HWND list, WORD letter) const
    {
        program.key(letter, {VK_MENU});
        EXPECT_SOON(program.focus(), list);
    }
    // With the arrow keys, as far as the list goes.
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
    FavoritesFolder favoritesFolder_{favorites.path()};
};

} // namespace vandrel::test
