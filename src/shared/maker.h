#pragma once

#include <string>

// Another site, for a build that is to be tried against a server of one's own.
#ifndef VANDREL_MAKERS_SITE
# define VANDREL_MAKERS_SITE L"http://www.brisan.example"
#endif

namespace vandrel {

// The web site of the program's maker, without a slash at its end; where to write to, and whose the program is.
inline const std::wstring makersSite = VANDREL_MAKERS_SITE;
inline const std::wstring makersEmail = L"vandrel@brisan.example";
inline const std::wstring makersNotice = L"\u00A9 2026 Brisan Software";

} // namespace vandrel
