#pragma once

#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
# include <xmmintrin.h>
#endif

namespace vandrel {

// Memory that is going to be read soon. The address need not be anybody's: where there is nothing, nothing happens.
inline void prefetch([[maybe_unused]] std::uintptr_t address)
{
#if defined(__SSE2__) || defined(_M_X64)
    _mm_prefetch(reinterpret_cast<const char*>(address), _MM_HINT_T0);
#endif
}

} // namespace vandrel
