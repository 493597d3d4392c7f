#include "platform/controls/image_list.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vandrel {
namespace {

using BitmapHandle = UniqueHandle<HBITMAP, DeleteObject, nullHandle<HBITMAP>>;

const void* resourceData(const wchar_t* name, const wchar_t* type)
{
    const HMODULE program = GetModuleHandleW(nullptr);
    const HRSRC found = FindResourceW(program, name, type);
    return found != nullptr ? LockResource(LoadResource(program, found)) : nullptr;
}

// The pixels of the icon's drawing for exactly that size, lowest row first, with alpha; null if it has none.
const std::uint32_t* iconPixels(const wchar_t* resource, int size)
{
    const void* const group = resourceData(resource, RT_GROUP_ICON);
    if (group == nullptr) return nullptr;
    auto* const directory = static_cast<BYTE*>(const_cast<void*>(group));
    const int id = LookupIconIdFromDirectoryEx(directory, TRUE, size, size, LR_DEFAULTCOLOR);
    const auto* const header = static_cast<const BITMAPINFOHEADER*>(
        resourceData(MAKEINTRESOURCEW(id), RT_ICON));
    const bool fits = header != nullptr && header->biSize == sizeof *header && header->biBitCount == 32 &&
                      header->biWidth == size;
    return fits ? reinterpret_cast<const std::uint32_t*>(header + 1) : nullptr;
}

// All drawings side by side in one bitmap: adding them to a list one by one takes most of the program's
// start.
BitmapHandle strip(const std::vector<const std::uint32_t*>& drawings, int size)
{
    const auto side = static_cast<std::size_t>(size);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size * static_cast<int>(drawings.size());
    info.bmiHeader.biHeight = size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    BitmapHandle bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) return bitmap;
    auto* target = static_cast<std::uint32_t*>(bits);
    for (std::size_t row = 0; row < side; ++row) {
        for (const std::uint32_t* const drawing : drawings)
            target = std::copy_n(drawing + row * side, side, target);
    }
    return bitmap;
}

} // namespace

IconHandle loadIcon(const wchar_t* resource, int size)
{
    // Scales a larger drawing down where none has the size, and not the nearest one up. The import library
    // does not know it.
    using ScaleDown = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int, int, HICON*);
    static const auto scaleDown = reinterpret_cast<ScaleDown>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"comctl32.dll"), "LoadIconWithScaleDown")));
    const HINSTANCE program = GetModuleHandleW(nullptr);
    HICON icon = nullptr;
    if (scaleDown != nullptr && SUCCEEDED(scaleDown(program, resource, size, size, &icon)))
        return IconHandle(icon);
    return IconHandle(static_cast<HICON>(LoadImageW(program, resource, IMAGE_ICON, size, size, 0)));
}

ImageListHandle loadImages(std::span<const wchar_t* const> resources, int size)
{
    ImageListHandle images(ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(resources.size()), 0));
    std::vector<const std::uint32_t*> drawings;
    for (const wchar_t* const resource : resources) drawings.push_back(iconPixels(resource, size));
    if (std::ranges::find(drawings, nullptr) == drawings.end()) {
        ImageList_Add(images.get(), strip(drawings, size).get(), nullptr);
        return images;
    }
    for (const wchar_t* const resource : resources)
        ImageList_AddIcon(images.get(), loadIcon(resource, size).get());
    return images;
}

} // namespace vandrel
