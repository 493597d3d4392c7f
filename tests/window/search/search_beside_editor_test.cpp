#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

// The site editor is open over the main window. It edits a row of the list that a search would replace, so
// the search window beside it has to wait.
class SearchBesideEditor : public SearchTest {
  protected:
    SearchBesideEditor()
    {
        folder.write(L"A.udb", "beta|http://2/|b|1/1/2003\r\nalpha|http://1/|a|1/1/2003\r\n");
        folder.write(L"B.udb", manySites("b", 3));
        start();
        open();
    }
    // Runs the command that opens the editor; `answer` must close it.
    void runWithEditor(int entry, const std::wstring& caption, const std::function<void(HWND)>& answer)
    {
        bool shown = false;
        const MessageLoop::Registration look(MessageLoop::current(), [&](const MSG& message) {
            if (message.message != WM_TIMER || shown) return false;
            const HWND editor = FindWindowW(L"#32770", caption.c_str());
            if (editor == nullptr || !IsWindowVisible(editor)) return false;
            shown = true;
            answer(editor);
            return false;
        });
        main->run(entry);
        EXPECT_TRUE(shown);
    }
};

TEST_F(SearchBesideEditor, TheSearchWindowStaysTopmostAndTakesNoInputMeanwhile)
{
    runWithEditor(mnuAddWebsite, addCaption, [this](HWND editor) {
        EXPECT_TRUE(isTopmost(dialog()));
        EXPECT_TRUE(IsWindowVisible(dialog()));
        EXPECT_FALSE(IsWindowEnabled(dialog()));
        find(L"b");
        EXPECT_EQ(search().results().count(), 0U);
        press(editor, IDCANCEL);
    });
    EXPECT_TRUE(isTopmost(dialog()));
    EXPECT_TRUE(IsWindowEnabled(dialog()));
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(SearchBesideEditor, StaysTopmostWhenTheMainWindowIsKeptOnTop)
{
    main->run(mnuKeepTop);
    runWithEditor(mnuAddWebsite, addCaption, [this](HWND editor) {
        EXPECT_TRUE(isTopmost(dialog()));
        press(editor, IDCANCEL);
    });
    EXPECT_TRUE(isTopmost(dialog()));
    EXPECT_TRUE(isTopmost(main->handle()));
}

TEST_F(SearchBesideEditor, ASearchThatIsAskedForDoesNotMoveASiteThatIsBeingAdded)
{
    runWithEditor(mnuAddWebsite, addCaption, [this](HWND editor) {
        find(L"");
        typeSite(L"new", L"http://0/", L"n")(editor);
    });
    EXPECT_EQ(folder.read(L"A.udb"), "new|http://0/|n|11/16/2002\r\n"
                                     "alpha|http://1/|a|1/1/2003\r\n"
                                     "beta|http://2/|b|1/1/2003\r\n");
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
}

TEST_F(SearchBesideEditor, TheSiteThatIsEditedIsTheOneThatWasChosen)
{
    clickHeader(lstInfo(), 0);
    clickHeader(lstInfo(), 0);
    ASSERT_EQ(column(lstInfo()), (Lines{L"alpha", L"beta"})) << "another order than the file's";
    lstInfo().select(0);
    runWithEditor(mnuEditSel, editCaption, [this](HWND editor) {
        find(L"");
        typeOver(editor, editor::name, L"edited");
        press(editor, IDOK);
    });
    Lines saved = sites();
    std::ranges::sort(saved);
    EXPECT_EQ(saved, (Lines{L"beta|http://2/|b|1/1/2003", L"edited|http://1/|a|11/16/2002"}))
        << "no other site may be overwritten";
}

TEST_F(SearchBesideEditor, ASearchThatIsStoppedByTheEditorGoesOnAfterIt)
{
    folder.write(L"A.udb", manySites("a", 12));
    clickCategory(L"A");
    const SearchTurns turns(*main, [&](int turn) {
        if (turn != 1) return;
        runWithEditor(mnuAddWebsite, addCaption, typeSite(L"new", L"http://0/", L"n"));
    });
    find(L"");
    EXPECT_EQ(search().results().count(), 15U);
    EXPECT_EQ(folder.read(L"A.udb"), "new|http://0/|n|11/16/2002\r\n" + manySites("a", 12));
    EXPECT_EQ(folder.read(L"B.udb"), manySites("b", 3));
}

} // namespace
} // namespace vandrel::test
