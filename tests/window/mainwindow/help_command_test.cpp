#include "shared/vendor.h"
#include "tests/support/link_test.h"

namespace vandrel::test {
namespace {

class HelpCommand : public LinkTest {
  protected:
    void expectItIsMissing()
    {
        Answers answers;
        answers.expectBox(L"Error Opening Help",
                          L"Could not find help file. Please visit\r\n" + makersSite +
                              L"/getpage.php?page=vandrel for help.",
                          IDOK, MB_ICONASTERISK);
        choose(mnuViewHelp);
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(recorder.nothingWasStarted());
    }
};

TEST_F(HelpCommand, OpensTheHelpPageBesideTheProgram)
{
    folder.write(L"help.html", "<html></html>");
    start();
    Answers none;
    choose(mnuViewHelp);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(folder.path() + L"\\help.html")});
}

TEST_F(HelpCommand, WithoutTheHelpPageSaysOnTwoLinesWhereToFindOne)
{
    start();
    expectItIsMissing();
}

TEST_F(HelpCommand, DoesNotMistakeAFolderForTheHelpPage)
{
    makeFolder(L"help.html");
    start();
    expectItIsMissing();
}

TEST_F(HelpCommand, TheMessageHasOnlyAnOkButtonAndBelongsToTheMainWindow)
{
    start();
    Answers answers;
    answers.expect(L"Error Opening Help", [&](HWND box) {
        EXPECT_EQ(buttonsOf(box), std::vector<int>{IDOK});
        EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
        press(box, IDOK);
    });
    choose(mnuViewHelp);
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
