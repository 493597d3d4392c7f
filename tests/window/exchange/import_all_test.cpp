#include "tests/support/import_test.h"
#include "tests/support/message_watch.h"
#include "tests/support/test_clock.h"

namespace vandrel::test {
namespace {

class ImportOfAllFiles : public ImportTest {
  protected:
    void addThree()
    {
        addShortcut(L"b.url", "http://2/");
        addShortcut(L"A.url", "http://3/");
        addShortcut(L"c.url", "http://1/");
    }
    // The number of records in the file whenever another shortcut is reported as done.
    std::vector<std::size_t> recordsAfterEachFile()
    {
        std::vector<std::size_t> records;
        TestClock clock;
        open(
            [&](const ImportDialog& dialog) {
                const MessageWatch watch(dialog.progressBar(), PBM_SETPOS, [&] {
                    clock.pass(100); // long enough for each to be shown
                    records.push_back(static_cast<std::size_t>(std::ranges::count(saved(), '\n')));
                });
                dialog.press(importer::importAll);
            },
            [](Answers& answers) { expectReminder(answers); });
        return records;
    }
    // Holds the file so that reading it fails, presses Import All, and lets `then` look at the result.
    void failAt(const std::wstring& file, std::function<void(const ImportDialog&)> then)
    {
        std::optional<HeldFile> held;
        open(
            [&](const ImportDialog& dialog) {
                held.emplace(favorites.file(file));
                dialog.press(importer::importAll);
                held.reset();
            },
            [&](Answers& answers) {
                expectErrorBox(answers, 70, L"Permission denied");
                answers.expect(importer::caption, inDialog(std::move(then)));
            });
    }
};

TEST_F(ImportOfAllFiles, GivesTheKeyboardBack)
{
    startEmpty();
    addThree();
    lstInfo().setFocus();
    importAll();
    EXPECT_EQ(GetActiveWindow(), main->handle());
    EXPECT_EQ(GetFocus(), lstInfo().handle());
}

TEST_F(ImportOfAllFiles, AddsEveryFileOfTheFolderAndRemindsOfTheDescriptions)
{
    startWith("B|http://25/|old|1\r\n");
    addThree();
    favorites.write(L"note.txt", "[InternetShortcut]\r\nURL=http://none/\r\n");
    importAll();
    EXPECT_EQ(saved(), "c|http://1/||\r\nb|http://2/||\r\nB|http://25/|old|1\r\nA|http://3/||\r\n");
    EXPECT_EQ(outcome(), L"Import succeeded!");
}

TEST_F(ImportOfAllFiles, WritesTheCategoryOnceForEachFile)
{
    startEmpty();
    addThree();
    EXPECT_EQ(recordsAfterEachFile(), (std::vector<std::size_t>{1, 2, 3}));
}

TEST_F(ImportOfAllFiles, TakesThemInTheOrderOfTheList)
{
    startEmpty();
    addShortcut(L"b.url", "http://same/");
    addShortcut(L"A.url", "http://same/");
    addShortcut(L"c.url", "http://same/");
    importAll();
    EXPECT_EQ(column(lstInfo()), (Lines{L"A", L"b", L"c"}));
}

TEST_F(ImportOfAllFiles, SaysThatItSucceededBeforeItReminds)
{
    startEmpty();
    addThree();
    std::wstring meanwhile;
    open([](const ImportDialog& dialog) { dialog.press(importer::importAll); },
         [&](Answers& answers) {
             answers.expect(L"Import All", [&](HWND box) {
                 meanwhile = outcome();
                 EXPECT_EQ(windowText(GetWindow(box, GW_OWNER)), importer::caption);
                 press(box, IDOK);
             });
         });
    EXPECT_EQ(meanwhile, L"Import succeeded!");
}

TEST_F(ImportOfAllFiles, GivesThemTheDescriptionOfTheLastImport)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    importOne(L"A.url", L"typed before");
    addShortcut(L"B.url", "http://b/");
    importAll();
    EXPECT_EQ(saved(),
              "A|http://a/|typed before|\r\nA|http://a/|typed before|\r\nB|http://b/|typed before|\r\n");
    EXPECT_EQ(workspace().site.newSiteDescription, L"typed before");
}

TEST_F(ImportOfAllFiles, DoesNotKeepNameAndUrl)
{
    startEmpty();
    addThree();
    importAll();
    EXPECT_EQ(workspace().site.newSiteName, L"");
    EXPECT_EQ(workspace().site.newSiteURL, L"http://");
}

TEST_F(ImportOfAllFiles, NeedsNoSelectedFile)
{
    startEmpty();
    addThree();
    open(
        [](const ImportDialog& dialog) {
            EXPECT_EQ(selectedEntry(dialog.files()), L"(none)");
            dialog.press(importer::importAll);
        },
        [](Answers& answers) { expectReminder(answers); });
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(ImportOfAllFiles, SortsByUrlInTheOrderThatTheListHas)
{
    startWith("Z|http://0/||\r\n");
    addThree();
    lstInfo().ColumnClick(0); // descending
    importAll();
    EXPECT_EQ(siteRows().sortKey(), 1U);
    EXPECT_EQ(column(lstInfo()), (Lines{L"A", L"b", L"c", L"Z"}));
    EXPECT_EQ(saved(), "A|http://3/||\r\nb|http://2/||\r\nc|http://1/||\r\nZ|http://0/||\r\n");
}

TEST_F(ImportOfAllFiles, TwiceGivesEverySiteTwice)
{
    startEmpty();
    addThree();
    importAll();
    importAll();
    EXPECT_EQ(column(lstInfo()), (Lines{L"c", L"c", L"b", L"b", L"A", L"A"}));
}

TEST_F(ImportOfAllFiles, ImportsAnEmptyFileAsASiteWithoutAUrl)
{
    startEmpty();
    favorites.write(L"Empty.url", "");
    addShortcut(L"A.url", "http://a/");
    importAll();
    EXPECT_EQ(saved(), "Empty|||\r\nA|http://a/||\r\n");
}

// ---- while it runs

TEST_F(ImportOfAllFiles, ShowsAProgressBarInPlaceOfThePathAndTakesNoOtherCommand)
{
    startEmpty();
    addThree();
    bool looked = false;
    open(
        [&](const ImportDialog& dialog) {
            const auto shown = [&](HWND window) {
                return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
            };
            const HWND path = childWithText(dialog.window, favorites.path());
            EXPECT_FALSE(shown(dialog.progressBar()));
            EXPECT_TRUE(shown(path));
            const MessageWatch watch(dialog.progressBar(), PBM_SETPOS, [&] {
                looked = true;
                EXPECT_TRUE(shown(dialog.progressBar()));
                EXPECT_FALSE(shown(path));
                for (const int id : {importer::drives, importer::folders, importer::files, IDOK,
                                     importer::importAll, IDCANCEL}) {
                    EXPECT_FALSE(dialog.enabled(id)) << id;
                }
            });
            dialog.press(importer::importAll);
            EXPECT_FALSE(shown(dialog.progressBar()));
        },
        [](Answers& answers) { expectReminder(answers); });
    EXPECT_TRUE(looked);
}

TEST_F(ImportOfAllFiles, CannotBeCancelledHalfway)
{
    startEmpty();
    addThree();
    std::optional<HeldFile> held;
    open(
        [&](const ImportDialog& dialog) {
            held.emplace(favorites.file(L"c.url"));
            const MessageWatch watch(dialog.progressBar(), PBM_SETPOS, [&] {
                PostMessageW(dialog.window, WM_CLOSE, 0, 0);
                PostMessageW(dialog.window, WM_COMMAND, IDCANCEL, 0);
            });
            dialog.press(importer::importAll);
            held.reset();
        },
        [](Answers& answers) {
            expectErrorBox(answers, 70, L"Permission denied");
            cancelOpenDialog(answers); // what was pressed while it was busy has not closed it
        });
    EXPECT_EQ(column(lstInfo()), (Lines{L"b", L"A"}));
}

TEST_F(ImportOfAllFiles, DoesNotImportTheSelectedFileOnceMoreWhenEnterIsPressedMeanwhile)
{
    startEmpty();
    addThree();
    open(
        [&](const ImportDialog& dialog) {
            dialog.clickFile(L"b.url");
            const MessageWatch watch(dialog.progressBar(), PBM_SETPOS,
                                     [&] { PostMessageW(dialog.files(), WM_KEYDOWN, VK_RETURN, 1); });
            dialog.press(importer::importAll);
        },
        [](Answers& answers) { expectReminder(answers); });
    EXPECT_EQ(lstInfo().count(), 3U);
}

// ---- failures

TEST_F(ImportOfAllFiles, AFailureEndsItAfterTheFilesBeforeWereSaved)
{
    startEmpty();
    addThree();
    failAt(L"c.url", [](const ImportDialog& dialog) { dialog.cancel(); });
    EXPECT_EQ(sites(), (Lines{L"b|http://2/||", L"A|http://3/||"}));
    EXPECT_EQ(saved(), "b|http://2/||\r\nA|http://3/||\r\n");
    EXPECT_EQ(outcome(), L"") << "neither succeeded nor failed is said";
}

TEST_F(ImportOfAllFiles, AFailureInTheMiddleLeavesOutTheFilesAfterIt)
{
    startEmpty();
    addThree();
    failAt(L"b.url", [](const ImportDialog& dialog) { dialog.cancel(); });
    EXPECT_EQ(saved(), "A|http://3/||\r\n");
}

TEST_F(ImportOfAllFiles, TheDialogIsUsableAfterAFailure)
{
    startEmpty();
    addThree();
    failAt(L"c.url", [&](const ImportDialog& dialog) {
        for (const int id :
             {importer::drives, importer::folders, importer::files, IDOK, importer::importAll, IDCANCEL}) {
            EXPECT_TRUE(dialog.enabled(id)) << id;
        }
        EXPECT_EQ(GetWindowLongPtrW(dialog.progressBar(), GWL_STYLE) & WS_VISIBLE, 0);
        EXPECT_TRUE(dialog.shows(favorites.path()));
        EXPECT_EQ(dialog.fileNames(), (Lines{L"A.url", L"b.url", L"c.url"}));
        EXPECT_TRUE(IsWindowEnabled(dialog.window));
        dialog.cancel();
    });
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(ImportOfAllFiles, TheKeyboardWorksAfterAFailure)
{
    startEmpty();
    addThree();
    std::optional<HeldFile> held;
    open(
        [&](const ImportDialog& dialog) {
            dialog.focus(importer::importAll);
            held.emplace(favorites.file(L"c.url"));
            dialog.press(importer::importAll);
        },
        [&](Answers& answers) {
            expectErrorBox(answers, 70, L"Permission denied");
            answers.expect(importer::caption, inDialog([](const ImportDialog& dialog) {
                               EXPECT_TRUE(IsChild(dialog.window, GetFocus())) << "a control has the focus";
                               dialog.cancel();
                           }));
        });
}

TEST_F(ImportOfAllFiles, WhenTheCategoryCannotBeSavedTheFirstRowStays)
{
    startWith("B|http://25/||\r\n");
    addThree();
    open(
        [&](const ImportDialog& dialog) {
            makeReadOnly(L"Work.udb");
            dialog.press(importer::importAll);
        },
        [](Answers& answers) {
            expectErrorBox(answers, 75, L"Path/File access error");
            cancelOpenDialog(answers);
        });
    EXPECT_EQ(sites(), (Lines{L"B|http://25/||", L"A|http://3/||"}));
    EXPECT_EQ(saved(), "B|http://25/||\r\n");
}

TEST_F(ImportOfAllFiles, WithoutAnyCategoryOneIsAskedForOnce)
{
    start();
    workspace().favoritesFolder = favorites.path();
    addThree();
    open([](const ImportDialog& dialog) { dialog.press(importer::importAll); },
         [](Answers& answers) {
             answers.expectBox(L"No Categories",
                               L"There are no categories. Please make a category before adding a site.", IDOK,
                               MB_ICONASTERISK);
             answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"New");
             expectReminder(answers);
         });
    EXPECT_EQ(folder.read(L"New.udb"), "c|http://1/||\r\nb|http://2/||\r\nA|http://3/||\r\n");
}

TEST_F(ImportOfAllFiles, WithoutAnyCategoryItEndsAtTheFirstCancelAndSaysThatItFailed)
{
    start();
    workspace().favoritesFolder = favorites.path();
    for (const wchar_t* const name : {L"A.url", L"B.url", L"C.url"}) addShortcut(name, "http://a/");
    open([](const ImportDialog& dialog) { dialog.press(importer::importAll); },
         [](Answers& answers) {
             answers.expect(L"No Categories", [](HWND box) { press(box, IDOK); });
             answers.cancelInput(L"Category Name");
             cancelOpenDialog(answers);
         });
    EXPECT_EQ(outcome(), L"Import failed!");
    EXPECT_EQ(column(lstInfo()), Lines{L"A"});
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(ImportOfAllFiles, ManyFilesAreAllTaken)
{
    startEmpty();
    for (int i = 100; i < 140; ++i)
        addShortcut(std::to_wstring(i) + L".url", "http://" + std::to_string(i) + "/");
    importAll();
    ASSERT_EQ(lstInfo().count(), 40U);
    EXPECT_EQ(std::ranges::count(saved(), '\n'), 40);
    EXPECT_EQ(lstInfo().text(39, 1), L"http://139/");
}

} // namespace
} // namespace vandrel::test
