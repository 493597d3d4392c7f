#pragma once

#include "mainwindow/menu_entries.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "tests/support/store_test.h"

#include <gtest/gtest.h>

namespace vandrel::test {

namespace html {
inline constexpr const wchar_t* saveCaption = L"Output an HTML file...";
inline constexpr const wchar_t* question = L"Output successful! Open file?";
inline constexpr const wchar_t* questionTitle = L"Success!";
// Controls of the system's file dialog.
inline constexpr int nameField = 1148;
inline constexpr int filterList = 1136;

// With the options of a first run.
inline const std::string header = "<font face=\"Arial\"><table align=center width=75% border=0 "
                                  "bordercolorlight=#ffffff bordercolordark=#999999>"
                                  "<tr><th>Site Name</th><th>Site URL</th><th>Site Description</th></tr>\r\n";
inline const std::string footer =
    "</table><center><font size=2>Generated with Vandrel by "
    "<a href=\"https://www.brisan.example\">Brisan Software</a></font></center></font>\r\n";

inline std::string row(const std::string& name, const std::string& url, const std::string& description)
{
    return "<tr><td>" + name + "</td><td><a href=\"" + url + "\">" + url + "</a></td><td>" + description +
           "</td></tr>\r\n";
}
inline std::string title(const std::string& category)
{
    return "<tr><td colspan=3 align=center><b>" + category + "</b></td></tr>";
}
} // namespace html

// The main window and a folder for the pages.
class HtmlTest : public StoreTest {
  protected:
    // Chooses the entry and answers the save dialog, then the windows that `further` expects.
    void create(
        int entry, std::function<void(HWND)> answer,
        const std::function<void(Answers&)>& further = [](Answers&) {})
    {
        Answers answers;
        answers.expect(html::saveCaption, std::move(answer));
        further(answers);
        choose(entry);
        EXPECT_ANSWERED(answers);
    }
    // Writes a page without opening it, and returns its bytes.
    std::string pageOf(int entry)
    {
        create(entry, naming(target.file(L"page.htm")), no);
        return target.read(L"page.htm");
    }
    // Tries to write a page, which must fail with this text.
    void expectFailure(int entry, std::function<void(HWND)> answer, const std::wstring& text)
    {
        create(entry, std::move(answer),
               [&](Answers& answers) { answers.expectBox(L"Error", text, IDOK, MB_ICONEXCLAMATION); });
        EXPECT_FALSE(barIsVisible());
        EXPECT_EQ(outcome(), L"Generation failed.");
    }

    static std::function<void(HWND)> naming(const std::wstring& path)
    {
        return [path](HWND dialog) {
            SendDlgItemMessageW(dialog, html::nameField, WM_SETTEXT, 0,
                                reinterpret_cast<LPARAM>(path.c_str()));
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        };
    }
    static void cancel(HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }
    static void no(Answers& answers)
    {
        answers.expectBox(html::questionTitle, html::question, IDNO, MB_ICONQUESTION);
    }

    bool barIsVisible() { return (GetWindowLongPtrW(workspace().PB.handle(), GWL_STYLE) & WS_VISIBLE) != 0; }
    std::wstring outcome() { return workspace().StatusBar1.panelText(1); }

    TempFolder target{L"target"};
};

} // namespace vandrel::test
