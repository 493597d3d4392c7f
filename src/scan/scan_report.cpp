#include "scan/scan_report.h"

namespace vandrel {

std::wstring scanLogLine(std::wstring_view name, std::wstring_view url, bool success)
{
    std::wstring line(name);
    line += L" - ";
    line += url;
    line += success ? L" - Success" : L" - Failed";
    return line;
}

std::optional<ScanSummary> scanSummary(std::int32_t failures, std::size_t count)
{
    if (failures <= 0) return std::nullopt;
    // Contract: also when the only site failed.
    if (static_cast<std::size_t>(failures) == count) {
        return ScanSummary{
            L"Every link checked has proven to be unavailable. Please check your internet connection.",
            L"Check Internet Connection", true};
    }
    const std::wstring number = std::to_wstring(failures);
    if (failures < 2) {
        return ScanSummary{L"There was " + number +
                               L" unavailable link.\r\nIt has been marked with a red X\r\n"
                               L"for easy identification and possible removal.\r\n\r\n"
                               L"Please be aware that this site may just be temporarily unavailable. "
                               L"If you feel this is an error,\r\n"
                               L"try rescanning, or opening the site manually.",
                           L"Unavailable Site", false};
    }
    return ScanSummary{L"There were " + number +
                           L" unavailable links.\r\nThey have been marked with a red X\r\n"
                           L"for easy identification and possible removal.\r\n\r\n"
                           L"Please be aware that these sites may just be temporarily unavailable. "
                           L"If you feel this is an error,\r\n"
                           L"try rescanning, or opening these sites manually.",
                       L"Unavailable Sites", false};
}

} // namespace vandrel
