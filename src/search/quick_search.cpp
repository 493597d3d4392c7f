#include "search/quick_search.h"

#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "search/platform_folding.h"
#include "search/site_match.h"
#include "shared/workspace.h"
#include "store/category_list.h"

#include <limits>

namespace vandrel {
namespace {

// The row after the current one, counted from 1; the first if there is no current row.
std::int16_t rowBehindCurrent(const ListView& sites)
{
    const auto current = sites.currentRow();
    if (!current) return 1;
    // Contract: the row number is a 16-bit integer; beyond that, overflow.
    if (*current + 2 > std::numeric_limits<std::int16_t>::max()) throw RuntimeError(error_number::overflow);
    return static_cast<std::int16_t>(*current + 2);
}

bool isInList(const ComboBox& box, const std::wstring& text)
{
    for (std::size_t index = 0; index < box.count(); ++index) {
        // Contract: letter case counts.
        if (box.entry(index) == text) return true;
    }
    return false;
}

} // namespace

void cmbSearch_GotFocus(ComboBox& cmbSearch)
{
    if (cmbSearch.text() == searchPrompt) cmbSearch.setText({});
}

void cmdSearch_Click(Workspace& workspace, ComboBox& cmbSearch)
{
    ListView& sites = workspace.lstInfo;
    Search(workspace, cmbSearch.text(), rowBehindCurrent(sites), SearchMode::text, 0);
    // A hit off the screen would look like none.
    if (const auto row = sites.currentRow()) {
        sites.ensureVisible(*row);
        showSiteInStatusBar(workspace, *row);
    }
    if (const std::wstring text = cmbSearch.text(); !isInList(cmbSearch, text)) cmbSearch.add(text);
}

// Contract: the last argument, iSection, is not used.
void Search(Workspace& workspace, const std::wstring& strTerm, const std::int16_t& StartAt,
            const SearchMode& SearchMode, const std::int16_t&)
{
    const RowTable& sites = workspace.shown.sites;
    const SiteMatcher matcher(strTerm, SearchMode, SearchSection::all, platformFolding());
    // Contract: no wrap-around at the end of the list.
    for (auto row = static_cast<std::size_t>(StartAt - 1); row < sites.size(); ++row) {
        if (!matcher.matches(sites[row].texts.views())) continue;
        workspace.lstInfo.select(row);
        return;
    }
    tell(workspace.window, L"No more matches were found.", L"Search", BoxIcon::information);
}

} // namespace vandrel
