#include "tests/window/exchange/import_dialog_test.h"

namespace vandrel::test {
namespace {

class ImportBrowsing : public ImportDialogTest {};

// ---- browsing

TEST_F(ImportBrowsing, ADoubleClickOpensAFolder)
{
    startEmpty();
    makeSubfolder(L"Links");
    favorites.write(L"Links\\B.url", shortcutOf("http://b/"));
    addShortcut(L"A.url", "http://a/");
    look([&](const ImportDialog& dialog) {
        dialog.openFolder(L"Links");
        EXPECT_EQ(dialog.fileNames(), Lines{L"B.url"});
        EXPECT_EQ(selectedEntry(dialog.folders()), L"Links");
        EXPECT_TRUE(dialog.shows(favorites.file(L"Links")));
        dialog.openFolder(nameOf(favorites.path()));
        EXPECT_EQ(dialog.fileNames(), Lines{L"A.url"});
        EXPECT_TRUE(dialog.shows(favorites.path()));
    });
}

TEST_F(ImportBrowsing, ASingleClickOpensNoFolder)
{
    startEmpty();
    makeSubfolder(L"Links");
    addShortcut(L"A.url", "http://a/");
    look([&](const ImportDialog& dialog) {
        clickEntry(dialog.folders(), L"Links");
        EXPECT_EQ(dialog.fileNames(), Lines{L"A.url"});
    });
}

TEST_F(ImportBrowsing, EnterOpensTheSelectedFolderAndBackspaceItsParent)
{
    startEmpty();
    makeSubfolder(L"Links");
    favorites.write(L"Links\\B.url", shortcutOf("http://b/"));
    look([&](const ImportDialog& dialog) {
        dialog.focus(importer::folders);
        typeInDialog(VK_DOWN);
        EXPECT_EQ(selectedEntry(dialog.folders()), L"Links");
        typeInDialog(VK_RETURN);
        EXPECT_TRUE(dialog.shows(favorites.file(L"Links")));
        EXPECT_EQ(dialog.fileNames(), Lines{L"B.url"});
        typeInDialog(VK_BACK);
        EXPECT_TRUE(dialog.shows(favorites.path()));
        EXPECT_EQ(dialog.fileNames(), Lines{});
    });
    EXPECT_EQ(lstInfo().count(), 0U) << "Enter opened the folder and imported nothing";
}

TEST_F(ImportBrowsing, BackspaceStopsAtTheDrive)
{
    startEmpty();
    look([&](const ImportDialog& dialog) {
        dialog.focus(importer::folders);
        for (int i = 0; i < 20; ++i) typeInDialog(VK_BACK);
        EXPECT_EQ(selectedEntry(dialog.folders()), driveOf(favorites.path()) + L"\\");
        EXPECT_TRUE(dialog.shows(driveOf(favorites.path()) + L"\\"));
    });
}

TEST_F(ImportBrowsing, AFileIsImportedFromAFolderThatWasOpened)
{
    startEmpty();
    makeSubfolder(L"Links");
    favorites.write(L"Links\\B.url", shortcutOf("http://b/"));
    open(
        [](const ImportDialog& dialog) {
            dialog.openFolder(L"Links");
            dialog.clickFile(L"B.url");
            dialog.press(IDOK);
        },
        [](Answers& answers) { expectDescription(answers, L""); });
    EXPECT_EQ(saved(), "B|http://b/||\r\n");
}

TEST_F(ImportBrowsing, AFolderThatIsGoneIsAnErrorAndTheListsStayAsTheyWere)
{
    startEmpty();
    makeSubfolder(L"Links");
    addShortcut(L"A.url", "http://a/");
    std::vector<std::wstring> before;
    open(
        [&](const ImportDialog& dialog) {
            before = entriesOf(dialog.folders());
            RemoveDirectoryW(favorites.file(L"Links").c_str());
            dialog.openFolder(L"Links");
        },
        [&](Answers& answers) {
            expectErrorBox(answers, 76, L"Path not found");
            answers.expect(importer::caption, inDialog([&](const ImportDialog& dialog) {
                               EXPECT_EQ(entriesOf(dialog.folders()), before);
                               EXPECT_EQ(dialog.fileNames(), Lines{L"A.url"});
                               EXPECT_TRUE(dialog.shows(favorites.path()));
                               dialog.cancel();
                           }));
        });
}

// ---- drives

TEST_F(ImportBrowsing, AChosenDriveIsShownFromItsRoot)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    const std::wstring drive = driveOf(favorites.path());
    look([&](const ImportDialog& dialog) {
        dialog.chooseDrive(drive);
        EXPECT_EQ(entriesOf(dialog.folders()).front(), drive + L"\\");
        EXPECT_EQ(selectedEntry(dialog.folders()), drive + L"\\");
        EXPECT_TRUE(dialog.shows(drive + L"\\"));
        EXPECT_EQ(dialog.drive(), drive);
        const auto folders = entriesOf(dialog.folders());
        EXPECT_NE(std::ranges::find(folders, L"users",
                                    [](std::wstring name) {
                                        std::ranges::transform(name, name.begin(), towlower);
                                        return name;
                                    }),
                  folders.end());
        EXPECT_EQ(std::ranges::count(dialog.fileNames(), L"A.url"), 0);
    });
}

TEST_F(ImportBrowsing, AnotherDriveIsShown)
{
    startEmpty();
    std::wstring other;
    for (wchar_t letter = L'D'; letter <= L'Z'; ++letter) {
        const std::wstring root{letter, L':', L'\\'};
        if (letter != towupper(favorites.path()[0]) &&
            GetFileAttributesW(root.c_str()) != INVALID_FILE_ATTRIBUTES)
            other = root;
    }
    if (other.empty()) GTEST_SKIP() << "there is no other drive";
    look([&](const ImportDialog& dialog) {
        dialog.chooseDrive(driveOf(other));
        EXPECT_EQ(dialog.drive(), driveOf(other));
        EXPECT_EQ(entriesOf(dialog.folders()).front(), other);
        EXPECT_TRUE(dialog.shows(other));
    });
}

TEST_F(ImportBrowsing, ADriveWithoutADiskIsReportedAndThePreviousOneComesBack)
{
    startEmpty();
    addShortcut(L"A.url", "http://a/");
    const UnreadableDrive unreadable;
    open(
        [&](const ImportDialog& dialog) {
            dialog.chooseDrive(UnreadableDrive::name);
            EXPECT_EQ(dialog.drive(), driveOf(favorites.path()));
            EXPECT_TRUE(dialog.shows(favorites.path()));
            EXPECT_EQ(selectedEntry(dialog.folders()), nameOf(favorites.path()));
            EXPECT_EQ(dialog.fileNames(), Lines{L"A.url"});
            EXPECT_TRUE(dialog.enabled(importer::importAll));
            dialog.cancel();
        },
        [](Answers& answers) {
            answers.expectBox(L"Vandrel", L"Please insert a disk into drive Q:", IDOK, MB_ICONASTERISK);
        });
}

TEST_F(ImportBrowsing, TheDrivesNameIsReportedInCapitals)
{
    startEmpty();
    open(
        [&](const ImportDialog& dialog) {
            SendDlgItemMessageW(dialog.window, importer::drives, CB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(L"y:"));
            dialog.chooseDrive(L"y:");
            dialog.cancel();
        },
        [](Answers& answers) {
            answers.expectBox(L"Vandrel", L"Please insert a disk into drive Y:", IDOK, MB_ICONASTERISK);
        });
}

TEST_F(ImportBrowsing, TheDriveThatComesBackIsTheLastReadableOne)
{
    startEmpty();
    const UnreadableDrive unreadable;
    const std::wstring other = L"Z:"; // Wine's drive for the root of the host
    if (GetFileAttributesW(L"Z:\\") == INVALID_FILE_ATTRIBUTES) GTEST_SKIP() << "there is no drive Z:";
    open(
        [&](const ImportDialog& dialog) {
            dialog.chooseDrive(other);
            dialog.chooseDrive(UnreadableDrive::name);
            EXPECT_EQ(dialog.drive(), other);
            EXPECT_TRUE(dialog.shows(other + L"\\"));
            dialog.cancel();
        },
        [](Answers& answers) {
            answers.expectBox(L"Vandrel", L"Please insert a disk into drive Q:", IDOK, MB_ICONASTERISK);
        });
}

TEST_F(ImportBrowsing, OpeningAFolderOfTheShownDriveKeepsThatDrive)
{
    startEmpty();
    makeSubfolder(L"Links");
    look([&](const ImportDialog& dialog) {
        dialog.openFolder(L"Links");
        EXPECT_EQ(dialog.drive(), driveOf(favorites.path()));
    });
}

} // namespace
} // namespace vandrel::test
