#pragma once

#include "mainwindow/command_tables.h"
#include "platform/simple_controls.h"
#include "platform/status_bar.h"
#include "tests/window/platform/wine.h"
#include "tests/window/store/store_test.h"

#include <commctrl.h>
#include <shlobj.h>

namespace vandrel::test {

// The main window on the categories Arts, Bare (which is empty) and Cars, and a folder for the copies.
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
        lstCategory().sortBy(0, SortOrder::ascending);
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
    // The text of the selected folder.
    static std::wstring selectedIn(HWND browser)
    {
        const HWND tree = FindWindowExW(browser, nullptr, WC_TREEVIEWW, nullptr);
        wchar_t text[MAX_PATH]{};
        TVITEMW item{};
        item.mask = TVIF_TEXT;
        item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
        item.pszText = text;
        item.cchTextMax = MAX_PATH;
        SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return text;
    }
    static void select(HWND browser, const std::wstring& path)
    {
        const auto lower = [](std::wstring text) {
            CharLowerW(text.data());
            return text;
        };
        // The root of a drive is shown by its letter, among other words.
        const bool isRoot = path.ends_with(L'\\');
        const std::wstring wanted = lower(isRoot ? path.substr(0, 2) : path.substr(path.rfind(L'\\') + 1));
        // Wine does not always find a new folder at the first time of asking.
        EXPECT_TRUE(pumpUntil([&] {
            SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
            return lower(selectedIn(browser)).find(wanted) != std::wstring::npos;
        }));
    }
    // `then` does something between the choice and the copying.
    void backUp(
        int entry, const std::wstring& path, const std::function<void()>& then = [] {})
    {
        browse(entry, [&](HWND browser) {
            select(browser, path);
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
