#include "platform/text/ansi_text.h"
#include "platform/windows/topmost.h"
#include "tests/support/drop_test.h"

namespace vandrel::test {
namespace {

constexpr const wchar_t* notAnAddress = L"That is not a valid URL. Please drag links from browsers only.";

class DroppedLink : public DropTest {
  protected:
    // Drops the data, which must be ignored without a message, and nothing may change.
    void expectSilence(DroppedObject& data)
    {
        workspace().site.IncomingLink = L"waiting";
        Answers none;
        drop(data);
        EXPECT_ANSWERED(none);
        EXPECT_EQ(workspace().site.IncomingLink, L"waiting");
        EXPECT_EQ(sites(), Lines{L"Old|http://z/||1/1/2001"});
        EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
    }
};

TEST_F(DroppedLink, IsAddedToTheCategoryThatIsShown)
{
    folder.write(L"Home.udb", "");
    folder.write(L"Work.udb", oneSite);
    start();
    clickCategory(L"Work");
    DroppedObject link;
    link.withAnsi("http://x.example/page");
    dropAndAnswer(link, [](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://x.example/page");
        typeOver(dialog, editor::name, L"A page");
        press(dialog, IDOK);
    });
    EXPECT_EQ(folder.read(L"Work.udb"),
              "A page|http://x.example/page||11/16/2002\r\n" + std::string(oneSite));
    EXPECT_EQ(folder.read(L"Home.udb"), "");
}

TEST_F(DroppedLink, IsReleasedBeforeTheEditorOpens)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/");
    bool returned = false;
    Answers answers;
    answers.expect(addCaption, [&](HWND dialog) {
        EXPECT_TRUE(returned);
        EXPECT_FALSE(link.inUse());
        press(dialog, IDCANCEL);
    });
    letGo(link);
    returned = true;
    EXPECT_FALSE(answers.done());
    EXPECT_TRUE(IsWindowEnabled(main->handle())) << "the editor is open already";
    pump();
    EXPECT_ANSWERED(answers);
}

TEST_F(DroppedLink, OpensTheEditorInAddModeOverTheMainWindow)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/");
    dropAndAnswer(link, [&](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), main->handle());
        EXPECT_FALSE(workspace().site.SiteEditMode);
        press(dialog, IDCANCEL);
    });
}

TEST_F(DroppedLink, GoesNowhereElseWhereverAndWithWhicheverKeysItIsDropped)
{
    folder.write(L"Work.udb", "A|http://a/||1\r\nB|http://b/||2\r\n");
    start();
    for (const auto& [at, keys] : {std::pair<POINTL, DWORD>{{0, 0}, MK_LBUTTON},
                                   {{400, 300}, MK_RBUTTON},
                                   {{30000, -200}, MK_LBUTTON | MK_CONTROL | MK_SHIFT}}) {
        DroppedObject link;
        link.withAnsi("http://c/");
        Answers answers;
        answers.expect(addCaption, pressing(IDOK));
        letGo(link, everyEffect, at, keys);
        pump();
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(lstInfo().text(lstInfo().count() - 1, 1), L"http://c/");
    }
    EXPECT_EQ(sites().size(), 5U);
}

TEST_F(DroppedLink, IsTakenAsItIs)
{
    startWithOneSite();
    for (const char* const text : {"  http://x/ y  ", "word", "C:\\some\\file.txt", "x.example", "a|b", " ",
                                   "HTTP://X/", "\"http://x/\"", "mailto:a@b"}) {
        DroppedObject link;
        link.withAnsi(text);
        EXPECT_EQ(addressAfter(link), std::wstring(text, text + std::strlen(text)));
    }
}

TEST_F(DroppedLink, OfSeveralLinesIsTakenWhole)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/\r\nA page\nmore");
    EXPECT_EQ(addressAfter(link), L"http://x/\r\nA page\nmore");
}

TEST_F(DroppedLink, WithANameFillsBothBoxes)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/~-~A page");
    dropAndAnswer(link, [](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"A page");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://x/");
        press(dialog, IDOK);
    });
    EXPECT_EQ(folder.read(L"Work.udb"), "A page|http://x/||11/16/2002\r\n" + std::string(oneSite));
}

TEST_F(DroppedLink, ThatIsEmptyOpensTheEditorAfresh)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("");
    workspace().site.IncomingLink = L"waiting";
    EXPECT_EQ(addressAfter(link), L"http://");
}

TEST_F(DroppedLink, ReplacesALinkThatWasWaiting)
{
    startWithOneSite();
    workspace().site.IncomingLink = L"http://waiting/~-~Waiting";
    DroppedObject link;
    link.withAnsi("http://x/");
    dropAndAnswer(link, [](HWND dialog) {
        EXPECT_EQ(fieldText(dialog, editor::name), L"");
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://x/");
        press(dialog, IDCANCEL);
    });
}

TEST_F(DroppedLink, ThatIsCancelledAddsNothingAndTheNextAddStartsAfresh)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/~-~A page");
    dropAndAnswer(link, pressing(IDCANCEL));
    EXPECT_EQ(sites(), Lines{L"Old|http://z/||1/1/2001"});
    EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
    EXPECT_EQ(addressOfTheNextAdd(), L"http://");
}

TEST_F(DroppedLink, ThatIsStoredAlreadyIsAddedAgain)
{
    startWithOneSite();
    for (int time = 0; time < 2; ++time) {
        DroppedObject link;
        link.withAnsi("http://z/");
        dropAndAnswer(link, pressing(IDOK));
    }
    EXPECT_EQ(lstInfo().count(), 3U);
}

TEST_F(DroppedLink, IsReadInTheAnsiFormat)
{
    startWithOneSite();
    DroppedObject both;
    both.withUnicode(L"http://unicode/").withAnsi("http://ansi/\xE9");
    EXPECT_EQ(addressAfter(both), decodeAnsi("http://ansi/\xE9"));
}

// Chromium's plain text is in UTF-8, whatever the code page.
TEST_F(DroppedLink, WhosePlainTextIsTheUnicodeFormInUtf8IsReadInUnicode)
{
    startWithOneSite();
    DroppedObject both;
    both.withAnsi("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80").withUnicode(L"café € \U0001F600");
    EXPECT_EQ(addressAfter(both), L"café € \U0001F600");
}

TEST_F(DroppedLink, WhosePlainTextOnlyLooksLikeUtf8IsReadInTheAnsiFormat)
{
    startWithOneSite();
    const std::string bytes = "caf\xC3\xA9";
    DroppedObject alone;
    alone.withAnsi(bytes);
    EXPECT_EQ(addressAfter(alone), decodeAnsi(bytes));
    DroppedObject other;
    other.withAnsi(bytes).withUnicode(L"tea");
    EXPECT_EQ(addressAfter(other), decodeAnsi(bytes));
    DroppedObject unreadable;
    unreadable.withAnsi(bytes).failing(CF_UNICODETEXT, E_FAIL);
    EXPECT_EQ(addressAfter(unreadable), decodeAnsi(bytes));
    DroppedObject broken;
    broken.withAnsi(bytes + "\xE9").withUnicode(L"café\xE9");
    EXPECT_EQ(addressAfter(broken), decodeAnsi(bytes + "\xE9"));
}

TEST_F(DroppedLink, InTheUnicodeFormatAloneIsPlainTextToo)
{
    startWithOneSite();
    DroppedObject link;
    link.withUnicode(L"http://x/Książki");
    EXPECT_EQ(addressAfter(link), L"http://x/Książki");
}

TEST_F(DroppedLink, EndsWithItsMemoryWhenNoNulDoes)
{
    startWithOneSite();
    const std::string text = "http://x.example/" +
                             std::string(47, 'a'); // 64 bytes: memory is allocated in such units
    DroppedObject ansi;
    ansi.with(CF_TEXT, text);
    const std::wstring wide(text.begin(), text.end());
    EXPECT_EQ(addressAfter(ansi), wide);
    DroppedObject unicode;
    unicode.with(CF_UNICODETEXT,
                 std::string(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)));
    EXPECT_EQ(addressAfter(unicode), wide);
}

TEST_F(DroppedLink, EndsAtItsFirstNul)
{
    startWithOneSite();
    DroppedObject link;
    link.with(CF_TEXT, std::string("http://x/\0behind\0", 17));
    EXPECT_EQ(addressAfter(link), L"http://x/");
}

TEST_F(DroppedLink, OfAMillionLettersArrivesWhole)
{
    startWithOneSite();
    const std::string text = "http://x/" + std::string(1'000'000, 'a');
    DroppedObject link;
    link.withAnsi(text);
    const std::wstring address = addressAfter(link);
    EXPECT_EQ(address.size(), text.size());
    EXPECT_TRUE(address == std::wstring(text.begin(), text.end()));
}

TEST_F(DroppedLink, BringsAMessageWhenItHoldsNoText)
{
    startWithOneSite();
    DroppedObject files;
    files.withFile(L"C:\\some\\file.txt");
    DroppedObject nothing;
    for (DroppedObject* const data : {&files, &nothing}) {
        workspace().site.IncomingLink = L"waiting";
        Answers answers;
        answers.expectBox(L"Invalid URL", notAnAddress, IDOK, MB_ICONASTERISK);
        drop(*data);
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(workspace().site.IncomingLink, L"waiting");
        EXPECT_EQ(sites(), Lines{L"Old|http://z/||1/1/2001"});
        EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
    }
}

TEST_F(DroppedLink, TheMessageHasOnlyAnOkButtonAndBelongsToTheMainWindow)
{
    startWithOneSite();
    DroppedObject nothing;
    Answers answers;
    answers.expect(L"Invalid URL", [&](HWND box) {
        EXPECT_EQ(buttonsOf(box), std::vector<int>{IDOK});
        EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
        press(box, IDOK);
    });
    drop(nothing);
    EXPECT_ANSWERED(answers);
}

TEST_F(DroppedLink, WhoseTextIsOfferedButNotGivenIsIgnored)
{
    startWithOneSite();
    for (const CLIPFORMAT format : {CLIPFORMAT{CF_TEXT}, CLIPFORMAT{CF_UNICODETEXT}}) {
        for (const HRESULT failure : {E_FAIL, E_OUTOFMEMORY, DV_E_FORMATETC}) {
            DroppedObject data;
            data.failing(format, failure);
            expectSilence(data);
        }
    }
}

TEST_F(DroppedLink, WithoutAnyMemoryIsIgnored)
{
    startWithOneSite();
    for (const CLIPFORMAT format : {CLIPFORMAT{CF_TEXT}, CLIPFORMAT{CF_UNICODETEXT}}) {
        DroppedObject data;
        data.failing(format, S_OK);
        expectSilence(data);
    }
}

TEST_F(DroppedLink, CanBeDroppedAfterOneThatCouldNotBeRead)
{
    startWithOneSite();
    DroppedObject unreadable;
    unreadable.failing(CF_TEXT, E_FAIL);
    drop(unreadable);
    DroppedObject link;
    link.withAnsi("http://x/");
    EXPECT_EQ(addressAfter(link), L"http://x/");
}

TEST_F(DroppedLink, ThatCannotBeSavedBringsNoMessage)
{
    startWithOneSite();
    makeReadOnly(L"Work.udb");
    DroppedObject link;
    link.withAnsi("http://x/");
    dropAndAnswer(link, pressing(IDOK));
    EXPECT_EQ(folder.read(L"Work.udb"), oneSite);
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
    EXPECT_EQ(addressOfTheNextAdd(), L"http://");
}

TEST_F(DroppedLink, WithoutAnyCategoryAsksForOneAfterTheEditor)
{
    start();
    DroppedObject link;
    link.withAnsi("http://x/~-~A page");
    Answers answers;
    answers.expect(addCaption, pressing(IDOK));
    answers.expectBox(L"No Categories",
                      L"There are no categories. Please make a category before adding a site.", IDOK,
                      MB_ICONASTERISK);
    answers.expectInput(L"Category Name", L"Please enter a title for the new category.", L"Links");
    drop(link);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Links.udb"), "A page|http://x/||11/16/2002\r\n");
}

TEST_F(DroppedLink, OpensTheEditorInFrontOfAWindowThatIsKeptOnTop)
{
    folder.write(L"Work.udb", oneSite);
    setPreference(L"Config", L"KeepTop", L"1");
    start();
    for (const int button : {IDCANCEL, IDOK}) {
        ASSERT_TRUE(isTopmost(main->handle()));
        DroppedObject link;
        link.withAnsi("http://x/");
        bool meanwhile = true;
        dropAndAnswer(link, [&](HWND dialog) {
            meanwhile = isTopmost(main->handle());
            press(dialog, button);
        });
        EXPECT_FALSE(meanwhile);
        EXPECT_TRUE(isTopmost(main->handle()));
    }
}

} // namespace
} // namespace vandrel::test
