#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class KeepOnTopSetting : public MainWindowTest {
  protected:
    bool isOnTop() { return (GetWindowLongPtrW(main->handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }
    bool isChecked() { return itemWithId(GetMenu(main->handle()), mnuKeepTop).value().checked(); }
    HWND toolTips()
    {
        return reinterpret_cast<HWND>(SendMessageW(main->toolBar().handle(), TB_GETTOOLTIPS, 0, 0));
    }
    bool isInFrontOfMain(HWND dialog)
    {
        for (HWND w = dialog; w != nullptr; w = GetWindow(w, GW_HWNDNEXT)) {
            if (w == main->handle()) return true;
        }
        return false;
    }
};

TEST_F(KeepOnTopSetting, MakesTheWindowTopmostAndIsSavedAtOnce)
{
    start();
    ASSERT_EQ(GetWindow(toolTips(), GW_OWNER), main->handle())
        << "the window that owns a tool tip is the hard case";
    main->run(mnuKeepTop);
    EXPECT_TRUE(isOnTop());
    EXPECT_TRUE(isChecked());
    EXPECT_EQ(main->workspace().keepOnTop.flag, 1);
    EXPECT_EQ(preference(L"Config", L"KeepTop"), L"1");
    EXPECT_EQ(GetWindow(toolTips(), GW_OWNER), main->handle());
}

TEST_F(KeepOnTopSetting, ChosenTwiceLeavesTheWindowNormalAndStoresZero)
{
    start();
    main->run(mnuKeepTop);
    main->run(mnuKeepTop);
    EXPECT_FALSE(isOnTop());
    EXPECT_FALSE(isChecked());
    EXPECT_EQ(main->workspace().keepOnTop.flag, 0);
    EXPECT_EQ(preference(L"Config", L"KeepTop"), L"0");
}

TEST_F(KeepOnTopSetting, MovesAndResizesNothing)
{
    start();
    const RECT before = outerPlace(main->handle());
    main->run(mnuKeepTop);
    const RECT after = outerPlace(main->handle());
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(KeepOnTopSetting, AStoredOneIsRestored)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    EXPECT_TRUE(isOnTop());
    EXPECT_TRUE(isChecked());
    EXPECT_EQ(main->workspace().keepOnTop.flag, 1);
}

TEST_F(KeepOnTopSetting, IsNotWrittenAtShutdown)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    setPreference(L"Config", L"KeepTop", L"0");
    stop();
    EXPECT_EQ(preference(L"Config", L"KeepTop"), L"0");
}

TEST_F(KeepOnTopSetting, SiteDialogsAreInFrontAndTheWindowIsTopmostAgainAfterThem)
{
    folder.write(L"Work.udb", threeSites);
    start();
    main->run(mnuKeepTop);
    lstInfo().select(0);
    struct Run {
        int entry;
        const wchar_t* dialog;
        int button;
    };
    const Run runs[] = {
        {mnuAddWebsite, L"Add Site...", IDCANCEL},
        {mnuAddWebsite, L"Add Site...", IDOK},
        {mnuPAddSite, L"Add Site...", IDCANCEL},
        {mnuEditSel, L"Edit selected site...", IDCANCEL},
        {mnuPEditSelected, L"Edit selected site...", IDOK},
    };
    for (const Run& run : runs) {
        Answers answers;
        answers.expect(run.dialog, [&](HWND dialog) {
            EXPECT_FALSE(isOnTop());
            EXPECT_TRUE(isInFrontOfMain(dialog));
            press(dialog, run.button);
        });
        main->run(run.entry);
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(isOnTop()) << run.entry;
    }
}

TEST_F(KeepOnTopSetting, TheToolBarsSiteEditorIsInFrontToo)
{
    folder.write(L"Work.udb", threeSites);
    start();
    main->run(mnuKeepTop);
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        EXPECT_FALSE(isOnTop());
        press(dialog, IDCANCEL);
    });
    main->toolBar().ButtonClick(7);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(isOnTop());
}

TEST_F(KeepOnTopSetting, WhenOffADialogLeavesTheWindowNormal)
{
    start();
    Answers answers;
    answers.expect(L"Add Site...", [](HWND dialog) { press(dialog, IDCANCEL); });
    main->run(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(isOnTop());
}

TEST_F(KeepOnTopSetting, TheEditorForACommandLineIsInFrontToo)
{
    setPreference(L"Config", L"KeepTop", L"1");
    folder.write(L"Work.udb", threeSites);
    bool wasOnTop = true;
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        wasOnTop = (GetWindowLongPtrW(GetWindow(dialog, GW_OWNER), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
        press(dialog, IDCANCEL);
    });
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(wasOnTop);
    EXPECT_TRUE(isOnTop());
}

} // namespace
} // namespace vandrel::test
