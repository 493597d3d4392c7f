#include "bookmarks/character_references.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

// The letter and what is left of the bytes; 0 when "&" stands for itself.
struct Read {
    char32_t letter;
    std::string_view rest;

    friend bool operator==(const Read&, const Read&) = default;
};

void PrintTo(const Read& read, std::ostream* out)
{
    *out << std::hex << static_cast<unsigned>(read.letter) << " and \"" << read.rest << '"';
}

Read readIn(ReferencePlace place, std::string_view bytes)
{
    const auto reference = characterReferenceAt(bytes, place);
    return reference ? Read{reference->letter, bytes.substr(reference->length)} : Read{0, bytes};
}

Read inText(std::string_view bytes) { return readIn(ReferencePlace::text, bytes); }
Read inAddress(std::string_view bytes) { return readIn(ReferencePlace::address, bytes); }

TEST(CharacterReferences, HaveNames)
{
    const std::pair<std::string_view, char32_t> table[] = {
        {"&amp;", U'&'},         {"&lt;", U'<'},          {"&gt;", U'>'},          {"&quot;", U'"'},
        {"&apos;", U'\''},       {"&nbsp;", U'\u00A0'},   {"&yuml;", U'\u00FF'},   {"&AElig;", U'\u00C6'},
        {"&aelig;", U'\u00E6'},  {"&zwnj;", U'\u200C'},   {"&OElig;", U'\u0152'},  {"&euro;", U'\u20AC'},
        {"&Alpha;", U'\u0391'},  {"&alpha;", U'\u03B1'},  {"&hearts;", U'\u2665'}, {"&thetasym;", U'\u03D1'},
        {"&frac14;", U'\u00BC'}, {"&sup1;", U'\u00B9'},   {"&there4;", U'\u2234'}, {"&COPY;", U'\u00A9'},
        {"&Dagger;", U'\u2021'}, {"&permil;", U'\u2030'}, {"&lang;", U'\u2329'},   {"&piv;", U'\u03D6'},
    };
    for (const auto& [bytes, letter] : table) {
        EXPECT_EQ(inText(bytes), (Read{letter, ""})) << bytes;
        EXPECT_EQ(inAddress(std::string(bytes) + "a"), (Read{letter, "a"})) << bytes;
    }
}

TEST(CharacterReferences, WithNamesThatNobodyKnowsStandForThemselves)
{
    for (const std::string_view bytes : {"&", "&;", "& amp;", "&unknown;", "&Amp;", "&thetasyms;", "&#",
                                         "&#;", "&#x;", "&#xg;", "&#a;", "&a\xC3\xA9;", "&alpha"}) {
        EXPECT_EQ(inText(bytes).letter, 0U) << bytes;
        EXPECT_EQ(inAddress(bytes).letter, 0U) << bytes;
    }
}

TEST(CharacterReferences, OfLatin1MayLackTheirSemicolonInTexts)
{
    EXPECT_EQ(inText("&amp"), (Read{U'&', ""}));
    EXPECT_EQ(inText("&lt b"), (Read{U'<', " b"}));
    EXPECT_EQ(inText("&eacutefoo;"), (Read{U'\u00E9', "foo;"}));
    EXPECT_EQ(inText("&notin;"), (Read{U'\u2209', ""}));
    EXPECT_EQ(inText("&notit;"), (Read{U'\u00AC', "it;"}));
    EXPECT_EQ(inText("&apos"), (Read{0, "&apos"}));
}

TEST(CharacterReferences, WithoutSemicolonsAreParametersInAddresses)
{
    for (const std::string_view bytes : {"&copy=2", "&copy", "&lt=3", "&amp", "&regular=1", "&section"})
        EXPECT_EQ(inAddress(bytes).letter, 0U) << bytes;
    EXPECT_EQ(inAddress("&amp;copy=2"), (Read{U'&', "copy=2"}));
}

TEST(CharacterReferences, HaveNumbers)
{
    EXPECT_EQ(inText("&#65;b"), (Read{U'A', "b"}));
    EXPECT_EQ(inText("&#65b"), (Read{U'A', "b"}));
    EXPECT_EQ(inText("&#x41;"), (Read{U'A', ""}));
    EXPECT_EQ(inText("&#X00e9G"), (Read{U'\u00E9', "G"}));
    EXPECT_EQ(inText("&#x1F600;"), (Read{U'\U0001F600', ""}));
    EXPECT_EQ(inText("&#10;"), (Read{U'\n', ""}));
    EXPECT_EQ(inAddress("&#38;"), (Read{U'&', ""}));
    EXPECT_EQ(inAddress("&#38a"), (Read{U'&', "a"}));
}

TEST(CharacterReferences, WithNumbersOfNoLetterAreTheReplacementLetter)
{
    for (const std::string_view bytes : {"&#0;", "&#xD800;", "&#xDFFF;", "&#x110000;", "&#4294967361;",
                                         "&#99999999999999999999999999;", "&#xFFFFFFFFFFFFFFFF41;"}) {
        EXPECT_EQ(inText(bytes), (Read{0xFFFD, ""})) << bytes;
    }
    EXPECT_EQ(inText("&#x10FFFF;"), (Read{0x10FFFF, ""}));
}

TEST(CharacterReferences, WithNumbersOfCodePage1252AreItsLetters)
{
    EXPECT_EQ(inText("&#150;"), (Read{U'\u2013', ""}));
    EXPECT_EQ(inText("&#x80;"), (Read{U'\u20AC', ""}));
    EXPECT_EQ(inText("&#129;"), (Read{0x81, ""}));
    EXPECT_EQ(inText("&#160;"), (Read{0xA0, ""}));
}

} // namespace
} // namespace vandrel::test
