#pragma once

#include "bookmarks/bookmark_categories.h"
#include "exchange_tool/exchange_report.h"
#include "exchange_tool/progress.h"
#include "platform/files/file_layer.h"

#include <string>

namespace vandrel {

// Makes categories in `folder` of the page of bookmarks in `file`: all, or none. No other category changes.
// Throws RuntimeError, with a description that says what could not be done and why, or 32755 once the
// progress is cancelled; nothing is left then.
ImportOutcome importBookmarks(const std::wstring& folder, const std::wstring& file, FileLayer& files,
                              Progress& progress);

// This system's dates, ANSI code page and letter case.
ImportRules systemImportRules();

} // namespace vandrel
