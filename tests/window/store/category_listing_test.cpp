#include "tests/support/store_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

class CategoryListing : public StoreTest {
  protected:
    Lines sortedTitles()
    {
        Lines all = titles();
        std::ranges::sort(all);
        return all;
    }
};

TEST_F(CategoryListing, ATitleIsTheFileNameUpToItsLastPoint)
{
    folder.write(L"My.Links.udb", "");
    folder.write(L"Work.udb", "");
    folder.write(L" early.udb", "");
    start();
    EXPECT_EQ(sortedTitles(), (Lines{L" early", L"My.Links", L"Work"}));
}

TEST_F(CategoryListing, OnlyNamesWithExactlyTheExtensionAreCategories)
{
    for (const wchar_t* const name : {L"Notes.txt", L"Old.UDB", L"Other.Udb", L"udb", L"Bookudb", L"A.udbx",
                                      L"B.udb.bak", L"scanned.log"}) {
        folder.write(name, "A|B\r\n");
    }
    folder.write(L"Work.udb", "");
    start();
    EXPECT_EQ(titles(), Lines{L"Work"});
}

TEST_F(CategoryListing, FoldersOfThatNameAndFilesInFoldersAreNotCategories)
{
    makeFolder(L"Trap.udb");
    makeFolder(L"Below");
    folder.write(L"Below\\Inner.udb", "");
    folder.write(L"Work.udb", "");
    start();
    EXPECT_EQ(titles(), Lines{L"Work"});
}

TEST_F(CategoryListing, WhatACrashLeftBehindWhileSavingIsNotACategory)
{
    folder.write(L"Work.udb", "");
    folder.write(L"Work.udb.1234.tmp", "half");
    start();
    EXPECT_EQ(titles(), Lines{L"Work"});
}

TEST_F(CategoryListing, CategoriesStandInTheOrderOfTheFolder)
{
    for (const wchar_t* const name : {L"b.udb", L"A.udb", L"c.udb", L"Z.udb", L"10.udb", L"9.udb"}) {
        folder.write(name, "");
    }
    Lines inFolder;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(folder.file(L"*.udb").c_str(), &found);
    do {
        const std::wstring name = found.cFileName;
        inFolder.push_back(name.substr(0, name.size() - 4));
    } while (FindNextFileW(search, &found));
    FindClose(search);
    start();
    EXPECT_EQ(titles(), inFolder);
}

TEST_F(CategoryListing, ATitleOutsideTheCodePageIsShownAndOpens)
{
    folder.write(L"Ksi\u0105\u017Cki.udb", "A|http://a/||1\r\n");
    folder.write(L"\u65E5\u672C.udb", "B|http://b/||1\r\n");
    start();
    EXPECT_EQ(sortedTitles(), (Lines{L"Ksi\u0105\u017Cki", L"\u65E5\u672C"}));
    clickCategory(L"\u65E5\u672C");
    EXPECT_EQ(sites(), Lines{L"B|http://b/||1"});
    clickCategory(L"Ksi\u0105\u017Cki");
    EXPECT_EQ(sites(), Lines{L"A|http://a/||1"});
    EXPECT_EQ(main->caption(), L"Vandrel - Ksi\u0105\u017Cki");
}

TEST_F(CategoryListing, TheFirstCategoryIsOpenAndTheOthersAreClosed)
{
    folder.write(L"A.udb", "x|y\r\n");
    folder.write(L"B.udb", "");
    folder.write(L"C.udb", "");
    start();
    EXPECT_EQ(lstCategory().currentRow(), std::optional<std::size_t>(0));
    EXPECT_EQ(lstInfo().count(), 1U);
    EXPECT_EQ(categoryRows().image(0), 4);
    EXPECT_EQ(categoryRows().image(1), 3);
    EXPECT_EQ(categoryRows().image(2), 3);
}

TEST_F(CategoryListing, AnEmptyFolderGivesEmptyLists)
{
    start();
    EXPECT_TRUE(lstCategory().empty());
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel");
}

} // namespace
} // namespace vandrel::test
