#pragma once

#include <string>

// A build can name another site; see CONTRIBUTING.md. The default one is asked over https: the browser is
// sent there for an installer, which nobody on the way must be able to exchange.
#ifndef VANDREL_MAKERS_SITE
# define VANDREL_MAKERS_SITE L"https://www.brisan.example"
#endif

namespace vandrel {

// The web site of the program's maker, without a slash at its end; where to write to, and whose the program
// is.
inline const std::wstring makersSite = VANDREL_MAKERS_SITE;
inline const std::wstring makersEmail = L"vandrel@brisan.example";
inline const std::wstring makersNotice = L"\u00A9 2026 Brisan Software";

} // namespace vandrel
