#include "platform/controls/font.h"
#include "tests/support/window_facts.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class DisplayFontOfTheWindow : public MainWindowTest {
  protected:
    void startWith(const wchar_t* name, int size, bool bold, bool italic, int color)
    {
        setPreference(L"Options", L"FontName", name);
        setPreference(L"Options", L"FontSize", std::to_wstring(size));
        setPreference(L"Options", L"FontBold", bold ? L"1" : L"0");
        setPreference(L"Options", L"FontItalic", italic ? L"1" : L"0");
        setPreference(L"Options", L"FontColor", std::to_wstring(color));
        folder.write(L"Work.udb", threeSites);
        start();
    }
    HFONT listFont() { return fontHandleOf(lstInfo().handle()); }
    int lineHeight() { return textSize(listFont(), L"Ágjpqy").cy; }
};

TEST_F(DisplayFontOfTheWindow, ReachesEveryControl)
{
    startWith(L"Tahoma", 11, true, true, 255);
    for (const HWND window : windowsWithTexts(*main)) {
        const LOGFONTW font = fontOf(window);
        EXPECT_STREQ(font.lfFaceName, L"Tahoma") << testing::PrintToString(classOf(window));
        EXPECT_EQ(font.lfHeight, -MulDiv(11, static_cast<int>(main->dpi()), 72));
        EXPECT_EQ(font.lfWeight, FW_BOLD);
        EXPECT_EQ(font.lfItalic, TRUE);
    }
}

TEST_F(DisplayFontOfTheWindow, IsArialAtEightPointsUprightOnAFirstRun)
{
    start();
    for (const HWND window : windowsWithTexts(*main)) {
        const LOGFONTW font = fontOf(window);
        EXPECT_STREQ(font.lfFaceName, L"Arial");
        EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
        EXPECT_EQ(font.lfWeight, FW_NORMAL);
        EXPECT_EQ(font.lfItalic, FALSE);
    }
}

TEST_F(DisplayFontOfTheWindow, ColoursTheTextsOfTheListsAndOfTheSearchBox)
{
    startWith(L"Arial", 8, false, false, RGB(10, 20, 200));
    for (ListView* const list : {&lstCategory(), &lstInfo()}) {
        EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list->handle(), LVM_GETTEXTCOLOR, 0, 0)),
                  RGB(10, 20, 200));
    }
    const HWND box = main->searchPanel().cmbSearch.handle();
    const HWND edit = FindWindowExW(box, nullptr, L"Edit", nullptr);
    const HDC context = CreateCompatibleDC(nullptr);
    SendMessageW(box, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(edit));
    EXPECT_EQ(GetTextColor(context), RGB(10, 20, 200));
    DeleteDC(context);
}

TEST_F(DisplayFontOfTheWindow, AtEighteenPointsBoldItalicNoTextIsClipped)
{
    startWith(L"Arial", 18, true, true, 0);
    const int line = lineHeight();
    ASSERT_GE(line, px(*main, 18 * 20));

    RECT panel{};
    SendMessageW(main->workspace().StatusBar1.handle(), SB_GETRECT, 1, reinterpret_cast<LPARAM>(&panel));
    EXPECT_GE(heightOf(panel), line) << "status bar";

    const HWND box = main->searchPanel().cmbSearch.handle();
    const HWND edit = FindWindowExW(box, nullptr, L"Edit", nullptr);
    EXPECT_GE(heightOf(clientOf(edit)), line) << "search box";
    const RECT boxPlace = placeOf(box);
    EXPECT_GE(boxPlace.top, 0) << "search box within its panel";
    EXPECT_LE(boxPlace.bottom, clientOf(main->searchPanel().handle()).bottom)
        << "search box within its panel";

    for (ListView* const list : {&lstCategory(), &lstInfo()}) {
        RECT row{};
        row.left = LVIR_BOUNDS;
        SendMessageW(list->handle(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
        EXPECT_GE(heightOf(row), line) << "row";
        const HWND header = reinterpret_cast<HWND>(SendMessageW(list->handle(), LVM_GETHEADER, 0, 0));
        EXPECT_GE(heightOf(outerPlace(header)), line) << "header";
    }
}

TEST_F(DisplayFontOfTheWindow, AtEighteenPointsTheToolbarAndTheSearchPanelStayAboveTheLists)
{
    startWith(L"Arial", 18, true, true, 0);
    const LONG top = placeOf(lstInfo().handle()).top;
    EXPECT_LE(placeOf(main->toolBar().handle()).bottom, top);
    EXPECT_LE(placeOf(main->searchPanel().handle()).bottom, top);
    EXPECT_LE(placeOf(main->toolBar().handle()).right, placeOf(main->searchPanel().handle()).left);
}

} // namespace
} // namespace vandrel::test
