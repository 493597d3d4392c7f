#include "platform/list_view.h"

#include <windowsx.h>

#include <algorithm>

namespace vandrel {
namespace {

// From this size on, selecting or unselecting row after row is painted once at the end: with painting on, the
// native control takes seconds for 100,000 rows.
constexpr std::size_t manyRows = 1000;

class Counted {
  public:
    explicit Counted(int& counter) : counter_(counter) { ++counter_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --counter_; }

  private:
    int& counter_;
};

class RedrawPause {
  public:
    explicit RedrawPause(HWND window) : window_(window) { SendMessageW(window_, WM_SETREDRAW, FALSE, 0); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;
    ~RedrawPause()
    {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window_, nullptr, FALSE);
    }

  private:
    HWND window_;
};

bool keyDown(int key) { return GetKeyState(key) < 0; }

DWORD listStyle(ListView::Selection selection, bool labelEdit)
{
    DWORD style = LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | WS_TABSTOP;
    if (selection == ListView::Selection::one) style |= LVS_SINGLESEL;
    if (labelEdit) style |= LVS_EDITLABELS;
    return style;
}

} // namespace

ListView::ListView(HWND parent, int id, Selection selection, bool labelEdit,
                   std::initializer_list<Column> columns)
    : Control(parent, WC_LISTVIEWW, listStyle(selection, labelEdit), 0, id), selection_(selection)
{
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    for (const Column& column : columns) {
        std::wstring caption = column.caption;
        LVCOLUMNW native{};
        native.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        native.pszText = caption.data();
        native.cx = pixels(column.width);
        native.iSubItem = static_cast<int>(columnWidths_.size());
        send(LVM_INSERTCOLUMNW, columnWidths_.size(), reinterpret_cast<LPARAM>(&native));
        columnWidths_.push_back(column.width);
    }
}

LRESULT ListView::send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageW(handle(), message, wParam, lParam);
}

// ---- rows

std::wstring ListView::text(std::size_t row, std::size_t column) const
{
    return std::wstring(rows_.text(row, column));
}

void ListView::setText(std::size_t row, std::size_t column, std::wstring text)
{
    rows_.setText(row, column, std::move(text));
    redrawRow(row);
}

void ListView::setImage(std::size_t row, int image)
{
    if (rows_[row].image == image) return;
    rows_[row].image = static_cast<std::uint8_t>(image);
    redrawRow(row);
}

void ListView::setAllImages(int image)
{
    for (std::size_t row = 0; row < count(); ++row) setImage(row, image);
}

void ListView::redrawRow(std::size_t row) { send(LVM_REDRAWITEMS, row, static_cast<LPARAM>(row)); }

void ListView::updateCount(DWORD flags)
{
    send(LVM_SETITEMCOUNT, count(), static_cast<LPARAM>(flags));
    InvalidateRect(handle(), nullptr, FALSE);
}

void ListView::clear()
{
    if (!empty()) clearSelection();
    rows_.clear();
    updateCount(0);
}

void ListView::fill(std::shared_ptr<const void> block, std::vector<ListRows::Row> rows)
{
    clear(); // takes the list to its top
    rows_.fill(std::move(block), std::move(rows));
    updateCount(0);
    showSortOrder();
}

// What the native control knows by row number - selection and focus - is taken to the rows before they change
// places, and given back after.
template <typename Change> void ListView::changeRows(Change change)
{
    takeSelection();
    const RedrawPause pause(handle());
    const Counted quiet(quiet_);
    dropSelection();
    change();
    updateCount(LVSICF_NOSCROLL);
    giveSelection();
}

std::size_t ListView::add(std::array<std::wstring, ListRows::maxColumns> texts, int image)
{
    std::size_t row = 0;
    changeRows([&] { row = rows_.add(std::move(texts), static_cast<std::uint8_t>(image)); });
    return row;
}

void ListView::remove(std::size_t row)
{
    changeRows([&] { rows_.remove(row); });
}

std::size_t ListView::removeSelected(const std::function<void(std::size_t done)>& progress)
{
    std::size_t removed = 0;
    changeRows([&] {
        for (std::size_t row = 0; row < count(); ++row) progress(row + 1);
        removed = rows_.removeMarked();
    });
    return removed;
}

void ListView::ensureVisible(std::size_t row) { send(LVM_ENSUREVISIBLE, row, FALSE); }

// ---- sorting

void ListView::setSorted(bool on)
{
    if (on == sorted() && !on) return;
    changeRows([&] { rows_.setSorted(on); });
    showSortOrder();
}

void ListView::setSortKey(std::size_t column)
{
    changeRows([&] { rows_.setSortKey(column); });
    showSortOrder();
}

void ListView::setSortOrder(SortOrder order)
{
    changeRows([&] { rows_.setSortOrder(order); });
    showSortOrder();
}

void ListView::sortBy(std::size_t column, SortOrder order)
{
    changeRows([&] { rows_.sortBy(column, order); });
    showSortOrder();
}

void ListView::showSortOrder()
{
    const HWND header = ListView_GetHeader(handle());
    for (std::size_t column = 0; column < columnWidths_.size(); ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
        const int before = item.fmt;
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (sorted() && column == sortKey()) {
            item.fmt |= sortOrder() == SortOrder::ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        if (item.fmt != before) SendMessageW(header, HDM_SETITEMW, column, reinterpret_cast<LPARAM>(&item));
    }
}

// ---- selection

// Looking for a state goes through the rows one by one in some versions of the control, so what is known is asked
// for first: how many are selected, and the row that was the last to get the focus.
std::optional<std::size_t> ListView::nextRow(LRESULT from, UINT state) const
{
    const auto row = send(LVM_GETNEXTITEM, static_cast<WPARAM>(from), static_cast<LPARAM>(state));
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

std::optional<std::size_t> ListView::firstSelected() const
{
    const std::size_t selected = selectedCount();
    if (selected == 0) return std::nullopt;
    if (selected == 1 && lastFocused_ < count() && isSelected(lastFocused_)) return lastFocused_;
    return nextRow(-1, LVNI_SELECTED);
}

std::optional<std::size_t> ListView::currentRow() const
{
    if (selectedCount() == 0) return std::nullopt;
    constexpr UINT current = LVIS_FOCUSED | LVIS_SELECTED;
    if (lastFocused_ < count() && send(LVM_GETITEMSTATE, lastFocused_, current) == current)
        return lastFocused_;
    const auto row = nextRow(-1, LVNI_FOCUSED | LVNI_SELECTED);
    return row ? row : firstSelected();
}

bool ListView::isSelected(std::size_t row) const { return send(LVM_GETITEMSTATE, row, LVIS_SELECTED) != 0; }

std::size_t ListView::selectedCount() const { return static_cast<std::size_t>(send(LVM_GETSELECTEDCOUNT)); }

void ListView::setState(int row, UINT state, UINT mask)
{
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListView::select(std::size_t row)
{
    const Counted quiet(quiet_);
    dropSelection();
    setState(static_cast<int>(row), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    send(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(row));
}

void ListView::selectAll()
{
    if (selection_ != Selection::many || empty()) return;
    const RedrawPause pause(handle());
    const Counted quiet(quiet_);
    setState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void ListView::clearSelection()
{
    if (selectedCount() == 0) return;
    const RedrawPause pause(handle());
    const Counted quiet(quiet_);
    dropSelection();
}

std::vector<std::size_t> ListView::selectedRows() const
{
    std::vector<std::size_t> rows;
    const std::size_t selected = selectedCount();
    rows.reserve(selected);
    auto row = firstSelected();
    for (; row && rows.size() + 1 < selected; row = nextRow(static_cast<LRESULT>(*row), LVNI_SELECTED)) {
        rows.push_back(*row);
    }
    if (row) rows.push_back(*row);
    return rows;
}

// Row by row where they are scattered: all at once takes the control far longer then.
void ListView::dropSelection()
{
    const std::vector<std::size_t> rows = selectedRows();
    if (rows.empty()) return;
    if (rows.back() - rows.front() + 1 == rows.size()) {
        setState(-1, 0, LVIS_SELECTED);
    } else {
        for (const std::size_t row : rows) setState(static_cast<int>(row), 0, LVIS_SELECTED);
    }
}

void ListView::takeSelection()
{
    for (std::size_t row = 0; row < count(); ++row) rows_[row].marked = rows_[row].current = false;
    for (const std::size_t row : selectedRows()) rows_[row].marked = true;
    if (const auto current = currentRow()) rows_[*current].current = true;
}

void ListView::giveSelection()
{
    std::size_t marked = 0;
    for (std::size_t row = 0; row < count(); ++row) marked += rows_[row].marked ? 1 : 0;
    if (marked == count() && marked > 0 && selection_ == Selection::many)
        setState(-1, LVIS_SELECTED, LVIS_SELECTED);
    for (std::size_t row = 0; row < count(); ++row) {
        UINT state = 0;
        if (rows_[row].marked && marked != count()) state |= LVIS_SELECTED;
        if (rows_[row].marked && selection_ == Selection::one) state |= LVIS_SELECTED;
        if (rows_[row].current) state |= LVIS_FOCUSED;
        if (state != 0) setState(static_cast<int>(row), state, state);
    }
}

// ---- columns and styles

Twips ListView::columnWidth(std::size_t column) const
{
    const int width = static_cast<int>(send(LVM_GETCOLUMNWIDTH, column));
    return width == pixels(columnWidths_[column]) ? columnWidths_[column] : toTwips(width, dpi());
}

void ListView::setColumnWidth(std::size_t column, Twips width)
{
    columnWidths_[column] = width > 0_twips ? width : 0_twips; // also when it is no number
    const int native = pixels(columnWidths_[column]);
    if (send(LVM_GETCOLUMNWIDTH, column) != native) send(LVM_SETCOLUMNWIDTH, column, native);
}

bool ListView::hasStyle(DWORD style) const
{
    return (static_cast<DWORD>(send(LVM_GETEXTENDEDLISTVIEWSTYLE)) & style) != 0;
}

void ListView::setStyle(DWORD style, bool on)
{
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, on ? static_cast<LPARAM>(style) : 0);
}

void ListView::setHoverSelection(bool on) { setStyle(LVS_EX_TRACKSELECT, on); }

void ListView::setImages(HIMAGELIST images)
{
    send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
}

void ListView::setForeColor(COLORREF color)
{
    Control::setForeColor(color);
    // Black is the default and means the theme's own text colour, which a high-contrast scheme makes readable.
    send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color == 0 ? GetSysColor(COLOR_WINDOWTEXT) : color));
}

void ListView::editLabel(std::size_t row)
{
    setFocus();
    ensureVisible(row);
    const Counted quiet(quiet_); // starting to edit may select the row anew
    send(LVM_EDITLABELW, row);
}

bool ListView::editingLabel() const { return send(LVM_GETEDITCONTROL) != 0; }

// ---- what the user does

void ListView::fireItemClick()
{
    clickPending_ = false;
    const auto row = currentRow();
    if (row && ItemClick) ItemClick(*row);
}

void ListView::selectionGained()
{
    pressFired_ = true;
    clickPending_ = true;
    if (userMessages_ == 0) fireItemClick();
}

LRESULT ListView::withoutRedraw(UINT message, WPARAM wParam, LPARAM lParam)
{
    const RedrawPause pause(handle());
    return Control::onMessage(message, wParam, lParam);
}

// Whether a key or a press that the native control is about to answer changes the state of many rows.
bool ListView::unselectsMany(UINT message, LPARAM) const
{
    if (count() < manyRows || selection_ == Selection::one) return false;
    const bool extends = keyDown(VK_SHIFT) && message != WM_LBUTTONUP;
    return extends || selectedCount() >= manyRows;
}

LRESULT ListView::userMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto selectedBefore = firstSelected();
    LRESULT answer = 0;
    {
        const Counted user(userMessages_);
        answer = unselectsMany(message, lParam) ? withoutRedraw(message, wParam, lParam)
                                                : Control::onMessage(message, wParam, lParam);
    }
    if (selection_ == Selection::one && selectedBefore && !firstSelected() && *selectedBefore < count()) {
        select(*selectedBefore);
    }
    if (clickPending_ && userMessages_ == 0) fireItemClick();
    return answer;
}

LRESULT ListView::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
        if (wParam == 'A' && selection_ == Selection::many && keyDown(VK_CONTROL) && !keyDown(VK_MENU)) {
            selectAll();
            if (const auto row = currentRow(); row && ItemClick) ItemClick(*row);
            return 0;
        }
        return userMessage(message, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN: pressFired_ = false; return userMessage(message, wParam, lParam);
    case WM_LBUTTONUP: return userMessage(message, wParam, lParam);
    case WM_CONTEXTMENU:
        // The mouse was answered with NM_RCLICK; this is the menu key.
        if (GET_X_LPARAM(lParam) == -1 && GET_Y_LPARAM(lParam) == -1 && RightClick) RightClick(menuPoint());
        return 0;
    case WM_GETDLGCODE: return Control::onMessage(message, wParam, lParam) | DLGC_WANTARROWS;
    default: return Control::onMessage(message, wParam, lParam);
    }
}

POINT ListView::menuPoint() const
{
    RECT area{};
    GetClientRect(handle(), &area);
    POINT point{area.left + 8, area.top + 24};
    RECT item{};
    item.left = LVIR_LABEL;
    if (const auto row = currentRow(); row && send(LVM_GETITEMRECT, *row, reinterpret_cast<LPARAM>(&item))) {
        point.x = item.left + 8;
        point.y = std::clamp(item.bottom, area.top, area.bottom);
    }
    ClientToScreen(handle(), &point);
    return point;
}

void ListView::answerDisplay(LVITEMW& item) const
{
    const auto row = static_cast<std::size_t>(item.iItem);
    if (item.iItem < 0 || row >= count()) return;
    if ((item.mask & LVIF_TEXT) != 0 && item.cchTextMax > 0) {
        const auto column = static_cast<std::size_t>(item.iSubItem);
        const std::wstring_view text = column < ListRows::maxColumns ? rows_.text(row, column)
                                                                     : std::wstring_view{};
        item.pszText[text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax - 1))] = L'\0';
    }
    if ((item.mask & LVIF_IMAGE) != 0) item.iImage = rows_[row].image - 1;
}

// The row that typed letters lead to.
LRESULT ListView::findRow(const NMLVFINDITEMW& wanted) const
{
    const bool wholeText = (wanted.lvfi.flags & LVFI_PARTIAL) == 0;
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr) return -1;
    const std::wstring_view typed(wanted.lvfi.psz);
    for (std::size_t step = 0; step < count(); ++step) {
        const std::size_t row = (static_cast<std::size_t>(std::max(wanted.iStart, 0)) + step) % count();
        std::wstring_view text = rows_.text(row, 0);
        if (!wholeText) text = text.substr(0, typed.size());
        if (CompareStringOrdinal(text.data(), static_cast<int>(text.size()), typed.data(),
                                 static_cast<int>(typed.size()), TRUE) == CSTR_EQUAL) {
            return static_cast<LRESULT>(row);
        }
    }
    return -1;
}

std::optional<LRESULT> ListView::onEndLabelEdit(const NMLVDISPINFOW& info)
{
    const auto row = static_cast<std::size_t>(info.item.iItem);
    if (info.item.pszText == nullptr || row >= count()) return FALSE;
    const std::wstring text = info.item.pszText;
    if (AfterLabelEdit && !AfterLabelEdit(row, text)) return FALSE;
    setText(row, 0, text);
    return TRUE;
}

std::optional<LRESULT> ListView::onNotify(NMHDR& header)
{
    switch (header.code) {
    case LVN_GETDISPINFOW: answerDisplay(reinterpret_cast<NMLVDISPINFOW&>(header).item); return 0;
    case LVN_ODFINDITEMW: return findRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ITEMCHANGED: {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if ((change.uNewState & LVIS_FOCUSED) != 0 && change.iItem >= 0) {
            lastFocused_ = static_cast<std::size_t>(change.iItem);
        }
        const bool gained = (change.uNewState & LVIS_SELECTED) != 0 &&
                            (change.uOldState & LVIS_SELECTED) == 0;
        if (gained && quiet_ == 0) selectionGained();
        return 0;
    }
    case LVN_ODSTATECHANGED:
        if (quiet_ == 0 &&
            (reinterpret_cast<const NMLVODSTATECHANGE&>(header).uNewState & LVIS_SELECTED) != 0) {
            selectionGained();
        }
        return 0;
    case NM_CLICK:
        // A click on a row that was selected before.
        if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0 && !pressFired_) selectionGained();
        return 0;
    case NM_DBLCLK:
        if (DblClick) DblClick();
        return 0;
    case NM_RCLICK: {
        POINT point{};
        GetCursorPos(&point);
        if (RightClick) RightClick(point);
        return 1; // answered: no WM_CONTEXTMENU for it
    }
    case LVN_COLUMNCLICK: {
        const auto column = static_cast<std::size_t>(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
        if (ColumnClick) ColumnClick(column);
        return 0;
    }
    case LVN_BEGINLABELEDITW:
        if (BeforeLabelEdit) {
            BeforeLabelEdit(
                static_cast<std::size_t>(reinterpret_cast<const NMLVDISPINFOW&>(header).item.iItem));
        }
        return FALSE; // go on
    case LVN_ENDLABELEDITW: return onEndLabelEdit(reinterpret_cast<const NMLVDISPINFOW&>(header));
    default: return std::nullopt;
    }
}

} // namespace vandrel
