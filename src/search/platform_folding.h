#pragma once

#include "search/match.h"

namespace vandrel {

// Letter case as the system's own text comparison ignores it, made when it is first asked for.
const CaseFolding& platformFolding();

} // namespace vandrel
