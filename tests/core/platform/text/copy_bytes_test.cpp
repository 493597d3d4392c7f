#include "platform/text/copy_bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vandrel {
namespace {

TEST(CopyBytes, CopiesAsManyAsThereAre)
{
    for (std::size_t size = 0; size < 200; ++size) {
        std::vector<char> from(size); // in memory that ends where they end
        for (std::size_t at = 0; at < size; ++at) from[at] = static_cast<char>(at + 1);
        std::vector<char> to(size);
        copyBytes(to.data(), {from.data(), size});
        ASSERT_EQ(to, from) << size;
    }
}

} // namespace
} // namespace vandrel
