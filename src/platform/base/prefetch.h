#pragma once

#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
# include <xmmintrin.h>
#endif

namespace vandrel {

// Fetches memory that will be read soon into the cache. Any address will do: an invalid one has no effect.
inline void prefetch([[maybe_unused]] std::uintptr_t address)
{
#if defined(__SSE2__) || defined(_M_X64)
    _mm_prefetch(reinterpret_cast<const char*>(address), _MM_HINT_T0);
#endif
}

} // namespace vandrel
