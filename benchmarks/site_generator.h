#pragma once

#include <cstddef>
#include <string>

namespace vandrel::bench {

// The bytes of a category file with that many made-up sites (about 120 bytes each, CR LF, code page 1252), in
// no order. The same arguments give the same bytes.
std::string generatedSites(std::size_t count, unsigned seed = 1);

} // namespace vandrel::bench
