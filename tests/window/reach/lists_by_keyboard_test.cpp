#include "tests/support/import_test.h"
#include "tests/support/recorder.h"
#include "tests/window/reach/reach_test.h"

namespace vandrel::test {
namespace {

class ListsByKeyboard : public ReachTest {
  protected:
    Recorder recorder;
};

TEST_F(ListsByKeyboard, TheArrowsChooseACategoryAndShowItsSites)
{
    folder.write(L"Work.udb", "Only|http://only.example/||\r\n");
    lstCategory().setFocus();
    typeIn(GetFocus(), VK_DOWN);
    EXPECT_EQ(selectedTitle(), L"Work");
    EXPECT_EQ(column(lstInfo()), Names{L"Only"});
    typeIn(GetFocus(), VK_UP);
    EXPECT_EQ(selectedTitle(), L"Home");
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(ListsByKeyboard, TheArrowsChooseASiteAndShiftExtends)
{
    lstInfo().setFocus();
    typeIn(GetFocus(), VK_DOWN);
    EXPECT_EQ(lstInfo().currentRow(), 1U);
    EXPECT_EQ(lstInfo().selectedCount(), 1U);
    typeIn(GetFocus(), VK_DOWN, true);
    EXPECT_EQ(lstInfo().selectedCount(), 2U);
    typeIn(GetFocus(), VK_HOME);
    EXPECT_EQ(lstInfo().currentRow(), 0U);
    EXPECT_EQ(lstInfo().selectedCount(), 1U);
}

TEST_F(ListsByKeyboard, EnterOpensAHitAsADoubleClickDoes)
{
    in(Shown::search, [this](HWND window) {
        SendMessageW(window, WM_COMMAND, IDOK, 0); // every site of both categories
        ListView& results = main->searchWindow()->results();
        ASSERT_EQ(results.count(), 6U);
        results.setFocus();
        typeIn(GetFocus(), VK_DOWN);
        EXPECT_EQ(results.currentRow(), 1U);
        typeIn(GetFocus(), VK_RETURN);
        EXPECT_EQ(recorder.linesOf(1), Names{recorder.opening(L"http://c.example/")});
    });
}

TEST_F(ListsByKeyboard, TheArrowsChooseAFileToImport)
{
    in(Shown::import, [](HWND window) {
        const HWND files = ImportDialog{window}.files();
        ASSERT_EQ(GetFocus(), files);
        typeIn(files, VK_HOME);
        EXPECT_EQ(selectedEntry(files), L"One.url");
        typeIn(files, VK_DOWN);
        EXPECT_EQ(selectedEntry(files), L"Two.url");
    });
}

TEST_F(ListsByKeyboard, EnterOpensTheChosenFolderAndImportsNothing)
{
    CreateDirectoryW(favorites.file(L"Inner").c_str(), nullptr);
    favorites.write(L"Inner\\Deep.url", shortcutOf("http://deep.example/"));
    in(Shown::import, [](HWND window) {
        const ImportDialog dialog{window};
        dialog.focus(importer::folders);
        typeIn(GetFocus(), VK_END);
        EXPECT_EQ(selectedEntry(dialog.folders()), L"Inner");
        typeIn(GetFocus(), VK_RETURN);
        EXPECT_EQ(dialog.fileNames(), Names{L"Deep.url"});
    });
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(ListsByKeyboard, TheArrowsChooseAFontOnBothPages)
{
    for (const Shown page : {Shown::options, Shown::htmlOptions}) {
        in(page, [](HWND window) {
            for (const HWND control : visibleWithin(window)) {
                if (classOf(control) != WC_LISTBOXW) continue;
                SetFocus(control);
                typeIn(control, VK_HOME);
                EXPECT_EQ(SendMessageW(control, LB_GETCURSEL, 0, 0), 0);
                typeIn(control, VK_DOWN);
                EXPECT_EQ(SendMessageW(control, LB_GETCURSEL, 0, 0), 1);
                const HWND shown = GetWindow(GetWindow(control, GW_HWNDPREV), GW_HWNDPREV);
                if (spokenName(control) == L"Overall Font Name:") {
                    EXPECT_EQ(windowText(shown), entriesOf(control)[1]);
                }
            }
        });
    }
}

TEST_F(ListsByKeyboard, LinksOpenWithSpaceAndEnter)
{
    in(Shown::properties, [this](HWND) {
        typeIn(GetFocus(), VK_TAB);
        typeIn(GetFocus(), VK_TAB);
        typeIn(GetFocus(), VK_SPACE);
        EXPECT_EQ(recorder.linesOf(1), Names{recorder.opening(L"http://b.example/")});
        typeIn(GetFocus(), VK_RETURN);
        EXPECT_EQ(recorder.linesOf(2), Names(2, recorder.opening(L"http://b.example/")));
    });
}

} // namespace
} // namespace vandrel::test
