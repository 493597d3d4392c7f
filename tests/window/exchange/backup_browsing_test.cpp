#include "tests/support/message_watch.h"
#include "tests/window/exchange/backup_test.h"

#include <shellapi.h>

namespace vandrel::test {
namespace {

// The folder browser, which both backup commands show.
class BackupBrowsing : public BackupTest, public testing::WithParamInterface<int> {
  protected:
    // The shell's name for a special folder.
    static std::wstring nameOf(int place)
    {
        PIDLIST_ABSOLUTE id = nullptr;
        SHGetSpecialFolderLocation(nullptr, place, &id);
        SHFILEINFOW info{};
        SHGetFileInfoW(reinterpret_cast<const wchar_t*>(id), 0, &info, sizeof info,
                       SHGFI_PIDL | SHGFI_DISPLAYNAME);
        CoTaskMemFree(id);
        return info.szDisplayName;
    }
    static void cancel(HWND browser) { press(browser, IDCANCEL); }
};

TEST_P(BackupBrowsing, BelongsToTheWindowAndOffersEverythingFromTheDesktopOn)
{
    startWithThree();
    browse(GetParam(), [&](HWND browser) {
        EXPECT_EQ(GetWindow(browser, GW_OWNER), main->handle());
        EXPECT_FALSE(IsWindowEnabled(main->handle()));
        wchar_t text[MAX_PATH]{};
        readFolder(browser, TVGN_ROOT, text);
        EXPECT_EQ(std::wstring(text), nameOf(CSIDL_DESKTOP));
        cancel(browser);
    });
}

TEST_P(BackupBrowsing, TakesFoldersOfTheFileSystemOnly)
{
    startWithThree();
    browse(GetParam(), [&](HWND browser) {
        PIDLIST_ABSOLUTE computer = nullptr;
        SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &computer);
        SendMessageW(browser, BFFM_SETSELECTIONW, FALSE, reinterpret_cast<LPARAM>(computer));
        CoTaskMemFree(computer);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(browser, IDOK)));
        EXPECT_TRUE(selectFolder(browser, target.path()));
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(browser, IDOK)));
        cancel(browser);
    });
}

TEST_P(BackupBrowsing, LeavesTheCurrentDirectoryAsItWas)
{
    startWithThree();
    std::array<wchar_t, 1024> before{};
    std::array<wchar_t, 1024> after{};
    GetCurrentDirectoryW(1024, before.data());
    browse(GetParam(), [&](HWND browser) {
        SetCurrentDirectoryW(target.path().c_str()); // as what the shell loads may do
        cancel(browser);
    });
    GetCurrentDirectoryW(1024, after.data());
    SetCurrentDirectoryW(before.data());
    EXPECT_EQ(std::wstring(after.data()), std::wstring(before.data()));
}

TEST_P(BackupBrowsing, CancelledChangesNothingAndShowsNothing)
{
    startWithThree();
    workspace().StatusBar1.setPanelText(1, L"before");
    const std::size_t maximum = workspace().PB.maximum();
    bool barShown = false;
    const MessageWatch bar(workspace().PB.handle(), WM_SHOWWINDOW, [&] { barShown = true; });
    browse(GetParam(), [&](HWND browser) {
        EXPECT_TRUE(selectFolder(browser, target.path()));
        cancel(browser);
    });
    EXPECT_EQ(outcome(), L"before");
    EXPECT_EQ(workspace().PB.maximum(), maximum);
    EXPECT_FALSE(barShown);
    EXPECT_EQ(target.names(), Lines{});
    EXPECT_EQ(folder.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
}

TEST_P(BackupBrowsing, ANewChoiceIsAskedForEachTime)
{
    startWithThree();
    backUp(GetParam(), target.path());
    const Lines before = target.names();
    SetFileAttributesW(target.file(L"Cars.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    workspace().StatusBar1.setPanelText(1, L"before");
    browse(GetParam(), cancel);
    EXPECT_EQ(outcome(), L"before");
    EXPECT_EQ(target.names(), before);
}

TEST_P(BackupBrowsing, AFolderMayHaveLettersThatTheCodePageLacks)
{
    startWithThree();
    const TempFolder odd(L"\u65E5\u672C\u8A9E \u0416");
    backUp(GetParam(), odd.path());
    EXPECT_EQ(outcome(), done);
    EXPECT_EQ(odd.read(L"Cars.udb"), cars);
}

TEST_P(BackupBrowsing, AnotherWindowOfTheProgramTakesNoInputMeanwhile)
{
    startWithThree();
    choose(mnuFind);
    std::vector<HWND> enabled;
    browse(GetParam(), [&](HWND browser) {
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM found) -> BOOL {
                const bool hasCaption = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
                if (hasCaption && IsWindowVisible(window) && IsWindowEnabled(window)) {
                    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&enabled));
        EXPECT_EQ(enabled, std::vector<HWND>{browser});
        cancel(browser);
    });
}

INSTANTIATE_TEST_SUITE_P(Commands, BackupBrowsing, testing::Values(mnuBUCurrentCat, mnuBUAllCat),
                         [](const auto& entry) { return entry.param == mnuBUAllCat ? "All" : "Current"; });

} // namespace
} // namespace vandrel::test
