#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListOfOneSelection : public ListTest {
  protected:
    ListOfOneSelection()
    {
        fillNames(categories, {L"Home", L"News", L"Work"});
        categories.select(1);
    }
    void expectStillNews()
    {
        EXPECT_EQ(selectedNames(categories), Names{L"News"});
        EXPECT_EQ(nameOfCurrent(categories), L"News");
        EXPECT_TRUE(clicked.empty());
    }
};

TEST_F(ListOfOneSelection, AClickSelectsAnotherRowAndIsAnnouncedOnce)
{
    click(categories, 2);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    EXPECT_EQ(clicked, RowNumbers{2});
}

TEST_F(ListOfOneSelection, AnArrowKeySelectsAnotherRowAndIsAnnouncedOnce)
{
    typeKey(categories.handle(), VK_UP);
    EXPECT_EQ(selectedNames(categories), Names{L"Home"});
    EXPECT_EQ(clicked, RowNumbers{0});
}

TEST_F(ListOfOneSelection, AClickOnEmptySpaceUnselectsNothing)
{
    clickAt(categories.handle(), emptySpace(categories));
    expectStillNews();
}

TEST_F(ListOfOneSelection, ARightClickOnEmptySpaceUnselectsNothing)
{
    rightClickAt(categories.handle(), emptySpace(categories));
    expectStillNews();
    EXPECT_EQ(rightClicks.size(), 1U);
}

TEST_F(ListOfOneSelection, CtrlClickOnTheSelectedRowUnselectsNothing)
{
    const HeldKeys control({VK_CONTROL});
    click(categories, 1, MK_CONTROL);
    EXPECT_EQ(selectedNames(categories), Names{L"News"});
    EXPECT_EQ(nameOfCurrent(categories), L"News");
}

TEST_F(ListOfOneSelection, CtrlAndSpaceUnselectsNothing)
{
    const HeldKeys control({VK_CONTROL});
    typeKey(categories.handle(), VK_SPACE);
    EXPECT_EQ(selectedNames(categories), Names{L"News"});
}

TEST_F(ListOfOneSelection, CtrlAndArrowLeavesOneRowSelected)
{
    const HeldKeys control({VK_CONTROL});
    typeKey(categories.handle(), VK_DOWN);
    EXPECT_EQ(selectedRows(categories).size(), 1U);
}

TEST_F(ListOfOneSelection, ShiftAndArrowSelectsOneRow)
{
    const HeldKeys shift({VK_SHIFT});
    typeKey(categories.handle(), VK_DOWN);
    EXPECT_EQ(selectedNames(categories), Names{L"Work"});
    EXPECT_EQ(clicked, RowNumbers{2});
}

TEST_F(ListOfOneSelection, CtrlAChangesAndAnnouncesNothing)
{
    const HeldKeys control({VK_CONTROL});
    typeKey(categories.handle(), 'A');
    expectStillNews();
}

TEST_F(ListOfOneSelection, ARowRemovedByItsOwnClickIsNotSelectedAgain)
{
    categories.ItemClick = [this](std::size_t row) { categories.rows.remove(row); };
    click(categories, 2);
    EXPECT_EQ(shownColumn(categories), (Names{L"Home", L"News"}));
    EXPECT_TRUE(selectedRows(categories).empty());
}

} // namespace
} // namespace vandrel::test
