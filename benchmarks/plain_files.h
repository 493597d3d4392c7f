#pragma once

#include <string>

namespace vandrel::bench {

// Reads and writes files with as little as possible between bytes and caller; the floors are measured with
// these.

std::wstring currentFolder();
void writeFile(const wchar_t* name, const std::string& bytes);
std::string readWhole(const wchar_t* name);
// From and to the ANSI code page.
std::wstring decodePlainly(const std::string& bytes);
void writePlainly(const wchar_t* name, const std::wstring& text);

// Bytes of the working set.
double memoryInUse();

} // namespace vandrel::bench
