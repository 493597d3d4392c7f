#include "tests/support/html_test.h"
#include "tests/support/recorder.h"

namespace vandrel::test {
namespace {

// With a recorder in place of the program that opens pages.
class HtmlOpeningTest : public HtmlTest {
  protected:
    void startWithOne()
    {
        folder.write(L"Work.udb", "n|http://u/|d|1/1/2001\r\n");
        start();
    }
    static void yes(Answers& answers)
    {
        answers.expectBox(html::questionTitle, html::question, IDYES, MB_ICONQUESTION);
    }

    Recorder recorder;
    RegistryValue htm{HKEY_CLASSES_ROOT, L".htm", L"", L"VandrelTest.Page"};
};

TEST_F(HtmlOpeningTest, YesOpensTheFile)
{
    startWithOne();
    for (const int entry : {mnuCurrentCat, mnuAllCats}) {
        const std::size_t before = recorder.lines().size();
        const std::wstring path = target.file(L"page " + std::to_wstring(entry) + L".htm");
        create(entry, naming(path), yes);
        const auto lines = recorder.linesOf(before + 1);
        ASSERT_EQ(lines.size(), before + 1);
        EXPECT_EQ(lines.back(), recorder.opening(path));
        EXPECT_EQ(outcome(), L"HTML Generated.");
        EXPECT_FALSE(barIsVisible());
    }
}

TEST_F(HtmlOpeningTest, NoOpensNothing)
{
    startWithOne();
    for (const int entry : {mnuCurrentCat, mnuAllCats}) create(entry, naming(target.file(L"p.htm")), no);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(HtmlOpeningTest, AFileIsOpenedUnderItsOwnLettersWhateverTheCodePage)
{
    startWithOne();
    const std::wstring path = target.file(L"\u65E5\u672C\u8A9E \u0416.htm");
    create(mnuCurrentCat, naming(path), yes);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.opening(path)});
}

TEST_F(HtmlOpeningTest, AFailureOpensNothing)
{
    startWithOne();
    target.write(L"p.htm", "old");
    SetFileAttributesW(target.file(L"p.htm").c_str(), FILE_ATTRIBUTE_READONLY);
    expectFailure(mnuAllCats, naming(target.file(L"p.htm")), L"75 - Path/File access error");
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(HtmlOpeningTest, AFileThatNothingOpensIsStillGenerated)
{
    startWithOne();
    create(mnuCurrentCat, naming(target.file(L"page.vandrelunknown")), yes);
    EXPECT_EQ(outcome(), L"HTML Generated.");
    EXPECT_FALSE(barIsVisible());
    EXPECT_TRUE(recorder.nothingWasStarted());
}

} // namespace
} // namespace vandrel::test
