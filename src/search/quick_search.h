#pragma once

#include <cstdint>
#include <string>

namespace vandrel {

class ComboBox;
enum class SearchMode;
struct Workspace;

// The box's first text, which the focus clears.
inline const std::wstring searchPrompt = L"Quick Search";

void cmbSearch_GotFocus(ComboBox& cmbSearch);

// Selects the next site after the current one that contains the box's text, and adds the text to the box's
// list. Throws RuntimeError 6 if the current row is 32767 or more, counted from 1: the row to start from is
// a 16-bit number.
void cmdSearch_Click(Workspace& workspace, ComboBox& cmbSearch);

// Selects the first site at or after row `StartAt`, counted from 1, that contains the term, or says that
// there is none. The list is neither scrolled nor focused. `iSection` is not used: name, URL and
// description are searched.
void Search(Workspace& workspace, const std::wstring& strTerm, const std::int16_t& StartAt,
            const SearchMode& SearchMode, const std::int16_t& iSection);

} // namespace vandrel
