#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

inline constexpr std::wstring_view categoryExtension = L".udb";

// The title of the category that a file of this name holds; none when it is no category file. The extension
// is compared to the letter.
std::optional<std::wstring> titleOfFile(std::wstring_view fileName);

// Whether the title holds one of : \ / ? * ". The characters < > | are left to the file system, which refuses
// them.
bool hasRefusedCharacter(std::wstring_view title);

std::wstring refusedTitleMessage();
inline constexpr const wchar_t* invalidTitle = L"Invalid Category Title"; // of the boxes that refuse one

// Blanks are the only thing that trimming takes off.
bool isBlank(std::wstring_view text);

} // namespace vandrel
