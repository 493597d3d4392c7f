#include "platform/controls/file_list.h"

#include "platform/files/folder.h"

namespace vandrel {
namespace {

bool endsWith(const std::wstring& name, const std::wstring& extension)
{
    if (name.size() < extension.size()) return false;
    const auto length = static_cast<int>(extension.size());
    return CompareStringOrdinal(name.c_str() + (name.size() - extension.size()), length, extension.c_str(),
                                length, TRUE) == CSTR_EQUAL;
}

} // namespace

FileList::FileList(HWND parent, int id, std::wstring extension)
    : ListBox(parent, id), extension_(std::move(extension))
{}

void FileList::setPath(const std::wstring& path)
{
    std::vector<std::wstring> names = fileNamesIn(path);
    std::erase_if(names, [this](const std::wstring& name) { return !endsWith(name, extension_); });
    sortNames(names);
    path_ = path;
    fill(names);
}

void FileList::opened()
{
    if (DblClick) DblClick();
}

} // namespace vandrel
