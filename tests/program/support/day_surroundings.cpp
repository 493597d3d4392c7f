#include "tests/program/support/day_surroundings.h"

#include "tests/program/support/eventually.h"
#include "tests/program/support/program_files.h"

#include <stdexcept>
#include <utility>

namespace vandrel::test {
namespace {

constexpr const wchar_t* recordName = L"record.txt";
constexpr const wchar_t* answerName = L"answer.txt";

} // namespace

// ---- the browser

BrowserStandIn::BrowserStandIn()
{
    DeleteFileW(folder_.file(recordName).c_str()); // left by a run that was killed
    SetEnvironmentVariableW(L"VANDREL_RECORD", folder_.file(recordName).c_str());
}

BrowserStandIn::~BrowserStandIn() { SetEnvironmentVariableW(L"VANDREL_RECORD", nullptr); }

std::wstring BrowserStandIn::command() { return L"\"" + nativePath(VANDREL_RECORDER) + L"\" \"%1\""; }

std::string BrowserStandIn::opening(const std::wstring& address)
{
    return utf8(L"\"" + nativePath(VANDREL_RECORDER) + L"\" \"" + address + L"\"");
}

std::vector<std::string> BrowserStandIn::opened() const
{
    std::vector<std::string> lines;
    const std::string bytes = folder_.has(recordName) ? folder_.read(recordName) : "";
    for (std::size_t at = 0, end = 0; (end = bytes.find('\n', at)) != std::string::npos; at = end + 1)
        lines.push_back(bytes.substr(at, end - at));
    return lines;
}

// ---- the link

DraggedLink::DraggedLink(const std::wstring& link, POINT point)
{
    DeleteFileW(folder_.file(answerName).c_str());
    const std::wstring program = nativePath(VANDREL_DRAG_SOURCE);
    std::wstring line = L"\"" + program + L"\" unicode \"" + link + L"\" " + std::to_wstring(point.x) + L" " +
                        std::to_wstring(point.y) + L" \"" + folder_.file(answerName) + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &started)) {
        throw std::runtime_error("nothing can be dragged: error " + std::to_string(GetLastError()));
    }
    CloseHandle(started.hThread);
    process_ = started.hProcess;
}

DraggedLink::~DraggedLink()
{
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, limitMilliseconds);
    CloseHandle(process_);
}

std::string DraggedLink::answer() const
{
    return folder_.has(answerName) ? folder_.read(answerName) : std::string();
}

} // namespace vandrel::test
