#pragma once

#include <string>

namespace vandrel::test {

// Writes what the screen shows now as a 24-bit BMP file; false when it cannot.
bool savePictureOfScreen(const std::wstring& path);

} // namespace vandrel::test
