#include "tests/program/support/program_test.h"

namespace vandrel::test {
namespace {

class CommandLine : public ProgramTest {
  protected:
    struct Link {
        std::wstring name, address;
        bool operator==(const Link&) const = default;
    };
    // What the site editor shows. The name box has the focus at first.
    Link editorShows() const
    {
        program.dialog(L"Add Site...");
        const std::wstring name = program.focusText();
        const HWND nameBox = program.focus();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != nameBox; }));
        return {name, program.focusText()};
    }
};

TEST_F(CommandLine, ALinkWithANameFillsBothBoxesOfTheEditorAndGoesToTheFirstCategory)
{
    folder.write(L"A.udb", "Old|http://a/||1/1/2001\r\n");
    folder.write(L"B.udb", "");
    start(L"http://x/~-~A page");
    const Link shown = editorShows();
    EXPECT_EQ(shown.name, L"A page");
    EXPECT_EQ(shown.address, L"http://x/");
    EXPECT_EQ(program.caption(), L"Vandrel - " + program.titles().front());
    const std::wstring file = program.titles().front() + L".udb";
    const std::string before = folder.read(file);
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(file), before + "A page|http://x/||" + today() + "\r\n");
}

TEST_F(CommandLine, BlanksAndQuotesAreKept)
{
    start(L"\"http://x/a b\"  c");
    const Link shown = editorShows();
    EXPECT_EQ(shown.name, L"");
    EXPECT_EQ(shown.address, L"\"http://x/a b\"  c");
}

TEST_F(CommandLine, LettersOutsideTheCodePageReachTheEditor)
{
    start(L"http://x/Książki~-~日本");
    const Link shown = editorShows();
    EXPECT_EQ(shown.name, L"日本");
    EXPECT_EQ(shown.address, L"http://x/Książki");
}

TEST_F(CommandLine, CancellingAddsNothingAndTheNextEditorStartsAfresh)
{
    folder.write(L"A.udb", "Old|http://a/||1/1/2001\r\n");
    start(L"http://x/~-~A page");
    program.dialog(L"Add Site...");
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(program.siteCount(), 1);
    EXPECT_EQ(folder.read(L"A.udb"), "Old|http://a/||1/1/2001\r\n");
    program.key(VK_F3);
    const Link shown = editorShows();
    EXPECT_EQ(shown.name, L"");
    EXPECT_EQ(shown.address, L"http://");
}

TEST_F(CommandLine, WithoutACategoryTheLinkIsKeptInTheOneMadeForIt)
{
    start(L"http://x/~-~A page");
    program.dialog(L"Add Site...");
    program.key(VK_RETURN);
    program.answerBox(L"No Categories");
    program.dialog(L"Category Name");
    program.type(L"Links");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(L"Links.udb"), "A page|http://x/||" + today() + "\r\n");
}

TEST_F(CommandLine, AnAddressOfFourThousandLettersArrivesWhole)
{
    const std::wstring address = L"http://x/" + std::wstring(4000, L'a');
    folder.write(L"A.udb", "");
    start(address);
    program.dialog(L"Add Site...");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(L"A.udb"), "|http://x/" + std::string(4000, 'a') + "||" + today() + "\r\n");
}

} // namespace
} // namespace vandrel::test
