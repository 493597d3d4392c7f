#pragma once

#include <string>

namespace vandrel {

// The running program's version: major, minor and revision, "1.3.0".
std::wstring runningVersion();

inline constexpr const wchar_t* noUpdateTitle = L"No update available";
inline constexpr const wchar_t* newVersionTitle = L"New Version Available";
inline constexpr const wchar_t* declinedTitle = L"Failed to update";

std::wstring noUpdateText(const std::wstring& latest);
std::wstring newVersionText(const std::wstring& running, const std::wstring& latest);
std::wstring declinedText();

} // namespace vandrel
