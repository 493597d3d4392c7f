#pragma once

#include <string>

// A build can name another site; see CONTRIBUTING.md. The default is https: the browser is sent there for
// an installer, which nobody on the way may be able to replace.
#ifndef VANDREL_MAKERS_SITE
# define VANDREL_MAKERS_SITE L"https://www.brisan.example"
#endif

namespace vandrel {

// The maker's web site, without a trailing slash; the address to write to; the maker's notice.
inline const std::wstring makersSite = VANDREL_MAKERS_SITE;
inline const std::wstring makersEmail = L"vandrel@brisan.example";
inline const std::wstring makersNotice = L"\u00A9 2026 Brisan Software";

} // namespace vandrel
