#include "mainwindow/layout.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr Twips leftmostBar{60};

// A drag can push the site list out of the window; its width is then 0, not negative.
Twips notNegative(Twips length) { return std::max(length, Twips{0}); }

void infoListFromBar(MainLayout& layout)
{
    layout.infoLeft = layout.barLeft + layout.barWidth;
    layout.infoWidth = notNegative(layout.clientWidth - layout.infoLeft);
}

} // namespace

void keepSmallestSize(MainLayout& layout)
{
    layout.outerWidth = std::max(layout.outerWidth, smallestWidth);
    layout.outerHeight = std::max(layout.outerHeight, smallestHeight);
}

void layOut(MainLayout& layout)
{
    auto& columns = layout.infoColumns;
    // A status bar in a large font is higher than its share; the lists end above it all the same.
    const Twips clientHeight = layout.clientHeight - notNegative(layout.statusHeight - statusRoom);
    layout.categoryHeight = notNegative(clientHeight - 945_twips);
    // Contract: after a resize the list stops short of the right edge; after a drag it reaches the edge.
    layout.infoWidth = notNegative(layout.clientWidth - (layout.categoryWidth + 120_twips));
    layout.infoHeight = notNegative(clientHeight - 945_twips);
    columns[2] = layout.infoWidth - (columns[1] + columns[0] + columns[3] + 270_twips);
    // Contract: 45 twips more than the lists.
    layout.barHeight = notNegative(clientHeight - 900_twips);
    layout.searchLeft = layout.clientWidth - (layout.searchWidth + 60_twips);
    // Contract: whichever column is negative, the third becomes 0.
    if (std::ranges::any_of(columns, [](Twips width) { return width < Twips{0}; })) columns[2] = Twips{0};
}

void dragBar(MainLayout& layout, long anchor, Twips x)
{
    auto& columns = layout.infoColumns;
    // Contract: no bounds while dragging.
    layout.barLeft = layout.barLeft - (Twips{static_cast<float>(anchor)} - x);
    layout.categoryWidth = notNegative(layout.barLeft);
    layout.categoryColumn = notNegative(layout.categoryWidth - 45_twips);
    // Contract: the width before the drag, and without the date column, unlike a resize.
    columns[2] = notNegative(layout.infoWidth - (columns[1] + columns[0] + 270_twips));
    infoListFromBar(layout);
}

bool releaseBar(MainLayout& layout)
{
    // Contract: only the left end is corrected.
    if (layout.barLeft >= leftmostBar) return false;
    layout.barLeft = leftmostBar;
    layout.categoryWidth = leftmostBar;
    infoListFromBar(layout);
    return true;
}

} // namespace vandrel
