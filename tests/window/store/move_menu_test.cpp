#include "store/category_operations.h"
#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

// The "Move To" submenu as the user sees it.
class MoveToSubmenu : public StoreTest {
  protected:
    HMENU native() { return main->menus().submenu(mnuMoveTo); }
    Lines shown()
    {
        Lines captions;
        for (int i = 0; i < GetMenuItemCount(native()); ++i) {
            std::wstring text(300, L'\0');
            text.resize(static_cast<std::size_t>(GetMenuStringW(
                native(), static_cast<UINT>(i), text.data(), static_cast<int>(text.size()), MF_BYPOSITION)));
            captions.push_back(text);
        }
        return captions;
    }
    bool usable(UINT entry)
    {
        return (GetMenuState(native(), entry, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
    }
};

TEST_F(MoveToSubmenu, ListsEveryCategoryInTheOrderOfTheListAtStart)
{
    for (const wchar_t* const name : {L"b.udb", L"a.udb", L"c.udb"}) folder.write(name, "");
    start();
    EXPECT_EQ(shown(), titles());
    EXPECT_EQ(shown().size(), 3U);
}

TEST_F(MoveToSubmenu, FollowsASortedListWhenItIsBuiltAgain)
{
    for (const wchar_t* const name : {L"a.udb", L"b.udb", L"c.udb"}) folder.write(name, "");
    start();
    lstCategory().ColumnClick(0);
    EXPECT_EQ(shown(), (Lines{L"a", L"b", L"c"}));
    DoMoveMenus(workspace());
    EXPECT_EQ(shown(), (Lines{L"c", L"b", L"a"}));
}

TEST_F(MoveToSubmenu, ShowsAnAmpersandAsSuchWhileTheCaptionStaysTheTitle)
{
    folder.write(L"R && D.udb", "");
    folder.write(L"Rock & Roll.udb", "");
    start();
    EXPECT_EQ(moveEntries(), titles());
    EXPECT_EQ(shown(), (Lines{L"R &&&& D", L"Rock && Roll"}));
}

TEST_F(MoveToSubmenu, WithoutCategoriesHasOneEntryThatCannotBeChosen)
{
    start();
    EXPECT_EQ(shown(), Lines{L""});
    EXPECT_FALSE(usable(0));
}

TEST_F(MoveToSubmenu, ItsFirstEntryIsUsableAgainWithTheFirstCategory)
{
    start();
    Answers answers;
    expectTitle(answers, L"Work");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown(), Lines{L"Work"});
    EXPECT_TRUE(usable(0));
}

TEST_F(MoveToSubmenu, EntriesBuiltAgainAreUsable)
{
    folder.write(L"a.udb", "");
    folder.write(L"b.udb", "");
    start();
    workspace().mnuMove.setEnabled(1, false);
    Answers answers;
    expectTitle(answers, L"c");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    for (const UINT entry : {0U, 1U, 2U}) EXPECT_TRUE(usable(entry)) << entry;
}

TEST_F(MoveToSubmenu, NamesBothOfTwoCategoriesWithOneTitle)
{
    folder.write(L"Work.udb", "");
    start();
    Answers answers;
    expectTitle(answers, L"Work");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown(), (Lines{L"Work", L"Work"}));
}

TEST_F(MoveToSubmenu, IsBuiltShorterWhenCategoriesHaveGone)
{
    for (const wchar_t* const name : {L"a.udb", L"b.udb", L"c.udb"}) folder.write(name, "");
    start();
    categoryRows().remove(1);
    DoMoveMenus(workspace());
    EXPECT_EQ(shown(), (Lines{L"a", L"c"}));
    categoryRows().clear();
    DoMoveMenus(workspace());
    EXPECT_EQ(shown(), Lines{L""});
    EXPECT_FALSE(usable(0));
}

TEST_F(MoveToSubmenu, HoldsAThousandCategories)
{
    start();
    const auto name = std::make_shared<const std::wstring>(1000, L'x');
    std::vector<RowTable::Row> rows;
    for (std::size_t length = 1; length <= 1000; ++length) {
        rows.push_back(
            {RowTexts::ofLine({std::wstring_view(*name).substr(0, length % 200)}), closedFolderImage});
    }
    categoryRows().fill(name, std::move(rows));
    DoMoveMenus(workspace());
    EXPECT_EQ(shown(), titles());
}

} // namespace
} // namespace vandrel::test
