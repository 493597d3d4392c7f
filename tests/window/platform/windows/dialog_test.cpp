#include "platform/windows/dialog.h"

#include "platform/base/runtime_error.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/input_box.h"
#include "tests/support/input.h"
#include "tests/support/test_window.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr int firstId = 101;
constexpr int secondId = 102;

// Two text boxes, a default button and a cancel button.
class SmallDialog : public Dialog {
  public:
    explicit SmallDialog(HWND owner)
        : Dialog(owner, L"Small Dialog"),
          first(handle(), firstId),
          second(handle(), secondId),
          ok(handle(), IDOK, L"OK", true),
          cancel(handle(), IDCANCEL, L"Cancel")
    {
        ok.Click = [this] { onOk(); };
        cancel.Click = [this] { onCancel(); };
        layOut();
        setFirstFocus(second.handle());
    }
    std::vector<Control*> controls() override { return {&first, &second, &ok, &cancel}; }
    using Dialog::unload;

    std::wstring ended;
    TextBox first;
    TextBox second;
    Button ok;
    Button cancel;

  protected:
    void layOut() override
    {
        first.place(10, 10, 200, 24);
        second.place(10, 40, 200, 24);
        ok.place(10, 80, 80, 26);
        cancel.place(100, 80, 80, 26);
        setClientSize(220, 120);
    }
    void onOk() override
    {
        ended += L"ok ";
        unload();
    }
    void onCancel() override
    {
        ended += L"cancel ";
        unload();
    }
};

class Dialogs : public testing::Test {
  protected:
    Dialogs()
    {
        window.show();
        pump();
    }
    // Shows the dialog and calls `action` from within its loop, which must end the dialog.
    void during(SmallDialog& dialog, const std::function<void(HWND)>& action)
    {
        Answers answers;
        answers.expect(L"Small Dialog", action);
        dialog.showModal();
        EXPECT_ANSWERED(answers);
    }
    static void postKey(HWND target, int key)
    {
        PostMessageW(target, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        PostMessageW(target, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001U));
    }

    TestWindow window;
};

TEST_F(Dialogs, AreNotSeenBeforeTheyAreShown)
{
    const SmallDialog dialog(window.handle());
    EXPECT_FALSE(IsWindowVisible(dialog.handle()));
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
    EXPECT_FALSE(dialog.unloaded());
}

int iconWidth(HWND window, WPARAM kind)
{
    ICONINFO icon{};
    BITMAP picture{};
    if (GetIconInfo(reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, kind, 0)), &icon) == 0) return 0;
    GetObjectW(icon.hbmMask, sizeof picture, &picture);
    DeleteObject(icon.hbmMask);
    DeleteObject(icon.hbmColor);
    return picture.bmWidth;
}

void changeScale(HWND window, unsigned dpi)
{
    RECT place{};
    GetWindowRect(window, &place);
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
}

TEST_F(Dialogs, HaveTheProgramsIconInTheSizeOfTheirScale)
{
    const SmallDialog dialog(window.handle());
    EXPECT_EQ(iconWidth(dialog.handle(), ICON_SMALL), GetSystemMetricsForDpi(SM_CXSMICON, dialog.dpi()));
    EXPECT_EQ(iconWidth(dialog.handle(), ICON_BIG), GetSystemMetricsForDpi(SM_CXICON, dialog.dpi()));
    changeScale(dialog.handle(), 192);
    // Wine does not say which version of awareness a window has.
    const unsigned frame = frameDpi(GetWindowDpiAwarenessContext(dialog.handle()), 192);
    EXPECT_EQ(iconWidth(dialog.handle(), ICON_SMALL), GetSystemMetricsForDpi(SM_CXSMICON, frame));
    EXPECT_EQ(iconWidth(dialog.handle(), ICON_BIG), GetSystemMetricsForDpi(SM_CXICON, 192));
}

TEST_F(Dialogs, HaveTheirTitlesAtTheirOwnScaleWhereTheSystemScalesFrames)
{
    const DPI_AWARENESS_CONTEXT newest = DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2;
    // Wine 8.0 does not know this one, nor did Windows before version 1703.
    const bool known = AreDpiAwarenessContextsEqual(newest, newest) != 0;
    EXPECT_EQ(frameDpi(newest, 192), known ? 192U : GetDpiForSystem());
    for (const DPI_AWARENESS_CONTEXT older :
         {DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE, DPI_AWARENESS_CONTEXT_SYSTEM_AWARE}) {
        EXPECT_EQ(frameDpi(older, 192), GetDpiForSystem());
    }
}

// Gives a window a frame that is wider on every side than the system computes it.
LRESULT CALLBACK widerFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR more)
{
    const LRESULT answer = DefSubclassProc(window, message, wParam, lParam);
    const auto pixels = static_cast<int>(more);
    if (message == WM_NCCALCSIZE) InflateRect(reinterpret_cast<RECT*>(lParam), -pixels, -pixels);
    return answer;
}

TEST_F(Dialogs, HaveRoomForTheirControlsWhateverTheFrame)
{
    const SmallDialog dialog(window.handle());
    for (const int more : {0, 7, 20}) {
        SetWindowSubclass(dialog.handle(), widerFrame, 1, static_cast<DWORD_PTR>(more));
        changeScale(dialog.handle(), dialog.dpi());
        RECT client{};
        GetClientRect(dialog.handle(), &client);
        EXPECT_EQ(client.right, 220) << more;
        EXPECT_EQ(client.bottom, 120) << more;
    }
    RemoveWindowSubclass(dialog.handle(), widerFrame, 1);
}

TEST_F(Dialogs, TheOwnerTakesNoInputMeanwhileAndAgainAfterwards)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND shown) {
        EXPECT_FALSE(IsWindowEnabled(window.handle()));
        EXPECT_EQ(GetWindow(shown, GW_OWNER), window.handle());
        press(shown, IDOK);
    });
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
    EXPECT_FALSE(IsWindowVisible(dialog.handle()));
    EXPECT_TRUE(dialog.unloaded());
    EXPECT_EQ(GetActiveWindow(), window.handle());
}

TEST_F(Dialogs, AnOwnerThatWasDisabledBeforeStaysSo)
{
    EnableWindow(window.handle(), FALSE);
    SmallDialog dialog(window.handle());
    during(dialog, [](HWND shown) { press(shown, IDOK); });
    EXPECT_FALSE(IsWindowEnabled(window.handle()));
}

TEST_F(Dialogs, TheFirstFocusIsWhereTheDialogWantsIt)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND shown) {
        EXPECT_EQ(GetFocus(), dialog.second.handle());
        press(shown, IDOK);
    });
}

TEST_F(Dialogs, EnterPressesTheDefaultButton)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND) { postKey(dialog.first.handle(), VK_RETURN); });
    EXPECT_EQ(dialog.ended, L"ok ");
}

TEST_F(Dialogs, EnterOnAnotherButtonPressesThatOne)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND shown) {
        SendMessageW(shown, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(dialog.cancel.handle()), TRUE);
        postKey(dialog.cancel.handle(), VK_RETURN);
    });
    EXPECT_EQ(dialog.ended, L"cancel ");
}

TEST_F(Dialogs, EscCancels)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND) { postKey(dialog.first.handle(), VK_ESCAPE); });
    EXPECT_EQ(dialog.ended, L"cancel ");
}

TEST_F(Dialogs, TheCloseBoxCancels)
{
    SmallDialog dialog(window.handle());
    during(dialog, [](HWND shown) { PostMessageW(shown, WM_SYSCOMMAND, SC_CLOSE, 0); });
    EXPECT_EQ(dialog.ended, L"cancel ");
}

TEST_F(Dialogs, TabGoesThroughTheControlsInTheirOrderAndRoundAgain)
{
    SmallDialog dialog(window.handle());
    std::vector<HWND> visited;
    during(dialog, [&](HWND shown) {
        for (int step = 0; step < 4; ++step) {
            const HWND before = GetFocus();
            postKey(before, VK_TAB);
            MessageLoop::current().dispatchPending();
            visited.push_back(GetFocus());
        }
        press(shown, IDOK);
    });
    EXPECT_EQ(visited, (std::vector<HWND>{dialog.ok.handle(), dialog.cancel.handle(), dialog.first.handle(),
                                          dialog.second.handle()}));
}

TEST_F(Dialogs, ShiftTabGoesBack)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND shown) {
        const HeldKeys shift({VK_SHIFT});
        postKey(GetFocus(), VK_TAB);
        MessageLoop::current().dispatchPending();
        EXPECT_EQ(GetFocus(), dialog.first.handle());
        press(shown, IDOK);
    });
}

TEST_F(Dialogs, AFailureWithinIsShownAndTheDialogStays)
{
    SmallDialog dialog(window.handle());
    dialog.ok.Click = [] { throw RuntimeError(error_number::permissionDenied); };
    Answers answers;
    answers.expect(L"Small Dialog",
                   [](HWND shown) { PostMessageW(GetDlgItem(shown, IDOK), BM_CLICK, 0, 0); });
    answers.expectBox(L"Vandrel", L"Run-time error '70':\n\nPermission denied", IDOK, MB_ICONHAND);
    answers.expect(L"Small Dialog", [&](HWND shown) {
        EXPECT_FALSE(dialog.unloaded());
        EXPECT_FALSE(IsWindowEnabled(window.handle()));
        press(shown, IDCANCEL);
    });
    dialog.showModal();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(dialog.ended, L"cancel ");
}

TEST_F(Dialogs, ADialogMayOpenAnother)
{
    SmallDialog dialog(window.handle());
    std::wstring typed;
    dialog.ok.Click = [&] {
        typed = inputBox(dialog.handle(), L"What?", L"Question");
        EXPECT_TRUE(IsWindowEnabled(dialog.handle()));
        EXPECT_FALSE(IsWindowEnabled(window.handle()));
        dialog.unload();
    };
    Answers answers;
    answers.expect(L"Small Dialog",
                   [](HWND shown) { PostMessageW(GetDlgItem(shown, IDOK), BM_CLICK, 0, 0); });
    answers.expectInput(L"Question", L"What?", L"this");
    dialog.showModal();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(typed, L"this");
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
}

TEST_F(Dialogs, ARequestToQuitEndsThemAndIsLeftForTheProgram)
{
    SmallDialog dialog(window.handle());
    during(dialog, [](HWND) { PostQuitMessage(7); });
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

class DialogPlace : public Dialogs {
  protected:
    RECT placeOver(int left, int top)
    {
        SetWindowPos(window.handle(), nullptr, left, top, 500, 400, SWP_NOZORDER);
        GetWindowRect(window.handle(), &owner);
        SmallDialog dialog(window.handle());
        RECT place{};
        during(dialog, [&](HWND shown) {
            GetWindowRect(shown, &place);
            press(shown, IDOK);
        });
        return place;
    }
    RECT workArea() const
    {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(window.handle(), MONITOR_DEFAULTTONEAREST), &monitor);
        return monitor.rcWork;
    }
    void expectWithin(const RECT& place)
    {
        const RECT work = workArea();
        EXPECT_GE(place.left, work.left);
        EXPECT_GE(place.top, work.top);
        EXPECT_LE(place.right, work.right);
        EXPECT_LE(place.bottom, work.bottom);
    }

    RECT owner{};
};

TEST_F(DialogPlace, IsTheMiddleOfTheOwner)
{
    const RECT place = placeOver(300, 200);
    EXPECT_NEAR(place.left + place.right, owner.left + owner.right, 2);
    EXPECT_NEAR(place.top + place.bottom, owner.top + owner.bottom, 2);
}

TEST_F(DialogPlace, IsOnTheScreenThoughTheOwnerHangsOverItsEdge)
{
    expectWithin(placeOver(workArea().right - 60, workArea().bottom - 60));
    expectWithin(placeOver(workArea().left - 440, 40));
}

TEST_F(DialogPlace, IsOnTheScreenWhileTheOwnerIsHidden)
{
    ShowWindow(window.handle(), SW_HIDE);
    expectWithin(placeOver(100, 100));
}

TEST_F(DialogPlace, IsWhatTheSystemSuggestsWhenTheDpiChanges)
{
    SmallDialog dialog(window.handle());
    during(dialog, [&](HWND shown) {
        RECT before{};
        GetClientRect(shown, &before);
        const RECT suggested{77, 88, 577, 488};
        SendMessageW(shown, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
        RECT place{};
        GetWindowRect(shown, &place);
        EXPECT_EQ(place.left, 77);
        EXPECT_EQ(place.top, 88);
        RECT after{};
        GetClientRect(shown, &after);
        EXPECT_EQ(after.right, before.right) << "a dialog of fixed size has the size of its controls";
        EXPECT_EQ(after.bottom, before.bottom);
        press(shown, IDOK);
    });
}

} // namespace
} // namespace vandrel::test
