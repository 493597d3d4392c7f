#include "tests/program/support/screen_picture.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace vandrel::test {

bool savePictureOfScreen(const std::wstring& path)
{
    const int width = GetSystemMetrics(SM_CXSCREEN) & ~3; // the format has rows of whole 32-bit words
    const int height = GetSystemMetrics(SM_CYSCREEN);
    BITMAPINFOHEADER format{};
    format.biSize = sizeof format;
    format.biWidth = width;
    format.biHeight = height;
    format.biPlanes = 1;
    format.biBitCount = 24;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, reinterpret_cast<const BITMAPINFO*>(&format),
                                            DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const bool copied = BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY) != 0;
    GdiFlush();
    std::string pixels;
    if (copied && bits != nullptr) {
        pixels.assign(static_cast<const char*>(bits),
                      static_cast<std::size_t>(width) * 3 * static_cast<std::size_t>(height));
    }
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (pixels.empty()) return false;

    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof format;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
    std::ofstream out(std::filesystem::path(path), std::ios::binary);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(&format), sizeof format);
    out.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    return out.good();
}

} // namespace vandrel::test
