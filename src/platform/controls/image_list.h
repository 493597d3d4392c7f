#pragma once

#include "platform/base/handle.h"

#include <commctrl.h>

#include <initializer_list>
#include <span>

namespace vandrel {

using ImageListHandle = UniqueHandle<HIMAGELIST, ImageList_Destroy, nullHandle<HIMAGELIST>>;

// The icon with that resource name, `size` pixels wide and high.
IconHandle loadIcon(const wchar_t* resource, int size);

// One image for each resource name, in order.
ImageListHandle loadImages(std::span<const wchar_t* const> resources, int size);

} // namespace vandrel
