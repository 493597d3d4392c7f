#include "platform/controls/status_bar.h"

#include "tests/support/answers.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_window.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

class StatusBars : public testing::Test {
  protected:
    StatusBars()
    {
        bar.setPanelEdges(200, 450);
        bar.dock();
    }
    TestWindow window;
    StatusBar bar{window.handle()};
};

TEST_F(StatusBars, ShowThreePanelsWithTheEdgesAskedFor)
{
    int edges[8]{};
    ASSERT_EQ(SendMessageW(bar.handle(), SB_GETPARTS, 8, reinterpret_cast<LPARAM>(edges)), 3);
    EXPECT_EQ(edges[0], 200);
    EXPECT_EQ(edges[1], 450);
    EXPECT_EQ(edges[2], -1); // up to the right end
}

TEST_F(StatusBars, EachPanelKeepsItsOwnText)
{
    bar.setPanelText(1, L"Scan complete.");
    bar.setPanelText(2, L"Name: News  ");
    bar.setPanelText(3, L"URL: http://news.example/?a&b=\u0142  ");
    EXPECT_EQ(bar.panelText(1), L"Scan complete.");
    EXPECT_EQ(bar.panelText(2), L"Name: News  ");
    EXPECT_EQ(bar.panelText(3), L"URL: http://news.example/?a&b=\u0142  ");
    wchar_t shown[64]{};
    SendMessageW(bar.handle(), SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(shown));
    EXPECT_EQ(std::wstring(shown), L"Name: News  ");
}

TEST_F(StatusBars, ATextIsReplacedAndRemoved)
{
    EXPECT_EQ(bar.panelText(1), L"");
    bar.setPanelText(1, L"long before");
    bar.setPanelText(1, L"short");
    EXPECT_EQ(bar.panelText(1), L"short");
    bar.setPanelText(1, L"");
    EXPECT_EQ(bar.panelText(1), L"");
}

// The address in a damaged file can have any length.
TEST_F(StatusBars, AVeryLongTextIsCutToWhatThePanelHolds)
{
    for (const std::size_t length : {300U, 65'535U, 65'536U, 70'000U}) {
        const std::wstring text(length, L'x');
        bar.setPanelText(3, text);
        const std::wstring back = bar.panelText(3);
        EXPECT_TRUE(text.starts_with(back));
        EXPECT_GE(back.size(), std::min<std::size_t>(length, 65'535U));
    }
}

TEST_F(StatusBars, ATextThatIsNotUrgentIsThereForWhoeverAsks)
{
    bar.setPanelTextSoon(2, L"A");
    bar.setPanelTextSoon(2, L"B");
    EXPECT_EQ(bar.panelText(2), L"B");
    bar.setPanelTextSoon(2, L"C");
    bar.setPanelText(2, L"D");
    EXPECT_EQ(bar.panelText(2), L"D");
    bar.setPanelTextSoon(3, std::wstring(100'000, L'x'));
    EXPECT_EQ(bar.panelText(3).size(), 65'535U);
}

TEST_F(StatusBars, OfTextsThatAreNotUrgentTheLastIsPainted)
{
    window.show();
    pump();
    int texts = 0;
    const MessageWatch watch(bar.handle(), SB_SETTEXTW, [&] { ++texts; });
    for (int i = 0; i < 100; ++i) {
        bar.setPanelTextSoon(1, L"one " + std::to_wstring(i));
        bar.setPanelTextSoon(3, L"three " + std::to_wstring(i));
    }
    EXPECT_EQ(texts, 0);
    pump();
    EXPECT_EQ(texts, 2);
    EXPECT_EQ(bar.panelText(1), L"one 99");
    EXPECT_EQ(bar.panelText(3), L"three 99");
    EXPECT_EQ(texts, 2) << "nothing was left for the question to do";
}

TEST_F(StatusBars, PanelsLieSideBySideWithinTheBar)
{
    const RECT first = bar.panelArea(1);
    const RECT second = bar.panelArea(2);
    const RECT third = bar.panelArea(3);
    RECT area{};
    GetClientRect(bar.handle(), &area);
    EXPECT_EQ(first.right, 200);
    EXPECT_GE(second.left, first.right);
    EXPECT_EQ(second.right, 450);
    EXPECT_GE(third.left, second.right);
    EXPECT_LE(third.right, area.right);
    EXPECT_GT(third.right, third.left);
    EXPECT_LE(first.bottom, area.bottom);
}

TEST_F(StatusBars, StayAtTheLowerEdgeOfAWindowThatIsResized)
{
    for (const int height : {600, 400}) {
        SetWindowPos(window.handle(), nullptr, 0, 0, 700, height, SWP_NOMOVE | SWP_NOZORDER);
        bar.dock();
        RECT around{};
        GetClientRect(window.handle(), &around);
        RECT own{};
        GetWindowRect(bar.handle(), &own);
        MapWindowPoints(nullptr, window.handle(), reinterpret_cast<POINT*>(&own), 2);
        EXPECT_EQ(own.bottom, around.bottom);
        EXPECT_EQ(own.left, 0);
        EXPECT_EQ(own.right, around.right);
        EXPECT_EQ(own.bottom - own.top, bar.height());
        EXPECT_GT(bar.height(), 0);
    }
}

} // namespace
} // namespace vandrel::test
