#pragma once

#include <functional>
#include <string>

namespace vandrel {

struct Workspace;

// Compares the running version with the one on the maker's site, and offers the installer when they differ;
// taking it closes the program. `enableEntry` is told false at the beginning and true at the end, whatever
// happens between. Throws RuntimeError (see InternetTransfer) when the site cannot be asked.
void CheckUpdates(Workspace& workspace, const std::wstring& site,
                  const std::function<void(bool on)>& enableEntry);

} // namespace vandrel
