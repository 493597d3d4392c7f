#pragma once

#include "search/match.h"

namespace vandrel {

// Letter case as the system's own text comparison ignores it; made on first use.
const CaseFolding& platformFolding();

} // namespace vandrel
