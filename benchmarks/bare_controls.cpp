#include "benchmarks/bare_controls.h"

#include <commctrl.h>

namespace vandrel::bench {
namespace {

constexpr const wchar_t* listPictures[] = {L"site", L"folder", L"folder-open", L"dead"};
constexpr const wchar_t* buttonPictures[] = {L"category-add", L"category-remove", L"import",    L"export",
                                             L"site-add",     L"site-remove",     L"site-open", L"scan",
                                             L"about"};

HWND control(HWND parent, const wchar_t* className, DWORD style, const RECT& place)
{
    return CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                           nullptr);
}

template <int Count> HIMAGELIST images(const wchar_t* const (&names)[Count], int size)
{
    const HIMAGELIST list = ImageList_Create(size, size, ILC_COLOR32, Count, 0);
    for (const wchar_t* const name : names) {
        const auto icon = static_cast<HICON>(
            LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_ICON, size, size, 0));
        ImageList_ReplaceIcon(list, -1, icon);
        DestroyIcon(icon);
    }
    return list;
}

void makeList(HWND window, const RECT& place, int columns, HIMAGELIST pictures)
{
    const HWND list = control(window, WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDATA | LVS_SHAREIMAGELISTS, place);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    wchar_t caption[] = L"Column";
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = caption;
    column.cx = 120;
    for (int i = 0; i < columns; ++i)
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(pictures));
}

void makeToolBar(HWND window)
{
    const HWND bar = control(window, TOOLBARCLASSNAMEW,
                             TBSTYLE_FLAT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN,
                             {0, 4, 380, 40});
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images(buttonPictures, 24)));
    for (int i = 0; i < 9; ++i) {
        TBBUTTON button{};
        button.iBitmap = i;
        button.idCommand = i + 1;
        button.fsState = TBSTATE_ENABLED;
        SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
}

HMENU menuBar()
{
    const HMENU bar = CreateMenu();
    for (int menu = 0; menu < 5; ++menu) {
        const HMENU entries = CreatePopupMenu();
        for (UINT_PTR entry = 1; entry <= 8; ++entry) AppendMenuW(entries, MF_STRING, entry, L"Entry\tF2");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(entries), L"Menu");
    }
    return bar;
}

} // namespace

void makeBareControls(HWND window)
{
    SetMenu(window, menuBar());
    const HIMAGELIST pictures = images(listPictures, 16);
    makeList(window, {0, 44, 150, 290}, 1, pictures);
    makeList(window, {154, 44, 590, 290}, 4, pictures);
    makeToolBar(window);
    control(window, WC_COMBOBOXW, CBS_DROPDOWN, {390, 10, 520, 200});
    control(window, WC_BUTTONW, BS_DEFPUSHBUTTON, {525, 10, 585, 34});
    const HWND status = control(window, STATUSCLASSNAMEW, SBARS_SIZEGRIP, {});
    int edges[] = {180, 300, -1};
    SendMessageW(status, SB_SETPARTS, 3, reinterpret_cast<LPARAM>(edges));
}

} // namespace vandrel::bench
