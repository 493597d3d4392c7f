#include "mainwindow/menu_entries.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

class AddingASite : public StoreTest {
  protected:
    void add(const std::wstring& name, const std::wstring& url, const std::wstring& description)
    {
        Answers answers;
        answers.expect(addCaption, typeSite(name, url, description));
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(AddingASite, DatesItTodayAndWritesTheFileInUrlOrder)
{
    folder.write(L"Work.udb", "C|http://c/|three|1/1/2001\r\nB|http://b/|two|1/1/2001\r\n");
    start();
    today = L"12/31/2002";
    add(L"Z", L"http://a/", L"one");
    EXPECT_EQ(folder.read(L"Work.udb"),
              "Z|http://a/|one|12/31/2002\r\nB|http://b/|two|1/1/2001\r\nC|http://c/|three|1/1/2001\r\n");
    EXPECT_EQ(sites().front(), L"Z|http://a/|one|12/31/2002");
    EXPECT_EQ(siteRows().image(0), 1);
}

TEST_F(AddingASite, SwitchesSortingOnByUrlWhateverColumnWasSortedBefore)
{
    folder.write(L"Work.udb", "A|3||\r\nB|2||\r\n");
    start();
    lstInfo().ColumnClick(0);
    lstInfo().ColumnClick(0); // ascending by name
    add(L"C", L"1", L"");
    EXPECT_TRUE(siteRows().sorted());
    EXPECT_EQ(siteRows().sortKey(), 1U);
    EXPECT_EQ(siteRows().sortOrder(), SortOrder::ascending);
    EXPECT_EQ(column(lstInfo()), (Lines{L"C", L"B", L"A"}));
}

TEST_F(AddingASite, ScrollsToItAndSelectsNothing)
{
    std::string lines;
    for (int i = 100; i < 400; ++i) lines += "n|http://b" + std::to_string(i) + "/||\r\n";
    folder.write(L"Work.udb", lines);
    start();
    const auto inView = [this](const std::wstring& name) {
        const Lines names = column(lstInfo());
        const auto row = std::ranges::find(names, name) - names.begin();
        const auto top = SendMessageW(lstInfo().handle(), LVM_GETTOPINDEX, 0, 0);
        return row >= top && row < top + SendMessageW(lstInfo().handle(), LVM_GETCOUNTPERPAGE, 0, 0);
    };
    for (const auto& [name, url] : {std::pair(L"last", L"http://c/"), std::pair(L"first", L"http://a/"),
                                    std::pair(L"middle", L"http://b250/x")}) {
        add(name, url, L"");
        EXPECT_TRUE(inView(name)) << testing::PrintToString(std::wstring(name));
        EXPECT_EQ(lstInfo().selectedCount(), 0U);
    }
}

TEST_F(AddingASite, KeepsADescendingOrder)
{
    folder.write(L"Work.udb", "A|3||\r\nB|1||\r\n");
    start();
    lstInfo().ColumnClick(0); // descending
    add(L"C", L"2", L"");
    EXPECT_EQ(siteRows().sortOrder(), SortOrder::descending);
    EXPECT_EQ(folder.read(L"Work.udb"), "A|3||\r\nC|2||11/16/2002\r\nB|1||\r\n");
}

TEST_F(AddingASite, PutsTheNextOneIntoItsPlaceToo)
{
    folder.write(L"Work.udb", "");
    start();
    for (const wchar_t* const url : {L"m", L"z", L"a", L"n"}) add(url, url, L"");
    EXPECT_EQ(column(lstInfo(), 1), (Lines{L"a", L"m", L"n", L"z"}));
}

TEST_F(AddingASite, CancelChangesNothing)
{
    folder.write(L"Work.udb", "B|2||\r\nA|1||\r\n");
    start();
    Answers answers;
    answers.expect(addCaption, [](HWND dialog) {
        typeOver(dialog, editor::name, L"typed");
        press(dialog, IDCANCEL);
    });
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), (Lines{L"B|2||", L"A|1||"}));
    EXPECT_FALSE(siteRows().sorted());
    EXPECT_EQ(folder.read(L"Work.udb"), "B|2||\r\nA|1||\r\n");
    EXPECT_FALSE(workspace().site.SiteDialogCancelled) << "the mark of the cancelled editor is taken back";
    EXPECT_EQ(workspace().site.newSiteName, L"");
}

TEST_F(AddingASite, ResetsTheNewNameAndUrlButNotTheDescription)
{
    folder.write(L"Work.udb", "");
    start();
    add(L"A", L"http://a/", L"one");
    EXPECT_EQ(workspace().site.newSiteName, L"");
    EXPECT_EQ(workspace().site.newSiteURL, L"http://");
    EXPECT_EQ(workspace().site.newSiteDescription, L"one");
}

TEST_F(AddingASite, NothingOfThePreviousSiteComesBackInTheEditor)
{
    folder.write(L"Work.udb", "");
    start();
    add(L"A", L"http://a/", L"one");
    Answers answers;
    answers.expect(addCaption, pressing(IDOK));
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), (Lines{L"|http://||11/16/2002", L"A|http://a/|one|11/16/2002"}));
}

TEST_F(AddingASite, EmptyFieldsAreAccepted)
{
    folder.write(L"Work.udb", "");
    start();
    add(L"", L"", L"");
    EXPECT_EQ(folder.read(L"Work.udb"), "|||11/16/2002\r\n");
}

TEST_F(AddingASite, SeparatorsBecomeDashes)
{
    folder.write(L"Work.udb", "");
    start();
    add(L"a|b||", L"http://a|b/", L"|c|");
    EXPECT_EQ(folder.read(L"Work.udb"), "a-b--|http://a-b/|-c-|11/16/2002\r\n");
}

TEST_F(AddingASite, AWaitingLinkFillsUrlAndName)
{
    folder.write(L"Work.udb", "");
    start();
    workspace().site.IncomingLink = L"http://a/~-~A page";
    Answers answers;
    answers.expect(addCaption, pressing(IDOK));
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "A page|http://a/||11/16/2002\r\n");
    EXPECT_EQ(workspace().site.IncomingLink, L"");
}

TEST_F(AddingASite, ALinkOnTheCommandLineIsAdded)
{
    folder.write(L"Work.udb", "");
    Answers answers;
    std::wstring address;
    answers.expect(addCaption, [&](HWND dialog) {
        address = fieldText(dialog, editor::address);
        press(dialog, IDOK);
    });
    start(L"http://from.the.line/");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(address, L"http://from.the.line/");
    EXPECT_EQ(folder.read(L"Work.udb"), "|http://from.the.line/||11/16/2002\r\n");
}

TEST_F(AddingASite, TheSelectedSiteStaysSelectedInItsNewPlace)
{
    folder.write(L"Work.udb", "A|3||\r\nB|2||\r\n");
    start();
    selectSites({0});
    add(L"C", L"1", L"");
    ASSERT_EQ(lstInfo().selectedCount(), 1U);
    EXPECT_EQ(lstInfo().text(*lstInfo().currentRow()), L"A");
}

TEST_F(AddingASite, WhenTheFileCannotBeWrittenTheListShowsTheUnsavedSite)
{
    folder.write(L"Work.udb", "A|1||\r\n");
    start();
    makeReadOnly(L"Work.udb");
    Answers answers;
    answers.expect(addCaption, typeSite(L"B", L"2", L"x"));
    expectErrorBox(answers, 75, L"Path/File access error");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), (Lines{L"A|1||", L"B|2|x|11/16/2002"}));
    EXPECT_EQ(folder.read(L"Work.udb"), "A|1||\r\n");
    EXPECT_EQ(workspace().site.newSiteName, L"");
}

TEST_F(AddingASite, GoesToTheShownCategoryThoughTheNativeListHasNoneSelected)
{
    folder.write(L"Work.udb", "A|1||\r\n");
    start();
    lstCategory().clearSelection();
    Answers answers;
    answers.expect(addCaption, typeSite(L"B", L"2", L"x"));
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "A|1||\r\nB|2|x|11/16/2002\r\n");
    EXPECT_EQ(lstInfo().count(), 2U);
}

} // namespace
} // namespace vandrel::test
