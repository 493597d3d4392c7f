#pragma once

#include "platform/base/twips.h"

namespace vandrel {

// Where the main window stands, as the preferences keep it. Left and top are places on the one plane on which
// all monitors lie. No monitor's scale changes that plane, so one DPI counts them always: the system's. Width
// and height go by the DPI of the window where it stands.
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

// `windowDpi` is that of the window once it stands at its corner.
inline ScreenSize sizeOf(const StoredPlace& place, unsigned windowDpi)
{
    return {.width = toPixels(place.width, windowDpi), .height = toPixels(place.height, windowDpi)};
}

} // namespace vandrel
