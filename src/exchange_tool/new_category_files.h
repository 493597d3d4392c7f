#pragma once

#include "platform/files/file_layer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// Makes the files of categories that are not there yet: all, or none. They are written under the names of
// temporary files and get their own at the end. What has not been kept by then is removed again.
class NewCategoryFiles {
  public:
    NewCategoryFiles(std::wstring folder, FileLayer& files);
    NewCategoryFiles(const NewCategoryFiles&) = delete;
    NewCategoryFiles& operator=(const NewCategoryFiles&) = delete;
    ~NewCategoryFiles();

    // Writes the bytes and flushes them. Throws RuntimeError.
    void write(const std::wstring& title, std::string_view bytes);
    // Gives a file its name; `number` counts from 0, in the order in which they were written. Never replaces
    // another file. Throws RuntimeError (58 if there is one).
    void name(std::size_t number);
    // Keeps the files.
    void keep() noexcept { made_.clear(); }
    // Removes them. Returns the titles of those that have their names and could not be removed.
    std::vector<std::wstring> undo();

  private:
    struct Made {
        std::wstring path; // where it is now
        std::wstring title;
        bool named = false;
    };

    std::wstring folder_;
    FileLayer& files_;
    std::vector<Made> made_;
};

} // namespace vandrel
