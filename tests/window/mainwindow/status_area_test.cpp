#include "shared/apply_font.h"
#include "tests/support/message_watch.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class StatusArea : public MainWindowTest {
  protected:
    HWND bar() { return main->workspace().StatusBar1.handle(); }
    HWND progress() { return main->workspace().PB.handle(); }
    RECT panel(int number)
    {
        RECT area{};
        SendMessageW(bar(), SB_GETRECT, static_cast<WPARAM>(number - 1), reinterpret_cast<LPARAM>(&area));
        return area;
    }
    void expectProgressOverPanel1()
    {
        // Each length is rounded to pixels on its own.
        const RECT place = placeOf(progress());
        EXPECT_EQ(place.left, panel(1).left);
        EXPECT_NEAR(place.top, px(*main, 50), 1);
        EXPECT_NEAR(widthOf(place), widthOf(panel(1)) - 65.0 * main->dpi() / 1440, 1);
        EXPECT_NEAR(heightOf(place), heightOf(outerPlace(bar())) - 60.0 * main->dpi() / 1440, 1);
    }
};

TEST_F(StatusArea, TheBarHasThreePanelsAtTheLowerEdge)
{
    start();
    EXPECT_EQ(SendMessageW(bar(), SB_GETPARTS, 0, 0), 3);
    EXPECT_EQ(placeOf(bar()).bottom, clientOf(main->handle()).bottom);
    EXPECT_EQ(widthOf(placeOf(bar())), clientOf(main->handle()).right);
    for (const int number : {1, 2, 3}) EXPECT_GT(widthOf(panel(number)), px(*main, 600)) << number;
}

TEST_F(StatusArea, StaysAtTheLowerEdgeAfterAResize)
{
    start();
    SetWindowPos(main->handle(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    EXPECT_EQ(placeOf(bar()).bottom, clientOf(main->handle()).bottom);
    EXPECT_EQ(widthOf(placeOf(bar())), clientOf(main->handle()).right);
}

TEST_F(StatusArea, TheProgressBarIsHiddenInItsFirstPanel)
{
    start();
    EXPECT_EQ(GetParent(progress()), bar());
    EXPECT_FALSE(IsWindowVisible(progress()));
    expectProgressOverPanel1();
}

TEST_F(StatusArea, TheProgressBarFitsTheStoredFontAndStaysAfterAResize)
{
    setPreference(L"Options", L"FontSize", L"14");
    start();
    expectProgressOverPanel1();
    SetWindowPos(main->handle(), nullptr, 0, 0, 1000, 700, SWP_NOMOVE | SWP_NOZORDER);
    pump();
    expectProgressOverPanel1();
}

TEST_F(StatusArea, TheProgressBarFitsAFontThatIsAppliedLater)
{
    start();
    ApplyFont(*main, L"Arial", 0, 16, true, false);
    expectProgressOverPanel1();
    EXPECT_EQ(placeOf(bar()).bottom, clientOf(main->handle()).bottom);
}

TEST_F(StatusArea, RemovingSitesShowsTheProgressBarAndHidesItAgain)
{
    folder.write(L"Work.udb", threeSites);
    start();
    lstInfo().selectAll();
    bool shown = false;
    const MessageWatch watch(progress(), PBM_SETPOS, [&] { shown = IsWindowVisible(progress()) != 0; });
    Answers answers;
    answers.expect(L"Remove site(s)", [](HWND box) { press(box, IDYES); });
    main->run(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(shown);
    EXPECT_FALSE(IsWindowVisible(progress()));
    EXPECT_EQ(main->workspace().StatusBar1.panelText(1), L"Remove successful.");
}

} // namespace
} // namespace vandrel::test
