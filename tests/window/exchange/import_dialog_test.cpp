#include "tests/window/exchange/import_dialog_test.h"

#include "platform/windows/topmost.h"

namespace vandrel::test {
namespace {

// ---- where it starts

TEST_F(ImportDialogTest, StartsInTheFavoritesFolderOnItsDrive)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    makeSubfolder(L"Links");
    look([&](const ImportDialog& dialog) {
        EXPECT_EQ(dialog.drive(), driveOf(favorites.path()));
        EXPECT_EQ(selectedEntry(dialog.folders()), nameOf(favorites.path()));
        EXPECT_EQ(entriesOf(dialog.folders()).front(), driveOf(favorites.path()) + L"\\");
        EXPECT_EQ(entriesOf(dialog.folders()).back(), L"Links");
        EXPECT_EQ(dialog.fileNames(), Lines{L"A.url"});
        EXPECT_TRUE(dialog.shows(favorites.path()));
    });
}

TEST_F(ImportDialogTest, AFavoritesFolderWithABackslashAtItsEndIsTheSame)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    workspace().favoritesFolder += L"\\";
    importOne(L"A.url");
    EXPECT_EQ(saved(), "A|http://a/||\r\n");
}

TEST_F(ImportDialogTest, WithoutAFavoritesFolderItStartsWhereTheCategoriesAre)
{
    startEmpty();
    for (const std::wstring& missing :
         {std::wstring(), favorites.file(L"missing"), std::wstring(L"y:\\missing"), std::wstring(L"?")}) {
        SCOPED_TRACE(testing::PrintToString(missing));
        workspace().favoritesFolder = missing;
        look([&](const ImportDialog& dialog) {
            EXPECT_TRUE(dialog.shows(folder.path()));
            EXPECT_EQ(selectedEntry(dialog.folders()), nameOf(folder.path()));
            EXPECT_EQ(dialog.drive(), driveOf(folder.path()));
        });
    }
}

TEST_F(ImportDialogTest, EveryDriveOfTheMachineIsOffered)
{
    startEmpty();
    look([](const ImportDialog& dialog) {
        const HWND list = dialog.control(importer::drives);
        std::vector<std::wstring> offered;
        for (LRESULT entry = 0; entry < SendMessageW(list, CB_GETCOUNT, 0, 0); ++entry) {
            wchar_t text[20]{};
            SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text));
            offered.emplace_back(text);
        }
        std::vector<std::wstring> drives;
        for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
            if ((GetLogicalDrives() >> (letter - L'A') & 1U) != 0) drives.push_back({letter, L':'});
        }
        EXPECT_EQ(offered, drives);
    });
}

TEST_F(ImportDialogTest, OpensInTheFileListAndTheMainWindowTakesNoInputMeanwhile)
{
    startEmpty();
    look([&](const ImportDialog& dialog) {
        EXPECT_EQ(GetFocus(), dialog.files());
        EXPECT_EQ(GetWindow(dialog.window, GW_OWNER), main->handle());
        EXPECT_FALSE(IsWindowEnabled(main->handle()));
    });
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

// ---- what it lists

TEST_F(ImportDialogTest, ListsShortcutFilesInAnyCaseAndNothingElse)
{
    startEmpty();
    for (const wchar_t* const name :
         {L"b.url", L"A.URL", L"c.Url", L"d.txt", L"e.urls", L"f.url.txt", L"gurl", L"h"}) {
        favorites.write(name, "");
    }
    makeSubfolder(L"folder.url");
    look([](const ImportDialog& dialog) {
        EXPECT_EQ(dialog.fileNames(), (Lines{L"A.URL", L"b.url", L"c.Url"}));
        EXPECT_EQ(entriesOf(dialog.folders()).back(), L"folder.url");
        EXPECT_EQ(selectedEntry(dialog.files()), L"(none)");
    });
}

TEST_F(ImportDialogTest, WithoutFilesNothingCanBeImported)
{
    startEmpty();
    favorites.write(L"note.txt", "");
    look([](const ImportDialog& dialog) {
        EXPECT_FALSE(dialog.enabled(IDOK));
        EXPECT_FALSE(dialog.enabled(importer::importAll));
        EXPECT_TRUE(dialog.enabled(IDCANCEL));
    });
}

TEST_F(ImportDialogTest, EnterWithoutFilesDoesNothing)
{
    startEmpty();
    open(
        [](const ImportDialog& dialog) {
            EXPECT_EQ(GetFocus(), dialog.files());
            typeInDialog(VK_RETURN);
        },
        [](Answers& answers) { cancelOpenDialog(answers); });
    EXPECT_EQ(outcome(), L"");
}

TEST_F(ImportDialogTest, WithFilesBothCommandsAreOffered)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    look([](const ImportDialog& dialog) {
        EXPECT_TRUE(dialog.enabled(IDOK));
        EXPECT_TRUE(dialog.enabled(importer::importAll));
    });
}

TEST_F(ImportDialogTest, AnotherFolderEnablesAndDisablesTheCommands)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    makeSubfolder(L"Links");
    look([&](const ImportDialog& dialog) {
        dialog.openFolder(L"Links");
        EXPECT_FALSE(dialog.enabled(IDOK));
        EXPECT_FALSE(dialog.enabled(importer::importAll));
        dialog.openFolder(nameOf(favorites.path()));
        EXPECT_TRUE(dialog.enabled(IDOK));
        EXPECT_TRUE(dialog.enabled(importer::importAll));
    });
}

TEST_F(ImportDialogTest, ChoosingAFileEnablesImport)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    look([](const ImportDialog& dialog) {
        EnableWindow(dialog.control(IDOK), FALSE);
        dialog.clickFile(L"A.url");
        EXPECT_TRUE(dialog.enabled(IDOK));
    });
}

// ---- keys

TEST_F(ImportDialogTest, TabGoesFromTheDrivesToTheFoldersFilesAndButtons)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    std::vector<int> order;
    look([&](const ImportDialog& dialog) {
        dialog.focus(importer::drives);
        for (int stop = 0; stop < 7; ++stop) {
            order.push_back(GetDlgCtrlID(GetFocus()));
            typeInDialog(VK_TAB);
        }
    });
    EXPECT_EQ(order, (std::vector<int>{importer::drives, importer::folders, importer::files, IDOK,
                                       importer::importAll, IDCANCEL, importer::drives}));
}

TEST_F(ImportDialogTest, NoTwoAccessKeysAreTheSame)
{
    startEmpty();
    look([](const ImportDialog& dialog) {
        std::wstring keys;
        for (HWND child = GetWindow(dialog.window, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            const std::wstring text = windowText(child);
            if (const auto mark = text.find(L'&'); mark != std::wstring::npos) {
                keys += static_cast<wchar_t>(towlower(text[mark + 1]));
            }
        }
        std::ranges::sort(keys);
        EXPECT_EQ(keys, L"adfio");
    });
}

TEST_F(ImportDialogTest, ImportIsTheDefaultButtonAndEscCancels)
{
    startEmpty();
    open([](const ImportDialog& dialog) {
        EXPECT_EQ(LOWORD(SendMessageW(dialog.window, DM_GETDEFID, 0, 0)), IDOK);
        EXPECT_EQ(windowText(dialog.control(IDOK)), L"&Import");
        EXPECT_EQ(windowText(dialog.control(importer::importAll)), L"Import &All");
        EXPECT_EQ(windowText(dialog.control(IDCANCEL)), L"Cancel");
        typeInDialog(VK_ESCAPE);
    });
}

TEST_F(ImportDialogTest, ItsCloseButtonCancels)
{
    startEmpty();
    open([](const ImportDialog& dialog) { SendMessageW(dialog.window, WM_CLOSE, 0, 0); });
}

// ---- keep on top

TEST_F(ImportDialogTest, TheMainWindowIsNotOnTopMeanwhile)
{
    setPreference(L"Config", L"KeepTop", L"1");
    startEmpty();
    ASSERT_TRUE(isTopmost(main->handle()));
    look([&](const ImportDialog&) { EXPECT_FALSE(isTopmost(main->handle())); });
    EXPECT_TRUE(isTopmost(main->handle()));
}

TEST_F(ImportDialogTest, AWindowThatIsNotKeptOnTopStaysNormal)
{
    startEmpty();
    look([](const ImportDialog&) {});
    EXPECT_FALSE(isTopmost(main->handle()));
}

} // namespace
} // namespace vandrel::test
