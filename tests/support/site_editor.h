#pragma once

#include "tests/support/answers.h"

#include <functional>
#include <string>

namespace vandrel::test {

// The site editor's fields.
namespace editor {
inline constexpr int name = 101;
inline constexpr int address = 102;
inline constexpr int description = 103;
inline constexpr int browse = 104;
} // namespace editor

// Puts a text in place of a field's, as typing it over the selected whole does.
inline void typeOver(HWND dialog, int field, const std::wstring& text)
{
    const HWND box = GetDlgItem(dialog, field);
    SendMessageW(box, EM_SETSEL, 0, -1);
    SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

inline std::wstring fieldText(HWND dialog, int field) { return windowText(GetDlgItem(dialog, field)); }

// For Answers::expect: what a user does in the editor.
inline std::function<void(HWND)> typeSite(const std::wstring& name, const std::wstring& url,
                                          const std::wstring& description)
{
    return [=](HWND dialog) {
        typeOver(dialog, editor::name, name);
        typeOver(dialog, editor::address, url);
        typeOver(dialog, editor::description, description);
        press(dialog, IDOK);
    };
}

inline std::function<void(HWND)> pressing(int button)
{
    return [button](HWND dialog) { press(dialog, button); };
}

inline constexpr const wchar_t* addCaption = L"Add Site...";
inline constexpr const wchar_t* editCaption = L"Edit selected site...";

} // namespace vandrel::test
