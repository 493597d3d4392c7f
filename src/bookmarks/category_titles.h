#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace vandrel {

// The same text for names that the file system takes for one.
using CaseFold = std::function<std::wstring(std::wstring_view)>;

// Whether a folder of this name adds anything to a title: one of blanks and dots alone does not.
bool namesCategory(std::wstring_view folder);

// The title for folders that are in each other, from the outermost: "Work - Reading". One that a category
// file can have: "-" in place of letters that are refused, no device's name, no blank or dot at an end, at
// most 120 units.
std::wstring titleOfFolders(std::span<const std::wstring_view> folders);

// Hands out titles that no other category has: what is there already gets " (2)", " (3)" and so on.
class CategoryTitles {
  public:
    CategoryTitles(std::span<const std::wstring> existing, CaseFold fold);

    // The title must be one of titleOfFolders. What is added counts in its length.
    std::wstring take(const std::wstring& title);

  private:
    CaseFold fold_;
    std::unordered_set<std::wstring> taken_;                 // folded
    std::unordered_map<std::wstring, std::size_t> numbered_; // the last number behind a title, folded
};

} // namespace vandrel
