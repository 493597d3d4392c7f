#include "exchange_tool/exchange_commands.h"

#include "exchange_tool/bookmark_export.h"
#include "exchange_tool/bookmark_import.h"
#include "exchange_tool/folder_check.h"
#include "platform/base/system_error.h"
#include "platform/files/folder.h"
#include "platform/files/full_path.h"
#include "update/version_report.h"

#include <windows.h>

#include <new>

namespace vandrel {
namespace {

using What = ExchangeRequest::What;

constexpr const wchar_t* lineEnd = L"\r\n";

void write(const std::function<bool(std::wstring_view)>& stream, std::wstring_view text)
{
    if (!stream(text)) throw RuntimeError(error_number::deviceError, L"The output cannot be written.");
}

int report(const ExchangeReport& report, const CommandStreams& streams)
{
    // What is done is done, whoever hears of it.
    streams.output(linesOf(report));
    return report.allKept ? exit_status::done : exit_status::notAllKept;
}

int check(const std::wstring& folder, const CommandStreams& streams, Progress& progress)
{
    const FolderCheckOutcome outcome = checkFolder(
        folder, [&](const std::wstring& finding) { write(streams.output, finding + lineEnd); }, progress);
    write(streams.output, counted(outcome.categories, L"category", L"categories") + L", " +
                              counted(outcome.sites, L"site", L"sites") + L": " +
                              (outcome.findings == 0 ? L"nothing found"
                                                     : counted(outcome.findings, L"finding", L"findings")) +
                              lineEnd);
    return outcome.findings == 0 ? exit_status::done : exit_status::notAllKept;
}

int run(const ExchangeRequest& request, const CommandStreams& streams, FileLayer& files, Progress& progress)
{
    switch (request.what) {
    case What::importFile:
        return report(reportOf(importBookmarks(folderOf(request), fullPath(request.files.front()), files,
                                               progress)),
                      streams);
    case What::exportFile: {
        const std::wstring file = fullPath(request.files.front());
        return report(reportOf(exportBookmarks(folderOf(request), file, files, progress), file), streams);
    }
    case What::check: return check(folderOf(request), streams, progress);
    case What::help: write(streams.output, exchangeHelp()); return exit_status::done;
    case What::version:
        write(streams.output, L"VandrelExchange " + runningVersion() + lineEnd);
        return exit_status::done;
    default:
        throw RuntimeError(error_number::invalidCall,
                           request.complaint + L" VandrelExchange --help says what there is.");
    }
}

} // namespace

std::wstring folderOf(const ExchangeRequest& request)
{
    if (!request.folder) return programFolder();
    std::wstring folder = fullPath(*request.folder);
    while (folder.ends_with(L'\\')) folder.pop_back(); // names are put behind it with one of their own
    return folder;
}

int runCommand(const ExchangeRequest& request, const CommandStreams& streams, FileLayer& files,
               Progress& progress)
{
    const auto tell = [&](const std::wstring& why) {
        streams.errors(L"VandrelExchange: " + why + lineEnd);
        return exit_status::nothingDone;
    };
    try {
        return run(request, streams, files, progress);
    } catch (const RuntimeError& error) {
        return tell(error.number() == error_number::cancelled ? L"Cancelled." : error.description());
    } catch (const std::bad_alloc&) {
        return tell(runtimeErrorDescription(error_number::outOfMemory) + L".");
    }
}

} // namespace vandrel
