#pragma once

#include <optional>
#include <string>

namespace vandrel::test {

// Copies the program into the folder unless it is there. The path may have any length.
void putProgramInto(const std::wstring& folder);
std::wstring programUnderTest();
// A path of the build system in the form that this system takes.
std::wstring nativePath(const std::string& path);
// The reverse, under Wine; throws elsewhere.
std::wstring unixPath(const std::wstring& path);
// A folder beside the project's, where real collections may lie; none when it is missing.
std::optional<std::wstring> sharedFolder(const std::wstring& name);
std::optional<std::wstring> environment(const wchar_t* name);
std::string encodedIn(unsigned codePage, const std::wstring& text);
std::string utf8(const std::wstring& text);

} // namespace vandrel::test
