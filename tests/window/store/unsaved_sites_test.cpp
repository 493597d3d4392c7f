#include "platform/controls/status_bar.h"
#include "tests/support/site_editor.h"
#include "tests/window/store/category_operations.h"

namespace vandrel::test {
namespace {

// Nothing that was entered disappears from the screen unsaved.
class UnsavedSites : public StoreTest {
  protected:
    Answers& expectSite(Answers& answers, const std::wstring& name)
    {
        return answers.expect(addCaption, typeSite(name, L"http://" + name + L"/", L""));
    }
    Answers& expectQuestion(Answers& answers, const std::wstring& text, int button)
    {
        return answers.expectBox(L"Vandrel", text, button, MB_ICONQUESTION);
    }
    // Enters a site while there is no category, and makes none for it.
    void addStraySite(const std::wstring& name)
    {
        Answers answers;
        expectNoCategories(expectSite(answers, name)).cancelInput(L"Category Name");
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
    }
    void addSite(const std::wstring& name)
    {
        Answers answers;
        expectSite(answers, name);
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
    }
    void addCategory(const std::wstring& title)
    {
        Answers answers;
        expectTitle(answers, title);
        choose(mnuAddCategory);
        EXPECT_ANSWERED(answers);
    }
    std::wstring panel() { return workspace().StatusBar1.panelText(1); }
    void makeWritable(const std::wstring& name)
    {
        SetFileAttributesW(folder.file(name).c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    // Makes a change in a shown category that cannot be saved.
    void failToSave()
    {
        Answers answers;
        expectSite(answers, L"new");
        expectErrorBox(answers, 75, L"Path/File access error");
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
    }
    static constexpr const wchar_t* discardWork =
        L"The changes to \"Work\" could not be saved: Path/File access error.\r\n\r\nDiscard them?";
};

// ---- categories exist, but none is shown

TEST_F(UnsavedSites, TheFirstSiteGoesToTheFirstCategoryThatWasMade)
{
    start();
    addCategory(L"News");
    EXPECT_EQ(selectedTitle(), L"(none)");
    addSite(L"a");
    EXPECT_EQ(folder.read(L"News.udb"), "a|http://a/||11/16/2002\r\n");
    EXPECT_EQ(selectedTitle(), L"News");
    EXPECT_EQ(main->caption(), L"Vandrel - News");
    clickCategory(L"News");
    EXPECT_EQ(sites(), Lines{L"a|http://a/||11/16/2002"});
}

TEST_F(UnsavedSites, AfterARemovalTheFocusedCategoryTakesTheSiteAfterItsOwn)
{
    folder.write(L"A.udb", "1|u\r\n");
    folder.write(L"B.udb", "2|zzz\r\n");
    folder.write(L"C.udb", "3|u\r\n");
    start();
    Answers answers;
    answers.expectBox(L"Vandrel", L"Remove category and all websites within?", IDYES, MB_ICONASTERISK);
    choose(mnuRemoveCategory);
    EXPECT_ANSWERED(answers);
    LVITEMW item{};
    item.state = item.stateMask = LVIS_FOCUSED;
    SendMessageW(lstCategory().handle(), LVM_SETITEMSTATE, 1, reinterpret_cast<LPARAM>(&item)); // C
    addSite(L"b");
    EXPECT_EQ(selectedTitle(), L"C");
    EXPECT_EQ(folder.read(L"B.udb"), "2|zzz\r\n");
    EXPECT_EQ(folder.read(L"C.udb"), "3|u||\r\nb|http://b/||11/16/2002\r\n");
    EXPECT_EQ(sites(), (Lines{L"3|u||", L"b|http://b/||11/16/2002"}));
}

TEST_F(UnsavedSites, OneThatCannotBeReadIsNotOverwrittenAndTheSiteStaysInTheList)
{
    folder.write(L"A.udb", "1|u\r\n");
    folder.write(L"B.udb", "2|u\r\n");
    start();
    Answers answers;
    answers.expectBox(L"Vandrel", L"Remove category and all websites within?", IDYES, MB_ICONASTERISK);
    choose(mnuRemoveCategory);
    {
        HeldFile held(folder.file(L"B.udb"));
        expectSite(answers, L"b");
        expectErrorBox(answers, 70, L"Permission denied");
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
    }
    EXPECT_EQ(folder.read(L"B.udb"), "2|u\r\n");
    EXPECT_EQ(sites(), Lines{L"b|http://b/||11/16/2002"});
    addSite(L"c"); // the file can be read now
    EXPECT_EQ(folder.read(L"B.udb"), "2|u||\r\nb|http://b/||11/16/2002\r\nc|http://c/||11/16/2002\r\n");
    EXPECT_EQ(lstInfo().count(), 3U);
}

// ---- no category at all

TEST_F(UnsavedSites, ARefusedTitleIsAskedForAgain)
{
    start();
    Answers answers;
    expectNoCategories(expectSite(answers, L"a"));
    expectRefusal(expectTitle(answers, L"a*b"));
    expectTitle(answers, L"First");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"First.udb"), "a|http://a/||11/16/2002\r\n");
    EXPECT_EQ(selectedTitle(), L"First");
    EXPECT_EQ(moveEntries(), Lines{L"First"});
}

TEST_F(UnsavedSites, ATitleThatTheSystemRefusesIsAskedForAgain)
{
    start();
    Answers answers;
    expectNoCategories(expectSite(answers, L"a"));
    expectTitle(answers, L"a<b");
    expectErrorBox(answers, 52, L"Bad file name or number");
    expectTitle(answers, L"First");
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"First.udb"), "a|http://a/||11/16/2002\r\n");
    EXPECT_EQ(folder.names(), Lines{L"First.udb"});
}

TEST_F(UnsavedSites, AfterCancellingPanelOneSaysHowManyAreNotSaved)
{
    start();
    addStraySite(L"a");
    EXPECT_EQ(panel(), L"1 site not saved.");
    addStraySite(L"b");
    EXPECT_EQ(panel(), L"2 sites not saved.");
    EXPECT_EQ(lstInfo().count(), 2U);
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(UnsavedSites, TheNextCategoryThatIsMadeTakesThem)
{
    start();
    addStraySite(L"a");
    addStraySite(L"b");
    Answers answers;
    expectTitle(answers, L"News");
    expectQuestion(answers, L"2 sites are not saved. Add them to \"News\"?", IDYES);
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"News.udb"), "a|http://a/||11/16/2002\r\nb|http://b/||11/16/2002\r\n");
    EXPECT_EQ(selectedTitle(), L"News");
    EXPECT_EQ(sites().size(), 2U);
    EXPECT_EQ(panel(), L"");
}

TEST_F(UnsavedSites, NoDiscardsThem)
{
    start();
    addStraySite(L"a");
    Answers answers;
    expectTitle(answers, L"News");
    expectQuestion(answers, L"1 site is not saved. Add it to \"News\"?", IDNO);
    choose(mnuAddCategory);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"News.udb"), "");
    EXPECT_TRUE(lstInfo().empty());
    EXPECT_EQ(selectedTitle(), L"(none)");
    EXPECT_EQ(panel(), L"");
    clickCategory(L"News"); // nothing more is asked
}

TEST_F(UnsavedSites, RemovingThemLeavesNothingToSave)
{
    start();
    addStraySite(L"a");
    selectSites({0});
    Answers answers;
    answers.expectBox(L"Remove site(s)", L"Remove selected site(s)?", IDYES, MB_ICONASTERISK);
    expectNoCategories(answers).cancelInput(L"Category Name");
    choose(mnuRemoveWebsite);
    EXPECT_ANSWERED(answers);
    stop(); // asks nothing
}

// ---- closing

TEST_F(UnsavedSites, ClosingAsksAndYesMakesACategory)
{
    start();
    addStraySite(L"a");
    Answers answers;
    expectQuestion(answers, L"1 site is not saved. Make a category for it?", IDYES);
    expectNoCategories(answers);
    expectTitle(answers, L"Last");
    stop();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Last.udb"), "a|http://a/||11/16/2002\r\n");
}

TEST_F(UnsavedSites, ClosingAsksAgainWhenNoCategoryWasMadeAndNoClosesWithoutThem)
{
    start();
    addStraySite(L"a");
    addStraySite(L"b");
    Answers answers;
    const wchar_t* const question = L"2 sites are not saved. Make a category for them?";
    expectQuestion(answers, question, IDYES);
    expectNoCategories(answers).cancelInput(L"Category Name");
    expectQuestion(answers, question, IDNO);
    stop();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.names(), Lines{});
}

TEST_F(UnsavedSites, ClosingTriesOnceMoreToSaveAChange)
{
    folder.write(L"Work.udb", "");
    start();
    makeReadOnly(L"Work.udb");
    failToSave();
    makeWritable(L"Work.udb");
    stop();
    EXPECT_EQ(folder.read(L"Work.udb"), "new|http://new/||11/16/2002\r\n");
}

TEST_F(UnsavedSites, ClosingWithAnUnsavableChangeAsksUntilItIsSavedOrNoIsChosen)
{
    folder.write(L"Work.udb", "");
    start();
    makeReadOnly(L"Work.udb");
    failToSave();
    Answers answers;
    const wchar_t* const again =
        L"The changes to \"Work\" could not be saved: Path/File access error.\r\n\r\nTry again?";
    expectQuestion(answers, again, IDYES);
    answers.expect(L"Vandrel", [&](HWND box) {
        makeWritable(L"Work.udb");
        press(box, IDYES);
    });
    stop();
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), "new|http://new/||11/16/2002\r\n");
}

// ---- a change that could not be saved

TEST_F(UnsavedSites, AnotherClickSavesTheChangeFirst)
{
    folder.write(L"Other.udb", "o|p\r\n");
    folder.write(L"Work.udb", "");
    start();
    clickCategory(L"Work");
    makeReadOnly(L"Work.udb");
    failToSave();
    makeWritable(L"Work.udb");
    clickCategory(L"Other");
    EXPECT_EQ(folder.read(L"Work.udb"), "new|http://new/||11/16/2002\r\n");
    EXPECT_EQ(sites(), Lines{L"o|p||"});
}

TEST_F(UnsavedSites, AChangeThatStillCannotBeSavedStaysUntilTheUserDiscardsIt)
{
    folder.write(L"Other.udb", "o|p\r\n");
    folder.write(L"Work.udb", "w|x\r\n");
    start();
    clickCategory(L"Work");
    makeReadOnly(L"Work.udb");
    failToSave();
    Answers answers;
    answers.expect(L"Vandrel", [](HWND box) {
        EXPECT_EQ(GetFocus(), GetDlgItem(box, IDNO)) << "what Enter presses";
        press(box, IDNO);
    });
    clickCategory(L"Other");
    EXPECT_EQ(selectedTitle(), L"Work");
    EXPECT_EQ(sites(), (Lines{L"new|http://new/||11/16/2002", L"w|x||"}));
    expectQuestion(answers, discardWork, IDYES);
    clickCategory(L"Other");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(selectedTitle(), L"Other");
    EXPECT_EQ(sites(), Lines{L"o|p||"});
}

TEST_F(UnsavedSites, ASearchOfAllCategoriesKeepsAChangeThatIsNotDiscarded)
{
    folder.write(L"Other.udb", "o|p\r\n");
    folder.write(L"Work.udb", "");
    start();
    clickCategory(L"Work");
    choose(mnuFind);
    ASSERT_NE(main->searchWindow(), nullptr);
    makeReadOnly(L"Work.udb");
    failToSave();
    Answers answers;
    expectQuestion(answers, discardWork, IDNO);
    main->searchWindow()->DoSearch(L"o");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(), Lines{L"new|http://new/||11/16/2002"});
    EXPECT_TRUE(main->searchWindow()->results().empty());
    makeWritable(L"Work.udb");
    main->searchWindow()->DoSearch(L"o");
    EXPECT_EQ(main->searchWindow()->results().count(), 1U);
    EXPECT_EQ(folder.read(L"Work.udb"), "new|http://new/||11/16/2002\r\n");
}

TEST_F(UnsavedSites, NewSitesOfAnUnreadableCategoryGoToTheNextOne)
{
    folder.write(L"Other.udb", "o|p\r\n");
    folder.write(L"Work.udb", "w|x\r\n");
    start();
    const HeldFile held(folder.file(L"Work.udb"));
    clickCategory(L"Work");
    EXPECT_TRUE(lstInfo().empty());
    Answers answers;
    expectSite(answers, L"new");
    expectErrorBox(answers, 70, L"Permission denied");
    choose(mnuAddWebsite);
    expectQuestion(answers, L"1 site is not saved. Add it to \"Other\"?", IDYES);
    clickCategory(L"Other");
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Other.udb"), "o|p||\r\nnew|http://new/||11/16/2002\r\n");
    EXPECT_EQ(selectedTitle(), L"Other");
}

} // namespace
} // namespace vandrel::test
