#pragma once

#include "exchange_tool/exchange_report.h"
#include "exchange_tool/progress.h"
#include "platform/files/file_layer.h"

#include <string>

namespace vandrel {

// Writes every category in `folder` to a page of bookmarks, which replaces `file` (a full path), all or nothing. Throws
// RuntimeError, with a description that says what could not be done and why, or 32755 once the progress is
// cancelled.
ExportOutcome exportBookmarks(const std::wstring& folder, const std::wstring& file, FileLayer& files,
                              Progress& progress);

} // namespace vandrel
