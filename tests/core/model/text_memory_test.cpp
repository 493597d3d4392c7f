#include "model/text_memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vandrel {
namespace {

TEST(TextMemory, KeepsWhatWasTakenHoweverMuchFollows)
{
    std::mt19937 random(4);
    TextMemory memory;
    std::vector<std::pair<const char*, std::string>> kept;
    for (int round = 0; round < 5'000; ++round) {
        const std::size_t bytes = random() % 100 == 0 ? random() % 300'000 : random() % 200;
        char* const room = memory.room(bytes);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(room) % alignof(wchar_t), 0U);
        const std::string text(bytes, static_cast<char>('a' + round % 26));
        text.copy(room, bytes);
        if (random() % 3 == 0) continue; // free again
        memory.take(bytes);
        kept.emplace_back(room, text);
    }
    for (const auto& [place, text] : kept) ASSERT_EQ(std::string(place, text.size()), text);
}

TEST(TextMemory, StaysFreeUntilItIsTaken)
{
    TextMemory memory;
    char* const first = memory.room(100);
    EXPECT_EQ(memory.room(10), first);
    memory.take(10);
    EXPECT_NE(memory.room(10), first);
}

} // namespace
} // namespace vandrel
