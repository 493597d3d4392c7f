#include "dialogs/frm_properties.h"
#include "tests/support/input.h"
#include "tests/support/recorder.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

namespace vandrel::test {
namespace {

constexpr int nameBox = 101;
constexpr int address = 102;
constexpr int descriptionBox = 103;

class Properties : public testing::Test {
  protected:
    Properties() { owner.show(); }
    ~Properties() override { pump(); }

    // Shows it until the answer closes it.
    void show(std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(site.PropSiteName + L"'s Properties", std::move(answer));
        frmProperties dialog(owner.handle(), site);
        dialog.showModal();
        EXPECT_ANSWERED(answers);
    }
    static std::wstring textAfterLabel(HWND dialog, const std::wstring& label)
    {
        const HWND found = childWithText(dialog, label);
        return found == nullptr ? L"(no label)" : windowText(GetWindow(found, GW_HWNDNEXT));
    }
    static int focusedId() { return GetDlgCtrlID(GetFocus()); }
    static void giveFocus(HWND dialog, int id)
    {
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
        EXPECT_EQ(focusedId(), id);
    }
    static HWND frameOf(HWND dialog)
    {
        for (HWND child = nullptr; (child = FindWindowExW(dialog, child, L"Button", nullptr)) != nullptr;) {
            if ((GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX) return child;
        }
        return nullptr;
    }

    Recorder recorder;
    TestWindow owner;
    PropertiesHandOff site{.PropSiteName = L"Alpha",
                           .PropSiteURL = L"http://a.example/",
                           .PropSiteDate = L"11/16/2002",
                           .PropSiteDesc = L"the first"};
};

TEST_F(Properties, ShowsEveryTextBesideItsLabel)
{
    const frmProperties dialog(owner.handle(), site);
    const HWND window = dialog.handle();
    EXPECT_EQ(windowText(window), L"Alpha's Properties");
    EXPECT_EQ(textAfterLabel(window, L"Name:"), L"Alpha");
    EXPECT_EQ(textAfterLabel(window, L"URL:"), L"http://a.example/");
    EXPECT_EQ(textAfterLabel(window, L"Last Visited:"), L"11-16-2002");
    EXPECT_EQ(textAfterLabel(window, L"Description:"), L"the first");
    EXPECT_EQ(windowText(GetDlgItem(window, nameBox)), L"Alpha");
    EXPECT_EQ(windowText(GetDlgItem(window, address)), L"http://a.example/");
    EXPECT_EQ(windowText(GetDlgItem(window, descriptionBox)), L"the first");
    EXPECT_EQ(windowText(GetDlgItem(window, IDOK)), L"&OK");
}

TEST_F(Properties, HasTextBoxesForNameAndDescriptionAndALabelForTheAddress)
{
    const frmProperties dialog(owner.handle(), site);
    const auto kindOf = [&](int id) { return classOf(GetDlgItem(dialog.handle(), id)); };
    EXPECT_EQ(kindOf(nameBox), L"Edit");
    EXPECT_EQ(kindOf(descriptionBox), L"Edit");
    EXPECT_EQ(kindOf(address), L"Static");
    EXPECT_EQ(kindOf(IDOK), L"Button");
}

TEST_F(Properties, ShowsEmptyTextsEmpty)
{
    site = {};
    const frmProperties dialog(owner.handle(), site);
    EXPECT_EQ(windowText(dialog.handle()), L"'s Properties");
    for (const int id : {nameBox, address, descriptionBox}) {
        EXPECT_EQ(windowText(GetDlgItem(dialog.handle(), id)), L"") << id;
    }
    EXPECT_EQ(textAfterLabel(dialog.handle(), L"Last Visited:"), L"Never");
}

TEST_F(Properties, ShowsAmpersandsAsTheyAre)
{
    site.PropSiteURL = L"http://a.example/?a=1&b=2&&c";
    const frmProperties dialog(owner.handle(), site);
    const HWND link = GetDlgItem(dialog.handle(), address);
    EXPECT_EQ(windowText(link), site.PropSiteURL);
    EXPECT_NE(GetWindowLongPtrW(link, GWL_STYLE) & SS_NOPREFIX, 0) << "an ampersand would be an underline";
}

TEST_F(Properties, TheDescriptionHasAGreyBackgroundButTheNameDoesNot)
{
    const frmProperties dialog(owner.handle(), site);
    const HDC context = GetDC(dialog.handle());
    const auto background = [&](int id) {
        SetBkColor(context, RGB(1, 2, 3));
        SendMessageW(dialog.handle(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog.handle(), id)));
        return GetBkColor(context);
    };
    EXPECT_EQ(background(descriptionBox), GetSysColor(COLOR_3DFACE));
    EXPECT_NE(background(nameBox), GetSysColor(COLOR_3DFACE));
    ReleaseDC(dialog.handle(), context);
}

TEST_F(Properties, IsInArialWhateverTheDisplayFont)
{
    const frmProperties dialog(owner.handle(), site);
    int controls = 0;
    for (HWND child = GetWindow(dialog.handle(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        const LOGFONTW font = fontOf(child);
        EXPECT_EQ(std::wstring(font.lfFaceName), L"Arial");
        EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(dialog.dpi()), 72));
        EXPECT_EQ(font.lfWeight, FW_NORMAL);
        EXPECT_EQ(font.lfItalic, 0);
        EXPECT_EQ(font.lfUnderline != 0, GetDlgCtrlID(child) == address) << "the link alone is underlined";
        ++controls;
    }
    EXPECT_EQ(controls, 10);
}

TEST_F(Properties, TheFrameHoldsTheFieldsAndNotTheButton)
{
    const frmProperties dialog(owner.handle(), site);
    const HWND frame = frameOf(dialog.handle());
    ASSERT_NE(frame, nullptr);
    for (HWND child = GetWindow(dialog.handle(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (child == frame) continue;
        EXPECT_EQ(isWithin(outerPlace(child), outerPlace(frame)), GetDlgCtrlID(child) != IDOK)
            << testing::PrintToString(windowText(child));
    }
    EXPECT_TRUE(isWithin(outerPlace(GetDlgItem(dialog.handle(), IDOK)), outerPlace(dialog.handle())));
}

TEST_F(Properties, ALongAddressEndsWithAnEllipsisAndDoesNotWidenTheDialog)
{
    RECT usual{};
    {
        const frmProperties dialog(owner.handle(), site);
        usual = outerPlace(dialog.handle());
    }
    site.PropSiteURL = L"http://a.example/" + std::wstring(3000, L'a');
    const frmProperties dialog(owner.handle(), site);
    const HWND link = GetDlgItem(dialog.handle(), address);
    const RECT now = outerPlace(dialog.handle());
    EXPECT_EQ(now.right - now.left, usual.right - usual.left);
    EXPECT_EQ(windowText(link), site.PropSiteURL);
    EXPECT_EQ(GetWindowLongPtrW(link, GWL_STYLE) & SS_ELLIPSISMASK, SS_ENDELLIPSIS);
    EXPECT_TRUE(isWithin(outerPlace(link), outerPlace(frameOf(dialog.handle()))));
}

TEST_F(Properties, TabGoesFromOkToTheNameTheLinkAndTheDescription)
{
    std::vector<int> order;
    show([&](HWND dialog) {
        for (int stop = 0; stop < 5; ++stop) {
            order.push_back(focusedId());
            pressKey(VK_TAB);
        }
        press(dialog, IDOK);
    });
    EXPECT_EQ(order, (std::vector<int>{IDOK, nameBox, address, descriptionBox, IDOK}));
}

TEST_F(Properties, EnterAndEscClose)
{
    show([](HWND) { pressKey(VK_RETURN); });
    show([](HWND) { pressKey(VK_ESCAPE); });
    show([](HWND dialog) {
        giveFocus(dialog, nameBox);
        pressKey(VK_RETURN);
    });
    for (const int control : {nameBox, address, descriptionBox, IDOK}) {
        SCOPED_TRACE(control);
        show([control](HWND dialog) {
            giveFocus(dialog, control);
            pressKey(VK_ESCAPE);
        });
    }
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(Properties, WhatIsTypedIsDiscardedAndTheTextsHandedOverStay)
{
    show([](HWND dialog) {
        for (const int box : {nameBox, descriptionBox}) {
            SendDlgItemMessageW(dialog, box, EM_SETSEL, 0, -1);
            SendDlgItemMessageW(dialog, box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"typed"));
            EXPECT_EQ(windowText(GetDlgItem(dialog, box)), L"typed");
        }
        press(dialog, IDOK);
    });
    EXPECT_EQ(site.PropSiteName, L"Alpha");
    EXPECT_EQ(site.PropSiteDesc, L"the first");
    show([](HWND dialog) {
        EXPECT_EQ(windowText(GetDlgItem(dialog, descriptionBox)), L"the first");
        press(dialog, IDOK);
    });
}

TEST_F(Properties, AClickOnTheAddressOpensItAndLeavesTheDialogOpen)
{
    show([&](HWND dialog) {
        const HWND link = GetDlgItem(dialog, address);
        PostMessageW(link, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
        PostMessageW(link, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
        EXPECT_EQ(recorder.linesOf(1), std::vector<std::wstring>{recorder.opening(L"http://a.example/")});
        EXPECT_TRUE(IsWindowVisible(dialog));
        EXPECT_EQ(textAfterLabel(dialog, L"Last Visited:"), L"11-16-2002");
        press(dialog, IDOK);
    });
    EXPECT_EQ(site.PropSiteDate, L"11/16/2002");
}

TEST_F(Properties, SpaceAndEnterOnTheAddressOpenIt)
{
    show([&](HWND dialog) {
        giveFocus(dialog, address);
        pressKey(VK_SPACE);
        EXPECT_EQ(recorder.linesOf(1).size(), 1U);
        pressKey(VK_RETURN);
        EXPECT_EQ(recorder.linesOf(2), std::vector<std::wstring>(2, recorder.opening(L"http://a.example/")));
        EXPECT_TRUE(IsWindowVisible(dialog));
        press(dialog, IDOK);
    });
}

TEST_F(Properties, TheAddressHasTheHandCursor)
{
    const frmProperties dialog(owner.handle(), site);
    const HWND link = GetDlgItem(dialog.handle(), address);
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    SendMessageW(link, WM_SETCURSOR, reinterpret_cast<WPARAM>(link), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
}

} // namespace
} // namespace vandrel::test
