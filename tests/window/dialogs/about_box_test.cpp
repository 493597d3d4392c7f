#include "shared/vendor.h"
#include "tests/support/input.h"
#include "tests/support/window_facts.h"
#include "tests/support/window_parts.h"
#include "tests/window/dialogs/about_test.h"

#include <set>

namespace vandrel::test {
namespace {

class AboutLook : public AboutTest {};

TEST_F(AboutLook, TheFirstLineIsTheVersionWithoutLeadingZeros)
{
    for (const wchar_t* const version : {L"1.0.3", L"12.34.567", L"0.0.0"}) {
        const AboutBox box = open(version);
        const std::wstring text = windowText(box.lblInfo());
        EXPECT_EQ(text, L"Version " + std::wstring(version) + L"\r\n" + makersNotice + L"\r\nContact:");
        loaded.reset();
    }
}

TEST_F(AboutLook, TheMakersNoticeIsOneLine)
{
    EXPECT_FALSE(makersNotice.empty());
    EXPECT_EQ(makersNotice.find_first_of(L"\r\n"), std::wstring::npos);
}

TEST_F(AboutLook, TheTextsAreThese)
{
    const AboutBox box = open();
    EXPECT_EQ(windowText(box.window), L"About Vandrel");
    EXPECT_EQ(windowText(box.part(IDOK)), L"OK");
    EXPECT_EQ(windowText(box.part(about::email)), makersEmail);
    EXPECT_EQ(L"https://" + windowText(box.part(about::site)), makersSite);
}

TEST_F(AboutLook, ThePictureBehindTheTextHasTheStaticEdgeAndOneMore)
{
    const AboutBox box = open();
    // The system sets this bit itself, depending on the other edges.
    const auto style = GetWindowLongPtrW(box.info(), GWL_EXSTYLE) & ~LONG_PTR{WS_EX_WINDOWEDGE};
    EXPECT_EQ(style, (WS_EX_CONTROLPARENT | 0x20000) + 1);
}

TEST_F(AboutLook, TheLogoIsInTheMiddleOfThePicture)
{
    const AboutBox box = open();
    const RECT logo = placeOf(box.part(about::logo));
    EXPECT_EQ(logo.left, (clientOf(box.info()).right - widthOf(logo)) / 2);
    EXPECT_GT(widthOf(logo), 0);
    EXPECT_EQ(widthOf(logo), heightOf(logo));
}

TEST_F(AboutLook, TheLogoIsPainted)
{
    const AboutBox box = open();
    const HWND logo = box.part(about::logo);
    UpdateWindow(logo);
    const HDC screen = GetDC(logo);
    std::set<COLORREF> colors;
    for (int y = 0; y < clientOf(logo).bottom; y += 3) {
        for (int x = 0; x < clientOf(logo).right; x += 3) colors.insert(GetPixel(screen, x, y));
    }
    ReleaseDC(logo, screen);
    EXPECT_GT(colors.size(), 2U);
}

TEST_F(AboutLook, NoTextIsClippedAndNothingCovered)
{
    const AboutBox box = open(L"100.200.30000");
    EXPECT_TRUE(isWithin(placeOf(box.panel()), clientOf(box.window)));
    EXPECT_TRUE(isWithin(placeOf(box.info()), clientOf(box.panel())));
    const HWND parts[] = {box.part(about::logo), box.lblInfo(), box.part(about::email),
                          box.part(about::site)};
    for (const HWND part : parts) {
        EXPECT_TRUE(isWithin(placeOf(part), clientOf(box.info()))) << GetDlgCtrlID(part);
        for (const HWND other : parts) {
            if (other == part) break;
            const RECT one = placeOf(part);
            const RECT two = placeOf(other);
            RECT both{};
            EXPECT_FALSE(IntersectRect(&both, &one, &two)) << GetDlgCtrlID(part) << GetDlgCtrlID(other);
        }
    }
    LONG height = 0;
    for (const std::wstring& line :
         {std::wstring(L"Version 100.200.30000"), makersNotice, std::wstring(L"Contact:")}) {
        const SIZE size = textSize(fontHandleOf(box.lblInfo()), line);
        EXPECT_GE(clientOf(box.lblInfo()).right, size.cx) << testing::PrintToString(line);
        height += size.cy;
    }
    EXPECT_GE(clientOf(box.lblInfo()).bottom, height);
    for (const int id : {about::email, about::site}) {
        const SIZE size = textSize(fontHandleOf(box.part(id)), windowText(box.part(id)));
        EXPECT_GE(clientOf(box.part(id)).right, size.cx) << id;
        EXPECT_GE(clientOf(box.part(id)).bottom, size.cy) << id;
    }
    EXPECT_LE(placeOf(box.panel()).bottom, placeOf(box.part(IDOK)).top);
    EXPECT_TRUE(isWithin(placeOf(box.part(IDOK)), clientOf(box.window)));
}

TEST_F(AboutLook, HasOneTabWhosePanelIsShown)
{
    const AboutBox box = open();
    EXPECT_EQ(SendMessageW(box.part(about::tabs), TCM_GETITEMCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(box.part(about::tabs), TCM_GETCURSEL, 0, 0), 0);
    EXPECT_TRUE(IsWindowVisible(box.panel()));
    wchar_t text[32]{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 32;
    SendMessageW(box.part(about::tabs), TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_STREQ(text, L"About");
}

TEST_F(AboutLook, DoTabShowsThePanelAgain)
{
    const AboutBox box = open();
    ShowWindow(box.panel(), SW_HIDE);
    loaded->DoTab(1);
    EXPECT_TRUE(IsWindowVisible(box.panel()));
    EXPECT_EQ(SendMessageW(box.part(about::tabs), TCM_GETCURSEL, 0, 0), 0);
}

// ---- the mouse over the links

class AboutHover : public AboutTest {};

TEST_F(AboutHover, BothLinksAreBlackAtFirst)
{
    const AboutBox box = open();
    EXPECT_TRUE(box.plain(about::email));
    EXPECT_TRUE(box.plain(about::site));
}

TEST_F(AboutHover, TheBlueUnderlineMovesFromOneLinkStraightToTheOther)
{
    const AboutBox box = open();
    AboutBox::moveOver(box.part(about::email));
    EXPECT_TRUE(box.highlighted(about::email));
    EXPECT_TRUE(box.plain(about::site));
    AboutBox::moveOver(box.part(about::site));
    EXPECT_TRUE(box.plain(about::email));
    EXPECT_TRUE(box.highlighted(about::site));
    AboutBox::moveOver(box.part(about::email));
    EXPECT_TRUE(box.highlighted(about::email));
    EXPECT_TRUE(box.plain(about::site));
}

TEST_F(AboutHover, OverThePictureBehindBothAreBlackAgain)
{
    const AboutBox box = open();
    for (const int id : {about::email, about::site}) {
        AboutBox::moveOver(box.part(id));
        AboutBox::moveOver(box.info());
        EXPECT_TRUE(box.plain(about::email));
        EXPECT_TRUE(box.plain(about::site));
    }
}

TEST_F(AboutHover, TheVersionLetsTheMouseThroughToThePicture)
{
    const AboutBox box = open();
    const RECT area = outerPlace(box.lblInfo());
    const POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    EXPECT_EQ(SendMessageW(box.lblInfo(), WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)), HTTRANSPARENT);
    EXPECT_EQ(WindowFromPoint(middle), box.info());
    EXPECT_FALSE(AboutBox::underlined(box.lblInfo()));
}

TEST_F(AboutHover, AnywhereElseTheHighlightStays)
{
    const AboutBox box = open();
    AboutBox::moveOver(box.part(about::site));
    for (const HWND other : {box.part(about::logo), box.part(IDOK), box.part(about::tabs), box.panel(),
                             box.window, owner.handle()}) {
        AboutBox::moveOver(other);
        EXPECT_TRUE(box.highlighted(about::site));
        EXPECT_TRUE(box.plain(about::email));
    }
}

TEST_F(AboutHover, TheLinksHaveTheHandCursorAndThePictureHasNot)
{
    const AboutBox box = open();
    const auto cursorOver = [](HWND window) {
        SetCursor(LoadCursorW(nullptr, IDC_ARROW));
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    EXPECT_EQ(cursorOver(box.part(about::email)), LoadCursorW(nullptr, IDC_HAND));
    EXPECT_EQ(cursorOver(box.part(about::site)), LoadCursorW(nullptr, IDC_HAND));
    EXPECT_EQ(cursorOver(box.info()), LoadCursorW(nullptr, IDC_ARROW));
}

// ---- closing

class AboutClosing : public AboutTest {};

TEST_F(AboutClosing, OkEnterEscAndTheCloseButtonClose)
{
    const std::function<void(const AboutBox&)> ways[] = {
        [](const AboutBox& box) { press(box.window, IDOK); },
        [](const AboutBox&) { pressKey(VK_RETURN); },
        [](const AboutBox&) { pressKey(VK_ESCAPE); },
        [](const AboutBox& box) { SendMessageW(box.window, WM_CLOSE, 0, 0); },
    };
    for (const auto& close : ways) {
        const AboutBox box = open();
        EXPECT_EQ(GetFocus(), box.part(IDOK));
        EXPECT_FALSE(loaded->unloaded());
        close(box);
        EXPECT_TRUE(loaded->unloaded());
        EXPECT_FALSE(IsWindowVisible(box.window));
        loaded.reset();
    }
}

TEST_F(AboutClosing, TabGoesFromOkToTheTabsToTheLinks)
{
    open();
    std::vector<int> stops;
    for (int stop = 0; stop < 5; ++stop) {
        stops.push_back(GetDlgCtrlID(GetFocus()));
        pressKey(VK_TAB);
    }
    EXPECT_EQ(stops, (std::vector<int>{IDOK, about::tabs, about::email, about::site, IDOK}));
}

} // namespace
} // namespace vandrel::test
