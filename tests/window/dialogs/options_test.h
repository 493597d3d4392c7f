#pragma once

#include "dialogs/frm_options.h"
#include "platform/controls/font.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace vandrel {

inline void PrintTo(const OptionsState& state, std::ostream* out)
{
    *out << testing::PrintToString(state.font.name) << " " << state.font.size << " points, colour "
         << state.font.color << (state.font.bold ? ", bold" : "") << (state.font.italic ? ", italic" : "")
         << "; page: " << testing::PrintToString(state.htmlFont) << ", border " << state.htmlBorder
         << ", width " << testing::PrintToString(state.htmlTableWidth)
         << (state.generateEmpty ? ", empty ones" : "");
}

} // namespace vandrel

namespace vandrel::test {

// The first of these faces that is installed: systems without the usual ones have others in their place.
inline std::wstring installed(std::initializer_list<const wchar_t*> names)
{
    const std::vector<std::wstring> all = screenFonts();
    for (const wchar_t* const name : names) {
        if (std::ranges::find(all, name) != all.end()) return name;
    }
    ADD_FAILURE() << "no such font";
    return {};
}
inline std::wstring sansFace() { return installed({L"Arial", L"Liberation Sans"}); }
inline std::wstring serifFace() { return installed({L"Times New Roman", L"Liberation Serif"}); }
inline std::wstring monoFace() { return installed({L"Courier New", L"Liberation Mono"}); }

// The Options dialog's controls besides IDOK and IDCANCEL.
namespace options {
inline constexpr const wchar_t* caption = L"Options";
inline constexpr int appearancePage = 101;
inline constexpr int fonts = 102;
inline constexpr int fontSize = 103;
inline constexpr int bold = 104;
inline constexpr int italic = 105;
inline constexpr int fontColor = 106;
inline constexpr int color = 107;
inline constexpr int preview = 108;
inline constexpr int htmlPage = 109;
inline constexpr int htmlFonts = 110;
inline constexpr int border = 111;
inline constexpr int width = 112;
inline constexpr int empty = 113;
inline constexpr int tabs = 114;
inline constexpr const wchar_t* mismatch = L"Run-time error '13':\n\nType mismatch";
inline constexpr const wchar_t* overflow = L"Run-time error '6':\n\nOverflow";
inline constexpr const wchar_t* invalidValue = L"Run-time error '380':\n\nInvalid property value";
} // namespace options

// The dialog as the user sees and uses it.
struct OptionsDialog {
    HWND window;

    HWND page(int id) const { return GetDlgItem(window, id); }
    HWND part(int id) const
    {
        for (const HWND parent : {window, page(options::appearancePage), page(options::htmlPage)}) {
            if (const HWND found = GetDlgItem(parent, id); found != nullptr) return found;
        }
        return nullptr;
    }
    std::wstring text(int id) const { return windowText(part(id)); }
    // The label that shows the name of the chosen font. It comes before the label that says what it is.
    HWND fontName() const
    {
        return GetWindow(childWithText(page(options::appearancePage), L"Overall Font Name:"), GW_HWNDPREV);
    }
    bool checked(int id) const { return SendMessageW(part(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }

    std::vector<std::wstring> entries(int id) const
    {
        const bool combo = classOf(part(id)) == L"ComboBox";
        std::vector<std::wstring> all;
        const LRESULT count = SendMessageW(part(id), combo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0);
        for (WPARAM entry = 0; entry < static_cast<WPARAM>(count); ++entry) {
            const LRESULT length = SendMessageW(part(id), combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, entry, 0);
            std::wstring text(static_cast<std::size_t>(length), L'\0');
            SendMessageW(part(id), combo ? CB_GETLBTEXT : LB_GETTEXT, entry,
                         reinterpret_cast<LPARAM>(text.data()));
            all.push_back(text);
        }
        return all;
    }
    std::optional<std::wstring> selected(int list) const
    {
        const LRESULT entry = SendMessageW(part(list), LB_GETCURSEL, 0, 0);
        if (entry == LB_ERR) return std::nullopt;
        return entries(list)[static_cast<std::size_t>(entry)];
    }

    // Types over everything in the box.
    void type(int combo, const std::wstring& text) const
    {
        const HWND edit = FindWindowExW(part(combo), nullptr, L"Edit", nullptr);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Chooses an entry from the open list.
    void choose(int combo, const std::wstring& text) const
    {
        const LRESULT entry = SendMessageW(part(combo), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(text.c_str()));
        ASSERT_NE(entry, CB_ERR) << testing::PrintToString(text);
        SendMessageW(part(combo), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        SendMessageW(GetParent(part(combo)), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(part(combo)));
    }
    void clickFont(int list, const std::wstring& name) const
    {
        const auto all = entries(list);
        const auto found = std::ranges::find(all, name);
        ASSERT_NE(found, all.end()) << testing::PrintToString(name);
        const auto entry = static_cast<WPARAM>(found - all.begin());
        SendMessageW(part(list), LB_SETTOPINDEX, entry, 0);
        RECT area{};
        SendMessageW(part(list), LB_GETITEMRECT, entry, reinterpret_cast<LPARAM>(&area));
        const LPARAM at = MAKELPARAM(area.left + 5, (area.top + area.bottom) / 2);
        SendMessageW(part(list), WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(part(list), WM_LBUTTONUP, 0, at);
    }
    void click(int id) const { SendMessageW(part(id), BM_CLICK, 0, 0); }
    void focus(int id) const
    {
        SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(part(id)), TRUE);
    }
};

// The dialog with options and a form of the test's own. It is shown while the test goes on, so the test is
// its message loop.
class OptionsTest : public testing::Test {
  protected:
    ~OptionsTest() override
    {
        loaded.reset();
        pump();
    }
    OptionsDialog open()
    {
        owner.show();
        loaded.emplace(owner.handle(), state, form);
        loaded->showModeless();
        pump();
        return {loaded->handle()};
    }
    // Does what raises the error and closes the message box.
    static void expectError(const wchar_t* text, const std::function<void()>& act)
    {
        Answers answers;
        answers.expectBox(L"Vandrel", text, IDOK, MB_ICONHAND);
        act();
        EXPECT_ANSWERED(answers);
    }

    // Stands for the main window.
    struct FontedForm : Form {
        std::vector<Control*> controls() override { return {&label}; }
        void fontsChanged() override { ++changes; }
        TestWindow window;
        Label label{window.handle(), L"label"};
        int changes = 0;
    };

    TestWindow owner;
    FontedForm form;
    OptionsState state{.font = {.name = sansFace(), .color = 0, .size = 8, .bold = false, .italic = false},
                       .htmlFont = serifFace(),
                       .htmlTableWidth = L"75%",
                       .htmlBorder = 0,
                       .generateEmpty = false};
    std::optional<frmOptions> loaded;
};

} // namespace vandrel::test
