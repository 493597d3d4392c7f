#include "platform/files/ansi_text_file.h"

#include "platform/files/ansi_text_writer.h"
#include "platform/files/file_layer.h"
#include "platform/text/ansi_text.h"
#include "tests/support/error_of.h"
#include "tests/support/held_file.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class TextFile : public testing::Test {
  protected:
    int numberOfReading(const std::wstring& path)
    {
        return errorOf([&] { AnsiTextFile(path).read(); });
    }
    std::wstring textOf(const std::wstring& name)
    {
        const DecodedText text = AnsiTextFile(folder.file(name)).read();
        return std::wstring(std::wstring_view(text));
    }
    void save(const std::wstring& name, const std::wstring& text)
    {
        AnsiTextFile(folder.file(name)).write([&](AnsiTextWriter& file) { file.add(text); }, systemFiles());
    }

    TempFolder folder;
};

TEST_F(TextFile, IsReadWholeWhateverItsLineEndsAre)
{
    const std::string contents[] = {"",        "\r\n", "a|b",         "a\r\nb\r\n",
                                    "a\nb\n",  "a\rb", "a\x1A b\r\n", std::string("a\0b\0\r\n", 6),
                                    "a|\r\n\n"};
    for (const std::string& bytes : contents) {
        folder.write(L"Work.udb", bytes);
        EXPECT_EQ(textOf(L"Work.udb"), decodeAnsi(bytes));
        EXPECT_EQ(textOf(L"Work.udb").size(), bytes.size());
    }
}

TEST_F(TextFile, SixteenMegabytesAreReadAndWrittenEveryLetterInItsPlace)
{
    std::string bytes((16U << 20) + 3, 'x');
    for (std::size_t i = 0; i < bytes.size(); i += 97) bytes[i] = static_cast<char>(i % 251 + 1);
    save(L"Big.udb", decodeAnsi(bytes));
    EXPECT_TRUE(folder.read(L"Big.udb") == bytes);
    EXPECT_TRUE(textOf(L"Big.udb") == decodeAnsi(bytes));
}

TEST_F(TextFile, WritingStoresTheTextUnchanged)
{
    const std::string bytes("\xE9|\0\n\r\x1A", 6);
    save(L"Work.udb", decodeAnsi(bytes));
    EXPECT_EQ(folder.read(L"Work.udb"), bytes);
    save(L"Work.udb", L"");
    EXPECT_EQ(folder.read(L"Work.udb"), "");
}

TEST_F(TextFile, ItsNameMayHoldLettersOutsideTheCodePage)
{
    const std::wstring name = L"Ksi\u0105\u017Cki \u672C.udb";
    save(name, L"a|b\r\n");
    EXPECT_TRUE(folder.has(name));
    EXPECT_EQ(textOf(name), L"a|b\r\n");
}

TEST_F(TextFile, AMissingFileIsError53)
{
    EXPECT_EQ(numberOfReading(folder.file(L"none.udb")), error_number::fileNotFound);
}

TEST_F(TextFile, AMissingFolderIsError76)
{
    EXPECT_EQ(numberOfReading(folder.file(L"none\\a.udb")), error_number::pathNotFound);
}

TEST_F(TextFile, AFolderOfThatNameIsError75)
{
    CreateDirectoryW(folder.file(L"Dir.udb").c_str(), nullptr);
    EXPECT_EQ(numberOfReading(folder.file(L"Dir.udb")), error_number::pathFileAccess);
}

TEST_F(TextFile, IsReadWhileAnotherProgramReadsIt)
{
    folder.write(L"Work.udb", "a|b\r\n");
    const HeldFile other(folder.file(L"Work.udb"), FILE_SHARE_READ);
    EXPECT_EQ(textOf(L"Work.udb"), L"a|b\r\n");
}

TEST_F(TextFile, ReadingWaitsForAnotherProgramToLetGo)
{
    folder.write(L"Work.udb", "a|b\r\n");
    HeldFile other(folder.file(L"Work.udb"));
    other.releaseAfterSleeping(150);
    EXPECT_EQ(textOf(L"Work.udb"), L"a|b\r\n");
    EXPECT_EQ(other.slept(), 150U);
}

TEST_F(TextFile, AFileThatIsNotLetGoOfIsError70AfterHalfASecond)
{
    folder.write(L"Work.udb", "a|b\r\n");
    const HeldFile other(folder.file(L"Work.udb"));
    EXPECT_EQ(numberOfReading(folder.file(L"Work.udb")), error_number::permissionDenied);
    EXPECT_EQ(other.slept(), 500U);
}

TEST_F(TextFile, StaysClosedAfterwards)
{
    folder.write(L"Work.udb", "a|b\r\n");
    textOf(L"Work.udb");
    { // can be opened exclusively
        const HeldFile other(folder.file(L"Work.udb"));
    }
    save(L"Work.udb", L"c|d\r\n");
    const HeldFile other(folder.file(L"Work.udb"));
}

} // namespace
} // namespace vandrel::test
