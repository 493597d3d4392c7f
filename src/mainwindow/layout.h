#pragma once

#include "platform/base/twips.h"

#include <array>

namespace vandrel {

// Everything about the main window that its layout reads and changes. Lengths in twips; left edges from the
// client area's left edge.
struct MainLayout {
    Twips outerWidth, outerHeight;
    Twips clientWidth, clientHeight;

    Twips categoryWidth{2340}, categoryHeight; // lstCategory, at the left edge
    Twips categoryColumn{4049};                // its only column
    Twips barLeft{2340}, barWidth{60}, barHeight{4605};
    Twips infoLeft{2400}, infoWidth, infoHeight; // lstInfo
    std::array<Twips, 4> infoColumns{Twips{3810}, Twips{5080}, Twips{5080}, Twips{0}};
    Twips searchLeft, searchWidth{2880}; // picSearch
    Twips statusHeight{345};             // grows with the font
};

inline constexpr Twips listTop{600};
inline constexpr Twips smallestWidth{9135};
inline constexpr Twips smallestHeight{5685};

// Raises an outer width or height that is below the minimum to the minimum.
void keepSmallestSize(MainLayout& layout);

// The status bar's height in the default font, which the layout allows for.
inline constexpr Twips statusRoom{345};

// What a resize does, once the outer size is large enough and the client size is known. The site list then
// stops 60 twips short of the right edge; after a drag of the bar it reaches the edge. Both are intended.
void layOut(MainLayout& layout);

// The bar follows the mouse: `anchor` is where in the bar the button was pressed, `x` where the mouse is
// now, both from the bar's left edge. No bounds while dragging, and the date column is not counted.
void dragBar(MainLayout& layout, long anchor, Twips x);

// The button was released: a bar left of 60 twips goes back to 60. Returns whether it did.
bool releaseBar(MainLayout& layout);

} // namespace vandrel
