#include "tests/support/html_test.h"
#include "tests/support/message_watch.h"
#include "tests/support/wine.h"

#include <filesystem>

namespace vandrel::test {
namespace {

class HtmlCurrentTest : public HtmlTest {
  protected:
    void startWith(const std::string& bytes)
    {
        folder.write(L"Work.udb", bytes);
        start();
    }
    // Three sites, not in the order of their names.
    void startWithThree()
    {
        startWith("Beta|http://b/|second|1/1/2001\r\nAlpha|http://c/|first|1/2/2001\r\n"
                  "Gamma|http://a/|third|1/3/2001\r\n");
    }
    std::string page() { return pageOf(mnuCurrentCat); }
};

// ---- the dialog

TEST_F(HtmlCurrentTest, AsksForTheFileUnderItsTitleForPages)
{
    startWithThree();
    HWND owner = nullptr;
    std::wstring kind;
    create(mnuCurrentCat, [&](HWND dialog) {
        owner = GetWindow(dialog, GW_OWNER);
        EXPECT_FALSE(IsWindowEnabled(owner));
        EXPECT_EQ(windowText(GetDlgItem(dialog, html::nameField)), L"");
        const HWND list = GetDlgItem(dialog, html::filterList);
        EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 1);
        kind = windowText(list);
        cancel(dialog);
    });
    EXPECT_EQ(owner, main->handle());
    EXPECT_EQ(kind, L"HTML Files (*.htm)");
}

TEST_F(HtmlCurrentTest, TheDialogOffersPagesOnly)
{
    if (!runsUnderWine()) GTEST_SKIP() << "the file list of this system's dialog cannot be read";
    startWithThree();
    target.write(L"page.htm", "");
    target.write(L"page.txt", "");
    const CurrentFolder here(target.path());
    Lines shown;
    create(mnuCurrentCat, [&](HWND dialog) {
        const HWND view = FindWindowExW(dialog, nullptr, L"SHELLDLL_DefView", nullptr);
        const HWND list = FindWindowExW(view, nullptr, WC_LISTVIEWW, nullptr);
        const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
        for (int item = 0; item < count; ++item) {
            wchar_t text[MAX_PATH]{};
            LVITEMW row{};
            row.pszText = text;
            row.cchTextMax = MAX_PATH;
            SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&row));
            shown.emplace_back(text);
        }
        cancel(dialog);
    });
    EXPECT_EQ(shown, Lines{L"page.htm"});
}

TEST_F(HtmlCurrentTest, CancellingChangesNothingAndShowsNothing)
{
    startWithThree();
    lstInfo().select(1);
    const std::wstring before = outcome();
    const std::size_t maximum = workspace().PB.maximum();
    const CurrentFolder here(target.path());
    for (const int entry : {mnuCurrentCat, mnuAllCats}) {
        bool barShown = false;
        const MessageWatch bar(workspace().PB.handle(), WM_SHOWWINDOW, [&] { barShown = true; });
        create(entry, cancel);
        EXPECT_FALSE(barShown);
    }
    EXPECT_EQ(outcome(), before);
    EXPECT_EQ(workspace().PB.maximum(), maximum);
    EXPECT_EQ(lstInfo().currentRow(), 1U);
    EXPECT_EQ(target.names(), Lines{});
    EXPECT_EQ(folder.names(), Lines{L"Work.udb"});
}

TEST_F(HtmlCurrentTest, NoExtensionIsForced)
{
    startWithThree();
    for (const wchar_t* const name : {L"page", L"page.txt", L"page.html", L"PAGE 2.HTM"}) {
        create(mnuCurrentCat, naming(target.file(name)), no);
    }
    EXPECT_EQ(target.names(), (Lines{L"PAGE 2.HTM", L"page", L"page.html", L"page.txt"}));
}

TEST_F(HtmlCurrentTest, AFileIsNamedAsTheSystemNamesIt)
{
    startWithThree();
    create(mnuCurrentCat, naming(target.file(L"page.")), no);
    create(mnuCurrentCat, naming(target.file(L"blank.htm ")), no);
    EXPECT_EQ(target.names(), (Lines{L"blank.htm", L"page"}));
    // If a file got such a name after all, nothing else could remove it.
    for (const wchar_t* const name : {L"page.", L"blank.htm "}) {
        EXPECT_FALSE(DeleteFileW((L"\\\\?\\" + target.file(name)).c_str()));
    }
}

TEST_F(HtmlCurrentTest, AFileNameMayHaveLettersThatTheCodePageLacks)
{
    startWithThree();
    create(mnuCurrentCat, naming(target.file(L"\u65E5\u672C\u8A9E.htm")), no);
    EXPECT_EQ(target.names(), Lines{L"\u65E5\u672C\u8A9E.htm"});
}

TEST_F(HtmlCurrentTest, ALongerFileIsReplacedWholeWithoutAQuestion)
{
    startWithThree();
    target.write(L"page.htm", std::string(100'000, 'x'));
    const std::string bytes = page();
    EXPECT_TRUE(bytes.starts_with(html::header));
    EXPECT_TRUE(bytes.ends_with(html::footer));
    EXPECT_EQ(bytes.find("xx"), std::string::npos);
    EXPECT_EQ(target.names(), Lines{L"page.htm"});
}

TEST_F(HtmlCurrentTest, TheCurrentDirectoryStaysWhatItWas)
{
    startWithThree();
    const CurrentFolder here(folder.path());
    page();
    EXPECT_EQ(std::filesystem::current_path().wstring(), folder.path());
}

// ---- the page

TEST_F(HtmlCurrentTest, APageHasEachSiteOfTheListAndNoTitle)
{
    startWithThree();
    EXPECT_EQ(page(), html::header + html::row("Beta", "http://b/", "second") +
                          html::row("Alpha", "http://c/", "first") +
                          html::row("Gamma", "http://a/", "third") + html::footer);
}

TEST_F(HtmlCurrentTest, SitesComeInTheOrderThatIsShown)
{
    startWithThree();
    siteRows().sortBy(0, SortOrder::descending);
    EXPECT_EQ(page(), html::header + html::row("Gamma", "http://a/", "third") +
                          html::row("Beta", "http://b/", "second") +
                          html::row("Alpha", "http://c/", "first") + html::footer);
    siteRows().sortBy(1, SortOrder::ascending);
    EXPECT_EQ(page(), html::header + html::row("Gamma", "http://a/", "third") +
                          html::row("Beta", "http://b/", "second") +
                          html::row("Alpha", "http://c/", "first") + html::footer);
    siteRows().sortBy(2, SortOrder::ascending);
    EXPECT_EQ(page(), html::header + html::row("Alpha", "http://c/", "first") +
                          html::row("Beta", "http://b/", "second") +
                          html::row("Gamma", "http://a/", "third") + html::footer);
}

TEST_F(HtmlCurrentTest, ThePageIsMadeOfTheListNotOfTheFile)
{
    startWith("");
    siteRows().add({L"shown", L"http://s/", L"only", L"1/1/2001"}, siteImage);
    folder.write(L"Work.udb", "stored|http://f/||\r\n");
    EXPECT_EQ(page(), html::header + html::row("shown", "http://s/", "only") + html::footer);
    EXPECT_EQ(sites(), Lines{L"shown|http://s/|only|1/1/2001"});
    EXPECT_EQ(folder.read(L"Work.udb"), "stored|http://f/||\r\n");
}

TEST_F(HtmlCurrentTest, ACategoryWithoutSitesIsAPageWithoutRows)
{
    startWith("");
    EXPECT_EQ(page(), html::header + html::footer);
    workspace().options.generateEmpty = true;
    EXPECT_EQ(page(), html::header + html::footer);
}

TEST_F(HtmlCurrentTest, WithoutACategoryThePageHasHeaderAndFooterOnly)
{
    start();
    EXPECT_EQ(page(), html::header + html::footer);
    EXPECT_EQ(outcome(), L"HTML Generated.");
}

TEST_F(HtmlCurrentTest, MarkupIsWrittenAsItIs)
{
    startWith("a < b & c|http://x/?a=1&b=2|<b>bold</b> &amp; \"quoted\"|1/1/2001\r\n");
    EXPECT_EQ(page(), html::header +
                          html::row("a < b & c", "http://x/?a=1&b=2", "<b>bold</b> &amp; \"quoted\"") +
                          html::footer);
}

TEST_F(HtmlCurrentTest, FontWidthAndBorderAreTheCurrentOptions)
{
    setPreference(L"Options", L"HTMLFont", L"Tahoma");
    setPreference(L"Options", L"HTMLTWidth", L"600");
    setPreference(L"Options", L"HTMLBorder", L"2");
    startWith("");
    EXPECT_TRUE(page().starts_with("<font face=\"Tahoma\"><table align=center width=600 border=2 border"));
    workspace().options.htmlFont = L"Courier New";
    workspace().options.htmlTableWidth = L"100%";
    workspace().options.htmlBorder = -3;
    EXPECT_TRUE(
        page().starts_with("<font face=\"Courier New\"><table align=center width=100% border=-3 border"));
}

TEST_F(HtmlCurrentTest, TextIsWrittenInTheAnsiCodePageAndLettersOutsideAsQuestionMarks)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
    startWith("");
    workspace().options.htmlFont = L"\u6587";
    siteRows().add({L"\u00C4\u20AC\u65E5\u672C", L"http://\u00F6/\u0416", L"\u0100\uFF5C\u201C", L""},
                   siteImage);
    const std::string bytes = page();
    EXPECT_TRUE(bytes.starts_with("<font face=\"?\">"));
    EXPECT_TRUE(bytes.ends_with(html::row("\xC4\x80??", "http://\xF6/?", "??\x93") + html::footer));
}

TEST_F(HtmlCurrentTest, DamagedLettersOfAFileComeOutAsTheyCameIn)
{
    startWith("a\x81"
              "b|http://x/|\x8D|1/1/2001\r\n");
    EXPECT_EQ(page(), html::header +
                          html::row("a\x81"
                                    "b",
                                    "http://x/", "\x8D") +
                          html::footer);
}

// ---- progress bar and status bar

TEST_F(HtmlCurrentTest, TheBarCountsTheCategoriesStandsStillAndDisappearsAfterTheQuestion)
{
    folder.write(L"Home.udb", "");
    folder.write(L"Zoo.udb", "");
    startWithThree();
    workspace().PB.setMaximum(77);
    workspace().PB.setValue(0);
    bool moved = false;
    const MessageWatch watch(workspace().PB.handle(), PBM_SETPOS, [&] { moved = true; });
    const std::wstring before = outcome();
    create(mnuCurrentCat, naming(target.file(L"page.htm")), [&](Answers& answers) {
        answers.expect(html::questionTitle, [&](HWND box) {
            EXPECT_TRUE(barIsVisible());
            EXPECT_EQ(workspace().PB.maximum(), 3U);
            EXPECT_EQ(outcome(), before);
            EXPECT_TRUE(target.read(L"page.htm").ends_with(html::footer));
            press(box, IDNO);
        });
    });
    EXPECT_FALSE(moved);
    EXPECT_FALSE(barIsVisible());
    EXPECT_EQ(workspace().PB.maximum(), 3U);
    EXPECT_EQ(outcome(), L"HTML Generated.");
}

TEST_F(HtmlCurrentTest, TheQuestionBelongsToTheWindowAndHasYesAndNo)
{
    startWithThree();
    create(mnuCurrentCat, naming(target.file(L"page.htm")), [&](Answers& answers) {
        answers.expect(html::questionTitle, [&](HWND box) {
            EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
            EXPECT_EQ(buttonsOf(box), (std::vector<int>{IDYES, IDNO}));
            press(box, IDNO);
        });
    });
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

} // namespace
} // namespace vandrel::test
