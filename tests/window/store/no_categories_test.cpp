#include "mainwindow/menu_entries.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"
#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

class NoCategories : public StoreTest {
  protected:
    Answers& expectTheNoticeAndAnswer(Answers& answers, const std::wstring& title)
    {
        return expectNoCategories(answers).expectInput(L"Category Name",
                                                       L"Please enter a title for the new category.", title);
    }
};

TEST_F(NoCategories, AddingASiteStillOpensTheEditorAndThenAsksForACategory)
{
    start();
    Answers answers;
    answers.expect(addCaption, typeSite(L"A", L"http://a/", L"one"));
    expectTheNoticeAndAnswer(answers, L"First");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"First.udb"), "A|http://a/|one|11/16/2002\r\n");
    EXPECT_EQ(titles(), Lines{L"First"});
    EXPECT_EQ(sites(), Lines{L"A|http://a/|one|11/16/2002"});
}

TEST_F(NoCategories, TheNewCategoryIsSelectedAndShownAsOpen)
{
    start();
    Answers answers;
    expectTheNoticeAndAnswer(answers, L"First");
    SaveItems(workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(selectedTitle(), L"First");
    EXPECT_EQ(categoryRows().image(0), 4);
    EXPECT_EQ(main->caption(), L"Vandrel - First");
    EXPECT_EQ(moveEntries(), Lines{L"First"});
}

TEST_F(NoCategories, TheNoticeHasAnOkButtonAlone)
{
    start();
    std::vector<int> buttons;
    Answers answers;
    answers.expect(L"No Categories", [&](HWND box) {
        buttons = buttonsOf(box);
        press(box, IDOK);
    });
    answers.cancelInput(L"Category Name");
    SaveItems(workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(buttons, std::vector<int>{IDOK});
}

TEST_F(NoCategories, WhenTheQuestionIsCancelledTheSiteStaysInTheListAndNothingIsWritten)
{
    start();
    Answers answers;
    answers.expect(addCaption, typeSite(L"A", L"http://a/", L""));
    expectNoCategories(answers).cancelInput(L"Category Name");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), Lines{L"A|http://a/||11/16/2002"});
    EXPECT_EQ(folder.names(), Lines{});
    EXPECT_TRUE(lstCategory().empty());
}

TEST_F(NoCategories, TheNextSaveAsksAgainAndWritesAllSites)
{
    start();
    Answers answers;
    answers.expect(addCaption, typeSite(L"A", L"http://a/", L""));
    expectNoCategories(answers).cancelInput(L"Category Name");
    choose(mnuAddWebsite);
    answers.expect(addCaption, typeSite(L"B", L"http://b/", L""));
    expectTheNoticeAndAnswer(answers, L"Late");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Late.udb"), "A|http://a/||11/16/2002\r\nB|http://b/||11/16/2002\r\n");
}

TEST_F(NoCategories, AfterTheLastOneWasRemovedASiteAsksForACategoryToo)
{
    folder.write(L"Work.udb", "A|a\r\n");
    start();
    Answers answers;
    answers.expectBox(L"Vandrel", L"Remove category and all websites within?", IDYES, MB_ICONASTERISK);
    choose(mnuRemoveCategory);
    answers.expect(addCaption, typeSite(L"B", L"http://b/", L""));
    expectTheNoticeAndAnswer(answers, L"New");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.names(), Lines{L"New.udb"});
    EXPECT_EQ(folder.read(L"New.udb"), "B|http://b/||11/16/2002\r\n");
}

} // namespace
} // namespace vandrel::test
