#include "platform/controls/list_view.h"

#include "platform/base/counted.h"

#include <utility>

namespace vandrel {
namespace {

// From this many rows on it is faster to have the native control forget all rows than to unselect them
// singly.
constexpr std::size_t manyRows = 1000;

DWORD listStyle(ListView::Selection selection, bool labelEdit)
{
    DWORD style = LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | WS_TABSTOP;
    if (selection == ListView::Selection::one) style |= LVS_SINGLESEL;
    if (labelEdit) style |= LVS_EDITLABELS;
    return style;
}

} // namespace

ListView::ListView(HWND parent, int id, Selection selection, bool labelEdit,
                   std::initializer_list<Column> columns, RowSource& rows)
    : Control(parent, WC_LISTVIEWW, listStyle(selection, labelEdit), 0, id),
      rows_(rows),
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
    rows_.observe(this);
    updateCount(0);
}

ListView::~ListView() { rows_.observe(nullptr); }

LRESULT ListView::send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageW(handle(), message, wParam, lParam);
}

// ---- rows

void ListView::updateCount(DWORD flags)
{
    // Setting the same number would still repaint the scroll bars.
    if (static_cast<std::size_t>(send(LVM_GETITEMCOUNT)) != count()) {
        send(LVM_SETITEMCOUNT, count(), static_cast<LPARAM>(flags));
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

void ListView::rowChanged(std::size_t row)
{
    if (changing_ == 0) send(LVM_REDRAWITEMS, row, static_cast<LPARAM>(row));
}

// A ListPause is one change, and changes within it are part of it.
void ListView::rowsChanging(RowChange change)
{
    ++changes_;
    if (changing_++ > 0) {
        replaced_ = replaced_ || change == RowChange::replaced;
        return;
    }
    replaced_ = change == RowChange::replaced;
    if (change == RowChange::appended) return;
    dropLabelEdit();
    if (change == RowChange::moved) beginMoving();
    else if (selectedCount() >= manyRows) forgetRows();
    else clearSelection();
}

void ListView::rowsChanged(RowChange change)
{
    if (--changing_ > 0) return;
    if (change == RowChange::moved) {
        endMoving();
    } else {
        if (replaced_) send(LVM_SETITEMCOUNT, 0); // scrolls to the top
        updateCount(change == RowChange::appended ? LVSICF_NOSCROLL : 0);
    }
    showSortOrder();
}

// The native control knows selection and focus by row number. Both are stored with the rows before these
// move, and restored afterwards.
void ListView::beginMoving()
{
    markSelection();
    if (selectedCount() > 0) redrawPause_.emplace(handle()); // otherwise it costs more than it saves
    manySelected_ = selectedCount() >= manyRows;
    topRow_ = static_cast<std::size_t>(send(LVM_GETTOPINDEX));
    if (manySelected_) return forgetRows();
    const Counted selecting(selectingItself_);
    dropSelection();
}

// With its rows the control forgets the selection at once; row by row, or by a lower number of rows, it takes longer
// than all else here.
void ListView::forgetRows()
{
    const Counted selecting(selectingItself_);
    send(LVM_DELETEALLITEMS);
}

void ListView::endMoving()
{
    {
        const Counted selecting(selectingItself_);
        updateCount(LVSICF_NOSCROLL);
        if (manySelected_ && topRow_ < count()) {
            ensureVisible(count() - 1);
            ensureVisible(topRow_);
        }
        giveSelection();
    }
    redrawPause_.reset();
}

void ListView::ensureVisible(std::size_t row) { send(LVM_ENSUREVISIBLE, row, FALSE); }

// ---- columns and styles

// With an arrow in the column's heading.
void ListView::showSortOrder()
{
    const auto order = rows_.order();
    if (std::exchange(shownOrder_, order) == order) return;
    const HWND header = ListView_GetHeader(handle());
    for (std::size_t column = 0; column < columnWidths_.size(); ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
        const int before = item.fmt;
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (order && column == order->column) {
            item.fmt |= order->direction == SortOrder::ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        if (item.fmt != before) SendMessageW(header, HDM_SETITEMW, column, reinterpret_cast<LPARAM>(&item));
    }
}

Twips ListView::columnWidth(std::size_t column) const
{
    const int width = static_cast<int>(send(LVM_GETCOLUMNWIDTH, column));
    const bool asSet = width == toPixels(columnWidths_[column], columnDpi_);
    return asSet ? columnWidths_[column] : toTwips(width, columnDpi_);
}

void ListView::setColumnWidth(std::size_t column, Twips width)
{
    columnWidths_[column] = width > 0_twips ? width : 0_twips; // also for NaN
    const int native = toPixels(columnWidths_[column], columnDpi_);
    if (send(LVM_GETCOLUMNWIDTH, column) != native) send(LVM_SETCOLUMNWIDTH, column, native);
}

void ListView::dpiChanged(unsigned dpi)
{
    Control::dpiChanged(dpi);
    for (std::size_t column = 0; column < columnWidths_.size(); ++column)
        columnWidths_[column] = columnWidth(column);
    columnDpi_ = dpi;
    if (noPictures_) setPictureHeight(pictureHeight_);
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

void ListView::setPictureHeight(Twips height)
{
    pictureHeight_ = height;
    ImageListHandle none(ImageList_Create(1, pixels(height), ILC_COLOR32, 0, 0));
    setImages(none.get());
    noPictures_ = std::move(none); // the old one goes only after the control has the new one
}

void ListView::setForeColor(COLORREF color)
{
    Control::setForeColor(color);
    // Black, the default, means the system's text colour, which stays readable in high contrast.
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
    const Counted selecting(selectingItself_); // starting the edit may select the row again
    send(LVM_EDITLABELW, row);
}

bool ListView::editingLabel() const { return send(LVM_GETEDITCONTROL) != 0; }

void ListView::finishLabelEdit()
{
    if (editingLabel()) setFocus(); // losing the focus accepts the text, as Enter does
}

// The native control knows the edited row by its number, which is about to mean another row.
void ListView::dropLabelEdit()
{
    // The control may report the typed text all the same; without a row it is ignored.
    if (std::exchange(editedRow_, 0) != 0) send(LVM_CANCELEDITLABEL);
}

} // namespace vandrel
