#include "tests/support/import_test.h"

namespace vandrel::test {
namespace {

class ImportOfOneFile : public ImportTest {
  protected:
    // Presses Import on the file, which must fail, then closes the dialog, which must still be open. When
    // the failure comes first, no description is asked for.
    void failToImport(const std::wstring& file, const std::function<void()>& spoil, bool asked = false)
    {
        open(
            [&](const ImportDialog& dialog) {
                dialog.clickFile(file);
                spoil();
                dialog.press(IDOK);
                EXPECT_TRUE(dialog.enabled(IDOK));
                EXPECT_TRUE(dialog.enabled(importer::importAll));
            },
            [&](Answers& answers) {
                if (asked) expectDescription(answers, L"typed");
                cancelOpenDialog(answers);
            });
        EXPECT_EQ(outcome(), L"Import failed!");
    }
};

TEST_F(ImportOfOneFile, AddsASiteWithoutADateAndSavesItAtOnce)
{
    startEmpty();
    addShortcut(L"News.url", "http://news.example/");
    importOne(L"News.url", L"about it");
    EXPECT_EQ(sites(), Lines{L"News|http://news.example/|about it|"});
    EXPECT_EQ(saved(), "News|http://news.example/|about it|\r\n");
    EXPECT_EQ(siteRows().image(0), siteImage);
    EXPECT_EQ(outcome(), L"Import succeeded!");
}

TEST_F(ImportOfOneFile, ScrollsToTheSiteAndGivesTheKeyboardBack)
{
    std::string lines;
    for (int i = 100; i < 400; ++i) lines += "n|http://b" + std::to_string(i) + "/||\r\n";
    startWith(lines);
    addShortcut(L"News.url", "http://z/");
    lstInfo().setFocus();
    importOne(L"News.url", L"about it");
    EXPECT_EQ(SendMessageW(lstInfo().handle(), LVM_GETTOPINDEX, 0, 0) +
                  SendMessageW(lstInfo().handle(), LVM_GETCOUNTPERPAGE, 0, 0),
              301);
    EXPECT_EQ(lstInfo().selectedCount(), 0U);
    EXPECT_EQ(GetFocus(), lstInfo().handle());
}

TEST_F(ImportOfOneFile, NamesTheSiteAfterTheFileWithoutItsExtension)
{
    startEmpty();
    addShortcut(L"My.Site.url", "http://a/");
    addShortcut(L"LOUD.URL", "http://b/");
    addShortcut(L"experts....url", "http://c/");
    importOne(L"My.Site.url");
    importOne(L"LOUD.URL");
    importOne(L"experts....url");
    EXPECT_EQ(column(lstInfo()), (Lines{L"My.Site", L"LOUD", L"experts..."}));
}

TEST_F(ImportOfOneFile, TakesTheSelectedFileAndNoOther)
{
    startEmpty();
    for (const wchar_t* const name : {L"A.url", L"B.url", L"C.url"}) {
        addShortcut(name, "http://" + std::string(1, static_cast<char>(name[0])) + "/");
    }
    importOne(L"B.url");
    EXPECT_EQ(sites(), Lines{L"B|http://B/||"});
}

TEST_F(ImportOfOneFile, IsDoneByADoubleClickToo)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    open([](const ImportDialog& dialog) { clickEntry(dialog.files(), L"A.url", true); },
         [](Answers& answers) { expectDescription(answers, L"x"); });
    EXPECT_EQ(sites(), Lines{L"A|http://a/|x|"});
}

TEST_F(ImportOfOneFile, IsDoneByEnterInTheFileListToo)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    open(
        [](const ImportDialog& dialog) {
            typeInDialog(VK_DOWN);
            EXPECT_EQ(selectedEntry(dialog.files()), L"A.url");
            typeInDialog(VK_RETURN);
        },
        [](Answers& answers) { expectDescription(answers, L"x"); });
    EXPECT_EQ(sites(), Lines{L"A|http://a/|x|"});
}

TEST_F(ImportOfOneFile, AsksForTheDescriptionOverTheDialogWithNothingInTheBox)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    workspace().site.newSiteDescription = L"of the last site";
    HWND dialogWindow = nullptr;
    HWND owner = nullptr;
    std::wstring inTheBox = L"(not asked)";
    open(
        [&](const ImportDialog& dialog) {
            dialogWindow = dialog.window;
            dialog.clickFile(L"A.url");
            dialog.press(IDOK);
        },
        [&](Answers& answers) {
            answers.expect(L"Site Description", [&](HWND box) {
                owner = GetWindow(box, GW_OWNER);
                EXPECT_FALSE(IsWindowEnabled(owner));
                EXPECT_NE(childWithText(box, L"Enter a description for the site."), nullptr);
                inTheBox = windowText(FindWindowExW(box, nullptr, L"Edit", nullptr));
                press(box, IDOK);
            });
        });
    EXPECT_EQ(owner, dialogWindow);
    EXPECT_EQ(inTheBox, L"");
}

TEST_F(ImportOfOneFile, WhenTheDescriptionIsCancelledTheSiteHasNone)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    workspace().site.newSiteDescription = L"of the last site";
    open(
        [](const ImportDialog& dialog) {
            dialog.clickFile(L"A.url");
            dialog.press(IDOK);
        },
        [](Answers& answers) { answers.cancelInput(L"Site Description"); });
    EXPECT_EQ(saved(), "A|http://a/||\r\n");
    EXPECT_EQ(outcome(), L"Import succeeded!");
    EXPECT_EQ(workspace().site.newSiteDescription, L"");
}

TEST_F(ImportOfOneFile, SortsTheListByUrlAndKeepsItSorted)
{
    startWith("C|http://c/|three|1\r\nA|http://a/|one|2\r\n");
    addShortcut(L"Between.url", "http://b/");
    importOne(L"Between.url", L"two");
    EXPECT_TRUE(siteRows().sorted());
    EXPECT_EQ(siteRows().sortKey(), 1U);
    EXPECT_EQ(saved(), "A|http://a/|one|2\r\nBetween|http://b/|two|\r\nC|http://c/|three|1\r\n");
}

TEST_F(ImportOfOneFile, KeepsADescendingOrder)
{
    startWith("C|http://c/||\r\nA|http://a/||\r\n");
    addShortcut(L"B.url", "http://b/");
    lstInfo().ColumnClick(0); // descending
    importOne(L"B.url");
    EXPECT_EQ(siteRows().sortOrder(), SortOrder::descending);
    EXPECT_EQ(saved(), "C|http://c/||\r\nB|http://b/||\r\nA|http://a/||\r\n");
}

TEST_F(ImportOfOneFile, JoinsTheCategoryThatIsShown)
{
    folder.write(L"Home.udb", "");
    startWith("");
    addShortcut(L"A.url", "http://a/");
    clickCategory(L"Home");
    importOne(L"A.url");
    EXPECT_EQ(folder.read(L"Home.udb"), "A|http://a/||\r\n");
    EXPECT_EQ(saved(), "");
}

TEST_F(ImportOfOneFile, TwiceGivesTwoRows)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    importOne(L"A.url", L"first");
    importOne(L"A.url", L"second");
    EXPECT_EQ(saved(), "A|http://a/|first|\r\nA|http://a/|second|\r\n");
}

TEST_F(ImportOfOneFile, ForgetsNameAndUrlAndKeepsTheDescription)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    importOne(L"A.url", L"kept");
    EXPECT_EQ(workspace().site.newSiteName, L"");
    EXPECT_EQ(workspace().site.newSiteURL, L"http://");
    EXPECT_EQ(workspace().site.newSiteDescription, L"kept");
}

TEST_F(ImportOfOneFile, LeavesTheShortcutFileAsItWas)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    importOne(L"A.url");
    EXPECT_EQ(favorites.names(), Lines{L"A.url"});
    EXPECT_EQ(favorites.read(L"A.url"), shortcutOf("http://a/"));
}

// ---- what the file holds

TEST_F(ImportOfOneFile, AMissingUrlIsAnEmptyUrl)
{
    startEmpty();
    favorites.write(L"Key.url", "[InternetShortcut]\r\nIconIndex=1\r\n");
    favorites.write(L"Section.url", "[DEFAULT]\r\nBASEURL=http://a/\r\nURL=http://b/\r\n");
    favorites.write(L"Empty.url", "");
    for (const wchar_t* const name : {L"Key.url", L"Section.url", L"Empty.url"}) importOne(name);
    EXPECT_EQ(sites(), (Lines{L"Key|||", L"Section|||", L"Empty|||"}));
    EXPECT_EQ(outcome(), L"Import succeeded!");
}

TEST_F(ImportOfOneFile, LineEndsOfOtherSystemsAreRead)
{
    startEmpty();
    favorites.write(L"A.url", "[InternetShortcut]\nURL=http://a/\nIconIndex=1\n");
    importOne(L"A.url");
    EXPECT_EQ(saved(), "A|http://a/||\r\n");
}

TEST_F(ImportOfOneFile, AUnicodeFileIsRead)
{
    startEmpty();
    const std::u16string text = u"\uFEFF[InternetShortcut]\r\nName=\u65E5\r\nURL=http://a.example/\r\n";
    favorites.write(L"A.url", {reinterpret_cast<const char*>(text.data()), text.size() * 2});
    importOne(L"A.url");
    EXPECT_EQ(column(lstInfo(), 1), Lines{L"http://a.example/"});
}

TEST_F(ImportOfOneFile, AFileNameOutsideTheCodePageIsRead)
{
    startEmpty();
    addShortcut(L"\u041D\u043E\u0432\u044B\u0439 \u65E5.url", "http://a/");
    importOne(L"\u041D\u043E\u0432\u044B\u0439 \u65E5.url");
    EXPECT_EQ(sites(), Lines{L"????? ?|http://a/||"}) << "as the category file has it";
}

TEST_F(ImportOfOneFile, AFolderNameOutsideTheCodePageIsRead)
{
    startEmpty();
    makeSubfolder(L"\u65E5\u672C");
    favorites.write(L"\u65E5\u672C\\A.url", shortcutOf("http://a/"));
    workspace().favoritesFolder = favorites.file(L"\u65E5\u672C");
    importOne(L"A.url");
    EXPECT_EQ(sites(), Lines{L"A|http://a/||"});
}

TEST_F(ImportOfOneFile, APathThatNoShortNameCoversIsRead)
{
    startEmpty();
    std::wstring deep;
    for (int depth = 0; depth < 40; ++depth) {
        deep += L"\u0416";
        makeSubfolder(deep);
        deep += L"\\";
    }
    addShortcut(deep + L"\u0416.url", "http://a/");
    workspace().favoritesFolder = favorites.file(deep.substr(0, deep.size() - 1));
    importOne(L"\u0416.url");
    EXPECT_EQ(sites(), Lines{L"?|http://a/||"});
}

TEST_F(ImportOfOneFile, AFileInADrivesRootIsRead)
{
    startEmpty();
    const std::wstring root = favorites.path().substr(0, 3);
    const std::wstring name = L"vandrel-" + std::to_wstring(GetCurrentProcessId()) + L".url";
    addShortcut(name, "http://a/");
    if (!MoveFileW(favorites.file(name).c_str(), (root + name).c_str()))
        GTEST_SKIP() << "the root takes no file";
    workspace().favoritesFolder = root;
    importOne(name);
    DeleteFileW((root + name).c_str());
    EXPECT_EQ(column(lstInfo(), 1), Lines{L"http://a/"});
}

TEST_F(ImportOfOneFile, NoCheckOfTheUrlIsMade)
{
    startEmpty();
    addShortcut(L"A.url", "no address; at | all");
    importOne(L"A.url");
    EXPECT_EQ(lstInfo().text(0, 1), L"no address; at | all");
}

// ---- failures

TEST_F(ImportOfOneFile, WithoutASelectedFileSaysSoAndStaysOpen)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    open([](const ImportDialog& dialog) { dialog.press(IDOK); },
         [](Answers& answers) {
             answers.expectBox(L"No File SelecteD", L"No file selected to import.", IDOK, MB_ICONASTERISK);
             cancelOpenDialog(answers);
         });
    EXPECT_EQ(lstInfo().count(), 0U);
    EXPECT_EQ(outcome(), L"") << "nothing was tried";
}

TEST_F(ImportOfOneFile, AFileThatIsGoneFailsAndTheDialogStaysOpen)
{
    startWith("B|http://b/||\r\n");
    addShortcut(L"A.url", "http://a/");
    failToImport(L"A.url", [&] { DeleteFileW(favorites.file(L"A.url").c_str()); });
    EXPECT_EQ(sites(), Lines{L"B|http://b/||"});
    EXPECT_EQ(saved(), "B|http://b/||\r\n");
}

TEST_F(ImportOfOneFile, AFileThatAnotherProgramHoldsFails)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    std::optional<HeldFile> held;
    failToImport(L"A.url", [&] { held.emplace(favorites.file(L"A.url")); });
    EXPECT_EQ(lstInfo().count(), 0U);
}

TEST_F(ImportOfOneFile, WhenTheCategoryCannotBeSavedItFailsAndTheRowStays)
{
    startWith("B|http://b/||\r\n");
    addShortcut(L"A.url", "http://a/");
    failToImport(
        L"A.url", [&] { makeReadOnly(L"Work.udb"); }, true);
    EXPECT_EQ(sites(), (Lines{L"A|http://a/|typed|", L"B|http://b/||"}));
    EXPECT_EQ(saved(), "B|http://b/||\r\n");
}

TEST_F(ImportOfOneFile, WhenTheCategoryIsHeldItFailsAndTheRowIsSavedByTheNextChange)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    std::optional<HeldFile> held;
    failToImport(
        L"A.url", [&] { held.emplace(folder.file(L"Work.udb")); }, true);
    held.reset();
    EXPECT_EQ(saved(), "");
    SaveItems(workspace());
    EXPECT_EQ(saved(), "A|http://a/|typed|\r\n");
}

TEST_F(ImportOfOneFile, CanBeTriedAgainAfterAFailure)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    std::optional<HeldFile> held;
    open(
        [&](const ImportDialog& dialog) {
            dialog.clickFile(L"A.url");
            held.emplace(favorites.file(L"A.url"));
            dialog.press(IDOK);
            EXPECT_EQ(outcome(), L"Import failed!");
            held.reset();
            dialog.press(IDOK);
        },
        [](Answers& answers) { expectDescription(answers, L"x"); });
    EXPECT_EQ(saved(), "A|http://a/|x|\r\n");
    EXPECT_EQ(outcome(), L"Import succeeded!");
}

TEST_F(ImportOfOneFile, WithNoCategoryShownTheFirstOneGetsTheSite)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    showNoCategory(workspace());
    importOne(L"A.url");
    EXPECT_EQ(saved(), "A|http://a/||\r\n");
    EXPECT_EQ(selectedTitle(), L"Work");
}

TEST_F(ImportOfOneFile, WithoutAnyCategoryACancelledQuestionIsAFailure)
{
    start();
    workspace().favoritesFolder = favorites.path();
    addShortcut(L"A.url", "http://a/");
    open(
        [](const ImportDialog& dialog) {
            dialog.clickFile(L"A.url");
            dialog.press(IDOK);
        },
        [](Answers& answers) {
            answers.expect(L"Site Description", [](HWND box) { press(box, IDOK); });
            answers.expect(L"No Categories", [](HWND box) { press(box, IDOK); });
            answers.cancelInput(L"Category Name");
            cancelOpenDialog(answers);
        });
    EXPECT_EQ(outcome(), L"Import failed!");
    EXPECT_EQ(column(lstInfo()), Lines{L"A"});
}

TEST_F(ImportOfOneFile, WithoutAnyCategoryOneIsAskedForAndGetsTheSite)
{
    start();
    workspace().favoritesFolder = favorites.path();
    addShortcut(L"A.url", "http://a/");
    open(
        [](const ImportDialog& dialog) {
            dialog.clickFile(L"A.url");
            dialog.press(IDOK);
        },
        [](Answers& answers) {
            expectDescription(answers, L"x");
            answers.expectBox(L"No Categories",
                              L"There are no categories. Please make a category before adding a site.", IDOK,
                              MB_ICONASTERISK);
            answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"New");
        });
    EXPECT_EQ(folder.read(L"New.udb"), "A|http://a/|x|\r\n");
}

TEST_F(ImportOfOneFile, CancelImportsNothing)
{
    startWith("B|http://b/||\r\nA|http://a/||\r\n");
    addShortcut(L"C.url", "http://c/");
    open([](const ImportDialog& dialog) {
        dialog.clickFile(L"C.url");
        dialog.cancel();
    });
    EXPECT_EQ(sites(), (Lines{L"B|http://b/||", L"A|http://a/||"}));
    EXPECT_FALSE(siteRows().sorted());
    EXPECT_EQ(outcome(), L"");
}

} // namespace
} // namespace vandrel::test
