#include "tests/support/recorder.h"
#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

class SearchOpening : public SearchTest {
  protected:
    void doubleClick(int row)
    {
        const HWND list = part(parts::results);
        const POINT at = pointOnRow(search().results(), row);
        clickRow(search().results(), row);
        PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
        pump();
    }
    void moveMouseOver(int row)
    {
        const POINT at = pointOnRow(search().results(), row);
        SendMessageW(part(parts::results), WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
    }
    // The tool tip of the results; null if there is none.
    HWND tipWindow()
    {
        struct Search {
            HWND owner;
            HWND tip;
        } found{dialog(), nullptr};
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM param) -> BOOL {
                auto& s = *reinterpret_cast<Search*>(param);
                std::array<wchar_t, 64> kind{};
                GetClassNameW(window, kind.data(), 64);
                if (std::wstring(kind.data()) == TOOLTIPS_CLASSW && GetWindow(window, GW_OWNER) == s.owner)
                    s.tip = window;
                return s.tip == nullptr;
            },
            reinterpret_cast<LPARAM>(&found));
        return found.tip;
    }
    std::wstring tip()
    {
        std::array<wchar_t, 2048> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = dialog();
        tool.uId = reinterpret_cast<UINT_PTR>(part(parts::results));
        tool.lpszText = text.data();
        if (tipWindow() == nullptr) return L"(no tip)";
        SendMessageW(tipWindow(), TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
        return text.data();
    }

    Recorder recorder;
};

TEST_F(SearchOpening, ADoubleClickOpensTheSite)
{
    startWithCategories();
    find(L"daily");
    doubleClick(1);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://sky.example/daily")});
}

TEST_F(SearchOpening, EnterInTheListOpensTheSelectedSiteAndSearchesNothing)
{
    startWithCategories();
    find(L"daily");
    search().results().select(1);
    typeOver(dialog(), parts::term, L"nowhere to be found");
    SetFocus(part(parts::results));
    pressKey(VK_RETURN);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://sky.example/daily")});
    EXPECT_EQ(search().results().count(), 3U);
}

TEST_F(SearchOpening, LeavesDateAndFileAsTheyAre)
{
    startWithCategories();
    find(L"daily");
    doubleClick(0);
    EXPECT_EQ(recorder.linesOf(1).size(), 1U);
    EXPECT_EQ(folder.read(L"News.udb"), newsSites);
    EXPECT_EQ(sites()[0], L"Daily News|http://Paper.example/|Read It Early|9/30/2002");
}

TEST_F(SearchOpening, ASiteWithoutAnAddressOpensNothing)
{
    startWithCategories();
    find(L"daily");
    ASSERT_EQ(found(1)[2], L"");
    doubleClick(2);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(SearchOpening, TheRowThatSaysThatThereIsNothingOpensNothing)
{
    startWithCategories();
    find(L"nowhere to be found");
    doubleClick(0);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(SearchOpening, AnEmptyListOpensNothingAndHasNoToolTip)
{
    startWithCategories();
    SetFocus(part(parts::results));
    pressKey(VK_RETURN);
    SendMessageW(part(parts::results), WM_MOUSEMOVE, 0, MAKELPARAM(20, 40));
    EXPECT_EQ(tip(), L"");
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(SearchOpening, TheToolTipIsTheOnlyOneOfTheResults)
{
    startWithCategories();
    const auto tipsOfCutOffTexts = [](HWND list) {
        return (SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_LABELTIP) != 0;
    };
    EXPECT_TRUE(tipsOfCutOffTexts(lstInfo().handle()));
    EXPECT_FALSE(tipsOfCutOffTexts(part(parts::results)));
}

TEST_F(SearchOpening, TheToolTipIsAsWideToTheEyeAtEveryScale)
{
    startWithCategories();
    for (const unsigned dpi : {144U, 96U}) {
        const RECT place = outerPlace(dialog());
        SendMessageW(dialog(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(SendMessageW(tipWindow(), TTM_GETMAXTIPWIDTH, 0, 0), static_cast<LRESULT>(600 * dpi / 96));
    }
}

TEST_F(SearchOpening, TheToolTipIsAboutTheSelectedRowWhereverTheMouseIs)
{
    startWithCategories();
    find(L"daily");
    moveMouseOver(2);
    EXPECT_EQ(tip(), L"Name: Daily News - URL: http://Paper.example/ - Description: Read It Early");
    search().results().select(1);
    moveMouseOver(0);
    EXPECT_EQ(tip(), L"Name: Weather - URL: http://sky.example/daily - Description: Clouds");
    find(L"nowhere to be found");
    moveMouseOver(0);
    EXPECT_EQ(tip(), L"Name: No results found. - URL:  - Description: ");
}

} // namespace
} // namespace vandrel::test
