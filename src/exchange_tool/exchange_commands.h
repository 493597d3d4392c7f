#pragma once

#include "exchange_tool/exchange_request.h"
#include "exchange_tool/progress.h"
#include "platform/files/file_layer.h"

#include <functional>
#include <string_view>

namespace vandrel {

// Where the commands of a command line write; each returns whether it could.
struct CommandStreams {
    std::function<bool(std::wstring_view)> output;
    std::function<bool(std::wstring_view)> errors;
};

namespace exit_status {
inline constexpr int done = 0;
inline constexpr int notAllKept = 1; // or check found something
inline constexpr int nothingDone = 2;
} // namespace exit_status

// The folder that the request names, as a full path, or else the running program's.
std::wstring folderOf(const ExchangeRequest& request);

// Does what the request says, without a window. Returns the exit status; an error is told on the stream for
// errors and raised no further.
int runCommand(const ExchangeRequest& request, const CommandStreams& streams, FileLayer& files,
               Progress& progress);

} // namespace vandrel
