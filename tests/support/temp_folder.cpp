#include "tests/support/temp_folder.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace vandrel::test {

TempFolder::TempFolder(const std::wstring& name)
{
    static int counter = 0;
    wchar_t base[MAX_PATH + 1]{};
    GetTempPathW(MAX_PATH, base);
    path_ = std::wstring(base) + name + L"-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
            std::to_wstring(++counter);
    remove(); // a killed run with the same process id may have left one
    fs::create_directories(path_);
}

TempFolder::~TempFolder() { remove(); }

void TempFolder::remove() const
{
    std::error_code ignored;
    for (fs::recursive_directory_iterator entry(path_, ignored), end; entry != end;
         entry.increment(ignored)) {
        SetFileAttributesW(entry->path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    fs::remove_all(path_, ignored);
}

void TempFolder::write(const std::wstring& name, const std::string& bytes) const
{
    std::ofstream out(fs::path(file(name)), std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("a test file could not be written");
}

std::string TempFolder::read(const std::wstring& name) const { return readBytes(file(name)); }

bool TempFolder::has(const std::wstring& name) const { return fs::exists(file(name)); }

std::vector<std::wstring> TempFolder::names() const
{
    std::vector<std::wstring> names;
    for (const auto& entry : fs::directory_iterator(path_)) {
        if (entry.is_regular_file()) names.push_back(entry.path().filename().wstring());
    }
    std::ranges::sort(names);
    return names;
}

std::string readBytes(const std::wstring& path)
{
    std::ifstream in(fs::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace vandrel::test
