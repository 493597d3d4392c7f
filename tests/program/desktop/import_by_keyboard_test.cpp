#include "tests/program/support/shortcut_test.h"

#include <filesystem>

namespace vandrel::test {
namespace {

constexpr const char* oneSite = "Old|http://m/||1/1/2001\r\n";

class ImportByKeyboard : public ShortcutTest {
  protected:
    ImportByKeyboard()
    {
        folder.write(L"Work.udb", oneSite);
        makeFolder(L"Music");
        makeFolder(L"News");
        makeFolder(L"News\\Deep");
        shortcut(L"News\\Daily.url", "http://daily.example/");
        shortcut(L"News\\My.Site.url", "http://site.example/?a=1");
        shortcut(L"News\\Weekly.url", "http://weekly.example/");
        favorites.write(L"News\\notes.txt", "");
        start();
        EXPECT_SOON(program.siteCount(), 1);
    }

    void makeFolder(const std::wstring& name) const
    {
        std::filesystem::create_directory(favorites.file(name));
    }
    void shortcut(const std::wstring& name, const std::string& url) const
    {
        favorites.write(name, "[InternetShortcut]\r\nURL=" + url + "\r\n");
    }
    // Goes from the first folder into one of its subfolders.
    void enter(HWND dialog, const std::wstring& name) const
    {
        goTo(folders(dialog), 'O');
        arrowTo(folders(dialog), name);
        program.key(VK_RETURN);
        EXPECT_SOON(selected(folders(dialog)), name);
    }
    // Types this description when an imported file asks for one, then Enter.
    void describe(const std::wstring& description) const
    {
        program.dialog(L"Site Description");
        program.type(description);
        program.key(VK_RETURN);
    }
    static const Texts& newsFiles()
    {
        static const Texts files{L"Daily.url", L"My.Site.url", L"Weekly.url"};
        return files;
    }
};

TEST_F(ImportByKeyboard, StartsInTheFavoritesFolder)
{
    const HWND dialog = openImport();
    const Texts shown = entries(folders(dialog));
    const std::wstring name = favorites.path().substr(favorites.path().rfind(L'\\') + 1);
    ASSERT_GE(shown.size(), 3U);
    EXPECT_EQ(Texts(shown.end() - 3, shown.end()), (Texts{name, L"Music", L"News"}));
    EXPECT_EQ(selected(folders(dialog)), name);
    EXPECT_EQ(entries(files(dialog)), Texts{});
}

TEST_F(ImportByKeyboard, EnterGoesIntoAFolderAndBackspaceOutOfIt)
{
    const HWND dialog = openImport();
    const std::wstring start = selected(folders(dialog));
    enter(dialog, L"News");
    EXPECT_SOON(entries(files(dialog)), newsFiles());
    EXPECT_EQ(entries(folders(dialog)).back(), L"Deep");
    program.key(VK_BACK);
    EXPECT_SOON(selected(folders(dialog)), start);
    EXPECT_SOON(entries(files(dialog)), Texts{});
    EXPECT_EQ(program.openDialog(L"Import Favorites"), dialog);
    EXPECT_EQ(program.focus(), folders(dialog));
}

TEST_F(ImportByKeyboard, ADriveIsChosenByItsLetter)
{
    const HWND dialog = openImport();
    const std::wstring start = entry(folders(dialog), 0);
    const LRESULT count = ask(drives(dialog), CB_GETCOUNT);
    const LRESULT before = ask(drives(dialog), CB_GETCURSEL);
    if (count < 2) GTEST_SKIP() << "this system has one drive only";
    goTo(drives(dialog), 'D');
    program.key(before + 1 < count ? VK_DOWN : VK_UP);
    EXPECT_TRUE(soon([&] { return ask(drives(dialog), CB_GETCURSEL) != before; }));
    EXPECT_SOON(entry(folders(dialog), 0), textOf(drives(dialog)) + L"\\");
    EXPECT_NE(entry(folders(dialog), 0), start);
}

TEST_F(ImportByKeyboard, AFileIsChosenByArrowsImportedByEnterAndDescribed)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    goTo(files(dialog), 'F');
    arrowTo(files(dialog), L"My.Site.url");
    program.key(VK_RETURN);
    describe(L"a few words");
    program.back();
    EXPECT_SOON(folder.read(L"Work.udb"),
                std::string(oneSite) + "My.Site|http://site.example/?a=1|a few words|\r\n");
    EXPECT_EQ(program.column(0), (Texts{L"Old", L"My.Site"}));
    EXPECT_EQ(program.column(2), (Texts{L"", L"a few words"}));
    EXPECT_EQ(program.panel(1), L"Import succeeded!");
}

TEST_F(ImportByKeyboard, TheSitesAreOrderedByTheirAddresses)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    goTo(files(dialog), 'F');
    arrowTo(files(dialog), L"Daily.url");
    program.key(VK_RETURN);
    describe(L"");
    program.back();
    EXPECT_SOON(folder.read(L"Work.udb"), std::string("Daily|http://daily.example/||\r\n") + oneSite);
}

TEST_F(ImportByKeyboard, EscInTheQuestionForADescriptionImportsWithoutOne)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    goTo(files(dialog), 'F');
    arrowTo(files(dialog), L"Weekly.url");
    program.key('I', {VK_MENU});
    program.dialog(L"Site Description");
    program.type(L"thrown away");
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_SOON(folder.read(L"Work.udb"), std::string(oneSite) + "Weekly|http://weekly.example/||\r\n");
}

// Two dialogs close at once, which is when a window manager and the program may disagree on who comes next.
TEST_F(ImportByKeyboard, OfOneFileGivesTheKeyboardBackToTheListThatHadIt)
{
    program.click(program.sites(), 0);
    EXPECT_SOON(program.focus(), program.sites());
    for (const wchar_t* const file : {L"Daily.url", L"My.Site.url", L"Weekly.url"}) {
        const HWND dialog = openImport();
        enter(dialog, L"News");
        goTo(files(dialog), 'F');
        arrowTo(files(dialog), file);
        program.key(VK_RETURN);
        describe(L"");
        program.back();
        EXPECT_SOON(program.focus(), program.sites());
    }
    program.key(VK_END); // and a real key goes there
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: Weekly  "));
}

TEST_F(ImportByKeyboard, OfAllFilesGivesTheKeyboardBackToTheListThatHadIt)
{
    program.click(program.sites(), 0);
    EXPECT_SOON(program.focus(), program.sites());
    const HWND dialog = openImport();
    enter(dialog, L"News");
    EXPECT_SOON(entries(files(dialog)), newsFiles());
    program.key('A', {VK_MENU});
    program.answerBox(L"Import All");
    program.back();
    EXPECT_SOON(program.focus(), program.sites());
}

TEST_F(ImportByKeyboard, EnterWithoutAFileAsksForOneAndTheDialogStays)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    goTo(files(dialog), 'F');
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"No File SelecteD"), L"No file selected to import.");
    EXPECT_EQ(program.dialog(L"Import Favorites"), dialog);
    EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
}

TEST_F(ImportByKeyboard, AltAImportsEveryFileOfTheFolderAndShowsTheReminder)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    EXPECT_SOON(entries(files(dialog)), newsFiles());
    program.key('A', {VK_MENU});
    EXPECT_EQ(program.answerBox(L"Import All"),
              L"Please remember to edit the description for all imported files.");
    program.back();
    EXPECT_SOON(folder.read(L"Work.udb"), "Daily|http://daily.example/||\r\n" + std::string(oneSite) +
                                              "My.Site|http://site.example/?a=1||\r\n"
                                              "Weekly|http://weekly.example/||\r\n");
    EXPECT_EQ(program.column(0), (Texts{L"Daily", L"Old", L"My.Site", L"Weekly"}));
    EXPECT_EQ(program.panel(1), L"Import succeeded!");
}

TEST_F(ImportByKeyboard, AFolderWithoutShortcutFilesImportsNothing)
{
    const HWND dialog = openImport();
    enter(dialog, L"Music");
    program.key('A', {VK_MENU});
    program.key('I', {VK_MENU});
    goTo(files(dialog), 'F'); // by now both keys have been handled
    EXPECT_EQ(program.dialog(L"Import Favorites"), dialog);
    EXPECT_FALSE(program.openDialog(L"Import All"));
    EXPECT_FALSE(program.openDialog(L"No File SelecteD"));
    EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
}

TEST_F(ImportByKeyboard, EscClosesTheDialogFromEveryListAndNothingIsImported)
{
    for (const WORD letter : {WORD{'D'}, WORD{'O'}, WORD{'F'}}) {
        const HWND dialog = openImport();
        goTo(letter == 'D' ? drives(dialog) : letter == 'O' ? folders(dialog) : files(dialog), letter);
        program.key(VK_ESCAPE);
        program.back();
    }
    EXPECT_EQ(program.siteCount(), 1);
    EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
}

TEST_F(ImportByKeyboard, WhatWasImportedIsThereAfterAFreshStart)
{
    const HWND dialog = openImport();
    enter(dialog, L"News");
    goTo(files(dialog), 'F');
    arrowTo(files(dialog), L"Daily.url");
    program.key(VK_RETURN);
    describe(L"Grüße");
    program.back();
    restart();
    EXPECT_SOON(program.column(0), (Texts{L"Daily", L"Old"}));
    EXPECT_EQ(program.column(1), (Texts{L"http://daily.example/", L"http://m/"}));
    EXPECT_EQ(program.column(2), (Texts{L"Grüße", L""}));
}

} // namespace
} // namespace vandrel::test
