#pragma once

#include <functional>
#include <string>

namespace vandrel {

struct Workspace;

// Compares the running version with the one on the maker's site, and offers the installer when they differ;
// accepting closes the program. Calls `enableEntry` with false at the beginning and true at the end,
// whatever happens in between. Throws RuntimeError (see InternetTransfer) when the version cannot be
// fetched.
void CheckUpdates(Workspace& workspace, const std::wstring& site,
                  const std::function<void(bool on)>& enableEntry);

} // namespace vandrel
