#include "tests/support/input.h"
#include "tests/support/list_clicks.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

using Titles = std::vector<std::wstring>;

class CategoryList : public MainWindowTest {
  protected:
    void startWithThree()
    {
        folder.write(L"A.udb", "a1|http://a1/|x|d\r\na2|http://a2/|y|e\r\n");
        folder.write(L"B.udb", "b1|http://b1/|z|f\r\n");
        folder.write(L"C.udb", "");
        start();
    }
    std::vector<int> images()
    {
        std::vector<int> all;
        for (std::size_t row = 0; row < lstCategory().count(); ++row)
            all.push_back(categoryRows().image(row));
        return all;
    }
    std::wstring panel(int number) { return main->workspace().StatusBar1.panelText(number); }
};

TEST_F(CategoryList, HasOneColumn)
{
    start();
    wchar_t caption[40]{};
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = caption;
    column.cchTextMax = 40;
    EXPECT_TRUE(SendMessageW(lstCategory().handle(), LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column)));
    EXPECT_STREQ(caption, L"Category");
    EXPECT_FALSE(SendMessageW(lstCategory().handle(), LVM_GETCOLUMNW, 1, reinterpret_cast<LPARAM>(&column)));
    EXPECT_EQ(columnPixels(lstCategory(), 0), px(*main, 4049));
}

TEST_F(CategoryList, AClickLoadsTheCategory)
{
    startWithThree();
    clickRow(lstCategory(), 1);
    EXPECT_EQ(column(lstInfo()), Titles{L"b1"});
    EXPECT_EQ(main->caption(), L"Vandrel - B");
    clickRow(lstCategory(), 2);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - C");
}

TEST_F(CategoryList, AnArrowKeyLoadsTheCategory)
{
    startWithThree();
    lstCategory().setFocus();
    pressKey(VK_DOWN);
    EXPECT_EQ(column(lstInfo()), Titles{L"b1"});
    EXPECT_EQ(main->caption(), L"Vandrel - B");
}

TEST_F(CategoryList, OnlyTheSelectedCategoryIsAnOpenFolder)
{
    startWithThree();
    EXPECT_EQ(images(), (std::vector<int>{4, 3, 3}));
    clickRow(lstCategory(), 2);
    EXPECT_EQ(images(), (std::vector<int>{3, 3, 4}));
}

TEST_F(CategoryList, AClickOnTheSelectedCategoryLoadsItAgain)
{
    startWithThree();
    folder.write(L"A.udb", "new|http://new/||\r\n");
    clickRow(lstCategory(), 0);
    EXPECT_EQ(column(lstInfo()), Titles{L"new"});
}

TEST_F(CategoryList, WithNoSiteSelectedTheStatusBarKeepsItsTexts)
{
    startWithThree();
    clickRow(lstInfo(), 0);
    ASSERT_EQ(panel(2), L"Name: a1  ");
    clickRow(lstCategory(), 1);
    EXPECT_EQ(panel(2), L"Name: a1  ");
    EXPECT_EQ(panel(3), L"URL: http://a1/  ");
}

TEST_F(CategoryList, AFileThatIsGoneLeavesAnEmptyListAndTheCaption)
{
    startWithThree();
    DeleteFileW(folder.file(L"B.udb").c_str());
    Answers none;
    clickRow(lstCategory(), 1);
    EXPECT_ANSWERED(none);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - B");
    EXPECT_EQ(images(), (std::vector<int>{3, 4, 3}));
}

TEST_F(CategoryList, AClickBelowTheLastCategoryChangesNothing)
{
    startWithThree();
    clickRow(lstCategory(), 1);
    const RECT area = clientOf(lstCategory().handle());
    clickAt(lstCategory().handle(), {20, area.bottom - 10});
    EXPECT_EQ(column(lstInfo()), Titles{L"b1"});
    EXPECT_EQ(lstCategory().currentRow(), 1U);
}

TEST_F(CategoryList, TheFirstColumnClickSortsDescendingAndTheNextReversesIt)
{
    startWithThree();
    clickHeader(lstCategory(), 0);
    EXPECT_EQ(column(lstCategory()), (Titles{L"C", L"B", L"A"}));
    clickHeader(lstCategory(), 0);
    EXPECT_EQ(column(lstCategory()), (Titles{L"A", L"B", L"C"}));
    EXPECT_TRUE(categoryRows().sorted());
}

TEST_F(CategoryList, SortingKeepsTheSelectedCategorySelectedAndOpen)
{
    startWithThree();
    clickHeader(lstCategory(), 0);
    EXPECT_EQ(lstCategory().currentRow(), 2U);
    EXPECT_EQ(images(), (std::vector<int>{3, 3, 4}));
    EXPECT_EQ(main->caption(), L"Vandrel - A");
    EXPECT_EQ(lstInfo().count(), 2U);
}

TEST_F(CategoryList, ANewCategoryGoesToItsSortedPlace)
{
    startWithThree();
    clickHeader(lstCategory(), 0);
    Answers answers;
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"BB");
    main->run(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(column(lstCategory()), (Titles{L"C", L"BB", L"B", L"A"}));
}

TEST_F(CategoryList, LabelsCanBeEdited)
{
    startWithThree();
    EXPECT_NE(GetWindowLongPtrW(lstCategory().handle(), GWL_STYLE) & LVS_EDITLABELS, 0);
    EXPECT_EQ(GetWindowLongPtrW(lstInfo().handle(), GWL_STYLE) & LVS_EDITLABELS, 0);
}

TEST_F(CategoryList, RenameCategoryWithoutCategoriesDoesNothing)
{
    start();
    main->run(mnuRenameCat);
    EXPECT_FALSE(lstCategory().editingLabel());
}

TEST_F(CategoryList, BothListsShareFiveSmallImages)
{
    start();
    for (ListView* const list : {&lstCategory(), &lstInfo()}) {
        const auto images = reinterpret_cast<HIMAGELIST>(
            SendMessageW(list->handle(), LVM_GETIMAGELIST, LVSIL_SMALL, 0));
        EXPECT_EQ(ImageList_GetImageCount(images), 5);
    }
}

} // namespace
} // namespace vandrel::test
