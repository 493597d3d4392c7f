#include "search/site_match.h"
#include "test_folding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vandrel {
namespace {

// Sites that follow each other in one text, as in a file.
class SiteSequences : public testing::TestWithParam<SearchSection> {
  protected:
    static constexpr unsigned seed = 41;

    std::size_t number(std::size_t below) { return random_() % below; }
    std::wstring word(std::size_t most)
    {
        constexpr std::wstring_view letters = L"aAbBqp|";
        std::wstring text;
        for (std::size_t length = number(most + 1); text.size() < length;)
            text += letters[number(letters.size())];
        return text;
    }
    void makeFile(std::size_t count)
    {
        std::vector<std::array<std::size_t, 8>> parts;
        file_.clear();
        for (std::size_t i = 0; i < count; ++i) {
            auto& part = parts.emplace_back();
            const bool empty = number(8) == 0;
            for (std::size_t field = 0; field < 4; ++field) {
                const std::wstring text = empty ? std::wstring() : word(9);
                part[2 * field] = file_.size();
                part[2 * field + 1] = text.size();
                file_ += text;
                file_ += field < 3 ? L"|" : L"\r\n";
            }
        }
        exact_.emplace(file_);
        sites.clear();
        for (const auto& part : parts) {
            auto& site = sites.emplace_back();
            for (std::size_t field = 0; field < 4; ++field) {
                site[field] = exact_->view().substr(part[2 * field], part[2 * field + 1]);
            }
        }
    }
    std::wstring_view block() const { return exact_->view(); }
    // Whichever sites are asked about, in whatever order, the answers are those of the matcher.
    void compare(const std::vector<SiteTexts>& asked)
    {
        for (int i = 0; i < 25; ++i) {
            const std::wstring term = i == 0 ? std::wstring() : word(4);
            const SearchMode mode = number(2) == 0 ? SearchMode::binary : SearchMode::text;
            const SiteMatcher matcher(term, mode, GetParam(), folding);
            SiteSequence sequence(matcher);
            sequence.setBlock(block());
            for (std::size_t site = 0; site < asked.size(); ++site) {
                ASSERT_EQ(sequence.matches(asked[site]), matcher.matches(asked[site]))
                    << "seed " << seed << ": site " << site << ", term <" << shown(term) << ">";
            }
        }
    }

    const CaseFolding folding = testFolding();
    std::vector<SiteTexts> sites;

  private:
    std::mt19937 random_{seed};
    std::wstring file_;
    std::optional<ExactText> exact_;
};

TEST_P(SiteSequences, AnswerAsTheMatcherDoesInTheOrderOfTheFile)
{
    for (int round = 0; round < 40; ++round) {
        makeFile(number(12));
        compare(sites);
    }
}

TEST_P(SiteSequences, AnswerAsTheMatcherDoesInAnyOrder)
{
    for (int round = 0; round < 40; ++round) {
        makeFile(12);
        std::vector<SiteTexts> shuffled = sites;
        for (std::size_t i = shuffled.size(); i > 1; --i) std::swap(shuffled[i - 1], shuffled[number(i)]);
        compare(shuffled);
        std::ranges::reverse(sites);
        compare(sites);
    }
}

TEST_P(SiteSequences, AnswerAsTheMatcherDoesForSitesAskedAboutAgain)
{
    for (int round = 0; round < 40; ++round) {
        makeFile(6);
        std::vector<SiteTexts> repeated;
        for (int i = 0; i < 20; ++i) repeated.push_back(sites[number(sites.size())]);
        compare(repeated);
    }
}

TEST_P(SiteSequences, AnswerAsTheMatcherDoesForTextsThatLieElsewhere)
{
    for (int round = 0; round < 40; ++round) {
        makeFile(10);
        std::vector<std::wstring> own(sites.size());
        std::vector<SiteTexts> mixed = sites;
        for (std::size_t i = 0; i < mixed.size(); ++i) {
            if (number(2) == 0) continue;
            own[i] = word(9);
            mixed[i][number(4)] = own[i];
        }
        compare(mixed);
    }
}

TEST_P(SiteSequences, AnswerAsTheMatcherDoesWithoutABlock)
{
    makeFile(10);
    const SiteMatcher matcher(L"ab", SearchMode::text, GetParam(), folding);
    SiteSequence sequence(matcher);
    for (const SiteTexts& site : sites) EXPECT_EQ(sequence.matches(site), matcher.matches(site));
}

TEST_P(SiteSequences, AnotherBlockStartsAfresh)
{
    const std::wstring first = L"aa";
    const std::wstring second = L"xxxxab";
    const SiteMatcher matcher(L"ab", SearchMode::text, SearchSection::name, folding);
    SiteSequence sequence(matcher);
    sequence.setBlock(first);
    EXPECT_FALSE(sequence.matches({std::wstring_view(first)}));
    sequence.setBlock(second);
    EXPECT_TRUE(sequence.matches({std::wstring_view(second)}));
}

INSTANTIATE_TEST_SUITE_P(Sections, SiteSequences,
                         testing::Values(SearchSection::all, SearchSection::name, SearchSection::url,
                                         SearchSection::description));

} // namespace
} // namespace vandrel
