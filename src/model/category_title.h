#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

inline constexpr std::wstring_view categoryExtension = L".udb";

// The title of the category in a file of this name; none if it is not a category file.
std::optional<std::wstring> titleOfFile(std::wstring_view fileName);

// Whether the title holds one of : \ / ? * ". The characters < > | are left to the file system, which refuses
// them.
bool hasRefusedCharacter(std::wstring_view title);

std::wstring refusedTitleMessage();
// The caption of the boxes that refuse a title.
inline constexpr const wchar_t* invalidTitle = L"Invalid Category Title";

// Whether nothing is left after trimming; only blanks are trimmed.
bool isBlank(std::wstring_view text);

} // namespace vandrel
