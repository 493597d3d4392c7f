#pragma once

#include "platform/controls/control.h"
#include "platform/controls/redraw_pause.h"
#include "platform/controls/row_source.h"

#include <commctrl.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace vandrel {

// A list view in report view: it asks a source of rows for what it paints, and knows the selection and the scroll
// place. Rows and columns count from 0. The selection and the current row stay with their row when rows change
// places.
class ListView : public Control, private RowObserver {
  public:
    struct Column {
        std::wstring caption;
        Twips width;
    };
    enum class Selection {
        one, // once a row is selected, neither keys nor mouse leave the list without one
        many,
    };
    // `rows` is borrowed and observed.
    ListView(HWND parent, int id, Selection selection, bool labelEdit, std::initializer_list<Column> columns,
             RowSource& rows);
    ~ListView() override;

    std::function<void(std::size_t row)> ItemClick; // the user selected the row, by mouse or by key
    std::function<void(std::size_t column)> ColumnClick;
    std::function<void()> DblClick;
    std::function<void()> Return; // while it is bound, Enter does not press a dialog's default button
    std::function<void()> MouseMove;
    std::function<void(POINT screen)> RightClick; // released, or the menu key pressed
    std::function<void(std::size_t row)> BeforeLabelEdit;
    // Gives the row its new text, and says whether it did.
    std::function<bool(std::size_t row, const std::wstring& text)> AfterLabelEdit;

    std::size_t count() const { return rows_.size(); }
    bool empty() const { return rows_.size() == 0; }
    using Control::text;
    std::wstring text(std::size_t row, std::size_t column = 0) const
    {
        return std::wstring(rows_.text(row, column));
    }
    void ensureVisible(std::size_t row);

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
    // Marks the selected rows in the source.
    void markSelection();

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
    bool busy() const override { return userMessages_ > 0; }

  private:
    friend class ListPause;
    void rowsChanging(RowChange change) override;
    void rowsChanged(RowChange change) override;
    void rowChanged(std::size_t row) override;
    void beginMoving();
    void endMoving();
    void takeSystemColors();
    LRESULT userMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT withoutRedraw(UINT message, WPARAM wParam, LPARAM lParam);
    bool unselectsMany(UINT message) const;
    void unselectForPress(LPARAM point);
    void returnPressed();
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
    void giveSelection();
    void setState(int row, UINT state, UINT mask);
    void updateCount(DWORD flags);
    void showSortOrder();
    bool hasStyle(DWORD style) const;
    void setStyle(DWORD style, bool on);
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    RowSource& rows_;
    Selection selection_;
    std::vector<Twips> columnWidths_; // as they were set; what the user dragged differs from them in pixels
    unsigned columnDpi_;              // for which the native widths are
    std::optional<RowSource::Order> shownOrder_; // by the arrow in a column's heading
    int quiet_ = 0;                              // above 0 the program itself changes the selection
    int changing_ = 0;      // above 0 rows are changing, and the native control is told nothing
    bool replaced_ = false; // meanwhile: none of the rows of before is left
    bool manySelected_ = false;
    std::size_t topRow_ = 0;
    std::optional<RedrawPause> redrawPause_;
    int userMessages_ = 0;        // above 0 a message of the user is being answered
    std::size_t lastFocused_ = 0; // a hint, asked before it is believed
    unsigned changes_ = 0;        // of the rows: what was known by number before one means nothing after it
    RowSource::Id editedRow_ = 0; // by the label edit that is open; 0: none is
    bool clickPending_ = false;
    bool pressFired_ = false; // the press of the button selected a row already
};

// While one lives, the native control is told neither how many rows there are nor which are selected: for a
// change of either it paints scroll bars and frames at once, which costs more than adding a row. For work that
// adds row after row before the next message, and does not ask about the selection.
class ListPause {
  public:
    explicit ListPause(ListView& list) : list_(list) { list_.rowsChanging(RowChange::moved); }
    ListPause(const ListPause&) = delete;
    ListPause& operator=(const ListPause&) = delete;
    ~ListPause() { list_.rowsChanged(RowChange::moved); }

  private:
    ListView& list_;
};

} // namespace vandrel
