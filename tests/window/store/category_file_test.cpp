#include "store/category_file.h"

#include "tests/support/temp_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace vandrel::test {
namespace {

class CategoryFile : public testing::Test {
  protected:
    // The category is read; what is written then is what was read.
    Category readAndWritten(const std::string& bytes)
    {
        folder.write(L"News.udb", bytes);
        Category category = readCategory(folder.path(), L"News");
        writeCategory(folder.path(), L"News", category.sites.all(), systemFiles());
        EXPECT_TRUE(folder.read(L"News.udb") == bytes);
        return category;
    }
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
    }

    TempFolder folder;
};

TEST_F(CategoryFile, InLatin1HasTextsOfAByteALetter)
{
    const Category category = readAndWritten("Caf\xE9|http://a/|\xFF|1/1/2001\r\nb|||\r\n");
    ASSERT_EQ(category.sites.size(), 2U);
    EXPECT_TRUE(category.text.empty());
    EXPECT_TRUE(category.sites[0].texts.isLatin());
    EXPECT_EQ(category.sites.text(0, 0), L"Caf\u00E9");
    EXPECT_EQ(category.sites.text(0, 2), L"\u00FF");
}

TEST_F(CategoryFile, WithSomeOtherLettersHasTheirSitesDecoded)
{
    std::string bytes = "10 \x80|http://a/||1/1/2001\r\n";
    for (int site = 0; site < 1000; ++site) {
        bytes += "Caf\xE9|http://a/|a \x96 b|1/1/2001\r\n";
        for (int other = 0; other < 7; ++other) bytes += "plain|http://b/||\r\n";
    }
    const Category category = readAndWritten(bytes);
    ASSERT_EQ(category.sites.size(), 8001U);
    EXPECT_TRUE(category.text.empty());
    EXPECT_FALSE(category.sites[0].texts.isLatin());
    EXPECT_EQ(category.sites.text(0, 0), L"10 \u20AC");
    EXPECT_EQ(category.sites.text(1, 0), L"Caf\u00E9");
    EXPECT_EQ(category.sites.text(7993, 2), L"a \u2013 b");
    EXPECT_TRUE(category.sites[2].texts.isLatin());
}

TEST_F(CategoryFile, WithManyOtherLettersIsDecodedAsAWhole)
{
    std::string bytes;
    for (int site = 0; site < 1000; ++site) bytes += "a|http://a/||1/1/2001\r\n\x80|http://a/||1/1/2001\r\n";
    const Category category = readAndWritten(bytes);
    ASSERT_EQ(category.sites.size(), 2000U);
    EXPECT_EQ(category.text.size(), bytes.size());
    EXPECT_FALSE(category.sites[0].texts.isLatin());
    EXPECT_EQ(category.sites.text(0, 0), L"a");
    EXPECT_EQ(category.sites.text(1999, 0), L"\u20AC");
}

} // namespace
} // namespace vandrel::test
