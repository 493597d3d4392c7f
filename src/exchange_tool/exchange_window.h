#pragma once

#include "exchange_tool/exchange_request.h"
#include "platform/files/file_layer.h"

#include <string>

namespace vandrel {

inline constexpr const wchar_t* exchangeTitle = L"Vandrel Exchange";
inline constexpr int bringInLink = 101;
inline constexpr int writeLink = 102;

// Does the request in windows: asks what to do, or brings in the files that it names. Errors are told in
// boxes. Returns the exit status.
int runInWindows(const ExchangeRequest& request, FileLayer& files);

} // namespace vandrel
