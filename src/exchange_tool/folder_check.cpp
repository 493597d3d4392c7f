#include "exchange_tool/folder_check.h"

#include "exchange_tool/category_check.h"
#include "exchange_tool/category_folder.h"
#include "model/category_title.h"
#include "platform/base/runtime_error.h"
#include "platform/files/ansi_text_file.h"
#include "platform/files/left_behind.h"
#include "store/category_file.h"

namespace vandrel {

FolderCheckOutcome checkFolder(const std::wstring& folder,
                               const std::function<void(const std::wstring& finding)>& tell,
                               Progress& progress)
{
    CategoryCheck check;
    const auto tellNew = [&] {
        for (const std::wstring& finding : check.takeFindings()) tell(finding);
    };
    const std::vector<std::wstring> titles = sortedTitles(folder);
    std::size_t done = 0;
    for (const std::wstring& title : titles) {
        progress.reach(partOf(done++, titles.size()));
        const std::wstring name = title + std::wstring(categoryExtension);
        try {
            check.addCategory(name, AnsiTextFile(categoryPath(folder, title)).read());
        } catch (const RuntimeError& error) {
            check.addFinding(name, L"cannot be read: " + error.description());
        }
        tellNew();
    }
    for (const std::wstring& name : leftBehindIn(folder))
        check.addFinding(name, L"a temporary file, left by a save that did not end");
    tellNew();
    return {titles.size(), check.sites(), check.findings()};
}

} // namespace vandrel
