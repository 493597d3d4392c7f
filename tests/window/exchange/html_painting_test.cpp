#include "platform/windows/message_throttle.h"
#include "tests/support/html_test.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_clock.h"

namespace vandrel::test {
namespace {

// What the window does while a page is written.
class HtmlPaintingTest : public HtmlTest {
  protected:
    void startWith(int categories)
    {
        for (int i = 1; i <= categories; ++i) {
            folder.write(L"C" + std::to_wstring(i) + L".udb", "n|http://u/|d|1/1/2001\r\n");
        }
        start();
        clickCategory(L"C1");
    }
    // Calls `act` at each category, and lets so much time pass; as a rule enough for the window to be painted.
    MessageWatch atEachCategory(std::function<void()> act, ULONGLONG milliseconds = 300)
    {
        return {workspace().PB.handle(), PBM_SETPOS, [this, milliseconds, act = std::move(act)] {
                    act();
                    clock.pass(milliseconds);
                }};
    }
    using Captions = std::vector<std::wstring>;
    // What the window shows when it comes to each of four categories, if each takes so long: 100 ms or more, which is
    // how often the progress bar, by which they are told apart, moves.
    Captions captionsAtEachCategory(ULONGLONG milliseconds)
    {
        startWith(4);
        Captions captions;
        const auto watch = atEachCategory([&] { captions.push_back(windowText(main->handle())); },
                                          milliseconds);
        pageOf(mnuAllCats);
        return captions;
    }
    static bool questionIsOpen() { return FindWindowW(L"#32770", html::questionTitle) != nullptr; }

    TestClock clock;
};

TEST_F(HtmlPaintingTest, TheWindowIsPaintedBetweenCategories)
{
    startWith(3);
    int paints = 0;
    const MessageWatch watch(lstInfo().handle(), WM_PAINT, [&] { paints += questionIsOpen() ? 0 : 1; });
    const auto slow = atEachCategory([&] { InvalidateRect(lstInfo().handle(), nullptr, FALSE); });
    pageOf(mnuAllCats);
    EXPECT_GE(paints, 3);
}

TEST_F(HtmlPaintingTest, WhatIsPaintedIsTheCategoryThatWasJustRead)
{
    startWith(3);
    std::vector<LRESULT> counts;
    const MessageWatch watch(lstInfo().handle(), WM_PAINT, [&] {
        if (!questionIsOpen()) counts.push_back(SendMessageW(lstInfo().handle(), LVM_GETITEMCOUNT, 0, 0));
    });
    const auto slow = atEachCategory([&] { InvalidateRect(lstInfo().handle(), nullptr, FALSE); });
    pageOf(mnuAllCats);
    ASSERT_FALSE(counts.empty());
    EXPECT_EQ(counts, std::vector<LRESULT>(counts.size(), 1));
}

TEST_F(HtmlPaintingTest, TheWindowFollowsOnceAPageHasTakenThreeTenthsOfASecond)
{
    EXPECT_EQ(captionsAtEachCategory(100),
              (Captions{L"Vandrel - C1", L"Vandrel - C1", L"Vandrel - C1", L"Vandrel - C3"}));
}

TEST_F(HtmlPaintingTest, TheWindowDoesNotFollowBefore)
{
    EXPECT_EQ(captionsAtEachCategory(149), // two of them are done in 298 ms
              (Captions{L"Vandrel - C1", L"Vandrel - C1", L"Vandrel - C1", L"Vandrel - C3"}));
}

TEST_F(HtmlPaintingTest, NoKeyClickOrCommandIsTakenMeanwhile)
{
    startWith(3);
    int during = 0;
    const auto count = [&] { during += questionIsOpen() ? 0 : 1; };
    const MessageWatch keys(lstInfo().handle(), WM_KEYDOWN, count);
    const MessageWatch clicks(lstCategory().handle(), WM_LBUTTONDOWN, count);
    const MessageWatch commands(main->handle(), WM_COMMAND, count);
    const auto slow = atEachCategory([&] {
        PostMessageW(lstInfo().handle(), WM_KEYDOWN, VK_DELETE, 1);
        PostMessageW(lstCategory().handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
        PostMessageW(main->handle(), WM_COMMAND, mnuGridlines, 0);
    });
    pageOf(mnuAllCats);
    EXPECT_EQ(during, 1); // the command itself, which the test sends
}

TEST_F(HtmlPaintingTest, ARequestToQuitIsKeptForTheLoopOutside)
{
    startWith(2);
    bool asked = false;
    const auto slow = atEachCategory([&] {
        if (!std::exchange(asked, true)) PostQuitMessage(0);
    });
    Answers answers;
    answers.expect(html::saveCaption, naming(target.file(L"page.htm")));
    choose(mnuAllCats);
    EXPECT_TRUE(asked);
    EXPECT_TRUE(target.read(L"page.htm").ends_with(html::footer));
    MSG message{};
    bool quits = false;
    while (!quits && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) quits = message.message == WM_QUIT;
    EXPECT_TRUE(quits);
}

} // namespace
} // namespace vandrel::test
