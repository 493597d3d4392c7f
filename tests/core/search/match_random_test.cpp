#include "search/match.h"
#include "test_folding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

namespace vandrel {
namespace {

struct Place {
    std::size_t begin; // units of the text
    std::size_t end;
};

// What the matcher is compared with: the text is written out with every letter folded and expanded, and the
// term is searched for from wherever a letter of the text begins to wherever one ends.
std::vector<Place> placesOf(std::wstring_view term, std::wstring_view text, const CaseFolding* folding)
{
    std::wstring written;
    std::vector<std::optional<std::size_t>> unitAt; // for each place in `written`
    for (std::size_t unit = 0; unit < text.size(); ++unit) {
        const std::wstring letters = folding == nullptr ? std::wstring(1, text[unit])
                                                        : folding->fold(text.substr(unit, 1));
        for (std::size_t i = 0; i < letters.size(); ++i)
            unitAt.push_back(i == 0 ? std::optional(unit) : std::nullopt);
        written += letters;
    }
    unitAt.emplace_back(text.size());
    const std::wstring wanted = folding == nullptr ? std::wstring(term) : folding->fold(term);
    std::vector<Place> places;
    for (std::size_t at = 0; at + wanted.size() <= written.size(); ++at) {
        const auto begin = unitAt[at];
        const auto end = unitAt[at + wanted.size()];
        if (begin && end && written.compare(at, wanted.size(), wanted) == 0) places.push_back({*begin, *end});
    }
    return places;
}

class MatchRandom : public testing::TestWithParam<const wchar_t*> {
  protected:
    static constexpr unsigned seed = 20021116;
    static constexpr int cases = 4000; // per alphabet

    std::size_t number(std::size_t below) { return random_() % below; }
    std::wstring word(std::size_t length)
    {
        const std::wstring_view letters = GetParam();
        std::wstring text;
        while (text.size() < length) text += letters[number(letters.size())];
        return text;
    }
    // From 0 to 40 code units, now and then 300. Some texts end with the term, some with a part of it.
    std::wstring textFor(const std::wstring& term)
    {
        std::wstring text = word(number(20) == 0 ? 300 : number(41));
        if (number(4) == 0) text += term;
        if (number(4) == 0) text += term.substr(0, term.size() / 2);
        return text;
    }
    std::wstring termOf(const std::wstring& text)
    {
        if (text.empty() || number(2) == 0) return word(number(7));
        return text.substr(number(text.size()), number(7));
    }

    const CaseFolding folding = testFolding();

  private:
    std::mt19937 random_{seed};
};

TEST_P(MatchRandom, FindsATermExactlyWhereItOccurs)
{
    int found = 0;
    for (int i = 0; i < cases; ++i) {
        const std::wstring term = termOf(word(number(41)));
        const ExactText text(textFor(term));
        for (const CaseFolding* const mode : {&folding, static_cast<const CaseFolding*>(nullptr)}) {
            const Matcher matcher = mode == nullptr ? Matcher(term) : Matcher(term, *mode);
            const bool expected = !placesOf(term, text.view(), mode).empty();
            found += expected ? 1 : 0;
            ASSERT_EQ(matcher.occursIn(text.view()), expected)
                << "seed " << seed << ", case " << i << ": <" << shown(term) << "> in <" << shown(text.view())
                << (mode == nullptr ? ">, letter by letter" : ">");
            const ExactLatin latin(text.view());
            ASSERT_EQ(matcher.occursIn(latin.view()), expected)
                << "seed " << seed << ", case " << i << ": <" << shown(term) << "> in <" << shown(text.view())
                << "> in Latin-1";
        }
    }
    EXPECT_GT(found, cases / 10) << "the texts hold the terms too seldom";
    EXPECT_GT(2 * cases - found, cases / 50) << "the texts hold the terms too often";
}

// An occurrence before the candidate would never be found.
TEST_P(MatchRandom, TheCandidateNeverLiesPastAnOccurrence)
{
    for (int i = 0; i < cases; ++i) {
        const std::wstring term = termOf(word(number(41)));
        if (term.empty()) continue;
        const ExactText text(textFor(term));
        const std::size_t from = number(text.view().size() + 1);
        for (const CaseFolding* const mode : {&folding, static_cast<const CaseFolding*>(nullptr)}) {
            const Matcher matcher = mode == nullptr ? Matcher(term) : Matcher(term, *mode);
            const std::size_t candidate = matcher.candidate(text.view(), from);
            ASSERT_GE(candidate, from);
            for (const Place& place : placesOf(term, text.view(), mode)) {
                if (place.begin < from) continue;
                const std::wstring_view occurrence = text.view().substr(place.begin, place.end - place.begin);
                // It may point into an occurrence, to the letter that expands to several.
                const bool expands = mode != nullptr && std::ranges::any_of(occurrence, [&](wchar_t unit) {
                                         return mode->expansionOf(unit) != nullptr;
                                     });
                ASSERT_LE(candidate, expands ? place.end - 1 : place.begin)
                    << "seed " << seed << ", case " << i << ": <" << shown(term) << "> in <"
                    << shown(text.view()) << "> from " << from;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Letters, MatchRandom,
                         testing::Values(L"ab", L"aAbB", L"abqQ", L"aAbBqp", L"qpab.", L"z012345678",
                                         L"zZ0ab", L"a"));

} // namespace
} // namespace vandrel
