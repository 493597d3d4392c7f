#include "tests/support/list_fixture.h"

#include <limits>

namespace vandrel::test {
namespace {

class ListColumns : public ListTest {
  protected:
    int headerFormat(WPARAM column) const
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(ListView_GetHeader(sites.handle()), HDM_GETITEMW, column,
                     reinterpret_cast<LPARAM>(&item));
        return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    }
    std::vector<int> headerFormats() const
    {
        std::vector<int> formats;
        for (WPARAM column = 0; column < 4; ++column) formats.push_back(headerFormat(column));
        return formats;
    }
    LRESULT pixelWidth(WPARAM column) const
    {
        return SendMessageW(sites.handle(), LVM_GETCOLUMNWIDTH, column, 0);
    }
};

TEST_F(ListColumns, HeadingsAndWidthsAreThoseTheListWasMadeWith)
{
    const Names captions{L"Site Name", L"URL", L"Description", L"Date"};
    for (std::size_t column = 0; column < captions.size(); ++column) {
        std::array<wchar_t, 64> text{};
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(ListView_GetHeader(sites.handle()), HDM_GETITEMW, column,
                     reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(text.data(), captions[column]);
    }
    EXPECT_EQ(sites.columnWidth(0), 2160_twips);
    EXPECT_EQ(pixelWidth(0), sites.pixels(2160_twips));
    EXPECT_EQ(pixelWidth(3), 0);
}

TEST_F(ListColumns, AWidthThatWasSetIsReturnedUnchanged)
{
    for (const float width : {0.0F, 1.0F, 14.0F, 1234.5F, 2881.0F, 30'000.25F}) {
        sites.setColumnWidth(1, Twips{width});
        EXPECT_EQ(sites.columnWidth(1).value, width);
        EXPECT_EQ(pixelWidth(1), sites.pixels(Twips{width}));
    }
}

TEST_F(ListColumns, KeepTheirWidthsAtAnotherScaleThoseThatWereDraggedToo)
{
    const unsigned dpi = sites.dpi();
    sites.setColumnWidth(1, Twips{1234.5F});
    SendMessageW(sites.handle(), LVM_SETCOLUMNWIDTH, 0, 200); // as dragging in the header does
    const Twips dragged = sites.columnWidth(0);
    EXPECT_EQ(dragged, toTwips(200, dpi));
    for (const unsigned next : {2 * dpi, dpi * 3 / 2, dpi}) {
        sites.dpiChanged(next);
        EXPECT_EQ(sites.columnWidth(0), dragged);
        EXPECT_EQ(sites.columnWidth(1), Twips{1234.5F});
        EXPECT_EQ(sites.columnWidth(3), 0_twips);
        EXPECT_EQ(pixelWidth(0), toPixels(dragged, next));
        EXPECT_EQ(pixelWidth(1), toPixels(Twips{1234.5F}, next));
        EXPECT_EQ(pixelWidth(3), 0);
    }
    EXPECT_EQ(pixelWidth(0), 200);
}

TEST_F(ListColumns, AWidthThatIsSetAtAnotherScaleHasItsPixels)
{
    const unsigned next = sites.dpi() * 3 / 2;
    sites.dpiChanged(next);
    sites.setColumnWidth(1, 1440_twips);
    EXPECT_EQ(pixelWidth(1), static_cast<LRESULT>(next));
    EXPECT_EQ(sites.columnWidth(1), 1440_twips);
}

TEST_F(ListColumns, ANegativeWidthIsZero)
{
    sites.setColumnWidth(1, Twips{-300});
    EXPECT_EQ(sites.columnWidth(1), 0_twips);
    EXPECT_EQ(pixelWidth(1), 0);
}

TEST_F(ListColumns, AWidthThatIsNotANumberHidesTheColumn)
{
    sites.setColumnWidth(1, Twips{std::numeric_limits<float>::quiet_NaN()});
    EXPECT_EQ(pixelWidth(1), 0);
    EXPECT_EQ(sites.columnWidth(1), 0_twips);
}

TEST_F(ListColumns, AWidthThatTheUserDraggedComesBackInTwips)
{
    const HWND header = ListView_GetHeader(sites.handle());
    RECT area{};
    SendMessageW(header, HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&area));
    const LPARAM border = MAKELPARAM(area.right - 1, area.bottom / 2);
    const LPARAM further = MAKELPARAM(area.right - 1 + 33, area.bottom / 2);
    PostMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, border);
    PostMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, further);
    PostMessageW(header, WM_LBUTTONUP, 0, further);
    pump();
    ASSERT_EQ(pixelWidth(0), area.right - area.left + 33);
    EXPECT_EQ(sites.columnWidth(0), toTwips(area.right - area.left + 33, sites.dpi()));
    EXPECT_TRUE(columnsClicked.empty());
}

TEST_F(ListColumns, SettingAWidthAfterADragIsExactAgain)
{
    SendMessageW(sites.handle(), LVM_SETCOLUMNWIDTH, 0, 77);
    EXPECT_EQ(sites.columnWidth(0), toTwips(77, sites.dpi()));
    sites.setColumnWidth(0, 1001_twips);
    EXPECT_EQ(sites.columnWidth(0), 1001_twips);
}

TEST_F(ListColumns, NoHeadingHasAnArrowUntilTheListIsSorted)
{
    sites.rows.setSortKey(1);
    sites.rows.setSortOrder(SortOrder::descending);
    EXPECT_EQ(headerFormats(), (std::vector<int>{0, 0, 0, 0}));
}

TEST_F(ListColumns, TheSortedColumnAloneHasTheArrowOfItsOrder)
{
    fillNames(sites, {L"b", L"a"});
    sites.rows.sortBy(2, SortOrder::ascending);
    EXPECT_EQ(headerFormats(), (std::vector<int>{0, 0, HDF_SORTUP, 0}));
    sites.rows.setSortOrder(SortOrder::descending);
    EXPECT_EQ(headerFormats(), (std::vector<int>{0, 0, HDF_SORTDOWN, 0}));
    sites.rows.setSortKey(0);
    EXPECT_EQ(headerFormats(), (std::vector<int>{HDF_SORTDOWN, 0, 0, 0}));
    sites.rows.setSorted(false);
    EXPECT_EQ(headerFormats(), (std::vector<int>{0, 0, 0, 0}));
}

TEST_F(ListColumns, AFillRemovesTheArrow)
{
    sites.rows.sortBy(0, SortOrder::ascending);
    fillNames(sites, {L"b", L"a"});
    EXPECT_EQ(headerFormats(), (std::vector<int>{0, 0, 0, 0}));
}

TEST_F(ListColumns, GridLinesAreSwitchedOnAndOff)
{
    const auto native = [&] {
        return (SendMessageW(sites.handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES) != 0;
    };
    EXPECT_FALSE(sites.gridLines());
    sites.setGridLines(true);
    EXPECT_TRUE(sites.gridLines());
    EXPECT_TRUE(native());
    sites.setGridLines(false);
    EXPECT_FALSE(native());
}

TEST_F(ListColumns, HoverSelectionIsSwitchedOnAndOffWithoutTouchingTheGridLines)
{
    sites.setGridLines(true);
    sites.setHoverSelection(true);
    const auto styles = static_cast<DWORD>(SendMessageW(sites.handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    EXPECT_NE(styles & LVS_EX_TRACKSELECT, 0U);
    EXPECT_NE(styles & LVS_EX_FULLROWSELECT, 0U);
    EXPECT_TRUE(sites.gridLines());
    sites.setHoverSelection(false);
    EXPECT_FALSE(sites.hoverSelection());
    EXPECT_TRUE(sites.gridLines());
}

TEST_F(ListColumns, RestingTheMouseOnARowSelectsItWhileHoverSelectionIsOn)
{
    fillNames(sites, {L"a", L"b", L"c"});
    const POINT point = middleOf(sites, 1);
    const auto hover = [&] {
        SendMessageW(sites.handle(), WM_MOUSEHOVER, 0, MAKELPARAM(point.x, point.y));
        pump();
    };
    hover();
    EXPECT_TRUE(selectedRows(sites).empty());
    sites.setHoverSelection(true);
    hover();
    EXPECT_EQ(selectedRows(sites), RowNumbers{1});
    EXPECT_EQ(clicked, RowNumbers{1});
}

// The control shows a text that is cut off in a tip, which it asks for like any text.
TEST_F(ListColumns, TextsThatAreCutOffHaveATipWithTheWholeText)
{
    const std::wstring title(400, L'W');
    fillNames(categories, {title});
    for (const ListView* const list :
         {&static_cast<const ListView&>(sites), &static_cast<const ListView&>(categories)}) {
        EXPECT_NE(SendMessageW(list->handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_LABELTIP, 0);
    }
    std::array<wchar_t, INFOTIPSIZE> text{};
    NMLVDISPINFOW question{};
    question.hdr = {categories.handle(), 2, static_cast<UINT>(LVN_GETDISPINFOW)};
    question.item.mask = LVIF_TEXT;
    question.item.pszText = text.data();
    question.item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(window.handle(), WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&question));
    EXPECT_EQ(question.item.pszText, title);
}

TEST_F(ListColumns, TextsThatAreCutOffHaveNoTipInAListThatHasATipOfItsOwn)
{
    const LRESULT before = SendMessageW(sites.handle(), LVM_GETTOOLTIPS, 0, 0);
    sites.dropCutOffTips();
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_LABELTIP, 0);
    EXPECT_NE(SendMessageW(sites.handle(), LVM_GETTOOLTIPS, 0, 0), before)
        << "Wine makes a new one when asked";
}

TEST_F(ListColumns, TheTextColourIsTheDisplayFontsAndBlackMeansTheSystemsOwn)
{
    sites.setForeColor(RGB(200, 10, 20));
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETTEXTCOLOR, 0, 0), RGB(200, 10, 20));
    sites.setForeColor(0);
    EXPECT_EQ(SendMessageW(sites.handle(), LVM_GETTEXTCOLOR, 0, 0),
              static_cast<LRESULT>(GetSysColor(COLOR_WINDOWTEXT)));
}

} // namespace
} // namespace vandrel::test
