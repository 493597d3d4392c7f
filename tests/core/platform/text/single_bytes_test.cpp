#include "platform/text/single_bytes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vandrel {
namespace {

// As in a code page whose bytes 0x80 to 0x9F are other letters.
std::array<bool, 256> sameBytes()
{
    std::array<bool, 256> same{};
    for (std::size_t byte = 0; byte < same.size(); ++byte) same[byte] = byte < 0x80 || byte >= 0xA0;
    return same;
}

std::size_t plainPrefix(std::string_view bytes)
{
    std::size_t at = 0;
    while (at < bytes.size() && sameBytes()[static_cast<unsigned char>(bytes[at])]) ++at;
    return at;
}

TEST(LatinBytes, EndBeforeTheFirstOther)
{
    const LatinBytes latin(sameBytes());
    std::mt19937 random(3);
    for (int round = 0; round < 20'000; ++round) {
        std::vector<char> bytes(random() % 70); // in memory that ends where they end
        for (char& byte : bytes) byte = "aaaaaa|\x7F\xA0\xFF"[random() % 10];
        for (std::size_t others = random() % 3; others > 0 && !bytes.empty(); --others)
            bytes[random() % bytes.size()] = random() % 2 == 0 ? '\x80' : '\x9F';
        bytes.shrink_to_fit();
        const std::string_view text(bytes.data(), bytes.size());
        ASSERT_EQ(latin.prefixOf(text), plainPrefix(text));
        ASSERT_EQ(latin.areAll(text), plainPrefix(text) == text.size());
        std::vector<char> copy(bytes.size());
        ASSERT_EQ(latin.copyPrefix(text, copy.data()), plainPrefix(text));
        ASSERT_EQ(std::string_view(copy.data(), plainPrefix(text)), text.substr(0, plainPrefix(text)));
    }
    EXPECT_EQ(latin.prefixOf({}), 0U);
}

} // namespace
} // namespace vandrel
