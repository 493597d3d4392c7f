#pragma once

#include "platform/controls/list_view.h"
#include "shared/workspace.h"

#include <string_view>

namespace vandrel::bench {

// Selects the category of that title as a click does, and paints its sites.
inline void clickCategory(Workspace& workspace, std::wstring_view title)
{
    ListView& categories = workspace.lstCategory;
    for (std::size_t row = 0; row < categories.count(); ++row) {
        if (categories.text(row) != title) continue;
        categories.select(row);
        categories.ItemClick(row);
    }
    UpdateWindow(workspace.lstInfo.handle());
}

} // namespace vandrel::bench
