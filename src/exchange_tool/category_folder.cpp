#include "exchange_tool/category_folder.h"

#include "model/category_title.h"
#include "platform/base/runtime_error.h"
#include "platform/files/folder.h"

namespace vandrel {

void requireCategoryFolder(const std::wstring& folder)
{
    try {
        requireFolder(folder);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(),
                           L"The folder " + folder + L" cannot be read: " + error.description() + L".");
    }
}

std::vector<std::wstring> sortedTitles(const std::wstring& folder)
{
    requireCategoryFolder(folder);
    std::vector<std::wstring> titles;
    for (const std::wstring& name : fileNamesIn(folder)) {
        if (auto title = titleOfFile(name)) titles.push_back(std::move(*title));
    }
    sortNames(titles);
    return titles;
}

} // namespace vandrel
