#include "tests/support/failing_new.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <thread>

#ifdef _WIN32
# include <malloc.h>
#endif

namespace vandrel::test::failing_new {
namespace {

std::atomic<bool> armed = false;
std::atomic<unsigned> count = 0;
std::atomic<bool> hasFailed = false;
unsigned failing = 0;
How mode = How::once;
Where place = Where::thisThread;
std::thread::id armingThread;

bool mustFail()
{
    if (!armed) return false;
    if ((std::this_thread::get_id() == armingThread) != (place == Where::thisThread)) return false;
    const unsigned now = ++count;
    if (failing == 0 || now < failing || (now > failing && mode == How::once)) return false;
    hasFailed = true;
    return true;
}

} // namespace

void arm(unsigned n, How how, Where where)
{
    failing = n;
    mode = how;
    place = where;
    armingThread = std::this_thread::get_id();
    count = 0;
    hasFailed = false;
    armed = true;
}

void disarm() { armed = false; }

unsigned counted() { return count; }

bool failed() { return hasFailed; }

// Null when memory has run out, or is meant to have run out.
static void* take(std::size_t size) noexcept
{
    return mustFail() ? nullptr : std::malloc(size != 0 ? size : 1);
}

static void* take(std::size_t size, std::align_val_t alignment) noexcept
{
    const auto unit = static_cast<std::size_t>(alignment);
    const std::size_t whole = (size / unit + 1) * unit;
    if (mustFail()) return nullptr;
#ifdef _WIN32
    return _aligned_malloc(whole, unit);
#else
    return std::aligned_alloc(unit, whole);
#endif
}

static void giveBack(void* aligned) noexcept
{
#ifdef _WIN32
    _aligned_free(aligned);
#else
    std::free(aligned);
#endif
}

static void* orThrow(void* memory)
{
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

} // namespace vandrel::test::failing_new

namespace mine = vandrel::test::failing_new;

void* operator new(std::size_t size) { return mine::orThrow(mine::take(size)); }
void* operator new[](std::size_t size) { return mine::orThrow(mine::take(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return mine::take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return mine::take(size); }
void* operator new(std::size_t size, std::align_val_t to) { return mine::orThrow(mine::take(size, to)); }
void* operator new[](std::size_t size, std::align_val_t to) { return mine::orThrow(mine::take(size, to)); }
void* operator new(std::size_t size, std::align_val_t to, const std::nothrow_t&) noexcept
{
    return mine::take(size, to);
}
void* operator new[](std::size_t size, std::align_val_t to, const std::nothrow_t&) noexcept
{
    return mine::take(size, to);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { mine::giveBack(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { mine::giveBack(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { mine::giveBack(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { mine::giveBack(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept
{
    mine::giveBack(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept
{
    mine::giveBack(memory);
}
