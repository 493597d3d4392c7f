#include "platform/base/counted.h"
#include "platform/base/wine.h"
#include "platform/controls/list_view.h"
#include "platform/controls/redraw_pause.h"

#include <algorithm>
#include <utility>

namespace vandrel {

// LVM_GETNEXTITEM may look at the rows one by one. Callers first ask for what is cheap: the number of
// selected rows, and the row that last got the focus.
std::optional<std::size_t> ListView::nextRow(LRESULT from, UINT state) const
{
    const auto row = callNative(LVM_GETNEXTITEM, static_cast<WPARAM>(from), static_cast<LPARAM>(state));
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

bool ListView::isSelected(std::size_t row) const
{
    return callNative(LVM_GETITEMSTATE, row, LVIS_SELECTED) != 0;
}

std::size_t ListView::selectedCount() const { return static_cast<std::size_t>(send(LVM_GETSELECTEDCOUNT)); }

void ListView::setState(int row, UINT state, UINT mask)
{
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    callNative(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListView::select(std::size_t row)
{
    const Counted selecting(selectingItself_);
    dropSelection();
    setState(static_cast<int>(row), LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    send(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(row));
}

void ListView::selectAll()
{
    if (selection_ != Selection::many || empty()) return;
    const RedrawPause pause(handle());
    const Counted selecting(selectingItself_);
    setState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void ListView::clearSelection()
{
    if (selectedCount() == 0) return;
    const RedrawPause pause(handle());
    const Counted selecting(selectingItself_);
    dropSelection();
}

// `first` is the first selected row, `rows` the number of selected rows. They form a block if the last row
// of it is selected and no later one is. Asking tens of thousands of rows singly takes longer than removing
// them.
bool ListView::isSelectedBlock(std::size_t first, std::size_t rows) const
{
    const std::size_t last = first + rows - 1;
    return last < count() && isSelected(last) && !nextRow(static_cast<LRESULT>(last), LVNI_SELECTED);
}

// All rows at once takes as long as there are rows in the list, selected or not, so it is done only for a large
// block: of scattered rows the control unselects all far more slowly. Uses no memory, so that a list can always
// be emptied.
void ListView::dropSelection()
{
    std::size_t left = selectedCount();
    auto row = left > 0 ? firstSelected() : std::nullopt;
    if (row && left > count() / 8 && isSelectedBlock(*row, left)) {
        setState(-1, 0, LVIS_SELECTED);
        return;
    }
    for (; row && left > 0; --left) {
        setState(static_cast<int>(*row), 0, LVIS_SELECTED);
        row = left > 1 ? nextRow(static_cast<LRESULT>(*row), LVNI_SELECTED) : std::nullopt;
    }
}

// Marks the selected rows and the current one in the source. Uses no memory, so that a row can always be
// removed again.
void ListView::markSelection()
{
    std::size_t left = selectedCount();
    auto row = left > 0 ? firstSelected() : std::nullopt;
    const bool block = row && isSelectedBlock(*row, left);
    for (; row && left > 0; --left) {
        rows_.setMark(*row, {.selected = true});
        if (left == 1) break;
        row = block ? std::optional(*row + 1) : nextRow(static_cast<LRESULT>(*row), LVNI_SELECTED);
    }
    if (const auto current = currentRow()) rows_.setMark(*current, {.selected = true, .current = true});
}

ListView::Block ListView::markedBlock(std::size_t end) const
{
    Block block{end - 1, end, rows_.mark(end - 1).selected};
    while (block.begin > 0 && rows_.mark(block.begin - 1).selected == block.selected) --block.begin;
    return block;
}

// Whether it is faster to select all rows and unselect those that are not marked than to select the marked ones.
bool ListView::selectsFasterFromAll() const
{
    std::size_t blocks = 0;
    std::size_t selected = 0;
    for (std::size_t end = count(); end > 0;) {
        const Block block = markedBlock(end);
        if (block.selected) {
            ++blocks;
            selected += block.end - block.begin;
        }
        end = block.begin;
    }
    // Measured: of all rows at once, four take as long as one that is selected by itself.
    const std::size_t fromAll = count() / 4 + count() - selected;
    return selected + callsLostToBlocksUnderWine(selected, blocks) > fromAll;
}

// From the last block to the first, and in each of them down the list: Wine 8.0 looks for the place of a row from the
// front of the selection.
void ListView::giveManyRows()
{
    const bool fromAll = selectsFasterFromAll();
    if (fromAll) setState(-1, LVIS_SELECTED, LVIS_SELECTED);
    for (std::size_t end = count(); end > 0;) {
        const Block block = markedBlock(end);
        for (std::size_t row = block.begin; row < block.end; ++row) {
            if (block.selected != fromAll) {
                setState(static_cast<int>(row), fromAll ? 0 : LVIS_SELECTED, LVIS_SELECTED);
            }
            rows_.setMark(row, {.current = rows_.mark(row).current});
        }
        end = block.begin;
    }
}

// Takes the marks off the rows, so that there are none until rows move again.
void ListView::giveSelection()
{
    if (manySelected_) giveManyRows(); // which leaves the mark of the current row
    for (auto row = rows_.lastMarked(count()); row; row = rows_.lastMarked(*row)) {
        const RowSource::Mark mark = rows_.mark(*row);
        const UINT state = (mark.selected ? LVIS_SELECTED : 0U) | (mark.current ? LVIS_FOCUSED : 0U);
        rows_.setMark(*row, {});
        setState(static_cast<int>(*row), state, state);
    }
}

} // namespace vandrel
