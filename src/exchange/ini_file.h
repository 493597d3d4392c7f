#pragma once

#include <string>

namespace vandrel::Module1 {

// Shortcut files are read and written by the system's own functions for such files, with the texts that the
// ANSI code page has: a letter that it lacks is "?". Paths may have any letters. Give whole ones: a bare name
// would be looked for in the Windows folder.

// The value of a key, in whole letters as much of it as the code page has in 254 bytes; empty when file,
// section or key is missing.
std::wstring ReadINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& fileName);

// Puts a value in its place, or adds it; what else the file holds stays. Failure is not reported.
void WriteINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& fileName);

} // namespace vandrel::Module1
