#include "tests/window/dialogs/editor_test.h"

namespace vandrel::test {
namespace {

class EditorLoading : public EditorTest {
  protected:
    // The name, address and description in an editor that loads while this link is waiting.
    std::array<std::wstring, 3> shownFor(const std::wstring& link)
    {
        site.IncomingLink = link;
        const frmInput editor = load();
        EXPECT_EQ(site.IncomingLink, L"");
        return shownBy(editor);
    }
    static std::array<std::wstring, 3> shownBy(const frmInput& editor)
    {
        return {fieldText(editor.handle(), editor::name), fieldText(editor.handle(), editor::address),
                fieldText(editor.handle(), editor::description)};
    }
    using Fields = std::array<std::wstring, 3>;
};

TEST_F(EditorLoading, WithoutALinkTheAddressIsTheEmptyWebAddress)
{
    EXPECT_EQ(shownFor(L""), (Fields{L"", L"http://", L""}));
}

TEST_F(EditorLoading, ABareLinkIsTheAddress)
{
    EXPECT_EQ(shownFor(L"http://a/"), (Fields{L"", L"http://a/", L""}));
    EXPECT_EQ(shownFor(L"no address at all"), (Fields{L"", L"no address at all", L""}));
    EXPECT_EQ(shownFor(L" "), (Fields{L"", L" ", L""}));
}

TEST_F(EditorLoading, ALinkWithANameFillsBothFields)
{
    EXPECT_EQ(shownFor(L"http://a/~-~A page"), (Fields{L"A page", L"http://a/", L""}));
}

TEST_F(EditorLoading, ALinkThatEndsWithTheSeparatorHasAnEmptyName)
{
    EXPECT_EQ(shownFor(L"http://a/~-~"), (Fields{L"", L"http://a/", L""}));
}

TEST_F(EditorLoading, ALinkThatBeginsWithTheSeparatorHasAnEmptyAddress)
{
    EXPECT_EQ(shownFor(L"~-~A page"), (Fields{L"A page", L"", L""}));
}

TEST_F(EditorLoading, PiecesAfterTheSecondAreLeftOut)
{
    EXPECT_EQ(shownFor(L"http://a/~-~A page~-~more~-~"), (Fields{L"A page", L"http://a/", L""}));
}

TEST_F(EditorLoading, ALinkWithAVerticalBarIsShownWithIt)
{
    EXPECT_EQ(shownFor(L"http://a|b/~-~A|B"), (Fields{L"A|B", L"http://a|b/", L""}));
}

TEST_F(EditorLoading, LettersOfAllLanguagesAreShown)
{
    EXPECT_EQ(shownFor(L"http://\u65E5\u672C/~-~Ksi\u0105\u017Cki"),
              (Fields{L"Ksi\u0105\u017Cki", L"http://\u65E5\u672C/", L""}));
}

TEST_F(EditorLoading, CountsAsCancelledUntilItIsAccepted)
{
    const frmInput editor = load();
    EXPECT_TRUE(site.SiteDialogCancelled);
}

TEST_F(EditorLoading, ForANewSiteTheCaptionSaysSo)
{
    const frmInput editor = load();
    EXPECT_EQ(windowText(editor.handle()), L"Add Site...");
}

TEST_F(EditorLoading, ForAStoredSiteItShowsTheStoredTextsUnderItsOwnCaption)
{
    beginEditing(L"A|B", L"ftp://x/", L"about");
    const frmInput editor = load();
    EXPECT_EQ(windowText(editor.handle()), L"Edit selected site...");
    EXPECT_EQ(shownBy(editor), (Fields{L"A|B", L"ftp://x/", L"about"}));
    EXPECT_TRUE(site.SiteDialogCancelled);
}

TEST_F(EditorLoading, AStoredSiteWithoutAnAddressShowsNone)
{
    beginEditing(L"", L"", L"");
    const frmInput editor = load();
    EXPECT_EQ(shownBy(editor), (Fields{L"", L"", L""}));
}

TEST_F(EditorLoading, AStoredSiteOverridesAWaitingLinkWhichIsThenGone)
{
    beginEditing(L"A", L"http://a/", L"");
    EXPECT_EQ(shownFor(L"http://waiting/~-~Waiting"), (Fields{L"A", L"http://a/", L""}));
}

TEST_F(EditorLoading, ALinkIsTakenOnlyOnce)
{
    EXPECT_EQ(shownFor(L"http://a/~-~A"), (Fields{L"A", L"http://a/", L""}));
    const frmInput second = load();
    EXPECT_EQ(shownBy(second), (Fields{L"", L"http://", L""}));
}

} // namespace
} // namespace vandrel::test
