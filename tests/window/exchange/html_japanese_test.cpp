#include "tests/support/html_test.h"

namespace vandrel::test {
namespace {

// Registered a second time under a Japanese locale; see CMakeLists.txt.
class JapaneseHtml : public HtmlTest {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    }
};

TEST_F(JapaneseHtml, KeepsLettersWhoseSecondByteLooksLikeAnother)
{
    // The second bytes are those of "|" and "\".
    const std::string name = "\x83\x7C\x83\x93\x95\x5C";
    folder.write(L"Links.udb", name + "|http://u/|" + name + "|1/1/2001\r\n");
    start();
    EXPECT_EQ(pageOf(mnuCurrentCat), html::header + html::row(name, "http://u/", name) + html::footer);
    EXPECT_EQ(pageOf(mnuAllCats),
              html::header + html::title("Links") + html::row(name, "http://u/", name) + html::footer);
}

TEST_F(JapaneseHtml, ATitleIsWrittenInTheCodePageAndLettersOutsideAsQuestionMarks)
{
    folder.write(L"\u8868\u30DD \u00C4\u20AC.udb", "n|http://u/|d|\r\n");
    start();
    EXPECT_EQ(pageOf(mnuAllCats), html::header + html::title("\x95\x5C\x83\x7C ??") +
                                      html::row("n", "http://u/", "d") + html::footer);
}

TEST_F(JapaneseHtml, ALooseFirstByteTakesNothingOfTheMarkupAfterIt)
{
    start();
    siteRows().add({L"A\xDC83", L"http://u/\xDC95", L"d\xDC81", L""}, siteImage);
    EXPECT_EQ(pageOf(mnuCurrentCat),
              html::header + html::row("A\x83", "http://u/\x95", "d\x81") + html::footer);
}

} // namespace
} // namespace vandrel::test
