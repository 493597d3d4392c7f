#include "model/site_count.h"

#include "model/site_record.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vandrel {
namespace {

std::size_t sitesRead(std::string_view bytes)
{
    BasicSiteRecordReader<char> reader(bytes);
    std::size_t sites = 0;
    while (reader.next()) ++sites;
    return sites;
}

TEST(SiteCount, CountsLinesThatAreSites)
{
    EXPECT_EQ(countSites(""), 0U);
    EXPECT_EQ(countSites("\r\n"), 0U);
    EXPECT_EQ(countSites("a|b"), 1U);
    EXPECT_EQ(countSites("a|b\r\n"), 1U);
    EXPECT_EQ(countSites("|\r\n|\r\n"), 2U);
    EXPECT_EQ(countSites("a|b\r\nno site\r\n;a|comment\r\n\r\nc|d|e|f"), 2U);
    EXPECT_EQ(countSites("a|b;c\r\n"), 1U) << "no comment: the line begins with another letter";
}

TEST(SiteCount, JudgesLoneLineEndsAsTheReaderDoes)
{
    EXPECT_EQ(countSites("a|b\nc|d\r\n"), sitesRead("a|b\nc|d\r\n"));
    EXPECT_EQ(countSites("a|b|c|d\ne|f|g|h\r\n"), 2U);
    EXPECT_EQ(countSites(";comment\ra|b\r\n"), 1U);
    EXPECT_EQ(countSites("a|b\r"), sitesRead("a|b\r"));
    EXPECT_EQ(countSites("\ra|b\r\r\n"), sitesRead("\ra|b\r\r\n"));
}

// Wherever the bytes that mean something are in a block, and whatever ends it.
TEST(SiteCount, AgreesWithTheReaderOnAnyText)
{
    std::mt19937 random(7);
    constexpr std::string_view bytes = "||\r\n\r\n;a\xE9";
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        const std::size_t size = random() % 300;
        const std::size_t dullness = 1 + random() % 40;
        while (text.size() < size) {
            if (random() % dullness != 0) text += 'x';
            else if (random() % 3 == 0) text += "\r\n";
            else text += bytes[random() % bytes.size()];
        }
        ASSERT_EQ(countSites(text), sitesRead(text)) << testing::PrintToString(text);
    }
}

} // namespace
} // namespace vandrel
