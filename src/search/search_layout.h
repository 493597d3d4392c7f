#pragma once

#include "platform/base/twips.h"

// The arithmetic of the search dialog's layout, in twips.
namespace vandrel::search_layout {

inline constexpr Twips smallestWidth{7200};
inline constexpr Twips smallestHeight{4755};
// The part of the inner height that the results do not get: for the search controls above and the status
// bar below.
inline constexpr Twips restOfHeight{2150};
// The part of that above the results.
inline constexpr Twips resultsTop{1790};

constexpr Twips resultsHeight(Twips innerHeight) { return innerHeight - restOfHeight; }
constexpr Twips listHeight(Twips frameHeight) { return frameHeight - 390_twips; }
constexpr Twips lastColumn(Twips listWidth, Twips otherColumns)
{
    return listWidth - (otherColumns + 270_twips);
}

} // namespace vandrel::search_layout
