#include "tests/support/html_test.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_clock.h"

namespace vandrel::test {
namespace {

class HtmlAllTest : public HtmlTest {
  protected:
    // Starts with a category of two sites, an empty one and one of a single site, in this order. The last
    // is selected.
    void startWithThree()
    {
        folder.write(L"Arts.udb", "b|http://b/|B|1/1/2001\r\na|http://a/|A|1/2/2001\r\n");
        folder.write(L"Bare.udb", "");
        folder.write(L"Cars.udb", "c|http://c/|C|1/3/2001\r\n");
        start();
        categoryRows().sortBy(0, SortOrder::ascending);
        clickCategory(L"Cars");
    }
    std::string page() { return pageOf(mnuAllCats); }
    std::wstring caption() { return windowText(main->handle()); }
    // The titles that are shown with an open folder.
    Lines openFolders()
    {
        Lines open;
        for (std::size_t row = 0; row < lstCategory().count(); ++row) {
            if (categoryRows().image(row) == openFolderImage) open.push_back(lstCategory().text(row));
        }
        return open;
    }
    // The selected rows according to the native control.
    std::vector<LRESULT> nativeSelection(ListView& list)
    {
        std::vector<LRESULT> rows;
        for (LRESULT row = -1;;) {
            row = SendMessageW(list.handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
            if (row < 0) return rows;
            rows.push_back(row);
        }
    }

    const std::string arts = html::title("Arts") + html::row("b", "http://b/", "B") +
                             html::row("a", "http://a/", "A");
    const std::string bare = html::title("Bare");
    const std::string cars = html::title("Cars") + html::row("c", "http://c/", "C");
};

// ---- the page

TEST_F(HtmlAllTest, EachCategoryComesUnderItsTitleAndAnEmptyOneNotAtAll)
{
    startWithThree();
    EXPECT_EQ(page(), html::header + arts + cars + html::footer);
}

TEST_F(HtmlAllTest, EveryByteOfACategoryIsOnThePageAsItWas)
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        if (std::string_view("\r\n|;").find(static_cast<char>(byte)) == std::string_view::npos)
            bytes += static_cast<char>(byte);
    }
    folder.write(L"Work.udb", "n" + bytes + "|" + bytes + "|" + bytes + "|1/1/2001\r\n");
    start();
    EXPECT_EQ(page(),
              html::header + html::title("Work") + html::row("n" + bytes, bytes, bytes) + html::footer);
}

TEST_F(HtmlAllTest, WithTheOptionAnEmptyCategoryHasItsTitle)
{
    setPreference(L"Options", L"GenEmpty", L"1");
    startWithThree();
    EXPECT_EQ(page(), html::header + arts + bare + cars + html::footer);
}

TEST_F(HtmlAllTest, TheCurrentOptionCounts)
{
    startWithThree();
    EXPECT_EQ(page(), html::header + arts + cars + html::footer);
    workspace().options.generateEmpty = true;
    EXPECT_EQ(page(), html::header + arts + bare + cars + html::footer);
}

TEST_F(HtmlAllTest, OneCategoryOfOneSiteIsThreeLines)
{
    folder.write(L"Work.udb", "n|http://u/|d|1/1/2001\r\n");
    start();
    const std::string bytes = page();
    EXPECT_EQ(bytes, html::header + html::title("Work") + html::row("n", "http://u/", "d") + html::footer);
    EXPECT_EQ(std::ranges::count(bytes, '\n'), 3);
}

TEST_F(HtmlAllTest, CategoriesComeInTheOrderThatIsShown)
{
    startWithThree();
    categoryRows().sortBy(0, SortOrder::descending);
    EXPECT_EQ(page(), html::header + cars + arts + html::footer);
    EXPECT_EQ(selectedTitle(), L"Cars");
    EXPECT_EQ(titles(), (Lines{L"Cars", L"Bare", L"Arts"}));
}

TEST_F(HtmlAllTest, SitesAreReadFromEachFileInItsOrder)
{
    startWithThree();
    clickCategory(L"Arts");
    siteRows().sortBy(0, SortOrder::ascending);
    folder.write(L"Cars.udb", "z|http://z/||\r\ny|http://y/||\r\n");
    EXPECT_EQ(page(), html::header + arts + html::title("Cars") + html::row("z", "http://z/", "") +
                          html::row("y", "http://y/", "") + html::footer);
}

TEST_F(HtmlAllTest, AMissingFileIsAnEmptyCategory)
{
    startWithThree();
    DeleteFileW(folder.file(L"Arts.udb").c_str());
    EXPECT_EQ(page(), html::header + cars + html::footer);
    workspace().options.generateEmpty = true;
    EXPECT_EQ(page(), html::header + html::title("Arts") + bare + cars + html::footer);
    EXPECT_FALSE(folder.has(L"Arts.udb"));
}

TEST_F(HtmlAllTest, WithoutCategoriesThePageHasHeaderAndFooterOnly)
{
    start();
    EXPECT_EQ(page(), html::header + html::footer);
    EXPECT_EQ(outcome(), L"HTML Generated.");
    EXPECT_FALSE(barIsVisible());
}

TEST_F(HtmlAllTest, ATitleIsWrittenAsItIsAndInTheAnsiCodePage)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
    folder.write(L"\u00C4 & b \u65E5\u672C.udb", "n|http://u/|d|\r\n");
    start();
    EXPECT_EQ(page(),
              html::header + html::title("\xC4 & b ??") + html::row("n", "http://u/", "d") + html::footer);
}

TEST_F(HtmlAllTest, NoFileOfACategoryIsWritten)
{
    startWithThree();
    const std::string before = folder.read(L"Arts.udb");
    for (const wchar_t* const name : {L"Arts.udb", L"Bare.udb", L"Cars.udb"}) makeReadOnly(name);
    page();
    EXPECT_EQ(folder.read(L"Arts.udb"), before);
    EXPECT_EQ(folder.names(), (Lines{L"Arts.udb", L"Bare.udb", L"Cars.udb"}));
}

// ---- what the window shows afterwards

TEST_F(HtmlAllTest, TheCategoryThatWasSelectedIsShownAgain)
{
    startWithThree();
    for (const wchar_t* const title : {L"Arts", L"Bare", L"Cars"}) {
        clickCategory(title);
        const Lines before = sites();
        const auto row = lstCategory().currentRow();
        page();
        EXPECT_EQ(selectedTitle(), title);
        EXPECT_EQ(sites(), before);
        EXPECT_EQ(caption(), std::wstring(L"Vandrel - ") + title);
        EXPECT_EQ(openFolders(), Lines{title});
        EXPECT_EQ(nativeSelection(lstCategory()), std::vector<LRESULT>{static_cast<LRESULT>(*row)});
        EXPECT_EQ(SendMessageW(lstInfo().handle(), LVM_GETITEMCOUNT, 0, 0),
                  static_cast<LRESULT>(before.size()));
    }
}

TEST_F(HtmlAllTest, OfTwoTitlesAlikeThatOfTheSameRowIsSelectedAgain)
{
    folder.write(L"Same.udb", "s|http://s/||\r\n");
    folder.write(L"Other.udb", "");
    start();
    categoryRows().add({L"Same"}, closedFolderImage);
    lstCategory().select(2);
    lstCategory().ItemClick(2);
    page();
    EXPECT_EQ(lstCategory().currentRow(), 2U);
}

TEST_F(HtmlAllTest, TheSelectedCategoryIsReadAgain)
{
    startWithThree();
    siteRows().add({L"not saved", L"http://n/", L"", L""}, siteImage);
    lstInfo().select(0);
    page();
    EXPECT_EQ(sites(), Lines{L"c|http://c/|C|1/3/2001"});
    EXPECT_EQ(folder.read(L"Cars.udb"), "c|http://c/|C|1/3/2001\r\n");
}

TEST_F(HtmlAllTest, TheSelectedCategoryIsInSightAgain)
{
    for (int i = 100; i < 300; ++i) folder.write(L"C" + std::to_wstring(i) + L".udb", "n|http://u/||\r\n");
    start();
    categoryRows().sortBy(0, SortOrder::ascending);
    clickCategory(L"C150");
    page();
    EXPECT_EQ(selectedTitle(), L"C150");
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    SendMessageW(lstCategory().handle(), LVM_GETITEMRECT, 50, reinterpret_cast<LPARAM>(&row));
    RECT list{};
    GetClientRect(lstCategory().handle(), &list);
    EXPECT_GE(row.top, 0);
    EXPECT_LE(row.bottom, list.bottom);
}

TEST_F(HtmlAllTest, AFirstCategoryThatWasNotClickedStaysUnclicked)
{
    start();
    Answers answers;
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"First");
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    const std::wstring before = caption();
    const std::wstring selected = selectedTitle();
    page();
    EXPECT_EQ(caption(), before);
    EXPECT_EQ(selectedTitle(), selected);
}

TEST_F(HtmlAllTest, WithoutAShownCategoryThePageIsWrittenAndNoneIsShownAfterwards)
{
    startWithThree();
    clickCategory(L"Arts");
    showNoCategory(workspace());
    const std::wstring before = caption();
    EXPECT_EQ(page(), html::header + arts + cars + html::footer);
    EXPECT_EQ(caption(), before);
    EXPECT_EQ(selectedTitle(), L"(none)");
    EXPECT_EQ(nativeSelection(lstCategory()), std::vector<LRESULT>{});
    EXPECT_EQ(openFolders(), Lines{});
    EXPECT_EQ(outcome(), L"HTML Generated.");
}

// ---- progress bar and status bar

TEST_F(HtmlAllTest, TheBarAdvancesWithEachCategoryAndDisappearsAfterTheQuestion)
{
    startWithThree();
    workspace().PB.setMaximum(77);
    std::vector<std::size_t> values;
    bool visible = true;
    TestClock clock;
    const MessageWatch watch(workspace().PB.handle(), PBM_SETPOS, [&] {
        clock.pass(100); // long enough for each to be shown
        values.push_back(workspace().PB.value());
        visible = visible && barIsVisible();
        EXPECT_EQ(workspace().PB.maximum(), 3U);
    });
    const std::wstring before = outcome();
    create(mnuAllCats, naming(target.file(L"page.htm")), [&](Answers& answers) {
        answers.expect(html::questionTitle, [&](HWND box) {
            EXPECT_TRUE(barIsVisible());
            EXPECT_EQ(outcome(), before);
            EXPECT_EQ(target.read(L"page.htm"), html::header + arts + cars + html::footer);
            EXPECT_EQ(selectedTitle(), L"Cars");
            press(box, IDNO);
        });
    });
    EXPECT_EQ(values, (std::vector<std::size_t>{1, 2, 3}));
    EXPECT_TRUE(visible);
    EXPECT_FALSE(barIsVisible());
    EXPECT_EQ(outcome(), L"HTML Generated.");
}

TEST_F(HtmlAllTest, AWindowThatIsKeptOnTopStaysThere)
{
    setPreference(L"Config", L"KeepTop", L"1");
    startWithThree();
    page();
    EXPECT_NE(GetWindowLongPtrW(main->handle(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

} // namespace
} // namespace vandrel::test
