#include "tests/support/from_outside.h"
#include "tests/window/dialogs/editor_test.h"

namespace vandrel::test {
namespace {

// What the editor hands back.
class EditorAnswer : public EditorTest {};

TEST_F(EditorAnswer, OkHandsBackTheNewSite)
{
    show(typeSite(L"A", L"http://a/", L"about"));
    EXPECT_FALSE(site.SiteDialogCancelled);
    EXPECT_EQ(site.newSiteName, L"A");
    EXPECT_EQ(site.newSiteURL, L"http://a/");
    EXPECT_EQ(site.newSiteDescription, L"about");
}

TEST_F(EditorAnswer, OfANewSiteEveryVerticalBarBecomesADash)
{
    show(typeSite(L"|a||b|", L"http://|/", L"x|y"));
    EXPECT_EQ(site.newSiteName, L"-a--b-");
    EXPECT_EQ(site.newSiteURL, L"http://-/");
    EXPECT_EQ(site.newSiteDescription, L"x-y");
}

TEST_F(EditorAnswer, TheBarsOfAnUntouchedLinkBecomeDashesToo)
{
    site.IncomingLink = L"http://a|b/~-~A|B";
    show(pressing(IDOK));
    EXPECT_EQ(site.newSiteName, L"A-B");
    EXPECT_EQ(site.newSiteURL, L"http://a-b/");
}

TEST_F(EditorAnswer, TheBoxesShowTheDashesBeforeTheEditorCloses)
{
    site.IncomingLink = L"http://a|b/~-~A|B";
    const frmInput editor = load();
    typeOver(editor.handle(), editor::description, L"x|y");
    press(editor.handle(), IDOK);
    EXPECT_EQ(fieldText(editor.handle(), editor::name), L"A-B");
    EXPECT_EQ(fieldText(editor.handle(), editor::address), L"http://a-b/");
    EXPECT_EQ(fieldText(editor.handle(), editor::description), L"x-y");
    EXPECT_TRUE(editor.unloaded());
}

TEST_F(EditorAnswer, OnlyTheOrdinaryBarIsReplaced)
{
    show(typeSite(L"a\uFF5Cb\u00A6c", L"~-~", L""));
    EXPECT_EQ(site.newSiteName, L"a\uFF5Cb\u00A6c");
    EXPECT_EQ(site.newSiteURL, L"~-~");
}

TEST_F(EditorAnswer, EmptyFieldsAreAccepted)
{
    show(typeSite(L"", L"", L""));
    EXPECT_FALSE(site.SiteDialogCancelled);
    EXPECT_EQ(site.newSiteName, L"");
    EXPECT_EQ(site.newSiteURL, L"");
    EXPECT_EQ(site.newSiteDescription, L"");
}

TEST_F(EditorAnswer, TheBareWebAddressIsAccepted)
{
    show(pressing(IDOK));
    EXPECT_FALSE(site.SiteDialogCancelled);
    EXPECT_EQ(site.newSiteURL, L"http://");
}

TEST_F(EditorAnswer, ANewSiteLeavesTheTextsOfEditingAlone)
{
    site.SiteEditName = L"kept";
    show(typeSite(L"A", L"http://a/", L"about"));
    EXPECT_EQ(site.SiteEditName, L"kept");
    EXPECT_FALSE(site.SiteEditMode);
}

TEST_F(EditorAnswer, AStoredSiteComesBackAsTypedBarsIncludedAndEndsTheEditMode)
{
    beginEditing(L"old", L"http://old/", L"");
    show(typeSite(L"a|b", L"http://a|b/", L"|"));
    EXPECT_FALSE(site.SiteDialogCancelled);
    EXPECT_FALSE(site.SiteEditMode);
    EXPECT_EQ(site.SiteEditName, L"a|b");
    EXPECT_EQ(site.SiteEditURL, L"http://a|b/");
    EXPECT_EQ(site.SiteEditDesc, L"|");
}

TEST_F(EditorAnswer, AStoredSiteLeavesTheNewOneAlone)
{
    site.newSiteName = L"kept";
    beginEditing(L"old", L"http://old/", L"");
    show(typeSite(L"a", L"b", L"c"));
    EXPECT_EQ(site.newSiteName, L"kept");
    EXPECT_EQ(site.newSiteURL, L"http://");
}

TEST_F(EditorAnswer, UntouchedTextsComeBackUnchanged)
{
    const std::wstring odd(L"a\0b\nc\rd\te", 9);
    beginEditing(odd, odd + L"x", std::wstring(100'000, L'd'));
    show([](HWND dialog) {
        typeOver(dialog, editor::address, L"typed");
        press(dialog, IDOK);
    });
    EXPECT_EQ(site.SiteEditName, odd);
    EXPECT_EQ(site.SiteEditURL, L"typed");
    EXPECT_EQ(site.SiteEditDesc, std::wstring(100'000, L'd'));
}

// Fills the fields as a screen reader or dictation does.
std::function<void(HWND)> dictateSite(const std::wstring& name, const std::wstring& url,
                                      const std::wstring& description)
{
    return [=](HWND dialog) {
        setTextFromOutside(GetDlgItem(dialog, editor::name), name);
        setTextFromOutside(GetDlgItem(dialog, editor::address), url);
        setTextFromOutside(GetDlgItem(dialog, editor::description), description);
        press(dialog, IDOK);
    };
}

TEST_F(EditorAnswer, ANewSitesTextsCountHoweverTheyCameIntoTheBoxes)
{
    site.IncomingLink = L"http://link/~-~Link";
    show(dictateSite(L"A|B", L"http://a/", L"about"));
    EXPECT_EQ(site.newSiteName, L"A-B");
    EXPECT_EQ(site.newSiteURL, L"http://a/");
    EXPECT_EQ(site.newSiteDescription, L"about");
}

TEST_F(EditorAnswer, AStoredSitesTextsCountHoweverTheyCameIntoTheBoxes)
{
    beginEditing(L"old", L"http://old/", L"x\ny");
    show(dictateSite(L"A|B", L"http://a/", L""));
    EXPECT_EQ(site.SiteEditName, L"A|B");
    EXPECT_EQ(site.SiteEditURL, L"http://a/");
    EXPECT_EQ(site.SiteEditDesc, L"");
}

TEST_F(EditorAnswer, CancelHandsBackNothing)
{
    show([](HWND dialog) {
        typeOver(dialog, editor::name, L"typed");
        press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(site.SiteDialogCancelled);
    EXPECT_EQ(site.newSiteName, L"");
    EXPECT_EQ(site.newSiteURL, L"http://");
}

TEST_F(EditorAnswer, CancelLeavesTheEditModeAndTheTextsOfEditingAsTheyWere)
{
    beginEditing(L"old", L"http://old/", L"x");
    show([](HWND dialog) {
        typeOver(dialog, editor::name, L"typed");
        press(dialog, IDCANCEL);
    });
    EXPECT_TRUE(site.SiteDialogCancelled);
    EXPECT_TRUE(site.SiteEditMode);
    EXPECT_EQ(site.SiteEditName, L"old");
}

TEST_F(EditorAnswer, TheCloseBoxCancels)
{
    show([](HWND dialog) { SendMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); });
    EXPECT_TRUE(site.SiteDialogCancelled);
}

TEST_F(EditorAnswer, ACancelledEditorForgetsTheLink)
{
    site.IncomingLink = L"http://a/";
    show(pressing(IDCANCEL));
    EXPECT_EQ(site.IncomingLink, L"");
}

} // namespace
} // namespace vandrel::test
