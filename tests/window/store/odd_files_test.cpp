#include "store/site_operations.h"
#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

// What other programs, editors and accidents make of a category file. The site named Touch gets a new
// description; everything else must stay.
class OddFile : public StoreTest {
  protected:
    std::string savedByAChangeElsewhere(const std::string& bytes)
    {
        folder.write(L"Odd.udb", bytes);
        start();
        const Lines names = column(lstInfo());
        const auto touch = std::find(names.begin(), names.end(), L"Touch");
        EXPECT_NE(touch, names.end());
        if (touch == names.end()) return "(the other site was not found)";
        selectSites({static_cast<std::size_t>(touch - names.begin())});
        Answers answers;
        answers.expectInput(L"Enter Description", L"Enter a new description for this site.", L"new");
        EditDescription(workspace());
        EXPECT_ANSWERED(answers);
        return folder.read(L"Odd.udb");
    }
};

const std::string touchBefore = "Touch|t|old|2\r\n";
const std::string touchAfter = "Touch|t|new|2\r\n";

TEST_F(OddFile, ALoneLineFeedInAFieldIsKept)
{
    const std::string odd = "Odd|http://o/|one\ntwo\n|1\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore + odd), odd + touchAfter + odd);
}

TEST_F(OddFile, ALoneCarriageReturnInAFieldIsKept)
{
    const std::string odd = "Odd|http://o/\r|one\rtwo|1\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore + odd), odd + touchAfter + odd);
}

TEST_F(OddFile, AFileWithLineFeedsAloneKeepsEverySite)
{
    EXPECT_EQ(savedByAChangeElsewhere("A|a|x|1\nTouch|t|old|2\nB|b|y|3\n"),
              "A|a|x|1\r\n" + touchAfter + "B|b|y|3\r\n");
}

TEST_F(OddFile, AFileWithCarriageReturnsAloneKeepsEverySite)
{
    EXPECT_EQ(savedByAChangeElsewhere("A|a|x|1\rTouch|t|old|2\rB|b|y|3\r"),
              "A|a|x|1\r\n" + touchAfter + "B|b|y|3\r\n");
}

TEST_F(OddFile, ASiteUnderACommentThatALineFeedEndsIsKept)
{
    EXPECT_EQ(savedByAChangeElsewhere(";note\nA|a|x|1\nTouch|t|old|2\n"), "A|a|x|1\r\n" + touchAfter);
}

TEST_F(OddFile, NulsInEveryFieldAreKept)
{
    const std::string odd("O\0dd|\0http://o/|one\0\0two\0|1\0\r\n", 30);
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore + odd), odd + touchAfter + odd);
}

TEST_F(OddFile, AFileWithoutAFinalLineEndGetsOne)
{
    EXPECT_EQ(savedByAChangeElsewhere(touchBefore + "Odd|o|x|1"), touchAfter + "Odd|o|x|1\r\n");
    clickCategory(L"Odd");
    EXPECT_EQ(lstInfo().count(), 2U);
}

TEST_F(OddFile, AnEndOfFileByteInTheMiddleEndsNothing)
{
    const std::string odd = "Odd|o\x1A|one\x1A two|1\x1A\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore + odd), odd + touchAfter + odd);
}

TEST_F(OddFile, AnEndOfFileByteAfterTheLastLineIsNotASite)
{
    EXPECT_EQ(savedByAChangeElsewhere("A|a|x|1\r\n" + touchBefore + "\x1A"), "A|a|x|1\r\n" + touchAfter);
}

TEST_F(OddFile, AByteOrderMarkIsKept)
{
    const std::string odd = "\xEF\xBB\xBFOdd|o|x|1\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore), odd + touchAfter);
}

TEST_F(OddFile, AFileInAnotherEncodingDoesNoHarm)
{
    // UTF-16 with a byte order mark: lines with a separator are sites, and every byte of them is kept.
    const std::string odd("\xFF\xFEO\0|\0o\0|\0x\0|\0\x31\0\r\n", 18);
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore), odd + touchAfter);
}

TEST_F(OddFile, OfManySeparatorsTheFirstFourPiecesAreKept)
{
    const std::string many = "Odd|o|x|1|" + std::string(5000, '|') + "end\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(many + touchBefore + "||||||||\r\n"),
              "Odd|o|x|1\r\n" + touchAfter + "|||\r\n");
}

TEST_F(OddFile, EveryByteOtherThanSeparatorsAndLineEndsIsKept)
{
    std::string odd = "Odd|";
    for (int byte = 0; byte < 256; ++byte) {
        if (byte == '|' || byte == '\r' || byte == '\n') continue;
        odd.push_back(static_cast<char>(byte));
        // Kept apart, so that no two of them form a letter in a double-byte code page.
        odd.push_back(' ');
    }
    odd += "|x|1\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore + odd), odd + touchAfter + odd);
}

TEST_F(OddFile, BytesThatAreNotLettersAreKept)
{
    // In code page 1252 the bytes 81, 8D, 8F, 90 and 9D are no letters.
    const std::string odd = "\x81|\x8D\x8F|\x90|\x9D\r\n";
    EXPECT_EQ(savedByAChangeElsewhere(touchBefore + odd), touchAfter + odd);
}

TEST_F(OddFile, AFieldOfAMillionCharactersIsKept)
{
    const std::string odd = "Odd|o|" + std::string(1'000'000, 'x') + "|1\r\n";
    EXPECT_TRUE(savedByAChangeElsewhere(odd + touchBefore + odd) == odd + touchAfter + odd);
}

TEST_F(OddFile, BlanksAndTabsAroundTheFieldsAreKept)
{
    const std::string odd = "  Odd \t| o |\t|  \r\n";
    EXPECT_EQ(savedByAChangeElsewhere(odd + touchBefore), odd + touchAfter);
}

TEST_F(OddFile, AFileOfNothingButLineEndsIsAnEmptyCategory)
{
    folder.write(L"Odd.udb", "\r\n\r\r\n\n\r\n\n\r");
    start();
    EXPECT_TRUE(lstInfo().empty());
}

} // namespace
} // namespace vandrel::test
