#include "tests/support/from_outside.h"
#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

class SearchResults : public SearchTest {};

TEST_F(SearchResults, InAllSectionsOnlyTheNameIgnoresLetterCase)
{
    startWithCategories();
    EXPECT_EQ(foundIn(allSections, false, L"daily"), (Lines{L"Daily News", L"Weather", L"daily diary"}));
    EXPECT_EQ(foundIn(allSections, false, L"DAILY"), (Lines{L"Daily News", L"Compiler", L"daily diary"}));
    EXPECT_EQ(foundIn(allSections, false, L"PAPER"), Lines{L"No results found."});
}

TEST_F(SearchResults, InAllSectionsWithLetterCaseTheNameDoesNotEither)
{
    startWithCategories();
    EXPECT_EQ(foundIn(allSections, true, L"daily"), (Lines{L"Weather", L"daily diary"}));
    EXPECT_EQ(foundIn(allSections, true, L"DAILY"), Lines{L"Compiler"});
}

TEST_F(SearchResults, ATermThatWasNotTypedIsSearchedFor)
{
    startWithCategories();
    setTextFromOutside(part(parts::term), L"Compiler");
    press(dialog(), IDOK);
    EXPECT_EQ(found(), Lines{L"Compiler"});
}

TEST_F(SearchResults, OneSectionIsSearchedAloneAndFollowsTheBox)
{
    startWithCategories();
    EXPECT_EQ(foundIn(nameOnly, false, L"DAILY"), (Lines{L"Daily News", L"daily diary"}));
    EXPECT_EQ(foundIn(nameOnly, true, L"daily"), Lines{L"daily diary"});
    EXPECT_EQ(foundIn(urlOnly, false, L"DAILY"), Lines{L"Weather"});
    EXPECT_EQ(foundIn(urlOnly, true, L"DAILY"), Lines{L"No results found."});
    EXPECT_EQ(foundIn(urlOnly, true, L"daily"), Lines{L"Weather"});
    EXPECT_EQ(foundIn(descriptionOnly, false, L"daily"), Lines{L"Compiler"});
    EXPECT_EQ(foundIn(descriptionOnly, true, L"daily"), Lines{L"No results found."});
    EXPECT_EQ(foundIn(descriptionOnly, true, L"DAILY"), Lines{L"Compiler"});
}

TEST_F(SearchResults, WithNoSectionChosenNothingIsFoundButAllSitesAreCounted)
{
    startWithCategories();
    SendMessageW(part(parts::section), BM_SETCHECK, BST_UNCHECKED, 0);
    find(L"");
    EXPECT_EQ(found(), Lines{L"No results found."});
    EXPECT_EQ(panel(2), L"4 site(s) searched");
}

TEST_F(SearchResults, ARowHoldsNameAddressCategoryAndDescription)
{
    startWithCategories();
    find(L"daily");
    EXPECT_EQ(found(1), (Lines{L"http://Paper.example/", L"http://sky.example/daily", L""}));
    EXPECT_EQ(found(2), (Lines{L"News", L"News", L"Tools"}));
    EXPECT_EQ(found(3), (Lines{L"Read It Early", L"Clouds", L"private"}));
}

TEST_F(SearchResults, AreCountedAndTheFirstIsSelected)
{
    startWithCategories();
    find(L"daily");
    EXPECT_EQ(panel(1), L"3 site(s) found");
    EXPECT_EQ(panel(2), L"4 site(s) searched");
    EXPECT_TRUE(search().results().isSelected(0));
    EXPECT_EQ(search().results().selectedCount(), 1U);
    EXPECT_EQ(SendMessageW(part(parts::results), LVM_GETITEMCOUNT, 0, 0), 3);
}

TEST_F(SearchResults, ThreeOfForty)
{
    folder.write(L"First.udb", manySites("plain", 17) + "a hit||\r\n");
    folder.write(L"Second.udb", "hit b||\r\n" + manySites("plain", 20) + "the HIT||\r\n");
    start();
    open();
    find(L"hit");
    EXPECT_EQ(found(), (Lines{L"a hit", L"hit b", L"the HIT"}));
    EXPECT_EQ(panel(1), L"3 site(s) found");
    EXPECT_EQ(panel(2), L"40 site(s) searched");
}

TEST_F(SearchResults, NoResultIsARowThatSaysSo)
{
    startWithCategories();
    find(L"nowhere to be found");
    EXPECT_EQ(found(), Lines{L"No results found."});
    for (std::size_t column = 1; column < 4; ++column) EXPECT_EQ(found(column), Lines{L""});
    EXPECT_EQ(panel(1), L"0 sites found");
    EXPECT_EQ(panel(2), L"4 site(s) searched");
    EXPECT_TRUE(search().results().isSelected(0));
}

TEST_F(SearchResults, ASiteNamedLikeThatRowLeavesTheFirstPanelAlone)
{
    folder.write(L"Odd.udb", "No results found.|http://odd.example/||\r\nother odd||\r\n");
    start();
    open();
    find(L"odd");
    EXPECT_EQ(found(), (Lines{L"No results found.", L"other odd"}));
    EXPECT_EQ(panel(1), L"");
    EXPECT_EQ(panel(2), L"2 site(s) searched");
}

TEST_F(SearchResults, AnEmptyTermListsEverySite)
{
    startWithCategories();
    find(L"");
    EXPECT_EQ(found(), (Lines{L"Daily News", L"Weather", L"Compiler", L"daily diary"}));
    EXPECT_EQ(panel(1), L"4 site(s) found");
}

TEST_F(SearchResults, OfAnEarlierSearchAreGone)
{
    startWithCategories();
    find(L"");
    find(L"compiler");
    EXPECT_EQ(found(), Lines{L"Compiler"});
    EXPECT_EQ(panel(1), L"1 site(s) found");
    find(L"nowhere to be found");
    EXPECT_EQ(found(), Lines{L"No results found."});
    find(L"weather");
    EXPECT_EQ(found(), Lines{L"Weather"});
    EXPECT_EQ(panel(1), L"1 site(s) found");
}

TEST_F(SearchResults, AreNotFoundAcrossFields)
{
    startWithCategories();
    find(L"News|http");
    EXPECT_EQ(found(), Lines{L"No results found."});
    find(L"|");
    EXPECT_EQ(found(), Lines{L"No results found."});
}

TEST_F(SearchResults, ATermOfTenThousandCharactersIsFound)
{
    const std::string name = "b" + std::string(9998, 'a') + "c";
    folder.write(L"Long.udb", std::string(9998, 'a') + "c||\r\n" + name + "||\r\n" + name + "c||\r\n");
    start();
    open();
    SetWindowTextW(part(parts::term), L"");
    find(L"B" + std::wstring(9998, L'A') + L"C");
    EXPECT_EQ(search().results().count(), 2U);
    EXPECT_EQ(panel(1), L"2 site(s) found");
}

TEST_F(SearchResults, TheCategoryShownBeforeIsShownAgain)
{
    startWithCategories();
    clickCategory(L"Tools");
    find(L"daily");
    EXPECT_EQ(selectedTitle(), L"Tools");
    EXPECT_EQ(column(lstInfo()), (Lines{L"Compiler", L"daily diary"}));
    EXPECT_EQ(windowText(main->handle()), L"Vandrel - Tools");
    for (std::size_t row = 0; row < titles().size(); ++row)
        EXPECT_EQ(categoryRows().image(row), titles()[row] == L"Tools" ? openFolderImage : closedFolderImage);
}

TEST_F(SearchResults, WithNoCategoryShownBeforeTheFirstIs)
{
    startWithCategories();
    lstCategory().clearSelection();
    find(L"daily");
    EXPECT_EQ(lstCategory().currentRow(), std::optional<std::size_t>(0));
    EXPECT_EQ(column(lstInfo()), (Lines{L"Daily News", L"Weather"}));
}

TEST_F(SearchResults, WithoutAnyCategoryAreNone)
{
    start();
    open();
    find(L"");
    EXPECT_EQ(found(), Lines{L"No results found."});
    EXPECT_EQ(panel(1), L"0 sites found");
    EXPECT_EQ(panel(2), L"0 site(s) searched");
    EXPECT_TRUE(lstInfo().empty());
}

TEST_F(SearchResults, MoreThanSixteenBitsHoldAreAllCounted)
{
    folder.write(L"Huge.udb", manySites("hit", 33'000));
    start();
    open();
    find(L"hit");
    EXPECT_EQ(search().results().count(), 33'000U);
    EXPECT_EQ(panel(1), L"33000 site(s) found");
    EXPECT_EQ(panel(2), L"33000 site(s) searched");
}

TEST_F(SearchResults, NoFileIsTouched)
{
    startWithCategories();
    find(L"daily");
    EXPECT_EQ(folder.read(L"News.udb"), newsSites);
    EXPECT_EQ(folder.read(L"Tools.udb"), toolsSites);
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST_F(SearchResults, TheControlsAreEnabledAgainAfterEverySearch)
{
    startWithCategories();
    for (const wchar_t* const term : {L"daily", L"nowhere to be found"}) {
        find(term);
        for (const int id : {parts::term, IDOK, parts::section, parts::section + 3, parts::caseSensitive})
            EXPECT_TRUE(IsWindowEnabled(part(id))) << id;
        EXPECT_TRUE(IsWindowEnabled(frame(L"Search Section")));
    }
}

} // namespace
} // namespace vandrel::test
