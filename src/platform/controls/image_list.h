#pragma once

#include "platform/base/handle.h"

#include <commctrl.h>

#include <initializer_list>
#include <span>

namespace vandrel {

using ImageListHandle = UniqueHandle<HIMAGELIST, ImageList_Destroy, nullHandle<HIMAGELIST>>;

// The icon of that resource name, drawn for `size` pixels.
IconHandle loadIcon(const wchar_t* resource, int size);

// One image for each resource name, in order.
ImageListHandle loadImages(std::span<const wchar_t* const> resources, int size);

} // namespace vandrel
