#pragma once

#include "platform/base/twips.h"

namespace vandrel {

// The main window's place as the preferences hold it. Left and top are positions on the virtual screen,
// which spans all monitors whatever their scales, so they always use the system's DPI. Width and height use
// the DPI of the window where it is.
struct StoredPlace {
    Twips left, top, width, height;
};

// In pixels.
struct ScreenCorner {
    int left, top;
};
struct ScreenSize {
    int width, height;
};

inline StoredPlace placeToStore(ScreenCorner corner, ScreenSize size, unsigned systemDpi, unsigned windowDpi)
{
    return {.left = toTwips(corner.left, systemDpi),
            .top = toTwips(corner.top, systemDpi),
            .width = toTwips(size.width, windowDpi),
            .height = toTwips(size.height, windowDpi)};
}

inline ScreenCorner cornerOf(const StoredPlace& place, unsigned systemDpi)
{
    return {.left = toPixels(place.left, systemDpi), .top = toPixels(place.top, systemDpi)};
}

// `windowDpi` is the window's DPI once it is at its corner.
inline ScreenSize sizeOf(const StoredPlace& place, unsigned windowDpi)
{
    return {.width = toPixels(place.width, windowDpi), .height = toPixels(place.height, windowDpi)};
}

} // namespace vandrel
