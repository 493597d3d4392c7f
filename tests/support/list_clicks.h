#pragma once

#include "platform/controls/list_view.h"
#include "tests/support/input.h"

#include <windows.h>

// Mouse clicks as they reach a list.
namespace vandrel::test {

inline POINT pointOnRow(const ListView& list, int row)
{
    RECT area{};
    area.left = LVIR_LABEL;
    SendMessageW(list.handle(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    return {area.left + 10, (area.top + area.bottom) / 2};
}

inline void clickRow(const ListView& list, int row, WPARAM held = 0)
{
    clickAt(list.handle(), pointOnRow(list, row), held);
}

inline void clickHeader(const ListView& list, int column)
{
    const HWND header = reinterpret_cast<HWND>(SendMessageW(list.handle(), LVM_GETHEADER, 0, 0));
    RECT area{};
    SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&area));
    clickAt(header, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

} // namespace vandrel::test
