#pragma once

#include "platform/controls/control.h"
#include "platform/controls/list_rows.h"

#include <commctrl.h>

#include <concepts>
#include <functional>
#include <initializer_list>
#include <vector>

namespace vandrel {

// A list view in report view that holds its rows itself; the native control asks for what it paints. Rows and
// columns count from 0. The selection and the current row stay with their row when rows change places.
class ListView : public Control {
  public:
    struct Column {
        std::wstring caption;
        Twips width;
    };
    enum class Selection {
        one, // once a row is selected, neither keys nor mouse leave the list without one
        many,
    };
    ListView(HWND parent, int id, Selection selection, bool labelEdit, std::initializer_list<Column> columns);

    std::function<void(std::size_t row)> ItemClick; // the user selected the row, by mouse or by key
    std::function<void(std::size_t column)> ColumnClick;
    std::function<void()> DblClick;
    std::function<void()> Return; // while it is bound, Enter does not press a dialog's default button
    std::function<void()> MouseMove;
    std::function<void(POINT screen)> RightClick; // released, or the menu key pressed
    std::function<void(std::size_t row)> BeforeLabelEdit;
    std::function<bool(std::size_t row, const std::wstring& text)> AfterLabelEdit; // false keeps the old text

    std::size_t count() const { return rows_.size(); }
    bool empty() const { return rows_.size() == 0; }
    // What a row is known by while messages run: numbers change meanwhile. No two rows of one list ever have
    // the same.
    ListRows::Id id(std::size_t row) const { return rows_[row].id; }
    std::optional<std::size_t> rowOf(ListRows::Id id) const { return rows_.rowOf(id); }
    using Control::text;
    std::wstring text(std::size_t row, std::size_t column = 0) const;
    std::wstring_view textView(std::size_t row, std::size_t column) const { return rows_.text(row, column); }
    using Control::setText;
    void setText(std::size_t row, std::size_t column, std::wstring text);
    void setTexts(std::size_t row, std::array<std::wstring, ListRows::maxColumns> texts);
    int image(std::size_t row) const { return rows_[row].image; }
    void setImage(std::size_t row, int image); // from 1; repaints only a row that changes
    void setAllImages(int image);

    void clear();
    // Rows whose texts look into what `block` owns, in the order given; switches sorting off. Nothing is
    // selected.
    void fill(std::shared_ptr<const void> block, std::vector<ListRows::Row> rows);
    // Adds such rows at the end, whatever the sort order says; setSorted(true) puts them in their places.
    void append(std::shared_ptr<const void> block, std::span<const ListRows::Row> rows);
    const ListRows& rows() const { return rows_; }
    // Another number whenever rows came, went or changed places.
    unsigned changes() const { return changes_; }
    std::size_t add(std::array<std::wstring, ListRows::maxColumns> texts, int image);
    // At that row, whatever the sort order says.
    void insert(std::size_t row, std::array<std::wstring, ListRows::maxColumns> texts, int image);
    void remove(std::size_t row);
    // `progress` is told the rows looked at so far.
    std::size_t removeSelected(const std::function<void(std::size_t done)>& progress);
    void ensureVisible(std::size_t row);

    // Setting the key or the order sorts again while sorted is on.
    bool sorted() const { return rows_.sorted(); }
    std::size_t sortKey() const { return rows_.sortKey(); }
    SortOrder sortOrder() const { return rows_.sortOrder(); }
    void setSorted(bool on);
    void setSortKey(std::size_t column);
    void setSortOrder(SortOrder order);
    void sortBy(std::size_t column, SortOrder order);

    // The row that commands act on: the one with the focus if it is selected, else the first selected one.
    std::optional<std::size_t> currentRow() const;
    std::optional<std::size_t> firstSelected() const;
    // The row that the keyboard is on, selected or not.
    std::optional<std::size_t> focusedRow() const { return nextRow(-1, LVNI_FOCUSED); }
    bool isSelected(std::size_t row) const;
    std::size_t selectedCount() const;
    void select(std::size_t row); // this row alone, and current
    void selectAll();
    void clearSelection();

    Twips columnWidth(std::size_t column) const;
    void setColumnWidth(std::size_t column, Twips width);
    bool gridLines() const { return hasStyle(LVS_EX_GRIDLINES); }
    void setGridLines(bool on) { setStyle(LVS_EX_GRIDLINES, on); }
    bool hoverSelection() const { return hasStyle(LVS_EX_TRACKSELECT); }
    void setHoverSelection(bool on);
    void editLabel(std::size_t row);
    bool editingLabel() const;
    // Takes what was typed, as Enter does.
    void finishLabelEdit();
    void setImages(HIMAGELIST images); // borrowed

    void setForeColor(COLORREF color) override;
    void dpiChanged(unsigned dpi) override; // the columns keep their widths in twips
    std::optional<LRESULT> onNotify(NMHDR& header) override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    friend class ListPause;
    void catchUp();
    bool nativeKnowsSelection() const { return pauses_ == 0 || severalInPause_; }
    template <typename Change> void changeRows(Change change);
    void takeSystemColors();
    LRESULT userMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT withoutRedraw(UINT message, WPARAM wParam, LPARAM lParam);
    bool unselectsMany(UINT message) const;
    void fireItemClick();
    void selectionGained();
    std::optional<LRESULT> onBeginLabelEdit(const NMLVDISPINFOW& info);
    std::optional<LRESULT> onEndLabelEdit(const NMLVDISPINFOW& info);
    void dropLabelEdit();
    void openMenuLater(POINT screen);
    void answerDisplay(LVITEMW& item) const;
    LRESULT findRow(const NMLVFINDITEMW& wanted) const;
    POINT menuPoint() const;
    std::optional<std::size_t> nextRow(LRESULT from, UINT state) const;
    bool isSelectedBlock(std::size_t first, std::size_t rows) const;
    void dropSelection();
    void takeSelection();
    void giveSelection();
    void setState(int row, UINT state, UINT mask);
    void updateCount(DWORD flags);
    void redrawRow(std::size_t row);
    void showSortOrder();
    bool hasStyle(DWORD style) const;
    void setStyle(DWORD style, bool on);
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    ListRows rows_;
    Selection selection_;
    std::vector<Twips> columnWidths_; // as they were set; what the user dragged differs from them in pixels
    unsigned columnDpi_;              // for which the native widths are
    int quiet_ = 0;                   // above 0 the program itself changes the selection
    int pauses_ = 0;                  // above 0 the native control is told nothing
    std::optional<std::size_t> selectedInPause_;
    bool severalInPause_ = false; // are selected, and the native control still knows which
    int userMessages_ = 0;        // above 0 a message of the user is being answered
    std::size_t lastFocused_ = 0; // a hint, asked before it is believed
    unsigned changes_ = 0;        // of the rows: what was known by number before one means nothing after it
    ListRows::Id editedRow_ = 0;  // by the label edit that is open; 0: none is
    bool clickPending_ = false;
    bool pressFired_ = false; // the press of the button selected a row already
};

// While one lives, the native controls of its lists are told neither how many rows there are nor which one is
// selected: for a change of either they paint scroll bars and frames at once, which costs more than filling a
// list. For work that fills and selects over and over before the next message. Of several rows that were
// selected before, all stay so while rows are only appended; after any other change no more than one is.
class ListPause {
  public:
    template <std::same_as<ListView>... Lists>
    explicit ListPause(Lists&... lists) : ListPause(std::vector<ListView*>{&lists...})
    {}
    ListPause(const ListPause&) = delete;
    ListPause& operator=(const ListPause&) = delete;
    ~ListPause();

  private:
    explicit ListPause(std::vector<ListView*> lists);

    std::vector<ListView*> lists_;
};

} // namespace vandrel
