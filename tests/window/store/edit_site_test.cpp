#include "mainwindow/menu_entries.h"
#include "platform/controls/status_bar.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class EditingASite : public StoreTest {
  protected:
    void startWithTwo()
    {
        folder.write(L"Work.udb", "B|http://b/|two|1/1/2001\r\nA|http://a/|one|1/1/2001\r\n");
        start();
    }
    void edit(std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(editCaption, std::move(answer));
        choose(mnuEditSel);
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(EditingASite, TheEditorShowsWhatIsStored)
{
    startWithTwo();
    selectSites({1});
    edit([](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"A");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://a/");
        EXPECT_EQ(fieldText(dialog, editor::description), L"one");
        press(dialog, IDCANCEL);
    });
}

TEST_F(EditingASite, StoresTheTextsDatesTheSiteTodayAndSaves)
{
    startWithTwo();
    selectSites({1});
    edit(typeSite(L"New", L"http://new/", L"text"));
    EXPECT_EQ(sites(), (Lines{L"B|http://b/|two|1/1/2001", L"New|http://new/|text|11/16/2002"}));
    EXPECT_EQ(folder.read(L"Work.udb"), "B|http://b/|two|1/1/2001\r\nNew|http://new/|text|11/16/2002\r\n");
}

TEST_F(EditingASite, TheStatusBarNamesTheSiteAsItIsNow)
{
    startWithTwo();
    selectSites({1});
    lstInfo().ItemClick(1);
    const auto panel = [this](int number) { return workspace().StatusBar1.panelText(number); };
    edit(typeSite(L"New", L"http://new/", L"text"));
    EXPECT_EQ(panel(2), L"Name: New  ");
    EXPECT_EQ(panel(3), L"URL: http://new/  ");
}

TEST_F(EditingASite, TheStatusBarGoesOnNamingAnotherSite)
{
    startWithTwo();
    selectSites({0});
    pump();              // the click that follows is posted
    lstInfo().select(1); // as the quick search does
    edit(typeSite(L"New", L"http://new/", L"text"));
    EXPECT_EQ(workspace().StatusBar1.panelText(2), L"Name: B  ");
    EXPECT_EQ(workspace().StatusBar1.panelText(3), L"URL: http://b/  ");
}

TEST_F(EditingASite, AcceptingWithoutAChangeDatesItTodayToo)
{
    startWithTwo();
    selectSites({0});
    edit(pressing(IDOK));
    EXPECT_EQ(folder.read(L"Work.udb"), "B|http://b/|two|11/16/2002\r\nA|http://a/|one|1/1/2001\r\n");
}

TEST_F(EditingASite, CancelChangesNothingAndWritesNothing)
{
    startWithTwo();
    selectSites({0});
    folder.write(L"Work.udb", "untouched");
    edit([](HWND dialog) {
        typeOver(dialog, editor::name, L"typed");
        press(dialog, IDCANCEL);
    });
    EXPECT_EQ(sites(), (Lines{L"B|http://b/|two|1/1/2001", L"A|http://a/|one|1/1/2001"}));
    EXPECT_EQ(folder.read(L"Work.udb"), "untouched");
}

TEST_F(EditingASite, EndsEditModeEitherWayAndLeavesTheCancelFlagAsItIs)
{
    startWithTwo();
    selectSites({0});
    edit(pressing(IDCANCEL));
    EXPECT_FALSE(workspace().site.SiteEditMode);
    EXPECT_TRUE(workspace().site.SiteDialogCancelled);
    edit(pressing(IDOK));
    EXPECT_FALSE(workspace().site.SiteEditMode);
    EXPECT_FALSE(workspace().site.SiteDialogCancelled);
}

TEST_F(EditingASite, AddingAfterwardsOpensTheEditorForANewSite)
{
    startWithTwo();
    selectSites({0});
    edit(pressing(IDCANCEL));
    Answers answers;
    answers.expect(addCaption, [](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://");
        EXPECT_EQ(fieldText(dialog, editor::description), L"");
        press(dialog, IDOK);
    });
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(EditingASite, ASeparatorIsWrittenAsTyped)
{
    startWithTwo();
    selectSites({0});
    edit(typeSite(L"B|x", L"http://b/", L"two"));
    EXPECT_EQ(folder.read(L"Work.udb"), "B|x|http://b/|two|11/16/2002\r\nA|http://a/|one|1/1/2001\r\n");
}

TEST_F(EditingASite, OfSeveralSelectedSitesTheCurrentOneAloneChanges)
{
    startWithTwo();
    selectSites({1, 0});
    edit(typeSite(L"New", L"http://new/", L"text"));
    EXPECT_EQ(sites(), (Lines{L"New|http://new/|text|11/16/2002", L"A|http://a/|one|1/1/2001"}));
}

TEST_F(EditingASite, KeepsItsPlaceAndItsSelection)
{
    startWithTwo();
    selectSites({0});
    edit(typeSite(L"zzz", L"zzz", L""));
    EXPECT_EQ(lstInfo().text(0), L"zzz");
    EXPECT_EQ(lstInfo().currentRow(), std::optional<std::size_t>(0));
}

TEST_F(EditingASite, WithoutASelectedSiteNoEditorOpens)
{
    startWithTwo();
    Answers answers;
    choose(mnuEditSel);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(workspace().site.SiteEditMode);
    EXPECT_EQ(lstInfo().count(), 2U);
}

TEST_F(EditingASite, UntouchedTextsAreStoredUnchanged)
{
    const std::string odd("O\0d\td|http://o/\n|one\rtwo\x1A\x81|1\r\n", 30);
    folder.write(L"Work.udb", odd);
    start();
    selectSites({0});
    today = L"1";
    edit(pressing(IDOK));
    EXPECT_EQ(folder.read(L"Work.udb"), odd);
}

TEST_F(EditingASite, ATextLongerThanTheBoxAcceptsIsKeptWhole)
{
    const std::string bytes = "A|a|" + std::string(200'000, 'x') + "|1\r\n";
    folder.write(L"Work.udb", bytes);
    start();
    selectSites({0});
    today = L"1";
    edit(pressing(IDOK));
    EXPECT_TRUE(folder.read(L"Work.udb") == bytes);
}

TEST_F(EditingASite, AWaitingLinkIsNotShownAndIsGoneAfterwards)
{
    startWithTwo();
    selectSites({0});
    workspace().site.IncomingLink = L"http://waiting/~-~Waiting";
    edit([](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"B");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://b/");
        press(dialog, IDCANCEL);
    });
    EXPECT_EQ(workspace().site.IncomingLink, L"");
}

TEST_F(EditingASite, WhenTheFileCannotBeWrittenTheListShowsTheUnsavedTexts)
{
    startWithTwo();
    const std::string before = folder.read(L"Work.udb");
    makeReadOnly(L"Work.udb");
    selectSites({0});
    Answers answers;
    answers.expect(editCaption, typeSite(L"N", L"n", L"x"));
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuEditSel);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites().front(), L"N|n|x|11/16/2002");
    EXPECT_EQ(folder.read(L"Work.udb"), before);
    EXPECT_FALSE(workspace().site.SiteEditMode);
}

} // namespace
} // namespace vandrel::test
