#include "store/saved_text.h"

#include "mainwindow/menu_entries.h"
#include "store/site_operations.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

// The list shows at once what the file now holds.
class SavedTexts : public StoreTest {
  protected:
    void startWithOne()
    {
        folder.write(L"Work.udb", "Old|http://old/|about|1/1/2001\r\n");
        start();
        lstInfo().select(0);
    }
    void expectListAsInTheFile()
    {
        const Lines shown = sites();
        clickCategory(L"Work");
        EXPECT_EQ(sites(), shown);
    }
};

TEST_F(SavedTexts, LettersOutsideTheCodePageAreQuestionMarksInANewRow)
{
    startWithOne();
    Answers answers;
    answers.expect(addCaption, typeSite(L"\u6f22\u5b57 caf\u00e9", L"http://\u0416/", L"\u05d0"));
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites()[0], L"?? caf\u00e9|http://?/|?|11/16/2002");
    expectListAsInTheFile();
}

TEST_F(SavedTexts, LettersOutsideTheCodePageAreQuestionMarksInAnEditedRow)
{
    startWithOne();
    Answers answers;
    answers.expect(editCaption, typeSite(L"\u0416", L"http://x/", L"\u6f22"));
    choose(mnuEditSel);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), Lines{L"?|http://x/|?|11/16/2002"});
    expectListAsInTheFile();
}

TEST_F(SavedTexts, LettersOutsideTheCodePageAreQuestionMarksInADescription)
{
    startWithOne();
    Answers answers;
    answers.expectInput(L"Enter Description", L"Enter a new description for this site.", L"\u0416 one");
    EditDescription(workspace());
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), Lines{L"Old|http://old/|? one|1/1/2001"});
    expectListAsInTheFile();
}

TEST_F(SavedTexts, ALinkOfSeveralLinesIsOneRecord)
{
    startWithOne();
    workspace().site.IncomingLink = L"http://a/\r\nhttp://b/\nhttp://c/\rd~-~First\r\nSecond";
    Answers answers;
    answers.expect(addCaption, [](HWND dialog) { press(dialog, IDOK); });
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites()[0], L"First Second|http://a/ http://b/ http://c/ d||11/16/2002");
    expectListAsInTheFile();
}

TEST_F(SavedTexts, ALineEndThatIsTypedBecomesABlankAndUntouchedTextsStay)
{
    folder.write(L"Work.udb", "a\rb|http://x/|c|1/1/2001\r\n");
    start();
    lstInfo().select(0);
    Answers answers;
    answers.expect(editCaption, [](HWND dialog) {
        SetWindowTextW(GetDlgItem(dialog, editor::description), L"d\r\ne");
        press(dialog, IDOK);
    });
    choose(mnuEditSel);
    EXPECT_ANSWERED(answers);
    const std::string saved = folder.read(L"Work.udb");
    EXPECT_TRUE(saved.starts_with("a\rb|http://x/|d")) << saved;
    EXPECT_EQ(std::ranges::count(saved, '\n'), 1);
    expectListAsInTheFile();
}

TEST_F(SavedTexts, ABarInAnEditedTextStaysABar)
{
    startWithOne();
    Answers answers;
    answers.expect(editCaption, typeSite(L"a|b", L"http://x/", L"c"));
    choose(mnuEditSel);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "a|b|http://x/|c|11/16/2002\r\n");
}

} // namespace
} // namespace vandrel::test
