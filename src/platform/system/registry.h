#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Reads a text value. A missing key or value, or one of another type, reads as empty.
// Contract: the text ends at its first NUL.
std::wstring registryText(HKEY root, const std::wstring& key, const std::wstring& value);

// Creates the key if it is missing. Throws RuntimeError on failure.
void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& value, const std::wstring& text);

} // namespace vandrel
