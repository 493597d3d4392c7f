#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// A site's text as its file will hold it, so that the list never shows anything else: a record is one line,
// so each line end (CR LF, CR or LF) is a blank; letters that the ANSI code page lacks are "?".
std::wstring savedText(std::wstring_view text);

} // namespace vandrel
