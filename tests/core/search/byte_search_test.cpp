#include "search/byte_search.h"

#include "search/site_match.h"
#include "test_folding.h"
#include "western_letters.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace vandrel {
namespace {

std::wstring decoded(std::string_view bytes)
{
    const CodePageLetters letters = westernLetters();
    std::wstring text(bytes.size(), L'\0');
    decodeSingleBytes(bytes, text.data(), letters);
    return text;
}

struct Found {
    std::vector<std::wstring> names;
    std::size_t sites = 0;
    bool operator==(const Found&) const = default;
};

// Every site, decoded, one after the other.
Found plainly(std::string_view bytes, const SiteMatcher& matcher)
{
    const std::wstring text = decoded(bytes);
    SiteRecordReader reader(text);
    Found found;
    while (const auto site = reader.next()) {
        ++found.sites;
        if (matcher.matches({site->name, site->url, site->description, site->date}))
            found.names.emplace_back(site->name);
    }
    return found;
}

// `oneByOne` says before each step whether the next site is wanted, whatever it holds.
template <typename OneByOne>
Found inBytes(std::string_view bytes, const SiteMatcher& matcher, OneByOne oneByOne)
{
    const BytePattern pattern(matcher.widest(), westernLetters());
    const std::vector<char> exact(bytes.begin(), bytes.end()); // so that reading beyond the end is detected
    ByteSearch search({exact.data(), exact.size()}, pattern);
    Found found;
    while (!search.atEnd()) {
        const auto site = oneByOne() ? search.next() : search.nextCandidate();
        if (!site) continue;
        const std::wstring name = decoded(site->name);
        const std::wstring url = decoded(site->url);
        const std::wstring description = decoded(site->description);
        if (matcher.matches({name, url, description, {}})) found.names.push_back(name);
    }
    found.sites = search.sites();
    return found;
}

class ByteSearches : public testing::TestWithParam<SearchSection> {
  protected:
    std::size_t number(std::size_t below) { return random_() % below; }
    std::string word(std::size_t most)
    {
        constexpr std::string_view letters = "aAbBqpQ09z\xE9\x80\x81 ";
        std::string text;
        for (std::size_t length = number(most + 1); text.size() < length;)
            text += letters[number(letters.size())];
        return text;
    }
    std::string file(std::size_t lines)
    {
        std::string text;
        for (std::size_t line = 0; line < lines; ++line) {
            if (number(12) == 0) text += ';';
            for (std::size_t pieces = number(6); pieces > 0; --pieces) {
                text += word(12);
                if (number(20) == 0) text += number(2) == 0 ? '\r' : '\n';
                if (pieces > 1 || number(9) == 0) text += '|';
            }
            if (line + 1 < lines || number(2) == 0) text += "\r\n";
        }
        return text;
    }
    void compare(const std::string& bytes, int terms)
    {
        for (int i = 0; i < terms; ++i) {
            const std::wstring term = i == 0 ? std::wstring() : decoded(word(4));
            const SearchMode mode = number(2) == 0 ? SearchMode::binary : SearchMode::text;
            const SiteMatcher matcher(term, mode, GetParam(), folding);
            const Found expected = plainly(bytes, matcher);
            ASSERT_EQ(inBytes(bytes, matcher, [] { return false; }), expected) << shown(term);
            ASSERT_EQ(inBytes(bytes, matcher, [] { return true; }), expected) << shown(term);
            ASSERT_EQ(inBytes(bytes, matcher, [&] { return number(3) == 0; }), expected) << shown(term);
        }
    }

    const CaseFolding folding = testFolding();

  private:
    std::mt19937 random_{11};
};

TEST_P(ByteSearches, FindWhatASearchOfTheDecodedTextFinds)
{
    for (int round = 0; round < 50; ++round) compare(file(number(30)), 6);
}

TEST_P(ByteSearches, FindItInFilesOfManyWindows)
{
    std::string bytes;
    while (bytes.size() < 3 * ByteSearch::windowSize) bytes += file(50) + "\r\n";
    compare(bytes, 3);
    compare("a|" + std::string(2 * ByteSearch::windowSize, 'x') + "ab|\r\nb|ab\r\n", 3);
}

TEST_P(ByteSearches, FindNothingForLettersThatTheCodePageLacks)
{
    const std::string bytes = "abc|http://a/|abc|\r\n";
    for (const SearchMode mode : {SearchMode::binary, SearchMode::text}) {
        const SiteMatcher matcher(L"\u0141a", mode, GetParam(), folding);
        EXPECT_EQ(inBytes(bytes, matcher, [] { return false; }), (Found{{}, 1}));
    }
}

INSTANTIATE_TEST_SUITE_P(Sections, ByteSearches,
                         testing::Values(SearchSection::all, SearchSection::name, SearchSection::url,
                                         SearchSection::description));

TEST(ByteSearch, OfNoBytesIsAtItsEnd)
{
    const Matcher matcher(L"a");
    const BytePattern pattern(matcher, westernLetters());
    ByteSearch search("", pattern);
    EXPECT_TRUE(search.atEnd());
    EXPECT_FALSE(search.next());
    EXPECT_FALSE(search.nextCandidate());
    EXPECT_EQ(search.sites(), 0U);
}

TEST(ByteSearch, PassesTheSitesThatCannotHoldTheTerm)
{
    const Matcher matcher(L"needle");
    const BytePattern pattern(matcher, westernLetters());
    ByteSearch search("hay|1\r\nhay|2\r\nneedle|3\r\nhay|4\r\n", pattern);
    const auto site = search.nextCandidate();
    ASSERT_TRUE(site);
    EXPECT_EQ(site->name, "needle");
    EXPECT_EQ(site->url, "3");
    EXPECT_EQ(search.sites(), 3U);
    EXPECT_FALSE(search.nextCandidate());
    EXPECT_TRUE(search.atEnd());
    EXPECT_EQ(search.sites(), 4U);
}

TEST(BytePattern, LooksAtEveryLetter)
{
    const CaseFolding folding = testFolding();
    const BytePattern pattern(Matcher(L"tHe", folding), westernLetters());
    EXPECT_EQ(pattern.candidate("tie toe tee ThE the", 0), 12U);
    EXPECT_EQ(pattern.candidate("tie toe tee ThE the", 13), 16U);
    EXPECT_EQ(pattern.candidate("tie toe tee", 0), std::string_view::npos);
    EXPECT_EQ(pattern.candidate("th", 0), std::string_view::npos);
}

TEST(BytePattern, FindsALetterThatCountsAsSeveralWhereverItIs)
{
    const CaseFolding folding = testFolding();
    const BytePattern pattern(Matcher(L"xaby", folding), westernLetters());
    EXPECT_EQ(pattern.candidate("xaay xqy", 0), 6U) << "the q";
    EXPECT_EQ(pattern.candidate("xaby", 0), 0U);
}

TEST(BytePattern, FindsLongTerms)
{
    for (const std::size_t length : {62, 63, 64, 65, 200}) {
        const std::string term(length, 'a');
        const BytePattern pattern(Matcher(std::wstring(term.begin(), term.end())), westernLetters());
        EXPECT_EQ(pattern.candidate("ab" + term, 0), 2U) << length;
        EXPECT_EQ(pattern.candidate("ab" + term.substr(1), 0), std::string_view::npos) << length;
        EXPECT_EQ(pattern.candidate("a" + std::string(3, 'b') + term.substr(4) + "b", 0),
                  std::string_view::npos);
    }
}

} // namespace
} // namespace vandrel
