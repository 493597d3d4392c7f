#pragma once

#include "mainwindow/menu_entries.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "tests/support/folder_browser.h"
#include "tests/support/store_test.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// The main window with the categories Arts, Bare (which is empty) and Cars, and a folder for the copies.
class BackupTest : public StoreTest {
  protected:
    static constexpr const wchar_t* done = L"Backup successful.";
    static constexpr const wchar_t* failed = L"Backup failed.";

    void startWithThree(const std::wstring& selected = L"Cars")
    {
        folder.write(L"Arts.udb", arts);
        folder.write(L"Bare.udb", "");
        folder.write(L"Cars.udb", cars);
        start();
        categoryRows().sortBy(0, SortOrder::ascending);
        clickCategory(selected);
    }
    // Chooses the entry and answers the folder browser; nothing else may open.
    void browse(int entry, const std::function<void(HWND)>& answer)
    {
        Answers answers;
        // The caption is the system's own.
        answers.expect(runsUnderWine() ? L"Browse for Folder" : L"Browse For Folder", [&](HWND browser) {
            EXPECT_NE(childWithText(browser, entry == mnuBUAllCat
                                                 ? L"Choose where to backup the files:"
                                                 : L"Choose where to backup the selected category:"),
                      nullptr);
            answer(browser);
        });
        choose(entry);
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(IsWindowEnabled(main->handle()));
    }
    // `then` is called between choosing the folder and copying.
    void backUp(
        int entry, const std::wstring& path, const std::function<void()>& then = [] {})
    {
        browse(entry, [&](HWND browser) {
            EXPECT_TRUE(selectFolder(browser, path));
            press(browser, IDOK);
            then();
        });
    }
    void expectNothingLeftOver()
    {
        for (const TempFolder* const place : {&folder, &target}) {
            for (const std::wstring& name : place->names()) {
                EXPECT_TRUE(name.ends_with(L".udb")) << testing::PrintToString(name);
            }
        }
    }

    bool barIsVisible() { return (GetWindowLongPtrW(workspace().PB.handle(), GWL_STYLE) & WS_VISIBLE) != 0; }
    std::wstring outcome() { return workspace().StatusBar1.panelText(1); }

    TempFolder target{L"target"};
    const std::string arts = "b|http://b/|B|1/1/2001\r\na|http://a/|\x80 \x81|1/2/2001\r\n";
    const std::string cars = "c|http://c/|C|1/3/2001\r\nno record\r\n";
};

} // namespace vandrel::test
