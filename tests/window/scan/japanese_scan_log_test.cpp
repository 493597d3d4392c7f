#include "tests/support/scan_test.h"

namespace vandrel::test {
namespace {

// Registered a second time under a Japanese locale; see CMakeLists.txt.
class JapaneseScanLog : public ScanTest {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    }
};

TEST_F(JapaneseScanLog, KeepsLettersWhoseSecondByteLooksLikeAnother)
{
    // The second bytes are those of "|" and "\".
    folder.write(L"Links.udb", "\x83\x7C\x83\x93\x95\x5C|" + narrow(at(L"/ok")) + "||\r\n");
    start();
    scanAll();
    EXPECT_EQ(log(), "\x83\x7C\x83\x93\x95\x5C - " + narrow(at(L"/ok")) + " - Success\r\n");
}

TEST_F(JapaneseScanLog, ALooseFirstByteAtTheEndOfANameStays)
{
    begin({{L"A", at(L"/ok")}});
    siteRows().setText(0, 0, L"A\xDC83");
    scanAll();
    EXPECT_EQ(log(), "A\x83 - " + narrow(at(L"/ok")) + " - Success\r\n");
}

} // namespace
} // namespace vandrel::test
