#include "platform/controls/tool_bar.h"

#include "tests/support/input.h"
#include "tests/support/menu_keys.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

constexpr ToolBar::ButtonRow buttons[] = {{L"Add Category", L"category-add"},
                                          {L"", L"", ToolBar::Kind::separator},
                                          {L"Import or export", L"import", ToolBar::Kind::dropDown},
                                          {L"About", L"about"}};
constexpr ToolBar::MenuRow entries[] = {{L"Import...", L"import"}, {L"Export...", L"export"}};

class ToolBars : public testing::Test {
  protected:
    ToolBars()
    {
        bar.drawFor(240_twips);
        bar.setButtonMenu(3, entries);
        bar.place(0, 0, 600, bar.height());
        bar.ButtonClick = [this](int position) { clicked.push_back(position); };
        bar.ButtonMenuClick = [this](const std::wstring& key) { chosen.push_back(key); };
        window.show();
        pump();
    }
    RECT area(int position) const
    {
        RECT found{};
        SendMessageW(bar.handle(), TB_GETRECT, static_cast<WPARAM>(position),
                     reinterpret_cast<LPARAM>(&found));
        return found;
    }
    void click(int position)
    {
        const RECT place = area(position);
        clickAt(bar.handle(), {place.left + 6, (place.top + place.bottom) / 2});
    }
    // Clicks the arrow of the drop-down button and types the keys into the menu that opens.
    void openMenuAndType(std::initializer_list<int> keys)
    {
        const MenuKeys typed(window.handle(), keys);
        const RECT place = area(3);
        clickAt(bar.handle(), {place.right - 4, (place.top + place.bottom) / 2});
    }

    TestWindow window;
    ToolBar bar{window.handle(), buttons};
    std::vector<int> clicked;
    std::vector<std::wstring> chosen;
};

TEST_F(ToolBars, ButtonsAndSeparatorsAreInTheOrderOfTheTable)
{
    ASSERT_EQ(SendMessageW(bar.handle(), TB_BUTTONCOUNT, 0, 0), 4);
    const BYTE styles[] = {BTNS_BUTTON, BTNS_SEP, BTNS_DROPDOWN, BTNS_BUTTON};
    for (WPARAM index = 0; index < 4; ++index) {
        TBBUTTON button{};
        SendMessageW(bar.handle(), TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
        EXPECT_EQ(button.idCommand, static_cast<int>(index) + 1);
        EXPECT_EQ(button.fsStyle & (BTNS_SEP | BTNS_DROPDOWN), styles[index]);
    }
}

TEST_F(ToolBars, EveryButtonHasAPictureOfItsOwn)
{
    const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(bar.handle(), TB_GETIMAGELIST, 0, 0));
    EXPECT_EQ(ImageList_GetImageCount(images), 3);
    std::vector<int> pictures;
    for (const WPARAM index : {0, 2, 3}) {
        TBBUTTON button{};
        SendMessageW(bar.handle(), TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
        pictures.push_back(button.iBitmap);
    }
    EXPECT_EQ(pictures, (std::vector<int>{0, 1, 2}));
}

TEST_F(ToolBars, AClickReportsThePositionOfItsButton)
{
    click(1);
    click(4);
    EXPECT_EQ(clicked, (std::vector<int>{1, 4}));
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ToolBars, TheButtonPartOfADropDownButtonIsAButton)
{
    click(3);
    EXPECT_EQ(clicked, std::vector<int>{3});
}

TEST_F(ToolBars, ADisabledButtonCannotBeClicked)
{
    bar.setButtonEnabled(1, false);
    EXPECT_FALSE(bar.buttonEnabled(1));
    EXPECT_TRUE(bar.buttonEnabled(4));
    click(1);
    EXPECT_TRUE(clicked.empty());
    bar.setButtonEnabled(1, true);
    click(1);
    EXPECT_EQ(clicked, std::vector<int>{1});
}

TEST_F(ToolBars, TheArrowOpensTheMenuAndReportsTheKeyOfTheChosenEntry)
{
    openMenuAndType({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(chosen, std::vector<std::wstring>{L"export"});
    EXPECT_TRUE(clicked.empty());
}

// The tip would cover the menu, which opens where the tip is.
TEST_F(ToolBars, ShowsNoTipWhileTheArrowsMenuIsOpen)
{
    const auto tip = reinterpret_cast<HWND>(SendMessageW(bar.handle(), TB_GETTOOLTIPS, 0, 0));
    ASSERT_NE(tip, nullptr);
    std::vector<std::wstring> told;
    const MessageWatch activation(tip, TTM_ACTIVATE, [&] { told.emplace_back(L"tip off or on"); });
    const MessageWatch opening(window.handle(), WM_ENTERMENULOOP, [&] { told.emplace_back(L"menu"); });
    openMenuAndType({VK_DOWN, VK_ESCAPE});
    EXPECT_EQ(told, (std::vector<std::wstring>{L"tip off or on", L"menu", L"tip off or on"}));
}

TEST_F(ToolBars, AMenuThatIsDismissedReportsNothing)
{
    openMenuAndType({VK_DOWN, VK_ESCAPE});
    EXPECT_TRUE(chosen.empty());
}

TEST_F(ToolBars, AnEntryOfTheMenuIsDisabledByItsKey)
{
    bar.setButtonMenuEnabled(L"export", false);
    EXPECT_NE(GetMenuState(bar.buttonMenu(), 1, MF_BYPOSITION) & MF_GRAYED, 0U);
    EXPECT_EQ(GetMenuState(bar.buttonMenu(), 0, MF_BYPOSITION) & MF_GRAYED, 0U);
    openMenuAndType({VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE});
    EXPECT_TRUE(chosen.empty());
    bar.setButtonMenuEnabled(L"export", true);
    bar.setButtonMenuEnabled(L"no such key", false);
    EXPECT_EQ(GetMenuState(bar.buttonMenu(), 1, MF_BYPOSITION) & MF_GRAYED, 0U);
}

TEST_F(ToolBars, TheToolTipIsTheOneOfTheTable)
{
    const auto tip = [&](int position, int room) {
        std::array<wchar_t, 64> text{};
        NMTBGETINFOTIPW question{};
        question.hdr = {bar.handle(), 0, static_cast<UINT>(TBN_GETINFOTIPW)};
        question.pszText = text.data();
        question.cchTextMax = room;
        question.iItem = position;
        SendMessageW(window.handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        return std::wstring(text.data());
    };
    EXPECT_EQ(tip(1, 64), L"Add Category");
    EXPECT_EQ(tip(4, 64), L"About");
    EXPECT_EQ(tip(1, 4), L"Add");
}

TEST_F(ToolBars, PicturesAreDrawnForTheSizeAskedFor)
{
    for (const Twips size : {240_twips, 480_twips}) {
        bar.drawFor(size);
        const auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(bar.handle(), TB_GETIMAGELIST, 0, 0));
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(images, &width, &height);
        EXPECT_EQ(width, bar.pixels(size));
        EXPECT_EQ(height, bar.pixels(size));
        EXPECT_GE(bar.height(), height);
    }
}

// A command may take minutes or close the program.
TEST_F(ToolBars, CommandsStartOnceTheBarHasFinishedWithTheMouse)
{
    bool inTheClick = false;
    bool ranInTheClick = false;
    bar.ButtonClick = [&](int) { ranInTheClick = inTheClick; };
    const RECT place = area(1);
    const LPARAM point = MAKELPARAM(place.left + 6, (place.top + place.bottom) / 2);
    SendMessageW(bar.handle(), WM_LBUTTONDOWN, MK_LBUTTON, point);
    inTheClick = true;
    SendMessageW(bar.handle(), WM_LBUTTONUP, 0, point);
    inTheClick = false;
    EXPECT_FALSE(ranInTheClick);
    pump();
    EXPECT_FALSE(ranInTheClick);
}

TEST_F(ToolBars, ACommandOfTheArrowsMenuFindsTheButtonReleased)
{
    bool pressed = true;
    bar.ButtonMenuClick = [&](const std::wstring& key) {
        chosen.push_back(key);
        pressed = SendMessageW(bar.handle(), TB_ISBUTTONPRESSED, 3, 0) != 0;
    };
    openMenuAndType({VK_DOWN, VK_RETURN});
    ASSERT_EQ(chosen.size(), 1U);
    EXPECT_FALSE(pressed);
}

TEST_F(ToolBars, ACommandOfTheArrowsMenuMayDestroyTheBar)
{
    bar.ButtonMenuClick = [&](const std::wstring& key) {
        chosen.push_back(key);
        DestroyWindow(window.handle());
    };
    openMenuAndType({VK_DOWN, VK_RETURN});
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(bar.handle(), nullptr);
}

} // namespace
} // namespace vandrel::test
