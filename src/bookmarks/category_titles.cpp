#include "bookmarks/category_titles.h"

#include "exchange/shortcut_name.h"

#include <utility>

namespace vandrel {
namespace {

constexpr std::wstring_view betweenFolders = L" - ";
constexpr std::size_t longestTitle = 120; // as fileNameFor has it
constexpr std::size_t longestNumber = 12; // " (123456789)"

} // namespace

// The rules of a file's name are those of a shortcut's.
bool namesCategory(std::wstring_view folder) { return !fileNameFor(folder).empty(); }

std::wstring titleOfFolders(std::span<const std::wstring_view> folders)
{
    std::wstring title;
    for (const std::wstring_view folder : folders) {
        if (!title.empty()) title += betweenFolders;
        title += folder.substr(0, longestTitle * 2); // with blanks at its beginning
        if (title.size() > longestTitle * 2) break;
    }
    return fileNameFor(title);
}

CategoryTitles::CategoryTitles(std::span<const std::wstring> existing, CaseFold fold) : fold_(std::move(fold))
{
    for (const std::wstring& title : existing) taken_.insert(fold_(title));
}

std::wstring CategoryTitles::take(const std::wstring& title)
{
    if (taken_.insert(fold_(title)).second) return title;
    const std::wstring beginning = fileNameFor(title.substr(0, longestTitle - longestNumber));
    std::size_t& number = numbered_.try_emplace(fold_(beginning), 1).first->second;
    for (;;) {
        std::wstring numbered = fileNameFor(beginning + L" (" + std::to_wstring(++number) + L")");
        if (taken_.insert(fold_(numbered)).second) return numbered;
    }
}

} // namespace vandrel
