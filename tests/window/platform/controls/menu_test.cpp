#include "platform/controls/menu.h"

#include "tests/support/menu_keys.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace vandrel::test {
namespace {

enum Id { file = 1, add, line, move, quit, popUpMenu, popOpen, popLine, popRemove, noEntry = 99 };

constexpr MenuRow rows[] = {
    {0, file, L"&File"},
    {1, add, L"&Add", {FCONTROL, 'N'}},
    {1, line, L"-"},
    {1, move, L"&Move To", {}, false, true},
    {1, quit, L"&Quit", {FCONTROL | FSHIFT, VK_F12}},
    {0, popUpMenu, L"PopUp", {}, true},
    {1, popOpen, L"&Open"},
    {1, popLine, L"-"},
    {1, popRemove, L"&Remove", {0, VK_DELETE}},
};

std::wstring captionAt(HMENU menu, UINT position)
{
    std::array<wchar_t, 128> text{};
    GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    return text.data();
}

class MenuTrees : public testing::Test {
  protected:
    MenuTree menus{rows};
};

TEST_F(MenuTrees, TheBarHoldsTheVisibleTopEntriesOnly)
{
    ASSERT_EQ(GetMenuItemCount(menus.bar()), 1);
    EXPECT_EQ(captionAt(menus.bar(), 0), L"&File");
    EXPECT_EQ(GetSubMenu(menus.bar(), 0), menus.submenu(file));
}

TEST_F(MenuTrees, EntriesStandInTheOrderOfTheTableWithTheirKeys)
{
    const HMENU menu = menus.submenu(file);
    ASSERT_EQ(GetMenuItemCount(menu), 4);
    EXPECT_EQ(captionAt(menu, 0), L"&Add\tCtrl+N");
    EXPECT_NE(GetMenuState(menu, 1, MF_BYPOSITION) & MF_SEPARATOR, 0U);
    EXPECT_EQ(captionAt(menu, 2), L"&Move To");
    EXPECT_EQ(captionAt(menu, 3), L"&Quit\tCtrl+Shift+F12");
    EXPECT_EQ(GetMenuItemID(menu, 0), UINT{add});
    EXPECT_EQ(GetMenuItemID(menu, 3), UINT{quit});
}

TEST_F(MenuTrees, AnEntryMayHaveASubmenuThatIsFilledLater)
{
    ASSERT_NE(menus.submenu(move), nullptr);
    EXPECT_EQ(GetMenuItemCount(menus.submenu(move)), 0);
    EXPECT_EQ(GetSubMenu(menus.submenu(file), 2), menus.submenu(move));
    EXPECT_EQ(menus.submenu(add), nullptr);
}

TEST_F(MenuTrees, AHiddenTopEntryIsAPopUpOfItsOwn)
{
    const HMENU menu = menus.submenu(popUpMenu);
    ASSERT_EQ(GetMenuItemCount(menu), 3);
    EXPECT_EQ(captionAt(menu, 0), L"&Open");
    EXPECT_EQ(captionAt(menu, 2), L"&Remove\tDel");
}

TEST_F(MenuTrees, EveryEntryStartsEnabledAndUnchecked)
{
    for (const int id : {add, move, quit, popOpen, popRemove}) {
        EXPECT_TRUE(menus.enabled(id));
        EXPECT_FALSE(menus.checked(id));
    }
}

TEST_F(MenuTrees, AnEntryIsDisabledAndEnabledByItself)
{
    menus.setEnabled(add, false);
    EXPECT_FALSE(menus.enabled(add));
    EXPECT_TRUE(menus.enabled(quit));
    EXPECT_NE(GetMenuState(menus.submenu(file), add, MF_BYCOMMAND) & MF_GRAYED, 0U);
    menus.setEnabled(add, true);
    EXPECT_TRUE(menus.enabled(add));
}

TEST_F(MenuTrees, AnEntryWithASubmenuIsDisabledToo)
{
    menus.setEnabled(move, false);
    EXPECT_FALSE(menus.enabled(move));
    menus.setEnabled(move, true);
    EXPECT_TRUE(menus.enabled(move));
}

TEST_F(MenuTrees, AnEntryIsCheckedAndUnchecked)
{
    menus.setChecked(quit, true);
    EXPECT_TRUE(menus.checked(quit));
    EXPECT_FALSE(menus.checked(add));
    menus.setChecked(quit, false);
    EXPECT_FALSE(menus.checked(quit));
}

TEST_F(MenuTrees, AnEntryThatDoesNotExistIsAnError)
{
    EXPECT_THROW(menus.enabled(noEntry), std::out_of_range);
    EXPECT_THROW(menus.submenu(noEntry), std::out_of_range);
}

TEST_F(MenuTrees, EveryShortcutOfTheTableIsAnAccelerator)
{
    const AcceleratorHandle keys = menus.accelerators();
    std::array<ACCEL, 8> table{};
    ASSERT_EQ(CopyAcceleratorTableW(keys.get(), table.data(), static_cast<int>(table.size())), 3);
    const auto has = [&](int modifiers, WORD key, int id) {
        for (const ACCEL& entry : table) {
            if ((entry.fVirt & ~FNOINVERT) == (modifiers | FVIRTKEY) && entry.key == key && entry.cmd == id)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(has(FCONTROL, 'N', add));
    EXPECT_TRUE(has(FCONTROL | FSHIFT, VK_F12, quit));
    EXPECT_TRUE(has(0, VK_DELETE, popRemove));
}

TEST(ShortcutText, NamesTheKeysAsMenusDo)
{
    EXPECT_EQ(shortcutText({0, VK_DELETE}), L"Del");
    EXPECT_EQ(shortcutText({FSHIFT, VK_DELETE}), L"Shift+Del");
    EXPECT_EQ(shortcutText({0, VK_F1}), L"F1");
    EXPECT_EQ(shortcutText({FCONTROL, VK_F12}), L"Ctrl+F12");
    EXPECT_EQ(shortcutText({FCONTROL | FSHIFT, 'A'}), L"Ctrl+Shift+A");
}

class MenuPopUps : public MenuTrees {
  protected:
    MenuPopUps() { window.show(); }

    // Opens the pop-up menu and types the keys into it.
    std::optional<int> choose(std::initializer_list<int> keys, int defaultId = 0)
    {
        const MenuKeys typed(window.handle(), keys);
        return menus.popUp(popUpMenu, window.handle(), {100, 100}, defaultId);
    }

    TestWindow window;
};

TEST_F(MenuPopUps, ReturnsTheEntryThatWasChosen)
{
    EXPECT_EQ(choose({VK_DOWN, VK_RETURN}), popOpen);
    EXPECT_EQ(choose({VK_DOWN, VK_DOWN, VK_RETURN}), popRemove);
}

TEST_F(MenuPopUps, ReturnsNothingWhenItIsDismissed) { EXPECT_FALSE(choose({VK_ESCAPE})); }

TEST_F(MenuPopUps, ADisabledEntryCannotBeChosen)
{
    menus.setEnabled(popRemove, false);
    EXPECT_FALSE(choose({VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE}));
}

TEST_F(MenuPopUps, TheDefaultEntryIsTheOneAskedForOrNone)
{
    choose({VK_ESCAPE}, popOpen);
    EXPECT_EQ(GetMenuDefaultItem(menus.submenu(popUpMenu), FALSE, GMDI_USEDISABLED), UINT{popOpen});
    choose({VK_ESCAPE}, popRemove);
    EXPECT_EQ(GetMenuDefaultItem(menus.submenu(popUpMenu), FALSE, GMDI_USEDISABLED), UINT{popRemove});
    choose({VK_ESCAPE});
    EXPECT_EQ(GetMenuDefaultItem(menus.submenu(popUpMenu), FALSE, GMDI_USEDISABLED), static_cast<UINT>(-1));
}

class MenuFamilies : public MenuTrees {
  protected:
    static constexpr int firstId = 1000;
    MenuFamily family{menus.submenu(move), firstId};
};

TEST_F(MenuFamilies, HasOneEntryWithoutACaptionAtFirst)
{
    EXPECT_EQ(family.count(), 1U);
    EXPECT_EQ(family.caption(0), L"");
    EXPECT_EQ(GetMenuItemCount(menus.submenu(move)), 1);
}

TEST_F(MenuFamilies, EntriesAreLoadedNamedAndCountedFromZero)
{
    family.load();
    family.load();
    family.setCaption(0, L"Home");
    family.setCaption(2, L"Work");
    EXPECT_EQ(family.count(), 3U);
    EXPECT_EQ(captionAt(menus.submenu(move), 0), L"Home");
    EXPECT_EQ(captionAt(menus.submenu(move), 2), L"Work");
    EXPECT_EQ(GetMenuItemID(menus.submenu(move), 2), UINT{firstId + 2});
}

TEST_F(MenuFamilies, ATitleIsShownAsItIs)
{
    family.setCaption(0, L"Q&A && more");
    EXPECT_EQ(family.caption(0), L"Q&A && more");
    EXPECT_EQ(captionAt(menus.submenu(move), 0), L"Q&&A &&&& more"); // "&&" is drawn as "&"
}

TEST_F(MenuFamilies, UnloadingRemovesTheLastOnesButNeverTheFirst)
{
    for (int i = 0; i < 4; ++i) family.load();
    family.unloadFrom(3);
    EXPECT_EQ(family.count(), 3U);
    EXPECT_EQ(GetMenuItemCount(menus.submenu(move)), 3);
    family.unloadFrom(7);
    EXPECT_EQ(family.count(), 3U);
    family.unloadFrom(0);
    EXPECT_EQ(family.count(), 1U);
    EXPECT_EQ(GetMenuItemCount(menus.submenu(move)), 1);
    EXPECT_EQ(GetMenuItemID(menus.submenu(move), 0), UINT{firstId});
}

TEST_F(MenuFamilies, AnEntryIsDisabledByItself)
{
    family.load();
    family.setEnabled(1, false);
    EXPECT_FALSE(family.enabled(1));
    EXPECT_TRUE(family.enabled(0));
    family.setEnabled(1, true);
    EXPECT_TRUE(family.enabled(1));
}

TEST_F(MenuFamilies, KnowsOnlyItsOwnIds)
{
    family.load();
    EXPECT_EQ(family.indexOf(firstId), 0U);
    EXPECT_EQ(family.indexOf(firstId + 1), 1U);
    EXPECT_FALSE(family.indexOf(firstId + 2));
    EXPECT_FALSE(family.indexOf(firstId - 1));
    EXPECT_FALSE(family.indexOf(0));
}

} // namespace
} // namespace vandrel::test
