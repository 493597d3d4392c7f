#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// A text as the category file will hold it, so that the list shows nothing else: a record is one line, so
// each line end (CR LF, CR or LF) becomes a blank; a letter that the ANSI code page lacks becomes "?".
std::wstring savedText(std::wstring_view text);

} // namespace vandrel
