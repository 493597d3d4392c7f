#pragma once

#include <string>

namespace vandrel::Module1 {

// Shortcut files are read and written by the system's own profile functions, with texts in the ANSI code
// page: a letter that it lacks becomes "?". Paths may have any letters, and must be complete: a bare name
// would be looked for in the Windows folder.

// The value of a key, cut to the whole letters that fit into 254 bytes of the code page; empty when file,
// section or key is missing.
std::wstring ReadINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& fileName);

// Replaces or adds a value; the rest of the file stays. Failure is not reported.
void WriteINIValue(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& fileName);

} // namespace vandrel::Module1
