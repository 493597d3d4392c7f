#include "platform/controls/simple_controls.h"

#include "platform/base/runtime_error.h"
#include "platform/controls/image_list.h"
#include "tests/support/input.h"
#include "tests/support/message_watch.h"
#include "tests/support/pixels.h"
#include "tests/support/test_clock.h"
#include "tests/support/test_window.h"

#include <commctrl.h>
#include <uxtheme.h>

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class SimpleControls : public testing::Test {
  protected:
    SimpleControls() { window.show(); }
    TestWindow window;
};

TEST_F(SimpleControls, AButtonReportsThatItWasClicked)
{
    Button button(window.handle(), 1, L"Go");
    button.place(10, 10, 80, 30);
    int clicks = 0;
    button.Click = [&] { ++clicks; };
    clickAt(button.handle(), {20, 15});
    EXPECT_EQ(clicks, 1);
    SendMessageW(button.handle(), BM_CLICK, 0, 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(SimpleControls, ADisabledButtonIsSkippedByTheMouseAndByTab)
{
    Button first(window.handle(), 1, L"Go");
    Button second(window.handle(), 2, L"Stop");
    first.place(10, 10, 80, 30);
    first.setEnabled(false);
    EXPECT_FALSE(first.enabled());
    EXPECT_FALSE(IsWindowEnabled(first.handle()));
    EXPECT_EQ(GetNextDlgTabItem(window.handle(), nullptr, FALSE), second.handle());
    EXPECT_EQ(ChildWindowFromPointEx(window.handle(), {20, 20}, CWP_SKIPDISABLED), window.handle());
    first.setEnabled(true);
    EXPECT_TRUE(IsWindowEnabled(first.handle()));
    EXPECT_EQ(GetNextDlgTabItem(window.handle(), nullptr, FALSE), first.handle());
}

TEST_F(SimpleControls, AFailureOfAClickIsShownAndTheProgramGoesOn)
{
    Button button(window.handle(), 1, L"Go");
    button.place(10, 10, 80, 30);
    button.Click = [] { throw RuntimeError(error_number::diskFull); };
    Answers answers;
    answers.expectBox(L"Vandrel", L"Run-time error '61':\n\nDisk full", IDOK, MB_ICONHAND);
    SendMessageW(button.handle(), BM_CLICK, 0, 0);
    EXPECT_ANSWERED(answers);
    button.Click = [] { throw std::runtime_error("anything"); };
    Answers again;
    again.expectBox(L"Vandrel", L"Run-time error '51':\n\nInternal error", IDOK, MB_ICONHAND);
    SendMessageW(button.handle(), BM_CLICK, 0, 0);
    EXPECT_ANSWERED(again);
}

TEST_F(SimpleControls, AButtonWithAPictureKeepsItsTextForScreenReaders)
{
    Button button(window.handle(), 1, L"Search");
    IconHandle icon = loadIcon(L"search", 16);
    ASSERT_TRUE(icon);
    const HICON drawn = icon.get();
    button.setIcon(std::move(icon));
    EXPECT_EQ(SendMessageW(button.handle(), BM_GETIMAGE, IMAGE_ICON, 0), reinterpret_cast<LRESULT>(drawn));
    EXPECT_EQ(button.text(), L"Search");
}

TEST_F(SimpleControls, ALabelShowsItsTextWithoutAccessKeys)
{
    const Label label(window.handle(), L"Q&A");
    EXPECT_EQ(label.text(), L"Q&A");
    EXPECT_NE(GetWindowLongPtrW(label.handle(), GWL_STYLE) & SS_NOPREFIX, 0);
    EXPECT_EQ(GetWindowLongPtrW(label.handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(SimpleControls, AFrameTakesNoFocus)
{
    const Frame frame(window.handle(), L"Details");
    EXPECT_EQ(frame.text(), L"Details");
    EXPECT_EQ(GetWindowLongPtrW(frame.handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

bool hasVisualStyle(HWND control)
{
    const HTHEME theme = OpenThemeData(control, L"Button");
    if (theme != nullptr) CloseThemeData(theme);
    return theme != nullptr;
}

TEST_F(SimpleControls, AColourOfTheUsersTakesTheVisualStyleFromWhatWouldHaveItsOwn)
{
    const auto expectColoured = [](Control& control) {
        control.place(10, 10, 200, 40);
        const bool styled = hasVisualStyle(control.handle());
        EXPECT_EQ(styled, IsThemeActive() != 0);
        int changes = 0;
        const MessageWatch watch(control.handle(), WM_THEMECHANGED, [&changes] { ++changes; });
        control.setForeColor(0x0000FF);
        control.setForeColor(0x0000FF);
        pump();
        EXPECT_EQ(changes, 1);
        EXPECT_FALSE(hasVisualStyle(control.handle()));
        const std::vector<DWORD> seen = pixelsOf(control.handle());
        EXPECT_TRUE(std::ranges::any_of(seen, [](DWORD pixel) { return (pixel & 0xFFFFFF) == 0xFF0000; }))
            << "red letters";
        control.setForeColor(0);
        pump();
        EXPECT_EQ(changes, 2);
        EXPECT_EQ(hasVisualStyle(control.handle()), styled);
    };
    Frame frame(window.handle(), L"Search Section");
    expectColoured(frame);
    frame.setVisible(false);
    CheckBox box(window.handle(), 1, L"Case Sensitive");
    expectColoured(box);
    box.setVisible(false);
    OptionButton option(window.handle(), 2, L"All Sections", OptionButton::Place::first);
    expectColoured(option);
}

TEST_F(SimpleControls, AComboBoxTakesAnyTextAndShowsItUnselected)
{
    ComboBox box(window.handle(), 1);
    box.place(10, 10, 200, 200);
    box.setText(L"any term");
    EXPECT_EQ(box.text(), L"any term");
    SendMessageW(box.handle(), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
    box.clearTextSelection();
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(box.handle(), CB_GETEDITSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, end);
}

TEST_F(SimpleControls, AComboBoxIsAsHighAsItsFontNotAsItsList)
{
    ComboBox box(window.handle(), 1);
    box.setFont({L"Arial", 8});
    box.place(10, 10, 200, 300);
    const int small = box.height();
    EXPECT_LT(small, 60);
    box.setFont({L"Arial", 20});
    EXPECT_GT(box.height(), small);
}

TEST_F(SimpleControls, AControlIsHiddenAndShown)
{
    Button button(window.handle(), 1, L"Go");
    EXPECT_TRUE(button.visible());
    button.setVisible(false);
    EXPECT_FALSE(button.visible());
    EXPECT_FALSE(IsWindowVisible(button.handle()));
    button.setVisible(true);
    EXPECT_TRUE(IsWindowVisible(button.handle()));
}

TEST_F(SimpleControls, AControlIsGoneWithItsObject)
{
    HWND handle = nullptr;
    {
        const Button button(window.handle(), 1, L"Go");
        handle = button.handle();
        EXPECT_EQ(Control::of(handle), &button);
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(SimpleControls, AnObjectOutlivesItsControlUnharmed)
{
    Button button(window.handle(), 1, L"Go");
    DestroyWindow(button.handle());
    EXPECT_EQ(button.handle(), nullptr);
}

TEST_F(SimpleControls, TheFontOfAControlIsTheOneSet)
{
    Label label(window.handle(), L"News");
    label.setFont({L"Arial", 14, true, true});
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(label.handle(), WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -MulDiv(14, static_cast<int>(label.dpi()), 72));
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_NE(font.lfItalic, 0);
    EXPECT_EQ(std::wstring(font.lfFaceName), L"Arial");
}

class ProgressBars : public SimpleControls {
  protected:
    LRESULT position() const { return SendMessageW(bar.handle(), PBM_GETPOS, 0, 0); }
    ProgressBar bar{window.handle()};
};

TEST_F(ProgressBars, AreHiddenAtFirst) { EXPECT_FALSE(bar.visible()); }

TEST_F(ProgressBars, ShowTheValueAsAFractionOfTheMaximum)
{
    bar.setMaximum(200);
    bar.setValue(50);
    const auto full = SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0);
    EXPECT_EQ(position() * 4, full);
    bar.setValue(200);
    EXPECT_EQ(position(), full);
    EXPECT_EQ(bar.value(), 200U);
    EXPECT_EQ(bar.maximum(), 200U);
}

TEST_F(ProgressBars, CountAnyNumberOfRows)
{
    bar.setMaximum(5'000'000);
    bar.setValue(2'500'000);
    EXPECT_EQ(position() * 2, SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0));
}

TEST_F(ProgressBars, ShowScreenReadersTheRowsAndNotAPercentage)
{
    EXPECT_EQ(SendMessageW(bar.handle(), PBM_GETRANGE, TRUE, 0), 0);
    for (const int count : {1, 7, 1234}) {
        bar.begin(static_cast<std::size_t>(count));
        EXPECT_EQ(SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0), count);
        EXPECT_EQ(position(), 0);
        bar.setValue(static_cast<std::size_t>(count));
        EXPECT_EQ(position(), count);
    }
}

TEST_F(ProgressBars, ShowEveryRowOfFew)
{
    bar.begin(100);
    for (int row = 1; row <= 100; ++row) {
        bar.setValue(static_cast<std::size_t>(row));
        EXPECT_EQ(position(), row);
    }
}

TEST_F(ProgressBars, ArePaintedAtTheFirstRowAndAtTheLastAndTenTimesASecondBetween)
{
    TestClock clock;
    for (int again = 0; again < 2; ++again) {
        bar.begin(1'000'000);
        std::vector<std::size_t> painted;
        const MessageWatch watch(bar.handle(), PBM_SETPOS, [&] { painted.push_back(bar.value()); });
        for (std::size_t row = 1; row <= 1'000'000; ++row) {
            if (row % 300'000 == 0) clock.pass(100);
            bar.setValue(row);
        }
        EXPECT_EQ(painted, (std::vector<std::size_t>{1, 300'000, 600'000, 900'000, 1'000'000}));
        EXPECT_EQ(position(), 1'000'000);
    }
}

TEST_F(ProgressBars, FollowWhenTheyArePaintedOrAsked)
{
    const TestClock clock;
    bar.place(10, 10, 200, 20);
    bar.begin(1000);
    bar.setValue(1);
    pump();
    int shown = 0;
    const MessageWatch watch(bar.handle(), PBM_SETPOS, [&] { ++shown; });
    for (std::size_t value = 2; value <= 600; ++value) {
        bar.setValue(value);
        ASSERT_EQ(bar.value(), value);
    }
    EXPECT_EQ(shown, 0);
    pump();
    EXPECT_EQ(shown, 1);
    bar.setValue(700);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(position(), 700);
    EXPECT_EQ(shown, 2);
    pump();
    EXPECT_EQ(shown, 2);
}

TEST_F(ProgressBars, AreNotPaintedForAMaximumThatStays)
{
    bar.place(10, 10, 200, 20);
    bar.begin(1000);
    pump();
    bar.setMaximum(1000);
    EXPECT_FALSE(GetUpdateRect(bar.handle(), nullptr, FALSE));
}

// Upwards a themed bar moves slowly, downwards at once.
TEST_F(ProgressBars, ComeToEachPositionFromAbove)
{
    struct Watch {
        static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR seen)
        {
            const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
            if (message == PBM_DELTAPOS || message == PBM_SETPOS) {
                reinterpret_cast<std::vector<LRESULT>*>(seen)->push_back(
                    SendMessageW(window, PBM_GETPOS, 0, 0));
            }
            return answer;
        }
    };
    bar.begin(3);
    std::vector<LRESULT> seen;
    SetWindowSubclass(bar.handle(), Watch::proc, 3, reinterpret_cast<DWORD_PTR>(&seen));
    TestClock clock;
    for (const std::size_t row : {1U, 2U, 3U}) {
        bar.setValue(row);
        clock.pass(100);
    }
    RemoveWindowSubclass(bar.handle(), Watch::proc, 3);
    EXPECT_EQ(seen, (std::vector<LRESULT>{2, 1, 3, 2, 4, 3}));
    EXPECT_EQ(SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0), 3);
}

TEST_F(ProgressBars, ReachTheEndHoweverSmallTheLastStepIs)
{
    bar.setMaximum(100'000);
    for (const std::size_t value : {99'999U, 100'000U}) bar.setValue(value);
    EXPECT_EQ(position(), SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0));
}

TEST_F(ProgressBars, StartAgainFromNothing)
{
    bar.setMaximum(10);
    bar.setValue(10);
    bar.setValue(0);
    EXPECT_EQ(position(), 0);
    bar.setMaximum(3);
    bar.setValue(3);
    EXPECT_EQ(position(), SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0));
}

TEST_F(ProgressBars, AValueBeyondTheMaximumIsTheEndAndAMaximumOfZeroIsOne)
{
    bar.setMaximum(10);
    bar.setValue(25);
    EXPECT_EQ(position(), SendMessageW(bar.handle(), PBM_GETRANGE, FALSE, 0));
    bar.setMaximum(0);
    EXPECT_EQ(bar.maximum(), 1U);
    bar.setValue(0);
    EXPECT_EQ(position(), 0);
}

} // namespace
} // namespace vandrel::test
