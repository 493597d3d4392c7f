#pragma once

#include "exchange_tool/progress.h"

#include <functional>
#include <string>

namespace vandrel {

struct FolderCheckOutcome {
    std::size_t categories = 0;
    std::size_t sites = 0;
    std::size_t findings = 0;
};

// Reads every category in the folder and tells what looks wrong, line by line; changes nothing. Throws
// RuntimeError when there is no such folder.
FolderCheckOutcome checkFolder(const std::wstring& folder,
                               const std::function<void(const std::wstring& finding)>& tell,
                               Progress& progress);

} // namespace vandrel
