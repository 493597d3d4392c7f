#pragma once

#include "platform/controls/control.h"
#include "platform/controls/image_list.h"
#include "platform/controls/redraw_pause.h"
#include "platform/controls/row_source.h"

#include <commctrl.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace vandrel {

// A virtual list view in report view: it asks a row source for what it paints, and holds only the selection
// and the scroll position. Rows and columns count from 0. The selection and the current row follow their
// rows when these move.
class ListView : public Control, private RowObserver {
  public:
    struct Column {
        std::wstring caption;
        Twips width;
    };
    enum class Selection {
        one, // once a row is selected, the user cannot leave the list without one
        many,
    };
    // Borrows and observes `rows`.
    ListView(HWND parent, int id, Selection selection, bool labelEdit, std::initializer_list<Column> columns,
             RowSource& rows);
    ~ListView() override;

    std::function<void(std::size_t row)> ItemClick; // the user selected the row with the mouse or keyboard
    std::function<void(std::size_t column)> ColumnClick;
    std::function<void()> DblClick;
    std::function<void()> Return; // while it is bound, Enter does not press a dialog's default button
    std::function<void()> MouseMove;
    std::function<void(POINT screen)> RightClick; // right button released, or menu key pressed
    std::function<void(std::size_t row)> BeforeLabelEdit;
    // Sets the new text of the row, and returns whether it did.
    std::function<bool(std::size_t row, const std::wstring& text)> AfterLabelEdit;

    std::size_t count() const { return rows_.size(); }
    bool empty() const { return rows_.size() == 0; }
    using Control::text;
    std::wstring text(std::size_t row, std::size_t column = 0) const
    {
        return std::wstring(rows_.text(row, column));
    }
    void ensureVisible(std::size_t row);

    // The row that commands act on: the focused one if it is selected, otherwise the first selected one.
    std::optional<std::size_t> currentRow() const;
    std::optional<std::size_t> firstSelected() const;
    // The row with the keyboard focus, selected or not.
    std::optional<std::size_t> focusedRow() const { return nextRow(-1, LVNI_FOCUSED); }
    bool isSelected(std::size_t row) const;
    std::size_t selectedCount() const;
    void select(std::size_t row); // only this row, and makes it current
    void selectAll();
    void clearSelection();

    Twips columnWidth(std::size_t column) const;
    void setColumnWidth(std::size_t column, Twips width);
    bool gridLines() const { return hasStyle(LVS_EX_GRIDLINES); }
    void setGridLines(bool on) { setStyle(LVS_EX_GRIDLINES, on); }
    bool hoverSelection() const { return hasStyle(LVS_EX_TRACKSELECT); }
    void setHoverSelection(bool on);
    // Shows no tips for texts that are cut off, in a list that has a tip of its own.
    void dropCutOffTips()
    {
        send(LVM_SETTOOLTIPS);
        setStyle(LVS_EX_LABELTIP, false);
    }
    void editLabel(std::size_t row);
    bool editingLabel() const;
    // Accepts what was typed, as Enter does.
    void finishLabelEdit();
    void setImages(HIMAGELIST images); // borrowed
    // Rows as high as those of a list whose pictures are that high, in a list without pictures.
    void setPictureHeight(Twips height);
    // How many rows there is room for.
    std::size_t rowsInView() const { return static_cast<std::size_t>(send(LVM_GETCOUNTPERPAGE)); }

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
    void forgetRows();
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
    LRESULT onCustomDraw(NMLVCUSTOMDRAW& drawing) const;
    LRESULT findRow(const NMLVFINDITEMW& wanted) const;
    POINT menuPoint() const;
    std::optional<std::size_t> nextRow(LRESULT from, UINT state) const;
    bool isSelectedBlock(std::size_t first, std::size_t rows) const;
    void markSelection();
    void dropSelection();
    void giveSelection();
    struct Block {
        std::size_t begin;
        std::size_t end;
        bool selected;
    };
    // The rows just before `end` (above 0) that are all marked, or all not marked.
    Block markedBlock(std::size_t end) const;
    bool selectsFasterFromAll() const;
    void giveManyRows();
    void setState(int row, UINT state, UINT mask);
    void updateCount(DWORD flags);
    void showSortOrder();
    bool hasStyle(DWORD style) const;
    void setStyle(DWORD style, bool on);
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    RowSource& rows_;
    Selection selection_;
    std::vector<Twips> columnWidths_; // as set; a column that the user dragged differs in pixels
    unsigned columnDpi_;              // of the native widths
    Twips pictureHeight_{};
    ImageListHandle noPictures_;                 // empty, of that height
    std::optional<RowSource::Order> shownOrder_; // by the arrow in a column's heading
    int selectingItself_ = 0;                    // above 0: the program itself changes the selection
    int changing_ = 0;      // above 0: rows are changing, and the native control is not told
    bool replaced_ = false; // by these changes: none of the previous rows is left
    bool manySelected_ = false;
    std::size_t topRow_ = 0;
    std::optional<RedrawPause> redrawPause_;
    int userMessages_ = 0;        // above 0: a mouse or key message is being handled
    std::size_t lastFocused_ = 0; // only a hint: check before use
    unsigned changes_ = 0;        // counts changes: a row number from before one means nothing after it
    RowSource::Id editedRow_ = 0; // in the open label edit; 0 for none
    bool clickPending_ = false;
    bool pressFired_ = false; // pressing the button has selected a row already
};

// While one lives, the native control is told neither the number of rows nor the selection: it would repaint
// scroll bars and frame at every change, which costs more than adding a row. For work that adds many rows
// before the next message and does not ask about the selection.
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
