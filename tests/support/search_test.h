#pragma once

#include "mainwindow/menu_entries.h"
#include "platform/windows/topmost.h"
#include "search/frm_search.h"
#include "tests/support/input.h"
#include "tests/support/list_clicks.h"
#include "tests/support/message_watch.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"
#include "tests/support/window_parts.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// The controls of the search window.
namespace parts {
inline constexpr int term = 101;
inline constexpr int section = 102; // and the three behind it
inline constexpr int caseSensitive = 106;
inline constexpr int results = 107;
} // namespace parts

enum Section { allSections, nameOnly, urlOnly, descriptionOnly };

// Two categories of two sites, in which "daily" stands in a name, an address and a description, and an empty
// one.
inline constexpr const char* newsSites = "Daily News|http://Paper.example/|Read It Early|9/30/2002\r\n"
                                         "Weather|http://sky.example/daily|Clouds|10/1/2002\r\n";
inline constexpr const char* toolsSites = "Compiler|http://gcc.example/|DAILY builds|1/1/2003\r\n"
                                          "daily diary||private|1/2/2003\r\n";

// The main window with the search window beside it.
class SearchTest : public StoreTest {
  protected:
    void startWithCategories()
    {
        folder.write(L"News.udb", newsSites);
        folder.write(L"Tools.udb", toolsSites);
        folder.write(L"Unused.udb", "");
        start();
        open();
    }
    void open()
    {
        main->run(mnuFind);
        pump();
        ASSERT_NE(main->searchWindow(), nullptr);
    }

    frmSearch& search() { return *main->searchWindow(); }
    HWND dialog() { return search().handle(); }
    HWND part(int id) { return GetDlgItem(dialog(), id); }
    HWND frame(const std::wstring& text) { return childWithText(dialog(), text); }
    // Panels count from 1.
    std::wstring panel(int number)
    {
        const HWND bar = FindWindowExW(dialog(), nullptr, STATUSCLASSNAMEW, nullptr);
        std::wstring text(
            LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(number - 1), 0)) + 1U, L'\0');
        SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(number - 1),
                     reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }
    void choose(Section section) { press(dialog(), parts::section + section); }
    void setCaseSensitive(bool on)
    {
        if ((SendMessageW(part(parts::caseSensitive), BM_GETCHECK, 0, 0) == BST_CHECKED) != on)
            press(dialog(), parts::caseSensitive);
    }
    // Types the term and presses the button.
    void find(const std::wstring& term)
    {
        typeOver(dialog(), parts::term, term);
        press(dialog(), IDOK);
    }
    Lines found(std::size_t column = 0) { return this->column(search().results(), column); }
    // Names found in a section with letter case ignored, or not.
    Lines foundIn(Section section, bool caseSensitive, const std::wstring& term)
    {
        choose(section);
        setCaseSensitive(caseSensitive);
        find(term);
        return found();
    }
    using StoreTest::choose;
};

// The text of a category file with this many sites.
inline std::string manySites(const std::string& name, int count)
{
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += name + " " + std::to_string(i) + "|http://many.example/|d|1/1/2003\r\n";
    return lines;
}

// Does something whenever a running search dispatches messages. `action` is told how often that has been,
// from 1.
class SearchTurns {
  public:
    SearchTurns(frmMain& main, std::function<void(int turn)> action)
        : main_(main),
          action_(std::move(action)),
          filter_(MessageLoop::current(), [this](MSG& message) { return filterMessage(message); }),
          watch_(main.workspace().lstCategory.handle(), LVM_ENSUREVISIBLE, [this] {
              // What the action itself scrolls into view is none of the search's doing.
              if (!acting_) PostThreadMessageW(GetCurrentThreadId(), turnMessage, 0, 0);
          })
    {
        main.searchWindow()->setTurnMilliseconds(0);
    }
    int count() const { return count_; }

  private:
    static constexpr UINT turnMessage = WM_APP + 1;

    bool filterMessage(const MSG& message)
    {
        if (message.hwnd != nullptr || message.message != turnMessage) return false;
        const frmSearch* const search = main_.searchWindow();
        if (search == nullptr || !search->searching() || acting_) return true;
        acting_ = true;
        action_(++count_);
        acting_ = false;
        return true;
    }

    frmMain& main_;
    std::function<void(int)> action_;
    int count_ = 0;
    bool acting_ = false;
    MessageLoop::Registration filter_;
    MessageWatch watch_;
};

} // namespace vandrel::test
