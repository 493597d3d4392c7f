#include "platform/files/ansi_text_file.h"
#include "platform/text/ansi_text.h"
#include "store/save_items.h"
#include "tests/support/main_window_test.h"

namespace vandrel::test {
namespace {

// Registered a second time under a Japanese locale; see CMakeLists.txt.
class JapaneseFile : public MainWindowTest {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    }
    std::string savedUnchanged(const std::string& bytes)
    {
        folder.write(L"Work.udb", bytes);
        start();
        clickCategory(L"Work");
        SaveItems(main->workspace());
        return folder.read(L"Work.udb");
    }
};

TEST_F(JapaneseFile, LettersWhoseSecondByteLooksLikeASeparatorStayWhole)
{
    const std::string bytes = "\x83\x7C\x83\x93|http://a/\x95\x5C|\x97\x7C|2002/11/16\r\n";
    EXPECT_EQ(savedUnchanged(bytes), bytes);
    EXPECT_EQ(lstInfo().text(0, 0), L"\u30DD\u30F3");
    EXPECT_EQ(lstInfo().text(0, 3), L"2002/11/16");
}

TEST_F(JapaneseFile, ALooseFirstByteWithinARecordSurvives)
{
    const std::string bytes = "a\x85|http://b/|c\x83 d|2002/11/16\r\n";
    EXPECT_EQ(savedUnchanged(bytes), bytes);
}

TEST_F(JapaneseFile, ALooseFirstByteAtTheEndOfARecordSurvives)
{
    const std::string bytes = "a|http://b/|c|2002\x83\r\nd|http://e/|f|\r\n";
    EXPECT_EQ(savedUnchanged(bytes), bytes);
}

TEST_F(JapaneseFile, LettersAreWholeWhereverTheFileIsReadInParts)
{
    // Lines of odd and even length, one of a megabyte and a damaged one.
    std::string bytes = "x";
    for (int i = 0; bytes.size() < 700'000; ++i)
        bytes += "\x83\x7C\x83\x93|" + std::string(static_cast<std::size_t>(i % 5), 'y') + "\r\n";
    for (int i = 0; i < 500'000; ++i) bytes += "\x95\x5C";
    bytes += "\r\nz\x85\r\n\x83\x7C";
    folder.write(L"Long.udb", bytes);
    const DecodedText text = AnsiTextFile(folder.file(L"Long.udb")).read();
    EXPECT_TRUE(std::wstring_view(text) == decodeAnsi(bytes));
}

} // namespace
} // namespace vandrel::test
