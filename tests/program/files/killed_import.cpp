// Imports a page and ends itself at one of the calls that change the disk; see killed_import_test.cpp.
//   killed_import PAGE FOLDER CALL WHEN CANCELLED
// CALL counts from 1, and is 0 for none. WHEN is before, within (half of what the call writes is written) or
// after. CANCELLED is the number of the file at whose naming the user cancels, and 0 if never. Writes one letter
// per call to the file PAGE.calls.

#include "exchange_tool/bookmark_import.h"
#include "tests/program/files/ending_files.h"

#include <cwchar>

namespace vandrel::test {
namespace {

class CancelledFiles : public EndingFiles {
  public:
    CancelledFiles(const std::wstring& folder, int last, When when, int cancelledAt, Progress& progress)
        : EndingFiles(folder, last, when, false), untilCancelled_(cancelledAt), progress_(progress)
    {}
    bool rename(const std::wstring& from, const std::wstring& to) override
    {
        if (--untilCancelled_ == 0) progress_.cancel();
        return EndingFiles::rename(from, to);
    }

  private:
    int untilCancelled_;
    Progress& progress_;
};

} // namespace
} // namespace vandrel::test

int wmain(int argc, wchar_t** argv)
{
    using namespace vandrel;
    using namespace vandrel::test;
    if (argc != 6) return disk_calls::unknown;
    const std::wstring when = argv[4];
    Progress progress;
    CancelledFiles files(argv[2], static_cast<int>(std::wcstol(argv[3], nullptr, 10)),
                         when == L"before"   ? When::before
                         : when == L"within" ? When::within
                                             : When::after,
                         static_cast<int>(std::wcstol(argv[5], nullptr, 10)), progress);
    try {
        importBookmarks(argv[2], argv[1], files, progress);
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::cancelled) return disk_calls::unanswered;
    }
    writeFile(std::wstring(argv[1]) + L".calls", files.calls);
    return disk_calls::endedByItself;
}
