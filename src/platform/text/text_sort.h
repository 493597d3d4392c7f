#pragma once

#include "platform/text/compact_text.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vandrel {

// The sorted order of `texts`: element i is the index of the text that comes i-th. Compares code units, so
// case matters. Equal texts keep their order, ascending and descending alike.
//
// Addresses share long prefixes ("https://www."), which a comparison sort would walk again for every
// comparison. This reads each text eight units at a time, once for each depth at which it still ties with
// others, and compares these at once or, where there are many, not at all.
std::vector<std::uint32_t> sortedOrder(std::span<const CompactText> texts, bool descending);

} // namespace vandrel
