#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// A site's line in the scan log, without its line end.
std::wstring scanLogLine(std::wstring_view name, std::wstring_view url, bool success);

struct ScanSummary {
    std::wstring text;
    std::wstring title;
    bool everySiteFailed; // then the scan ends without saying that it is complete
};

// The message after a scan of `count` sites of which `failures` failed; none if none did.
std::optional<ScanSummary> scanSummary(std::int32_t failures, std::size_t count);

} // namespace vandrel
