#pragma once

#include "platform/controls/list_view.h"
#include "tests/support/input.h"
#include "tests/support/row_block.h"
#include "tests/support/test_window.h"
#include "tests/support/wine.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace vandrel::test {

using Names = std::vector<std::wstring>;
using RowNumbers = std::vector<std::size_t>;

// As the native control reports it, not as the object remembers it.
inline std::wstring shownText(const ListView& list, std::size_t row, int column = 0)
{
    std::array<wchar_t, 512> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list.handle(), LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

inline std::size_t shownCount(const ListView& list)
{
    return static_cast<std::size_t>(SendMessageW(list.handle(), LVM_GETITEMCOUNT, 0, 0));
}

inline Names shownColumn(const ListView& list, int column = 0)
{
    Names texts;
    for (std::size_t row = 0; row < shownCount(list); ++row) texts.push_back(shownText(list, row, column));
    return texts;
}

inline RowNumbers selectedRows(const ListView& list)
{
    RowNumbers rows;
    for (LRESULT row = -1;
         (row = SendMessageW(list.handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)) >= 0;)
        rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

inline Names selectedNames(const ListView& list)
{
    Names names;
    for (const std::size_t row : selectedRows(list)) names.push_back(shownText(list, row));
    return names;
}

inline void selectRows(const ListView& list, const RowNumbers& rows)
{
    for (const std::size_t row : rows) {
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED;
        SendMessageW(list.handle(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    }
}

inline void focusRow(const ListView& list, std::size_t row)
{
    LVITEMW item{};
    item.state = item.stateMask = LVIS_FOCUSED;
    SendMessageW(list.handle(), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

inline std::wstring nameOfCurrent(const ListView& list)
{
    const auto row = list.currentRow();
    return row ? shownText(list, *row) : L"(none)";
}

inline POINT middleOf(const ListView& list, std::size_t row)
{
    RECT area{};
    area.left = LVIR_LABEL;
    SendMessageW(list.handle(), LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

inline void click(const ListView& list, std::size_t row, WPARAM keys = 0)
{
    clickAt(list.handle(), middleOf(list, row), keys);
}

// Below the last row.
inline POINT emptySpace(const ListView& list)
{
    RECT area{};
    GetClientRect(list.handle(), &area);
    return {area.right / 2, area.bottom - 4};
}

inline void fillRows(RowTable& list, const std::vector<Strings>& texts)
{
    RowBlock block(texts);
    list.fill(std::move(block.text), std::move(block.rows));
}

// A list with rows of its own.
struct OwnRows {
    RowTable rows;
};
struct TestList : OwnRows, ListView {
    TestList(HWND parent, int id, Selection selection, bool labelEdit, std::initializer_list<Column> columns)
        : ListView(parent, id, selection, labelEdit, columns, rows)
    {}
};

inline std::size_t removeSelected(TestList& list) { return list.rows.removeMarked(); }

inline void fillList(TestList& list, const std::vector<Strings>& texts) { fillRows(list.rows, texts); }

inline void fillNames(TestList& list, const Names& names)
{
    std::vector<Strings> rows;
    for (const std::wstring& name : names) rows.push_back({name});
    fillList(list, rows);
}

// A list with four columns and one without multiple selection, in a window on the screen. The events that
// they raise are recorded.
class ListTest : public testing::Test {
  protected:
    ListTest()
    {
        sites.place(0, 0, 600, 300);
        categories.place(0, 300, 600, 250);
        note(sites);
        note(categories);
        window.show();
        pump();
    }

    void note(ListView& list)
    {
        list.ItemClick = [this](std::size_t row) { clicked.push_back(row); };
        list.ColumnClick = [this](std::size_t column) { columnsClicked.push_back(column); };
        list.DblClick = [this] { ++doubleClicks; };
        list.RightClick = [this](POINT screen) { rightClicks.push_back(screen); };
    }

    TestWindow window;
    TestList sites{
        window.handle(),
        1,
        ListView::Selection::many,
        false,
        {{L"Site Name", 2160_twips}, {L"URL", 2880_twips}, {L"Description", 2880_twips}, {L"Date", 0_twips}}};
    TestList categories{window.handle(), 2, ListView::Selection::one, true, {{L"Category", 4049_twips}}};

    RowNumbers clicked;
    RowNumbers columnsClicked;
    int doubleClicks = 0;
    std::vector<POINT> rightClicks;
};

} // namespace vandrel::test
