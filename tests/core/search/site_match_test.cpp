#include "search/site_match.h"

#include "test_folding.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

class SiteMatch : public testing::Test {
  protected:
    bool finds(std::wstring_view term, SearchSection section, SearchMode mode = SearchMode::text) const
    {
        return SiteMatcher(term, mode, section, folding).matches(site);
    }

    const CaseFolding folding = testFolding();
    const SiteTexts site{L"Daily News", L"http://Paper.example/", L"Read It Early", L"9/30/2002"};
};

TEST_F(SiteMatch, InAllSectionsOnlyTheNameIgnoresLetterCase)
{
    EXPECT_TRUE(finds(L"DAILY", SearchSection::all));
    EXPECT_FALSE(finds(L"PAPER", SearchSection::all));
    EXPECT_FALSE(finds(L"paper", SearchSection::all));
    EXPECT_TRUE(finds(L"Paper", SearchSection::all));
    EXPECT_FALSE(finds(L"EARLY", SearchSection::all));
    EXPECT_FALSE(finds(L"early", SearchSection::all));
    EXPECT_TRUE(finds(L"Early", SearchSection::all));
}

TEST_F(SiteMatch, InAllSectionsLetterByLetterTheNameDoesNotEither)
{
    EXPECT_FALSE(finds(L"daily", SearchSection::all, SearchMode::binary));
    EXPECT_TRUE(finds(L"Daily", SearchSection::all, SearchMode::binary));
    EXPECT_TRUE(finds(L"Paper", SearchSection::all, SearchMode::binary));
    EXPECT_TRUE(finds(L"Early", SearchSection::all, SearchMode::binary));
}

TEST_F(SiteMatch, EachOfTheOthersLooksInItsFieldAlone)
{
    EXPECT_TRUE(finds(L"Daily", SearchSection::name));
    EXPECT_FALSE(finds(L"Paper", SearchSection::name));
    EXPECT_FALSE(finds(L"Early", SearchSection::name));
    EXPECT_FALSE(finds(L"Daily", SearchSection::url));
    EXPECT_TRUE(finds(L"Paper", SearchSection::url));
    EXPECT_FALSE(finds(L"Early", SearchSection::url));
    EXPECT_FALSE(finds(L"Daily", SearchSection::description));
    EXPECT_FALSE(finds(L"Paper", SearchSection::description));
    EXPECT_TRUE(finds(L"Early", SearchSection::description));
}

TEST_F(SiteMatch, EachOfTheOthersFollowsTheMode)
{
    const std::pair<SearchSection, std::wstring_view> terms[] = {{SearchSection::name, L"dAILY"},
                                                                 {SearchSection::url, L"pAPER"},
                                                                 {SearchSection::description, L"eARLY"}};
    for (const auto& [section, term] : terms) {
        EXPECT_TRUE(finds(term, section, SearchMode::text));
        EXPECT_FALSE(finds(term, section, SearchMode::binary));
    }
}

TEST_F(SiteMatch, TheDateIsNeverLookedAt)
{
    for (const SearchSection section :
         {SearchSection::all, SearchSection::name, SearchSection::url, SearchSection::description}) {
        EXPECT_FALSE(finds(L"2002", section));
    }
}

TEST_F(SiteMatch, ATermDoesNotReachFromOneFieldIntoTheNext)
{
    EXPECT_FALSE(finds(L"Newshttp", SearchSection::all));
    EXPECT_FALSE(finds(L"News|http", SearchSection::all));
}

TEST_F(SiteMatch, AnEmptyTermIsInEverySiteAlsoAnEmptyOne)
{
    for (const SearchSection section :
         {SearchSection::all, SearchSection::name, SearchSection::url, SearchSection::description}) {
        for (const SearchMode mode : {SearchMode::binary, SearchMode::text}) {
            EXPECT_TRUE(finds(L"", section, mode));
            EXPECT_TRUE(SiteMatcher(L"", mode, section, folding).matches({}));
        }
    }
}

} // namespace
} // namespace vandrel
