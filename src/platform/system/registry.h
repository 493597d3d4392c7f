#pragma once

#include <windows.h>

#include <string>

namespace vandrel {

// Reads a text value; a missing key or value, and a value that is no text, reads as empty. The text ends at
// its first NUL.
std::wstring registryText(HKEY root, const std::wstring& key, const std::wstring& value);

// Creates the key where it is missing. Throws RuntimeError when it cannot.
void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& value, const std::wstring& text);

} // namespace vandrel
