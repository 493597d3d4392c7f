#include "exchange_tool/exchange_window.h"

#include "exchange_tool/background_work.h"
#include "exchange_tool/bookmark_export.h"
#include "exchange_tool/bookmark_import.h"
#include "exchange_tool/exchange_commands.h"
#include "platform/base/runtime_error.h"
#include "platform/windows/file_dialog.h"
#include "platform/windows/task_dialog.h"

#include <algorithm>
#include <optional>

namespace vandrel {
namespace {

// The work, with a report of it; none when the user has cancelled.
using Work = std::function<ExchangeReport(Progress& progress)>;

void showReport(const ExchangeReport& report)
{
    TaskDialog box;
    box.title = exchangeTitle;
    box.instruction = report.headline + L".";
    box.text = firstOf(report.list);
    for (const std::wstring& detail : report.details) box.text += (box.text.empty() ? L"" : L"\n\n") + detail;
    box.icon = report.allKept ? TaskDialog::Icon::information : TaskDialog::Icon::warning;
    box.show(nullptr);
}

void showFailure(const std::wstring& what, const RuntimeError& error)
{
    TaskDialog box;
    box.title = exchangeTitle;
    box.instruction = what;
    box.text = error.description();
    box.icon = TaskDialog::Icon::error;
    box.show(nullptr);
}

// No value when the user has cancelled.
std::optional<int> carryOut(const std::wstring& doing, const std::wstring& failed, const Work& work)
{
    ExchangeReport report;
    try {
        workWithProgress(nullptr, exchangeTitle, doing, [&](Progress& progress) { report = work(progress); });
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::cancelled) return std::nullopt;
        showFailure(failed, error);
        return exit_status::nothingDone;
    }
    showReport(report);
    return report.allKept ? exit_status::done : exit_status::notAllKept;
}

std::optional<int> bringIn(const std::wstring& folder, const std::wstring& file, FileLayer& files)
{
    return carryOut(L"Bringing in bookmarks", L"Nothing was brought in.", [&](Progress& progress) {
        return reportOf(importBookmarks(folder, file, files, progress));
    });
}

std::optional<int> writeAll(const std::wstring& folder, const std::wstring& file, FileLayer& files)
{
    return carryOut(L"Writing bookmarks", L"Nothing was written.", [&](Progress& progress) {
        return reportOf(exportBookmarks(folder, file, files, progress), file);
    });
}

constexpr const wchar_t* pageFilter = L"Bookmark Files (*.html;*.htm)|*.html;*.htm|All Files (*.*)|*.*";

std::optional<int> chooseAndBringIn(const std::wstring& folder, FileLayer& files)
{
    FileDialog dialog;
    dialog.title = L"Bring in the bookmarks of...";
    dialog.filter = pageFilter;
    dialog.mustExist = true;
    dialog.showOpen(nullptr);
    return dialog.fileName.empty() ? std::nullopt : bringIn(folder, dialog.fileName, files);
}

std::optional<int> chooseAndWrite(const std::wstring& folder, FileLayer& files)
{
    FileDialog dialog;
    dialog.title = L"Write all categories to...";
    dialog.filter = pageFilter;
    dialog.fileName = L"Bookmarks.html";
    dialog.extension = L"html";
    dialog.asksBeforeReplacing = true;
    dialog.showSave(nullptr);
    return dialog.fileName.empty() ? std::nullopt : writeAll(folder, dialog.fileName, files);
}

int choose(const std::wstring& folder, FileLayer& files)
{
    TaskDialog choice;
    choice.title = exchangeTitle;
    choice.instruction = L"What would you like to do?";
    choice.text = L"The categories are in " + folder;
    choice.links = {{bringInLink, L"&Bring in bookmarks",
                     L"from the file that a browser exports. Each folder becomes a new category; your "
                     L"categories stay as they are."},
                    {writeLink, L"&Write bookmarks", L"of all categories to a file that browsers import."}};
    // What is cancelled leads back here.
    while (true) {
        const int chosen = choice.show(nullptr);
        if (chosen != bringInLink && chosen != writeLink) return exit_status::done;
        const auto status = chosen == bringInLink ? chooseAndBringIn(folder, files)
                                                  : chooseAndWrite(folder, files);
        if (status) return *status;
    }
}

} // namespace

int runInWindows(const ExchangeRequest& request, FileLayer& files)
{
    const std::wstring folder = folderOf(request);
    if (request.what == ExchangeRequest::What::choose) return choose(folder, files);
    int worst = exit_status::done;
    for (const std::wstring& file : request.files) {
        const int status = bringIn(folder, file, files).value_or(exit_status::nothingDone);
        worst = std::max(worst, status);
    }
    return worst;
}

} // namespace vandrel
