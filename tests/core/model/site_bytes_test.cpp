#include "model/site_bytes.h"

#include "model/text_memory.h"
#include "western_letters.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vandrel {
namespace {

LatinBytes sameIn(const CodePageLetters& letters)
{
    std::array<bool, 256> same{};
    for (std::size_t byte = 0; byte < same.size(); ++byte)
        same[byte] = letters[byte] == static_cast<wchar_t>(byte);
    return LatinBytes(same);
}

class SiteBytesOf : public testing::Test {
  protected:
    RowTexts decoded(std::string_view line)
    {
        BasicSiteRecordReader<char> reader(line);
        return decoder.decode(*reader.next());
    }

    const CodePageLetters letters = westernLetters();
    const LatinBytes latin = sameIn(letters);
    TextMemory memory;
    SiteDecoder decoder{letters, latin, memory};
};

TEST_F(SiteBytesOf, Latin1AreTheTexts)
{
    const std::string line = "Caf\xE9|http://a/||1/1/2001\r\n";
    const RowTexts texts = decoded(line);
    EXPECT_TRUE(texts.isLatin());
    EXPECT_EQ(texts[0].data(), line.data());
    EXPECT_EQ(texts.views(), (RowTexts::Views{L"Caf\u00E9", L"http://a/", L"", L"1/1/2001"}));
    EXPECT_EQ(decoded("a|b").views(), (RowTexts::Views{L"a", L"b", L"", L""}));
    EXPECT_TRUE(decoded("a|b").line().empty());
}

TEST_F(SiteBytesOf, OtherLettersAreDecoded)
{
    const RowTexts texts = decoded("Caf\xE9|10 \x80||\x81\r\n");
    EXPECT_FALSE(texts.isLatin());
    EXPECT_EQ(texts.views(), (RowTexts::Views{L"Caf\u00E9", L"10 \u20AC", L"",
                                              std::wstring(1, static_cast<wchar_t>(0xDC81))}));
    EXPECT_EQ(decoded("\x80|b").views(), (RowTexts::Views{L"\u20AC", L"b", L"", L""}));
}

TEST_F(SiteBytesOf, TextsStayOnceTheyAreKept)
{
    const RowTexts kept = decoded("\x80|first");
    decoder.keep(kept);
    const RowTexts second = decoded("\x80|second");
    const RowTexts third = decoded("\x80|third!");
    EXPECT_EQ(kept[1], L"first");
    EXPECT_EQ(second[0].data(), third[0].data()) << "what is not kept makes room for the next";
    EXPECT_EQ(third[1], L"third!");
    decoder.keep(decoded("no|need"));
    EXPECT_EQ(decoded("\x80|fourth")[0].data(), third[0].data()) << "Latin-1 needs no room";
}

// The bytes are decoded first and split afterwards.
TEST_F(SiteBytesOf, AnyFileAreWhatDecodingItAsAWholeGives)
{
    std::mt19937 random(5);
    std::size_t sites = 0;
    for (int round = 0; round < 3'000; ++round) {
        std::string bytes;
        for (std::size_t length = random() % 300; length > 0; --length) {
            bytes += random() % 12 == 0 ? std::string("\r\n")
                                        : std::string(1, "ab|;\r\n\xE9\xFF\x80\x81|a"[random() % 12]);
        }
        std::wstring text(bytes.size(), L'\0');
        decodeSingleBytes(bytes, text.data(), letters);
        SiteRecordReader wide(text);
        BasicSiteRecordReader<char> reader(bytes);
        while (const auto expected = wide.next()) {
            const auto site = reader.next();
            ASSERT_TRUE(site);
            const RowTexts texts = decoder.decode(*site);
            ASSERT_EQ(texts.views(), (RowTexts::Views{expected->name, expected->url, expected->description,
                                                      expected->date}));
            ASSERT_EQ(texts.line().empty(),
                      RowTexts::ofLine({expected->name, expected->url, expected->description, expected->date})
                          .line()
                          .empty());
            ++sites;
        }
        ASSERT_FALSE(reader.next());
    }
    EXPECT_GT(sites, 10'000U);
}

} // namespace
} // namespace vandrel
