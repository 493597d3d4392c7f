#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListClicks : public ListTest {
  protected:
    ListClicks() { fillNames(sites, {L"a", L"b", L"c", L"d", L"e"}); }
};

TEST_F(ListClicks, APressSelectsTheRowAndIsAnnouncedOnce)
{
    click(sites, 2);
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
    EXPECT_EQ(clicked, RowNumbers{2});
}

TEST_F(ListClicks, TheRowIsSelectedBeforeTheButtonIsReleased)
{
    const POINT point = middleOf(sites, 1);
    PostMessageW(sites.handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    pump();
    EXPECT_EQ(clicked, RowNumbers{1});
    PostMessageW(sites.handle(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    pump();
    EXPECT_EQ(clicked, RowNumbers{1});
}

TEST_F(ListClicks, AClickOnASelectedRowIsAnnouncedOnceMore)
{
    click(sites, 2);
    click(sites, 2);
    EXPECT_EQ(clicked, (RowNumbers{2, 2}));
}

TEST_F(ListClicks, AClickOnARowThatTheProgramSelectedIsAnnounced)
{
    sites.select(3);
    click(sites, 3);
    EXPECT_EQ(clicked, RowNumbers{3});
}

TEST_F(ListClicks, AClickOnEmptySpaceIsNotAnnounced)
{
    sites.select(1);
    clickAt(sites.handle(), emptySpace(sites));
    EXPECT_TRUE(clicked.empty());
    EXPECT_TRUE(selectedRows(sites).empty());
}

TEST_F(ListClicks, CtrlClickAddsARowAndASecondOneRemovesIt)
{
    click(sites, 0);
    const HeldKeys control({VK_CONTROL});
    click(sites, 2, MK_CONTROL);
    EXPECT_EQ(selectedRows(sites), (RowNumbers{0, 2}));
    EXPECT_EQ(clicked, (RowNumbers{0, 2}));
    click(sites, 2, MK_CONTROL);
    EXPECT_EQ(selectedRows(sites), RowNumbers{0});
}

TEST_F(ListClicks, ShiftClickSelectsARangeAndIsAnnouncedOnce)
{
    click(sites, 1);
    const HeldKeys shift({VK_SHIFT});
    click(sites, 4, MK_SHIFT);
    EXPECT_EQ(selectedRows(sites), (RowNumbers{1, 2, 3, 4}));
    EXPECT_EQ(clicked, (RowNumbers{1, 4}));
}

TEST_F(ListClicks, ArrowKeysAreAnnouncedOnceEach)
{
    click(sites, 1);
    typeKey(sites.handle(), VK_DOWN);
    typeKey(sites.handle(), VK_DOWN);
    typeKey(sites.handle(), VK_UP);
    EXPECT_EQ(clicked, (RowNumbers{1, 2, 3, 2}));
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
}

TEST_F(ListClicks, AnArrowKeyThatMovesNothingIsNotAnnounced)
{
    click(sites, 4);
    typeKey(sites.handle(), VK_DOWN);
    EXPECT_EQ(clicked, RowNumbers{4});
}

TEST_F(ListClicks, HomeAndEndAreAnnouncedOnceEach)
{
    click(sites, 2);
    typeKey(sites.handle(), VK_END);
    typeKey(sites.handle(), VK_HOME);
    EXPECT_EQ(clicked, (RowNumbers{2, 4, 0}));
}

TEST_F(ListClicks, ShiftEndIsAnnouncedOnce)
{
    click(sites, 1);
    const HeldKeys shift({VK_SHIFT});
    typeKey(sites.handle(), VK_END);
    EXPECT_EQ(selectedRows(sites), (RowNumbers{1, 2, 3, 4}));
    EXPECT_EQ(clicked, (RowNumbers{1, 4}));
}

TEST_F(ListClicks, ADoubleClickIsAnnouncedOnceAfterOneClick)
{
    const POINT point = middleOf(sites, 1);
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(sites.handle(), WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(sites.handle(), WM_LBUTTONUP, 0, place);
    PostMessageW(sites.handle(), WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    PostMessageW(sites.handle(), WM_LBUTTONUP, 0, place);
    pump();
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(clicked, RowNumbers{1});
}

TEST_F(ListClicks, ARightClickSelectsTheRowAndIsAnnouncedOnceWhereTheMouseIs)
{
    rightClickAt(sites.handle(), middleOf(sites, 3));
    EXPECT_EQ(selectedRows(sites), RowNumbers{3});
    EXPECT_EQ(clicked, RowNumbers{3});
    POINT mouse{};
    GetCursorPos(&mouse);
    ASSERT_EQ(rightClicks.size(), 1U);
    EXPECT_EQ(rightClicks[0].x, mouse.x);
    EXPECT_EQ(rightClicks[0].y, mouse.y);
}

TEST_F(ListClicks, TheRowOfARightClickIsAnnouncedBeforeTheMenuIsAskedFor)
{
    std::string order;
    sites.ItemClick = [&](std::size_t) { order += "row "; };
    sites.RightClick = [&](POINT) { order += "menu "; };
    rightClickAt(sites.handle(), middleOf(sites, 3));
    EXPECT_EQ(order, "row menu ");
}

TEST_F(ListClicks, ARightClickOnOneOfSeveralSelectedRowsKeepsThemAll)
{
    selectRows(sites, {1, 3});
    rightClickAt(sites.handle(), middleOf(sites, 3));
    EXPECT_EQ(selectedRows(sites), (RowNumbers{1, 3}));
    EXPECT_EQ(rightClicks.size(), 1U);
}

TEST_F(ListClicks, ARightClickOnEmptySpaceIsAnnounced)
{
    rightClickAt(sites.handle(), emptySpace(sites));
    EXPECT_EQ(rightClicks.size(), 1U);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListClicks, TheMenuKeyAsksForTheMenuBesideTheCurrentRow)
{
    sites.select(2);
    PostMessageW(sites.handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(sites.handle()),
                 MAKELPARAM(-1, -1));
    pump();
    ASSERT_EQ(rightClicks.size(), 1U);
    RECT row{};
    row.left = LVIR_BOUNDS;
    SendMessageW(sites.handle(), LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
    POINT point = rightClicks[0];
    ScreenToClient(sites.handle(), &point);
    EXPECT_GE(point.x, row.left);
    EXPECT_LE(point.x, row.right);
    EXPECT_GE(point.y, row.top);
    EXPECT_LE(point.y, row.bottom);
}

TEST_F(ListClicks, TheMenuKeyStaysWithinTheListWhenTheCurrentRowIsOutOfSight)
{
    fillNames(sites, Names(300, L"row"));
    sites.select(0);
    sites.ensureVisible(299);
    PostMessageW(sites.handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(sites.handle()),
                 MAKELPARAM(-1, -1));
    pump();
    ASSERT_EQ(rightClicks.size(), 1U);
    RECT area{};
    GetWindowRect(sites.handle(), &area);
    EXPECT_TRUE(PtInRect(&area, rightClicks[0]));
}

TEST_F(ListClicks, TheMenuKeyAsksForTheMenuOfAnEmptyListToo)
{
    sites.rows.clear();
    PostMessageW(sites.handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(sites.handle()),
                 MAKELPARAM(-1, -1));
    pump();
    ASSERT_EQ(rightClicks.size(), 1U);
    RECT area{};
    GetWindowRect(sites.handle(), &area);
    EXPECT_TRUE(PtInRect(&area, rightClicks[0]));
}

TEST_F(ListClicks, AColumnHeadingReportsItsColumn)
{
    const HWND header = ListView_GetHeader(sites.handle());
    for (const std::size_t column : {std::size_t{1}, std::size_t{0}}) {
        RECT area{};
        SendMessageW(header, HDM_GETITEMRECT, column, reinterpret_cast<LPARAM>(&area));
        clickAt(header, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    }
    EXPECT_EQ(columnsClicked, (RowNumbers{1, 0}));
    EXPECT_TRUE(clicked.empty());
}

} // namespace
} // namespace vandrel::test
