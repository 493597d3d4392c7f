#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class CommandLine : public MainWindowTest {
  protected:
    // What the editor shows when it opens.
    struct Shown {
        std::wstring name, url;
        std::wstring ownerCaption;
        bool ownerVisible = false;
    };
    void expectEditor(Answers& answers, int button)
    {
        answers.expect(L"Add Site...", [this, button](HWND dialog) {
            const HWND owner = GetWindow(dialog, GW_OWNER);
            shown = {windowText(GetDlgItem(dialog, 101)), windowText(GetDlgItem(dialog, 102)),
                     windowText(owner), IsWindowVisible(owner) != 0};
            press(dialog, button);
        });
    }
    Shown shown;
};

TEST_F(CommandLine, OpensTheEditorWithItsTextAsTheLink)
{
    folder.write(L"Home.udb", threeSites);
    Answers answers;
    expectEditor(answers, IDCANCEL);
    start(L"http://x.example/a b?c=\"d\"");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown.url, L"http://x.example/a b?c=\"d\"");
    EXPECT_EQ(shown.name, L"");
}

TEST_F(CommandLine, IsHandledOnceTheFirstCategoryIsLoadedAndTheWindowVisible)
{
    folder.write(L"Home.udb", threeSites);
    Answers answers;
    expectEditor(answers, IDCANCEL);
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown.ownerCaption, L"Vandrel - Home");
    EXPECT_TRUE(shown.ownerVisible);
}

TEST_F(CommandLine, TheNewSiteGoesToTheFirstCategory)
{
    folder.write(L"Home.udb", "Old|http://y.example/|d|1/1/2001\r\n");
    folder.write(L"Work.udb", "");
    Answers answers;
    expectEditor(answers, IDOK);
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Home.udb"),
              "|http://x.example/||11/16/2002\r\nOld|http://y.example/|d|1/1/2001\r\n");
    EXPECT_EQ(folder.read(L"Work.udb"), "");
    EXPECT_EQ(lstInfo().count(), 2U);
}

TEST_F(CommandLine, ALinkWithATitleFillsTheNameToo)
{
    folder.write(L"Home.udb", "");
    Answers answers;
    expectEditor(answers, IDCANCEL);
    start(L"http://a/~-~A page");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown.url, L"http://a/");
    EXPECT_EQ(shown.name, L"A page");
}

TEST_F(CommandLine, ASwitchIsALinkLikeAnyOther)
{
    Answers answers;
    expectEditor(answers, IDCANCEL);
    start(L"/?");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(shown.url, L"/?");
}

TEST_F(CommandLine, AnEmptyOneOpensNothing)
{
    folder.write(L"Home.udb", threeSites);
    Answers none;
    start(L"");
    pump();
    EXPECT_ANSWERED(none);
}

TEST_F(CommandLine, CancellingTheEditorAddsNothingAndTheProgramStarts)
{
    folder.write(L"Home.udb", threeSites);
    Answers answers;
    expectEditor(answers, IDCANCEL);
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Home.udb"), threeSites);
    EXPECT_EQ(GetParent(main->workspace().PB.handle()), main->workspace().StatusBar1.handle());
    EXPECT_EQ(main->workspace().site.IncomingLink, L"");
}

TEST_F(CommandLine, WithoutCategoriesSavingAsksForOneAndTheSiteGoesThere)
{
    Answers answers;
    expectEditor(answers, IDOK);
    answers.expectBox(L"No Categories",
                      L"There are no categories. Please make a category before adding a site.", IDOK,
                      MB_ICONASTERISK);
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"First");
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"First.udb"), "|http://x.example/||11/16/2002\r\n");
    EXPECT_EQ(column(lstCategory()), std::vector<std::wstring>{L"First"});
}

TEST_F(CommandLine, AStoredPlaceAndFontAreRestoredBeforeTheEditorOpens)
{
    setPreference(L"Config", L"Left", L"1500");
    setPreference(L"Config", L"Width", L"12000");
    int left = -1;
    Answers answers;
    answers.expect(L"Add Site...", [&](HWND dialog) {
        left = outerPlace(GetWindow(dialog, GW_OWNER)).left;
        press(dialog, IDCANCEL);
    });
    start(L"http://x.example/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(left, px(*main, 1500));
}

} // namespace
} // namespace vandrel::test
