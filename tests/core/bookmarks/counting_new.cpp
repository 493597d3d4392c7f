#include "counting_new.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace vandrel::test::counting_new {
namespace {

constexpr std::size_t sizeRoom = __STDCPP_DEFAULT_NEW_ALIGNMENT__; // in front of each block, for its size

std::size_t inUse = 0;
std::size_t mostInUse = 0;
std::size_t before = 0;

} // namespace

void begin() { mostInUse = before = inUse; }
std::size_t most() { return mostInUse - before; }

static void* take(std::size_t size)
{
    void* const block = std::malloc(size + sizeRoom);
    if (block == nullptr) throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    inUse += size;
    mostInUse = std::max(mostInUse, inUse);
    return static_cast<char*>(block) + sizeRoom;
}

static void giveBack(void* memory) noexcept
{
    if (memory == nullptr) return;
    void* const block = static_cast<char*>(memory) - sizeRoom;
    inUse -= *static_cast<std::size_t*>(block);
    std::free(block);
}

} // namespace vandrel::test::counting_new

namespace mine = vandrel::test::counting_new;

void* operator new(std::size_t size) { return mine::take(size); }
void* operator new[](std::size_t size) { return mine::take(size); }
void operator delete(void* memory) noexcept { mine::giveBack(memory); }
void operator delete[](void* memory) noexcept { mine::giveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { mine::giveBack(memory); }
void operator delete[](void* memory, std::size_t) noexcept { mine::giveBack(memory); }
