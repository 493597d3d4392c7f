#include "platform/controls/list_view.h"

#include "platform/base/counted.h"
#include "platform/controls/redraw_pause.h"

#include <algorithm>

namespace vandrel {
namespace {

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
    : Control(parent, WC_LISTVIEWW, listStyle(selection, labelEdit), 0, id),
      selection_(selection),
      columnDpi_(dpi())
{
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    for (const Column& column : columns) {
        std::wstring caption = column.caption;
        LVCOLUMNW native{};
        native.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        native.pszText = caption.data();
        native.cx = toPixels(column.width, columnDpi_);
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

void ListView::setTexts(std::size_t row, std::array<std::wstring, ListRows::maxColumns> texts)
{
    rows_.setTexts(row, std::move(texts));
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

void ListView::redrawRow(std::size_t row)
{
    if (pauses_ == 0) send(LVM_REDRAWITEMS, row, static_cast<LPARAM>(row));
}

void ListView::updateCount(DWORD flags)
{
    if (pauses_ > 0) return;
    // The same number again would still repaint the scroll bars.
    if (static_cast<std::size_t>(send(LVM_GETITEMCOUNT)) != count()) {
        send(LVM_SETITEMCOUNT, count(), static_cast<LPARAM>(flags));
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

void ListView::clear()
{
    dropLabelEdit();
    if (!empty()) clearSelection();
    rows_.clear();
    ++changes_;
    updateCount(0);
}

void ListView::fill(std::shared_ptr<const void> block, std::vector<ListRows::Row> rows)
{
    dropLabelEdit();
    if (!empty()) clearSelection();
    rows_.fill(std::move(block), std::move(rows)); // all or, without memory, nothing
    ++changes_;
    if (pauses_ == 0) send(LVM_SETITEMCOUNT, 0); // takes the list to its top
    updateCount(0);
    showSortOrder();
}

void ListView::append(std::shared_ptr<const void> block, std::span<const ListRows::Row> rows)
{
    rows_.append(std::move(block), rows);
    ++changes_;
    updateCount(LVSICF_NOSCROLL);
}

// What the native control knows by row number - selection and focus - is taken to the rows before they change
// places, and given back after.
template <typename Change> void ListView::changeRows(Change change)
{
    dropLabelEdit();
    takeSelection();
    ++changes_;
    if (pauses_ > 0) {
        change();
        severalInPause_ = false;
        selectedInPause_ = rows_.firstMarked();
        return;
    }
    std::optional<RedrawPause> pause; // costs more than it saves where nothing is selected
    if (selectedCount() > 0) pause.emplace(handle());
    const Counted quiet(quiet_);
    const bool manySelected = selectedCount() >= 1000;
    const auto top = static_cast<std::size_t>(send(LVM_GETTOPINDEX));
    if (manySelected) {
        // Without rows the control forgets them in one step; row by row takes longer than anything else here.
        send(LVM_SETITEMCOUNT, 0, LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL);
    } else {
        dropSelection();
    }
    try {
        change();
    } catch (...) {
        updateCount(LVSICF_NOSCROLL);
        giveSelection();
        throw;
    }
    updateCount(LVSICF_NOSCROLL);
    if (manySelected && top < count()) {
        ensureVisible(count() - 1);
        ensureVisible(top);
    }
    giveSelection();
}

std::size_t ListView::add(std::array<std::wstring, ListRows::maxColumns> texts, int image)
{
    std::size_t row = 0;
    changeRows([&] { row = rows_.add(std::move(texts), static_cast<std::uint8_t>(image)); });
    return row;
}

void ListView::insert(std::size_t row, std::array<std::wstring, ListRows::maxColumns> texts, int image)
{
    changeRows([&] { rows_.insert(row, std::move(texts), static_cast<std::uint8_t>(image)); });
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

// ---- columns and styles

Twips ListView::columnWidth(std::size_t column) const
{
    const int width = static_cast<int>(send(LVM_GETCOLUMNWIDTH, column));
    const bool asSet = width == toPixels(columnWidths_[column], columnDpi_);
    return asSet ? columnWidths_[column] : toTwips(width, columnDpi_);
}

void ListView::setColumnWidth(std::size_t column, Twips width)
{
    columnWidths_[column] = width > 0_twips ? width : 0_twips; // also when it is no number
    const int native = toPixels(columnWidths_[column], columnDpi_);
    if (send(LVM_GETCOLUMNWIDTH, column) != native) send(LVM_SETCOLUMNWIDTH, column, native);
}

void ListView::dpiChanged(unsigned dpi)
{
    Control::dpiChanged(dpi);
    for (std::size_t column = 0; column < columnWidths_.size(); ++column)
        columnWidths_[column] = columnWidth(column);
    columnDpi_ = dpi;
    for (std::size_t column = 0; column < columnWidths_.size(); ++column)
        setColumnWidth(column, columnWidths_[column]);
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
    // Black is the default and means the theme's own text colour, which a high-contrast scheme makes
    // readable.
    send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color == 0 ? GetSysColor(COLOR_WINDOWTEXT) : color));
}

void ListView::takeSystemColors()
{
    const auto ground = static_cast<LPARAM>(GetSysColor(COLOR_WINDOW));
    send(LVM_SETBKCOLOR, 0, ground);
    send(LVM_SETTEXTBKCOLOR, 0, ground);
    setForeColor(foreColor());
}

void ListView::editLabel(std::size_t row)
{
    setFocus();
    ensureVisible(row);
    const Counted quiet(quiet_); // starting to edit may select the row anew
    send(LVM_EDITLABELW, row);
}

bool ListView::editingLabel() const { return send(LVM_GETEDITCONTROL) != 0; }

void ListView::finishLabelEdit()
{
    if (editingLabel()) setFocus(); // the box takes the loss of the keyboard for Enter
}

// The native control knows the edited row by its number, which is about to mean another row.
void ListView::dropLabelEdit()
{
    // Some systems take the text all the same: without a row it goes nowhere.
    if (std::exchange(editedRow_, 0) != 0) send(LVM_CANCELEDITLABEL);
}

} // namespace vandrel
