#include "platform/windows/topmost.h"
#include "tests/support/input.h"
#include "tests/support/window_facts.h"
#include "tests/support/window_parts.h"
#include "tests/window/dialogs/about_test.h"
#include "update/version_report.h"

namespace vandrel::test {
namespace {

class AboutCommand : public MainWindowTest {
  protected:
    ~AboutCommand() override { main.reset(); }
    AboutBox open()
    {
        SendMessageW(main->handle(), WM_COMMAND, mnuAbout, 0);
        pump();
        return {main->aboutBox() == nullptr ? nullptr : main->aboutBox()->handle()};
    }
    // The open About boxes.
    std::vector<HWND> boxes()
    {
        std::vector<HWND> all;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM param) -> BOOL {
                if (windowText(window) == about::caption)
                    reinterpret_cast<std::vector<HWND>*>(param)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&all));
        return all;
    }
    // Whether `above` comes before `below` in the Z order.
    static bool isAbove(HWND above, HWND below)
    {
        for (HWND window = GetWindow(above, GW_HWNDNEXT); window != nullptr;
             window = GetWindow(window, GW_HWNDNEXT)) {
            if (window == below) return true;
        }
        return false;
    }
};

TEST_F(AboutCommand, ShowsTheVersionOfTheRunningProgram)
{
    start();
    const AboutBox box = open();
    ASSERT_TRUE(IsWindowVisible(box.window));
    const std::wstring text = windowText(box.lblInfo());
    EXPECT_EQ(text.substr(0, text.find(L'\r')), L"Version " + runningVersion());
    EXPECT_EQ(GetWindow(box.window, GW_OWNER), main->handle());
    EXPECT_EQ(GetActiveWindow(), box.window);
}

TEST_F(AboutCommand, TheLastButtonOfTheToolbarOpensItToo)
{
    start();
    const HWND bar = main->toolBar().handle();
    const LRESULT count = SendMessageW(bar, TB_BUTTONCOUNT, 0, 0);
    EXPECT_EQ(count, 12);
    TBBUTTON last{};
    SendMessageW(bar, TB_GETBUTTON, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(&last));
    SendMessageW(main->handle(), WM_COMMAND, MAKEWPARAM(last.idCommand, BN_CLICKED),
                 reinterpret_cast<LPARAM>(bar));
    pump();
    ASSERT_NE(main->aboutBox(), nullptr);
    EXPECT_TRUE(IsWindowVisible(main->aboutBox()->handle()));
}

TEST_F(AboutCommand, ChosenAgainItIsTheSameWindowInFront)
{
    start();
    const AboutBox first = open();
    SetActiveWindow(main->handle());
    const AboutBox second = open();
    EXPECT_EQ(first.window, second.window);
    EXPECT_EQ(boxes(), std::vector{first.window});
    EXPECT_EQ(GetActiveWindow(), first.window);
    EXPECT_TRUE(IsWindowVisible(second.panel()));
}

TEST_F(AboutCommand, AfterClosingItIsLoadedAfresh)
{
    start();
    for (int time = 0; time < 3; ++time) {
        const AboutBox box = open();
        EXPECT_EQ(boxes(), std::vector{box.window});
        EXPECT_TRUE(box.plain(about::site));
        AboutBox::moveOver(box.part(about::site));
        EXPECT_TRUE(box.highlighted(about::site));
        press(box.window, IDOK);
        MessageLoop::current().rest(); // as the program's loop does
        EXPECT_TRUE(pumpUntil([&] { return !IsWindowVisible(box.window); }));
        EXPECT_EQ(GetActiveWindow(), main->handle());
    }
}

TEST_F(AboutCommand, TheMainWindowIsUsedMeanwhile)
{
    folder.write(L"Play.udb", "");
    folder.write(L"Work.udb", threeSites);
    start();
    const AboutBox box = open();
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
    clickCategory(L"Work");
    EXPECT_EQ(main->caption(), L"Vandrel - Work");
    EXPECT_EQ(lstInfo().count(), 3U);
    clickCategory(L"Play");
    EXPECT_EQ(main->caption(), L"Vandrel - Play");
    EXPECT_TRUE(IsWindowVisible(box.window));
}

TEST_F(AboutCommand, TheDisplayFontDoesNotTouchIt)
{
    setPreference(L"Options", L"FontName", L"Courier New");
    setPreference(L"Options", L"FontSize", L"18");
    setPreference(L"Options", L"FontBold", L"1");
    setPreference(L"Options", L"FontColor", L"255");
    start();
    const AboutBox box = open();
    for (const HWND window : {box.lblInfo(), box.part(about::email), box.part(about::site), box.part(IDOK),
                              box.part(about::tabs)}) {
        const LOGFONTW font = fontOf(window);
        EXPECT_EQ(std::wstring(font.lfFaceName), L"Arial");
        EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
        EXPECT_EQ(font.lfWeight, FW_NORMAL);
    }
}

TEST_F(AboutCommand, AWindowKeptOnTopIsTopmostAgainAtOnceButBelowTheBox)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    ASSERT_TRUE(isTopmost(main->handle()));
    for (int time = 0; time < 2; ++time) {
        const AboutBox box = open();
        EXPECT_TRUE(isTopmost(main->handle()));
        EXPECT_TRUE(isAbove(box.window, main->handle()));
    }
    press(main->aboutBox()->handle(), IDOK);
    EXPECT_TRUE(isTopmost(main->handle()));
}

TEST_F(AboutCommand, OverAWindowKeptOnTopTheBoxStillHasTheFocus)
{
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    for (int time = 0; time < 2; ++time) {
        const AboutBox box = open();
        EXPECT_EQ(GetActiveWindow(), box.window);
        EXPECT_EQ(GetFocus(), box.part(IDOK));
        EXPECT_EQ(open().window, box.window) << "chosen again";
        EXPECT_EQ(GetActiveWindow(), box.window);
        EXPECT_EQ(GetFocus(), box.part(IDOK));
        pressKey(VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(box.window));
        EXPECT_EQ(GetActiveWindow(), main->handle());
        EXPECT_TRUE(isTopmost(main->handle()));
    }
}

TEST_F(AboutCommand, AWindowNotKeptOnTopStaysNormal)
{
    start();
    const AboutBox box = open();
    EXPECT_FALSE(isTopmost(main->handle()));
    EXPECT_FALSE(isTopmost(box.window));
}

TEST_F(AboutCommand, TheProgramClosesWithTheBoxOpen)
{
    start();
    const AboutBox box = open();
    stop();
    EXPECT_FALSE(IsWindow(box.window));
    EXPECT_TRUE(boxes().empty());
}

} // namespace
} // namespace vandrel::test
