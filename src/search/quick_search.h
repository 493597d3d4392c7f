#pragma once

#include <cstdint>
#include <string>

namespace vandrel {

class ComboBox;
enum class SearchMode;
struct Workspace;

// The text with which the box invites to search; the focus clears it.
inline const std::wstring searchPrompt = L"Quick Search";

void cmbSearch_GotFocus(ComboBox& cmbSearch);

// Selects the next site behind the current one that holds the box's text, and remembers the text in the box's
// list. Throws RuntimeError 6 from row 32767 on, the last one that the number of the start can be.
void cmdSearch_Click(Workspace& workspace, ComboBox& cmbSearch);

// Selects the first site from row `StartAt` (from 1) on that holds the term, or tells that there is none. The
// list is neither scrolled nor focused. `iSection` is not used: it looks in name, URL and description.
void Search(Workspace& workspace, const std::wstring& strTerm, const std::int16_t& StartAt,
            const SearchMode& SearchMode, const std::int16_t& iSection);

} // namespace vandrel
