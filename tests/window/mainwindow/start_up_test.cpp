#include "mainwindow/known_paths.h"
#include "platform/base/scope_exit.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

class StartUp : public MainWindowTest {
  protected:
    std::wstring panel(int number) { return main->workspace().StatusBar1.panelText(number); }
    long columnTwips(int column)
    {
        return std::lround(lstInfo().columnWidth(static_cast<std::size_t>(column)).value);
    }
};

TEST_F(StartUp, TheFirstCategoryIsSelectedAndLoaded)
{
    folder.write(L"Home.udb", threeSites);
    folder.write(L"Work.udb", "Other|http://o/||\r\n");
    start();
    const auto selected = lstCategory().currentRow();
    ASSERT_EQ(selected, 0U);
    EXPECT_EQ(main->caption(), L"Vandrel - " + lstCategory().text(0));
    EXPECT_EQ(categoryRows().image(0), openFolderImage);
    EXPECT_EQ(categoryRows().image(1), closedFolderImage);
    EXPECT_EQ(lstInfo().count(), lstCategory().text(0) == L"Home" ? 3U : 1U);
}

TEST_F(StartUp, OnlyFilesWithExactlyTheExtensionAreCategories)
{
    folder.write(L"My.Links.udb", "");
    folder.write(L"Notes.txt", "");
    folder.write(L"Old.UDB", "");
    CreateDirectoryW(folder.file(L"Folder.udb").c_str(), nullptr);
    start();
    EXPECT_EQ(column(lstCategory()), std::vector<std::wstring>{L"My.Links"});
}

TEST_F(StartUp, WhatAKilledSaveLeftInTheDataFolderIsRemoved)
{
    const std::wstring left = L"vandrel-" + std::to_wstring(GetCurrentProcessId()) + L".tmp";
    folder.write(L"Work.udb", threeSites);
    folder.write(left, "half of it");
    folder.write(L"other.tmp", "somebody's");
    start();
    EXPECT_EQ(folder.names(), (std::vector<std::wstring>{L"Work.udb", L"other.tmp"}));
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
}

TEST_F(StartUp, WithoutCategoriesTheWindowIsEmptyAndHasItsBareCaption)
{
    start();
    EXPECT_TRUE(lstCategory().empty());
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel");
    for (const int number : {1, 2, 3}) EXPECT_EQ(panel(number), L"") << number;
}

TEST_F(StartUp, AFirstRunHasArialAtEightPointsAndTheDefaultsOfThePage)
{
    start();
    const OptionsState& options = main->workspace().options;
    EXPECT_EQ(options.font, (DisplayFont{L"Arial", 0, 8, false, false}));
    EXPECT_EQ(options.htmlFont, L"Arial");
    EXPECT_EQ(options.htmlTableWidth, L"75%");
    EXPECT_EQ(options.htmlBorder, 0);
    EXPECT_FALSE(options.generateEmpty);
}

TEST_F(StartUp, AFirstRunHasTheFallbackColumnsAndNoDate)
{
    start();
    EXPECT_EQ(columnTwips(0), 2160);
    EXPECT_EQ(columnTwips(1), 2880);
    EXPECT_EQ(columnTwips(3), 0);
    const double list = widthOf(outerPlace(lstInfo().handle())) * 1440.0 / main->dpi();
    EXPECT_NEAR(static_cast<double>(columnTwips(2)), list - (2160 + 2880 + 0 + 270), 15);
}

TEST_F(StartUp, StoredColumnsAreRestoredAndOnlyTheDescriptionAdapts)
{
    setPreference(L"Config", L"Width", L"16000");
    setPreference(L"Config", L"Height", L"9000");
    const wchar_t* const stored[] = {L"1500", L"1800", L"600", L"900"};
    for (int i = 0; i < 4; ++i) setPreference(L"Config", L"Col" + std::to_wstring(i + 1), stored[i]);
    start();
    EXPECT_EQ(columnTwips(0), 1500);
    EXPECT_EQ(columnTwips(1), 1800);
    EXPECT_EQ(columnTwips(3), 900);
    const double list = widthOf(outerPlace(lstInfo().handle())) * 1440.0 / main->dpi();
    EXPECT_NEAR(static_cast<double>(columnTwips(2)), list - (1500 + 1800 + 900 + 270), 15);
}

TEST_F(StartUp, EachColumnOfZeroGetsItsOwnFallback)
{
    setPreference(L"Config", L"Col1", L"0");
    setPreference(L"Config", L"Col2", L"1800");
    start();
    EXPECT_EQ(columnTwips(0), 2160);
    EXPECT_EQ(columnTwips(1), 1800);
}

TEST_F(StartUp, AFontNameOfZeroIsArial)
{
    setPreference(L"Options", L"FontName", L"0");
    setPreference(L"Options", L"HTMLFont", L"0");
    setPreference(L"Options", L"HTMLTWidth", L"0");
    setPreference(L"Options", L"FontSize", L"0");
    start();
    EXPECT_EQ(main->workspace().options.font.name, L"Arial");
    EXPECT_EQ(main->workspace().options.font.size, 8);
    EXPECT_EQ(main->workspace().options.htmlFont, L"Arial");
    EXPECT_EQ(main->workspace().options.htmlTableWidth, L"75%");
}

TEST_F(StartUp, TheOptionsAreReadIntoTheSharedState)
{
    const std::pair<const wchar_t*, const wchar_t*> stored[] = {
        {L"FontName", L"Tahoma"}, {L"FontColor", L"255"},  {L"FontSize", L"10"},
        {L"FontBold", L"1"},      {L"FontItalic", L"1"},   {L"HTMLFont", L"Courier"},
        {L"HTMLBorder", L"3"},    {L"HTMLTWidth", L"500"}, {L"GenEmpty", L"1"},
    };
    for (const auto& [key, text] : stored) setPreference(L"Options", key, text);
    start();
    const OptionsState expected{{L"Tahoma", 255, 10, true, true}, L"Courier", L"500", 3, true};
    EXPECT_EQ(main->workspace().options, expected);
}

TEST_F(StartUp, MoveToListsTheCategoriesInTheListsOrder)
{
    for (const wchar_t* const name : {L"b.udb", L"A.udb", L"c.udb"}) folder.write(name, "");
    start();
    MenuFamily& entries = main->workspace().mnuMove;
    std::vector<std::wstring> captions;
    for (std::size_t i = 0; i < entries.count(); ++i) captions.push_back(entries.caption(i));
    EXPECT_EQ(captions, column(lstCategory()));
    EXPECT_EQ(captions.size(), 3U);
}

TEST_F(StartUp, TheFavoritesFolderIsThatOfTheShell)
{
    start();
    EXPECT_EQ(main->workspace().favoritesFolder, Registry_Module::favoritesFolder());
    EXPECT_NE(main->workspace().favoritesFolder, L"");
}

TEST_F(StartUp, WithoutAFavoritesValueTheFolderIsEmptyAndAllElseStarts)
{
    folder.write(L"Work.udb", threeSites);
    const std::wstring own = L"Software\\VandrelTest-hive-" + std::to_wstring(GetCurrentProcessId());
    HKEY hive = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, own.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &hive, nullptr),
              ERROR_SUCCESS);
    const ScopeExit remove([&] {
        RegCloseKey(hive);
        RegDeleteTreeW(HKEY_CURRENT_USER, own.c_str());
    });
    ASSERT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, hive), ERROR_SUCCESS);
    const ScopeExit restore([] { RegOverridePredefKey(HKEY_CURRENT_USER, nullptr); });
    start();
    EXPECT_EQ(main->workspace().favoritesFolder, L"");
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(StartUp, TheSearchButtonHasAStaticEdge)
{
    start();
    const HWND button = main->searchPanel().cmdSearch.handle();
    EXPECT_NE(GetWindowLongPtrW(button, GWL_EXSTYLE) & WS_EX_STATICEDGE, 0);
}

TEST_F(StartUp, AFileThatCannotBeReadLeavesAnEmptyListAndTheCaption)
{
    folder.write(L"Locked.udb", threeSites);
    const HANDLE lock = CreateFileW(folder.file(L"Locked.udb").c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    const ScopeExit unlock([lock] { CloseHandle(lock); });
    Answers none;
    start();
    EXPECT_ANSWERED(none);
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(main->caption(), L"Vandrel - Locked");
}

} // namespace
} // namespace vandrel::test
