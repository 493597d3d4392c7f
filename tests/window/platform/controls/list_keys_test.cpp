#include "tests/support/list_fixture.h"

namespace vandrel::test {
namespace {

class ListKeys : public ListTest {
  protected:
    ListKeys()
    {
        fillNames(sites, {L"Alpha", L"Beta", L"Bravo", L"delta", L"beta two"});
        sites.setFocus();
    }
    // Asks as the native control does, from row `first` on.
    LRESULT find(const wchar_t* text, UINT flags, int first = 0)
    {
        NMLVFINDITEMW wanted{};
        wanted.hdr = {sites.handle(), 1, LVN_ODFINDITEMW};
        wanted.iStart = first;
        wanted.lvfi.flags = flags;
        wanted.lvfi.psz = text;
        return SendMessageW(window.handle(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&wanted));
    }
    void type(wchar_t letter)
    {
        PostMessageW(sites.handle(), WM_CHAR, letter, 1);
        pump();
    }
};

TEST_F(ListKeys, CtrlASelectsAllAndIsAnnouncedOnce)
{
    sites.select(2);
    const HeldKeys control({VK_CONTROL});
    typeKey(sites.handle(), 'A');
    EXPECT_EQ(sites.selectedCount(), 5U);
    EXPECT_EQ(clicked, RowNumbers{2}); // the focused row remains the current one
}

TEST_F(ListKeys, CtrlAInAnEmptyListDoesNothing)
{
    sites.rows.clear();
    const HeldKeys control({VK_CONTROL});
    typeKey(sites.handle(), 'A');
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListKeys, CtrlAltAIsALetterOfSomeKeyboardsAndSelectsNothing)
{
    sites.select(2);
    const HeldKeys control({VK_CONTROL});
    const HeldKeys alt({VK_MENU});
    SendMessageW(sites.handle(), WM_KEYDOWN, 'A', 1);
    EXPECT_EQ(selectedRows(sites), RowNumbers{2});
}

TEST_F(ListKeys, ATypedLetterSelectsTheNextRowThatBeginsWithIt)
{
    sites.select(0);
    type(L'b');
    EXPECT_EQ(selectedNames(sites), Names{L"Beta"});
    EXPECT_EQ(clicked, RowNumbers{1});
}

TEST_F(ListKeys, LettersTypedInSuccessionNarrowTheSearch)
{
    sites.select(0);
    type(L'b');
    type(L'r');
    EXPECT_EQ(selectedNames(sites), Names{L"Bravo"});
    EXPECT_EQ(clicked, (RowNumbers{1, 2}));
}

TEST_F(ListKeys, ALetterThatNoRowBeginsWithChangesNothing)
{
    sites.select(3);
    type(L'x');
    EXPECT_EQ(selectedRows(sites), RowNumbers{3});
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListKeys, TheSearchWrapsAround)
{
    sites.select(4);
    type(L'a');
    EXPECT_EQ(selectedNames(sites), Names{L"Alpha"});
}

TEST_F(ListKeys, ARowIsFoundByItsBeginningWithoutRegardToCase)
{
    EXPECT_EQ(find(L"BE", LVFI_STRING | LVFI_PARTIAL), 1);
    EXPECT_EQ(find(L"BE", LVFI_STRING | LVFI_PARTIAL, 1), 1);
    EXPECT_EQ(find(L"BE", LVFI_STRING | LVFI_PARTIAL, 2), 4);
    EXPECT_EQ(find(L"DELTAX", LVFI_STRING | LVFI_PARTIAL), -1);
}

// Windows asks for a substring when letters are typed, and means the beginning as well.
TEST_F(ListKeys, ASubstringAsksForTheBeginningOfAName)
{
    constexpr UINT substring = 0x0004; // LVFI_SUBSTRING
    EXPECT_EQ(find(L"be", LVFI_STRING | substring), 1);
    EXPECT_EQ(find(L"be", LVFI_STRING | substring | LVFI_WRAP, 2), 4);
    EXPECT_EQ(find(L"b", substring, 3), 4);
    EXPECT_EQ(find(L"eta", LVFI_STRING | substring), -1);
}

TEST_F(ListKeys, ARowIsFoundByItsWholeName)
{
    EXPECT_EQ(find(L"beta two", LVFI_STRING), 4);
    EXPECT_EQ(find(L"be", LVFI_STRING), -1);
}

TEST_F(ListKeys, ARowAboveTheStartIsFoundToo)
{
    EXPECT_EQ(find(L"Al", LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP, 2), 0);
    EXPECT_EQ(find(L"Al", LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP, 5), 0);
}

TEST_F(ListKeys, ARowIsFoundByItsTextOnly) { EXPECT_EQ(find(L"Alpha", LVFI_PARAM), -1); }

TEST_F(ListKeys, SearchingAnEmptyListAndEmptyNamesFindsNothing)
{
    fillNames(sites, {L"", L""});
    EXPECT_EQ(find(L"a", LVFI_STRING | LVFI_PARTIAL), -1);
    sites.rows.clear();
    EXPECT_EQ(find(L"a", LVFI_STRING | LVFI_PARTIAL), -1);
}

TEST_F(ListKeys, ArrowKeysBelongToTheListAlsoInADialog)
{
    EXPECT_NE(SendMessageW(sites.handle(), WM_GETDLGCODE, VK_DOWN, 0) & DLGC_WANTARROWS, 0);
    EXPECT_NE(GetWindowLongPtrW(sites.handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

} // namespace
} // namespace vandrel::test
