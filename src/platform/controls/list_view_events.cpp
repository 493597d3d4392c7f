#include "platform/base/counted.h"
#include "platform/base/wine.h"
#include "platform/controls/list_view.h"
#include "platform/controls/redraw_pause.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

namespace vandrel {
namespace {

// From this many rows on, a change of selection is painted once, at the end: otherwise the native control
// takes seconds for 100,000 rows.
constexpr std::size_t manyRows = 1000;

bool keyDown(int key) { return GetKeyState(key) < 0; }

} // namespace

void ListView::fireItemClick()
{
    clickPending_ = false;
    const auto row = currentRow();
    if (row && ItemClick) ItemClick(*row);
}

void ListView::selectionGained()
{
    pressFired_ = true;
    // Not at once: during a message of the user's, userMessage raises the event at its end; anyone else who
    // selects rows, such as a screen reader, is still waiting for the answer to a call.
    if (!clickPending_ && !busy()) {
        later([this] {
            if (clickPending_) fireItemClick();
        });
    }
    clickPending_ = true;
}

LRESULT ListView::withoutRedraw(UINT message, WPARAM wParam, LPARAM lParam)
{
    const RedrawPause pause(handle());
    return Control::onMessage(message, wParam, lParam);
}

// Whether the native control is about to change the state of many rows. During a press it waits for the
// release, and has to be painted meanwhile.
bool ListView::unselectsMany(UINT message) const
{
    if (count() < manyRows || selection_ == Selection::one) return false;
    const bool presses = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
    if (presses) return keyDown(VK_SHIFT) && pausesPressesUnderWine();
    const bool extends = keyDown(VK_SHIFT) && message != WM_LBUTTONUP;
    return extends || selectedCount() >= manyRows;
}

// A press on another row, or on the empty space, first unselects all rows. Of many rows that is done here, faster
// and without painting.
void ListView::unselectForPress(LPARAM point)
{
    if (selection_ == Selection::one || selectedCount() < manyRows || keyDown(VK_SHIFT) ||
        keyDown(VK_CONTROL))
        return;
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    const auto row = send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (row < 0 || !isSelected(static_cast<std::size_t>(row))) clearSelection();
}

LRESULT ListView::userMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto selectedBefore = firstSelected();
    const unsigned changesBefore = changes_;
    LRESULT answer = 0;
    {
        const Counted user(userMessages_);
        answer = unselectsMany(message) ? withoutRedraw(message, wParam, lParam)
                                        : Control::onMessage(message, wParam, lParam);
    }
    if (selection_ == Selection::one && selectedBefore && !firstSelected() && changes_ == changesBefore) {
        select(*selectedBefore);
    }
    if (busy()) return answer;
    resumeLater();
    if (clickPending_) fireItemClick();
    return answer;
}

LRESULT ListView::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
        if (wParam == 'A' && selection_ == Selection::many && keyDown(VK_CONTROL) && !keyDown(VK_MENU)) {
            selectAll();
            clickPending_ = true;
            if (!busy()) fireItemClick();
            return 0;
        }
        if (wParam == VK_RETURN && Return) {
            returnPressed();
            return 0;
        }
        return userMessage(message, wParam, lParam);
    case WM_CHAR:
    case WM_MOUSEHOVER:
    case WM_LBUTTONDBLCLK: return userMessage(message, wParam, lParam);
    case WM_MOUSEMOVE:
        if (MouseMove) MouseMove();
        return Control::onMessage(message, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        pressFired_ = false;
        unselectForPress(lParam);
        return userMessage(message, wParam, lParam);
    case WM_LBUTTONUP: return userMessage(message, wParam, lParam);
    case WM_CONTEXTMENU:
        // NM_RCLICK handles the mouse; this is the menu key.
        if (GET_X_LPARAM(lParam) == -1 && GET_Y_LPARAM(lParam) == -1) openMenuLater(menuPoint());
        return 0;
    case WM_GETDLGCODE: {
        const auto* const key = reinterpret_cast<const MSG*>(lParam);
        const bool wantsKey = key != nullptr && key->wParam == VK_RETURN && Return;
        return Control::onMessage(message, wParam, lParam) | DLGC_WANTARROWS |
               (wantsKey ? DLGC_WANTMESSAGE : 0);
    }
    case WM_SYSCOLORCHANGE: {
        const LRESULT answer = Control::onMessage(message, wParam, lParam);
        takeSystemColors();
        return answer;
    }
    default: return Control::onMessage(message, wParam, lParam);
    }
}

// Enter may come in the middle of a press, because the native control dispatches messages then.
void ListView::returnPressed()
{
    if (!busy()) return Return();
    later([this] {
        if (Return) Return();
    });
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
        const CompactText text = rows_.text(row, column);
        item.pszText[text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax - 1))] = L'\0';
    }
    if ((item.mask & LVIF_IMAGE) != 0) item.iImage = rows_.image(row) - 1;
}

// The row that the typed letters lead to.
LRESULT ListView::findRow(const NMLVFINDITEMW& wanted) const
{
    constexpr UINT substring = 0x0004; // LVFI_SUBSTRING: documented to mean the same as LVFI_PARTIAL
    constexpr UINT beginning = LVFI_PARTIAL | substring; // which is asked for depends on the system
    const bool wholeText = (wanted.lvfi.flags & beginning) == 0;
    if ((wanted.lvfi.flags & (LVFI_STRING | beginning)) == 0 || wanted.lvfi.psz == nullptr) return -1;
    const std::wstring_view typed(wanted.lvfi.psz);
    std::wstring memory;
    for (std::size_t step = 0; step < count(); ++step) {
        const std::size_t row = (static_cast<std::size_t>(std::max(wanted.iStart, 0)) + step) % count();
        const CompactText whole = rows_.text(row, 0);
        const std::wstring_view text = (wholeText ? whole : whole.substr(0, typed.size())).wideIn(memory);
        if (CompareStringOrdinal(text.data(), static_cast<int>(text.size()), typed.data(),
                                 static_cast<int>(typed.size()), TRUE) == CSTR_EQUAL) {
            return static_cast<LRESULT>(row);
        }
    }
    return -1;
}

std::optional<LRESULT> ListView::onBeginLabelEdit(const NMLVDISPINFOW& info)
{
    const auto row = static_cast<std::size_t>(info.item.iItem);
    if (row >= count()) return TRUE; // refused
    editedRow_ = rows_.id(row);
    if (BeforeLabelEdit) BeforeLabelEdit(row);
    return FALSE;
}

// For the row on which the edit began, wherever it is now.
std::optional<LRESULT> ListView::onEndLabelEdit(const NMLVDISPINFOW& info)
{
    const auto row = rows_.rowOf(std::exchange(editedRow_, 0));
    if (info.item.pszText == nullptr || !row || !AfterLabelEdit) return FALSE;
    return AfterLabelEdit(*row, info.item.pszText) ? TRUE : FALSE;
}

// Posted, so that the press or key has selected its row before the menu opens.
void ListView::openMenuLater(POINT screen)
{
    later([this, screen] {
        setFocus();
        if (clickPending_) fireItemClick();
        if (RightClick) RightClick(screen);
    });
}

std::optional<LRESULT> ListView::onNotify(NMHDR& header)
{
    switch (header.code) {
    case LVN_GETDISPINFOW: answerDisplay(reinterpret_cast<NMLVDISPINFOW&>(header).item); return 0;
    case NM_CUSTOMDRAW: return onCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case LVN_ODFINDITEMW: return findRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ITEMCHANGED: {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if ((change.uNewState & LVIS_FOCUSED) != 0 && change.iItem >= 0) {
            lastFocused_ = static_cast<std::size_t>(change.iItem);
        }
        const bool gained = (change.uNewState & LVIS_SELECTED) != 0 &&
                            (change.uOldState & LVIS_SELECTED) == 0;
        if (gained && selectingItself_ == 0) selectionGained();
        return 0;
    }
    case LVN_ODSTATECHANGED:
        if (selectingItself_ == 0 &&
            (reinterpret_cast<const NMLVODSTATECHANGE&>(header).uNewState & LVIS_SELECTED) != 0) {
            selectionGained();
        }
        return 0;
    case NM_CLICK:
        // A click on a row that was selected already.
        if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0 && !pressFired_) selectionGained();
        return 0;
    case NM_DBLCLK:
        later([this] {
            if (DblClick) DblClick();
        });
        return 0;
    case NM_RCLICK: {
        POINT point{};
        GetCursorPos(&point);
        openMenuLater(point);
        return 1; // handled: no WM_CONTEXTMENU follows
    }
    case LVN_COLUMNCLICK:
        later([this, column = reinterpret_cast<const NMLISTVIEW&>(header).iSubItem] {
            finishLabelEdit(); // before the rows move
            if (ColumnClick) ColumnClick(static_cast<std::size_t>(column));
        });
        return 0;
    case LVN_BEGINLABELEDITW: return onBeginLabelEdit(reinterpret_cast<const NMLVDISPINFOW&>(header));
    case LVN_ENDLABELEDITW: return onEndLabelEdit(reinterpret_cast<const NMLVDISPINFOW&>(header));
    default: return std::nullopt;
    }
}

} // namespace vandrel
