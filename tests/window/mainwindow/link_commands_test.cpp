#include "tests/support/input.h"
#include "tests/support/link_test.h"
#include "tests/support/list_clicks.h"
#include "tests/support/menus_seen.h"

namespace vandrel::test {
namespace {

// How a user gets to the commands on a link.
class LinkCommands : public LinkTest {
  protected:
    void SetUp() override
    {
        startWithSites();
        lstInfo().setFocus();
    }
    // By the site list's pop-up menu and these keys.
    void popUp(std::vector<WORD> keys)
    {
        const MenuVisit visit([](HMENU) {}, std::move(keys));
        lstInfo().RightClick({200, 200});
        EXPECT_TRUE(visit.opened());
    }
    void expectOpened()
    {
        EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(L"http://c.example/")});
        EXPECT_EQ(folder.read(L"Work.udb"), threeSitesWithTheSecondOpened());
    }
    void emptyClipboard()
    {
        ASSERT_TRUE(pumpUntil([this] { return OpenClipboard(main->handle()) != 0; }));
        EmptyClipboard();
        CloseClipboard();
    }
    void expectCopied()
    {
        ASSERT_TRUE(pumpUntil([this] { return OpenClipboard(main->handle()) != 0; }));
        const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
        EXPECT_NE(memory, nullptr);
        if (memory != nullptr) {
            EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(GlobalLock(memory))), L"http://c.example/");
            GlobalUnlock(memory);
        }
        CloseClipboard();
    }
    static void expectProperties(Answers& answers)
    {
        answers.expect(L"Alpha's Properties", [](HWND dialog) { press(dialog, IDOK); });
    }
};

TEST_F(LinkCommands, CtrlOOpensTheSite)
{
    pressKey('O', true);
    expectOpened();
}

TEST_F(LinkCommands, TheDoubleClickOpensTheSite)
{
    const POINT row = pointOnRow(lstInfo(), 1);
    PostMessageW(lstInfo().handle(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(row.x, row.y));
    PostMessageW(lstInfo().handle(), WM_LBUTTONUP, 0, MAKELPARAM(row.x, row.y));
    pump();
    expectOpened();
}

TEST_F(LinkCommands, TheToolBarOpensTheSite)
{
    main->toolBar().ButtonClick(9);
    expectOpened();
}

TEST_F(LinkCommands, ThePopUpOpensTheSite)
{
    popUp({VK_DOWN, VK_RETURN});
    expectOpened();
}

TEST_F(LinkCommands, ThePopUpOpensTheSiteInANewWindow)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", recorder.program());
    popUp({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.program() + L" http://c.example/"});
    EXPECT_EQ(folder.read(L"Work.udb"), threeSitesWithTheSecondOpened());
}

TEST_F(LinkCommands, CtrlCCopiesTheAddress)
{
    emptyClipboard();
    pressKey('C', true);
    expectCopied();
}

TEST_F(LinkCommands, ThePopUpCopiesTheAddress)
{
    emptyClipboard();
    popUp({VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    expectCopied();
}

TEST_F(LinkCommands, CtrlPShowsTheProperties)
{
    Answers answers;
    expectProperties(answers);
    pressKey('P', true);
    EXPECT_ANSWERED(answers);
}

TEST_F(LinkCommands, ThePopUpShowsTheProperties)
{
    Answers answers;
    expectProperties(answers);
    popUp({VK_UP, VK_RETURN});
    EXPECT_ANSWERED(answers);
}

TEST_F(LinkCommands, F1OpensTheHelpPage)
{
    Answers answers;
    answers.expect(L"Error Opening Help", [](HWND box) { press(box, IDOK); });
    pressKey(VK_F1);
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
