#include "mainwindow/menu_entries.h"
#include "platform/windows/topmost.h"
#include "tests/support/main_window_test.h"
#include "tests/support/site_editor.h"

namespace vandrel::test {
namespace {

// The main window must never cover the editor that it is waiting for.
class KeepOnTopAroundTheEditor : public MainWindowTest {
  protected:
    void startOnTop()
    {
        folder.write(L"Work.udb", "A|a|x|1\r\n");
        setPreference(L"Config", L"KeepTop", L"1");
        start();
        lstInfo().select(0);
        ASSERT_TRUE(onTop());
    }
    bool onTop() { return isTopmost(main->handle()); }
    void choose(int entry) { SendMessageW(main->handle(), WM_COMMAND, static_cast<WPARAM>(entry), 0); }
    // Opens the editor, checks the main window meanwhile, and presses the button.
    void expectBelowWhile(int entry, const std::wstring& caption, int button)
    {
        bool meanwhile = true;
        Answers answers;
        answers.expect(caption, [&](HWND dialog) {
            meanwhile = onTop();
            press(dialog, button);
        });
        choose(entry);
        EXPECT_ANSWERED(answers);
        EXPECT_FALSE(meanwhile);
    }
};

TEST_F(KeepOnTopAroundTheEditor, ItIsOffWhileASiteIsAddedAndOnAgainAfterwards)
{
    startOnTop();
    expectBelowWhile(mnuAddWebsite, addCaption, IDOK);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOnAgainAfterAddingWasCancelled)
{
    startOnTop();
    expectBelowWhile(mnuAddWebsite, addCaption, IDCANCEL);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOffWhileASiteIsEditedAndOnAgainAfterwards)
{
    startOnTop();
    expectBelowWhile(mnuEditSel, editCaption, IDOK);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOnAgainAfterEditingWasCancelled)
{
    startOnTop();
    expectBelowWhile(mnuEditSel, editCaption, IDCANCEL);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOnAgainAfterAFailure)
{
    startOnTop();
    SetFileAttributesW(folder.file(L"Work.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const auto& [entry, caption] :
         {std::pair{mnuAddWebsite, addCaption}, std::pair{mnuEditSel, editCaption}}) {
        Answers answers;
        answers.expect(caption, pressing(IDOK));
        answers.expect(L"Vandrel", pressing(IDOK));
        choose(entry);
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(onTop());
    }
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOffWhileTheMissingCategoryIsAskedForToo)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    bool meanwhile = true;
    Answers answers;
    answers.expect(addCaption, pressing(IDOK));
    answers.expect(L"No Categories", pressing(IDOK));
    answers.expect(L"Category Name", [&](HWND dialog) {
        meanwhile = onTop();
        press(dialog, IDCANCEL);
    });
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(meanwhile);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, ItIsOffForTheLinkOfTheCommandLineAndOnAfterwards)
{
    folder.write(L"Work.udb", "");
    setPreference(L"Config", L"KeepTop", L"1");
    bool meanwhile = true;
    HWND mainWindow = nullptr;
    Answers answers;
    answers.expect(addCaption, [&](HWND dialog) {
        mainWindow = GetWindow(dialog, GW_OWNER);
        meanwhile = isTopmost(mainWindow);
        press(dialog, IDCANCEL);
    });
    start(L"http://link/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(mainWindow, main->handle());
    EXPECT_FALSE(meanwhile);
    EXPECT_TRUE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, AWindowThatIsNotKeptOnTopStaysNormal)
{
    folder.write(L"Work.udb", "A|a|x|1\r\n");
    start();
    lstInfo().select(0);
    expectBelowWhile(mnuAddWebsite, addCaption, IDOK);
    EXPECT_FALSE(onTop());
    lstInfo().select(0);
    expectBelowWhile(mnuEditSel, editCaption, IDCANCEL);
    EXPECT_FALSE(onTop());
}

TEST_F(KeepOnTopAroundTheEditor, TheSettingThatWasSwitchedOnWhileRunningCountsToo)
{
    folder.write(L"Work.udb", "");
    start();
    choose(mnuKeepTop);
    ASSERT_TRUE(onTop());
    expectBelowWhile(mnuAddWebsite, addCaption, IDCANCEL);
    EXPECT_TRUE(onTop());
    choose(mnuKeepTop);
    expectBelowWhile(mnuAddWebsite, addCaption, IDCANCEL);
    EXPECT_FALSE(onTop());
}

} // namespace
} // namespace vandrel::test
