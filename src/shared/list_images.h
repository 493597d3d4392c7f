#pragma once

#include "platform/base/twips.h"

namespace vandrel {

// Numbers of the pictures in the image list of the lists, counted from 1.
inline constexpr int siteImage = 1;
inline constexpr int closedFolderImage = 3;
inline constexpr int openFolderImage = 4;
inline constexpr int deadSiteImage = 5;
// Of each, both ways.
inline constexpr Twips listImageSize{240};

} // namespace vandrel
