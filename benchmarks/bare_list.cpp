#include "benchmarks/bare_list.h"

#include "benchmarks/measure.h"

#include <commctrl.h>

namespace vandrel::bench {
namespace {

// Gives every row the same texts, as long as those of a site on average.
LRESULT CALLBACK parentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        static wchar_t name[] = L"garden atlas river";
        static wchar_t address[] = L"http://www.football.example/123456/page.html";
        static wchar_t description[] = L"camera forum library market history network";
        static wchar_t date[] = L"11/16/2002";
        wchar_t* const texts[] = {name, address, description, date};
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        item.pszText = texts[item.iSubItem];
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

void selectRows(HWND list, const RowNumbers& rows)
{
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED;
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (const std::size_t row : rows)
        SendMessageW(list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

RowNumbers selectedRows(HWND list)
{
    RowNumbers rows;
    for (LRESULT row = -1;
         (row = SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)) >= 0;)
        rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

BareList::BareList(std::size_t rows)
    : rows_(rows),
      parent_(CreateWindowExW(WS_EX_TOPMOST, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 800, 700, nullptr,
                              nullptr, nullptr, nullptr))
{
    SetWindowLongPtrW(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(parentProc));
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0,
                            800, 700, parent_, nullptr, nullptr, nullptr);
    SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    column.cx = 190;
    for (WPARAM i = 0; i < 4; ++i)
        SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    fill();
}

BareList::~BareList() { DestroyWindow(parent_); }

void BareList::clear() const
{
    SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
    UpdateWindow(list_);
}

void BareList::fill() const
{
    SendMessageW(list_, LVM_SETITEMCOUNT, rows_, 0);
    UpdateWindow(list_);
}

double BareList::timeOfShowing() const
{
    clear();
    return timeOf([this] { fill(); });
}

double BareList::timeOfSelecting(const RowNumbers& rows) const
{
    return timed([&] { selectRows(list_, rows); },
                 [this] {
                     clear();
                     fill();
                 },
                 slowRepetitions);
}

double BareList::timeOfAsking(const RowNumbers& rows) const
{
    clear();
    fill();
    selectRows(list_, rows);
    return timed([this] { selectedRows(list_); }, [] {}, slowRepetitions);
}

} // namespace vandrel::bench
