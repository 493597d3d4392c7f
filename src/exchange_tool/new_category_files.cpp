#include "exchange_tool/new_category_files.h"

#include "platform/base/system_error.h"
#include "platform/files/file_steps.h"
#include "platform/files/left_behind.h"
#include "store/category_file.h"

#include <utility>

namespace vandrel {

NewCategoryFiles::NewCategoryFiles(std::wstring folder, FileLayer& files)
    : folder_(std::move(folder)), files_(files)
{}

NewCategoryFiles::~NewCategoryFiles()
{
    // Without memory: whatever ended the work may have been its lack.
    for (const Made& made : made_) files_.remove(made.path);
}

void NewCategoryFiles::write(const std::wstring& title, std::string_view bytes)
{
    made_.push_back({extendedPath(temporaryFileIn(folder_, made_.size())), title});
    const HANDLE file = files_.createForWriting(made_.back().path);
    if (file == INVALID_HANDLE_VALUE) {
        const DWORD reason = GetLastError();
        made_.pop_back(); // somebody else's, if it is there
        throw runtimeErrorOf(reason);
    }
    const bool written = writeBytes(files_, file, bytes) && files_.flush(file);
    const DWORD reason = GetLastError();
    const bool closed = files_.close(file);
    if (!written) throw runtimeErrorOf(reason);
    if (!closed) raiseLastError();
}

void NewCategoryFiles::name(std::size_t number)
{
    Made& made = made_[number];
    std::wstring path = extendedPath(categoryPath(folder_, made.title));
    if (!retryWhileHeld([&] { return files_.rename(made.path, path); })) raiseLastError();
    made.path.swap(path);
    made.named = true;
}

std::vector<std::wstring> NewCategoryFiles::undo()
{
    std::vector<std::wstring> left;
    for (const Made& made : made_) {
        if (!retryWhileHeld([&] { return files_.remove(made.path); }) && made.named)
            left.push_back(made.title);
    }
    made_.clear();
    return left;
}

} // namespace vandrel
