#include "platform/controls/image_list.h"

namespace vandrel {

IconHandle loadIcon(const wchar_t* resource, int size)
{
    // Unlike LoadImage, this scales a larger image down, rather than the nearest one up, if none has the
    // size. The import library lacks it.
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
    for (const wchar_t* const resource : resources)
        ImageList_ReplaceIcon(images.get(), -1, loadIcon(resource, size).get()); // -1: append
    return images;
}

} // namespace vandrel
