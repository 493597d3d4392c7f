#include "mainwindow/layout.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr Twips leftmostBar{60};

// A drag can push the site list out of the window; no list is narrower than nothing.
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
    // A status bar in a large font needs more than the room it has; the lists end above it all the same.
    const Twips clientHeight = layout.clientHeight - notNegative(layout.statusHeight - statusRoom);
    layout.categoryHeight = notNegative(clientHeight - 945_twips);
    layout.infoWidth = notNegative(layout.clientWidth - (layout.categoryWidth + 120_twips));
    layout.infoHeight = notNegative(clientHeight - 945_twips);
    columns[2] = layout.infoWidth - (columns[1] + columns[0] + columns[3] + 270_twips);
    layout.barHeight = notNegative(clientHeight - 900_twips);
    layout.searchLeft = layout.clientWidth - (layout.searchWidth + 60_twips);
    if (std::ranges::any_of(columns, [](Twips width) { return width < Twips{0}; })) columns[2] = Twips{0};
}

void dragBar(MainLayout& layout, long anchor, Twips x)
{
    auto& columns = layout.infoColumns;
    layout.barLeft = layout.barLeft - (Twips{static_cast<float>(anchor)} - x);
    layout.categoryWidth = notNegative(layout.barLeft);
    layout.categoryColumn = notNegative(layout.categoryWidth - 45_twips);
    columns[2] = notNegative(layout.infoWidth - (columns[1] + columns[0] + 270_twips));
    infoListFromBar(layout);
}

bool releaseBar(MainLayout& layout)
{
    if (layout.barLeft >= leftmostBar) return false;
    layout.barLeft = leftmostBar;
    layout.categoryWidth = leftmostBar;
    infoListFromBar(layout);
    return true;
}

} // namespace vandrel
