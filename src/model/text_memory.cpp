#include "model/text_memory.h"

#include <algorithm>

namespace vandrel {

void TextMemory::addPiece(std::size_t bytes)
{
    constexpr std::size_t largest = 128U << 10;
    const std::size_t size = std::max(aligned(bytes), usual_);
    free_ = pieces_.emplace_back(std::make_unique_for_overwrite<char[]>(size)).get();
    freeBytes_ = size;
    usual_ = std::min(2 * usual_, largest);
}

} // namespace vandrel
