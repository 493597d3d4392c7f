#include "tests/support/html_test.h"

namespace vandrel::test {
namespace {

// Every failure is tried with both commands.
class HtmlFailuresTest : public HtmlTest, public testing::WithParamInterface<int> {
  protected:
    void startWithTwo()
    {
        folder.write(L"Arts.udb", "a|http://a/|A|1/1/2001\r\n");
        folder.write(L"Cars.udb", "c|http://c/|C|1/3/2001\r\n");
        start();
        categoryRows().sortBy(0, SortOrder::ascending);
        clickCategory(L"Cars");
    }
    // Names the file, and calls `then` before the command gets it.
    static std::function<void(HWND)> namingAndThen(const std::wstring& path,
                                                   const std::function<void()>& then)
    {
        return [=](HWND dialog) {
            naming(path)(dialog);
            then();
        };
    }
    void expectWorksAgain()
    {
        EXPECT_TRUE(IsWindowEnabled(main->handle()));
        EXPECT_TRUE(pageOf(GetParam()).ends_with(html::row("c", "http://c/", "C") + html::footer));
        EXPECT_EQ(outcome(), L"HTML Generated.");
    }
};

TEST_P(HtmlFailuresTest, AFolderInPlaceOfTheFileIsReported)
{
    startWithTwo();
    const std::wstring path = target.file(L"a.htm");
    expectFailure(GetParam(), namingAndThen(path, [&] { CreateDirectoryW(path.c_str(), nullptr); }),
                  L"75 - Path/File access error");
    EXPECT_EQ(target.names(), Lines{});
    expectWorksAgain();
}

TEST_P(HtmlFailuresTest, AReadOnlyFileIsReportedAndStaysAsItIs)
{
    startWithTwo();
    target.write(L"a.htm", "old");
    SetFileAttributesW(target.file(L"a.htm").c_str(), FILE_ATTRIBUTE_READONLY);
    expectFailure(GetParam(), naming(target.file(L"a.htm")), L"75 - Path/File access error");
    EXPECT_EQ(target.read(L"a.htm"), "old");
    EXPECT_EQ(target.names(), Lines{L"a.htm"});
    expectWorksAgain();
}

TEST_P(HtmlFailuresTest, AFolderThatVanishedIsReported)
{
    startWithTwo();
    const std::wstring gone = target.file(L"gone");
    CreateDirectoryW(gone.c_str(), nullptr);
    expectFailure(GetParam(), namingAndThen(gone + L"\\a.htm", [&] { RemoveDirectoryW(gone.c_str()); }),
                  L"76 - Path not found");
    EXPECT_EQ(target.names(), Lines{});
    expectWorksAgain();
}

TEST_P(HtmlFailuresTest, AFileThatAnotherProgramHoldsIsReportedAndStaysAsItIs)
{
    startWithTwo();
    target.write(L"a.htm", "old");
    {
        const HeldFile held(target.file(L"a.htm"));
        expectFailure(GetParam(), naming(target.file(L"a.htm")), L"70 - Permission denied");
    }
    EXPECT_EQ(target.read(L"a.htm"), "old");
    expectWorksAgain();
}

TEST_P(HtmlFailuresTest, ACategoryThatCannotBeReadIsReportedAndNoPageIsWritten)
{
    startWithTwo();
    target.write(L"a.htm", "old");
    {
        const HeldFile held(folder.file(L"Cars.udb"));
        clickCategory(L"Cars");
        expectFailure(GetParam(), naming(target.file(L"a.htm")), L"70 - Permission denied");
    }
    EXPECT_EQ(target.read(L"a.htm"), "old");
    EXPECT_EQ(folder.read(L"Cars.udb"), "c|http://c/|C|1/3/2001\r\n");
    clickCategory(L"Cars");
    expectWorksAgain();
}

TEST_P(HtmlFailuresTest, TheErrorBoxBelongsToTheWindowAndTheBarDisappearsAfterIt)
{
    startWithTwo();
    target.write(L"a.htm", "old");
    SetFileAttributesW(target.file(L"a.htm").c_str(), FILE_ATTRIBUTE_READONLY);
    const std::wstring before = outcome();
    create(GetParam(), naming(target.file(L"a.htm")), [&](Answers& answers) {
        answers.expect(L"Error", [&](HWND box) {
            EXPECT_EQ(GetWindow(box, GW_OWNER), main->handle());
            EXPECT_EQ(buttonsOf(box), std::vector<int>{IDOK});
            EXPECT_TRUE(barIsVisible());
            EXPECT_EQ(outcome(), before);
            press(box, IDOK);
        });
    });
    EXPECT_FALSE(barIsVisible());
    EXPECT_EQ(outcome(), L"Generation failed.");
}

INSTANTIATE_TEST_SUITE_P(Commands, HtmlFailuresTest, testing::Values(mnuCurrentCat, mnuAllCats),
                         [](const auto& entry) { return entry.param == mnuAllCats ? "All" : "Current"; });

class HtmlReadingTest : public HtmlTest {};

TEST_F(HtmlReadingTest, ACategoryThatCannotBeReadStopsThePageRatherThanBeMissing)
{
    for (const wchar_t* const name : {L"Arts.udb", L"Bare.udb", L"Cars.udb"}) {
        folder.write(name, "n|http://u/||\r\n");
    }
    start();
    categoryRows().sortBy(0, SortOrder::ascending);
    clickCategory(L"Cars");
    {
        const HeldFile held(folder.file(L"Bare.udb"));
        expectFailure(mnuAllCats, naming(target.file(L"a.htm")), L"70 - Permission denied");
    }
    EXPECT_EQ(target.names(), Lines{});
    EXPECT_EQ(folder.read(L"Bare.udb"), "n|http://u/||\r\n");
    EXPECT_EQ(selectedTitle(), L"Cars");
    EXPECT_EQ(sites(), Lines{L"n|http://u/||"});
    EXPECT_EQ(main->caption(), L"Vandrel - Cars");
    // The category that is shown as selected is the one whose sites are listed, so a save cannot go to
    // another.
    siteRows().add({L"new", L"", L"", L""}, siteImage);
    const int number = errorOf([&] { SaveItems(workspace()); });
    for (const wchar_t* const name : {L"Arts.udb", L"Bare.udb", L"Cars.udb"}) {
        if (selectedTitle() + L".udb" == name && number == 0) continue;
        EXPECT_EQ(folder.read(name), "n|http://u/||\r\n");
    }
    EXPECT_EQ(windowText(main->handle()), L"Vandrel - " + selectedTitle());
    clickCategory(L"Arts");
    EXPECT_EQ(sites(), Lines{L"n|http://u/||"});
}

} // namespace
} // namespace vandrel::test
