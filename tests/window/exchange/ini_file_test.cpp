#include "exchange/ini_file.h"

#include "tests/support/store_test.h"

#include <algorithm>
#include <filesystem>

namespace vandrel::test {
namespace {

constexpr const wchar_t* section = L"InternetShortcut";

class ShortcutFile : public testing::Test {
  protected:
    std::wstring readIn(const std::wstring& name, const std::wstring& key = L"URL",
                        const std::wstring& from = section) const
    {
        return Module1::ReadINIValue(from, key, folder.file(name));
    }
    // The value read from a file of these bytes.
    std::wstring readFrom(const std::string& bytes, const std::wstring& key = L"URL") const
    {
        folder.write(L"A.url", bytes);
        return readIn(L"A.url", key);
    }
    void writeTo(const std::wstring& name, const std::wstring& value) const
    {
        Module1::WriteINIValue(section, L"URL", value, folder.file(name));
    }
    // What becomes of these bytes when a URL is written.
    std::string rewritten(const std::string& bytes, const std::wstring& value) const
    {
        folder.write(L"A.url", bytes);
        writeTo(L"A.url", value);
        return folder.read(L"A.url");
    }
    static std::string withUrl(const std::string& url) { return "[InternetShortcut]\r\nURL=" + url + "\r\n"; }
    static std::string unicode(std::u16string_view text)
    {
        return {reinterpret_cast<const char*>(text.data()), text.size() * 2};
    }

    TempFolder folder;
};

// ---- reading

TEST_F(ShortcutFile, AValueIsReadByItsSectionAndKey)
{
    folder.write(L"A.url",
                 "[DEFAULT]\r\nBASEURL=http://base/\r\nURL=http://other/\r\n" + withUrl("http://a/"));
    EXPECT_EQ(readIn(L"A.url"), L"http://a/");
    EXPECT_EQ(readIn(L"A.url", L"BASEURL", L"DEFAULT"), L"http://base/");
}

TEST_F(ShortcutFile, TheCaseOfSectionAndKeyMakesNoDifference)
{
    EXPECT_EQ(readFrom("[INTERNETSHORTCUT]\r\nurl=http://a/\r\n"), L"http://a/");
    EXPECT_EQ(readFrom("[internetshortcut]\r\nUrl=http://A/\r\n"), L"http://A/");
}

TEST_F(ShortcutFile, WhatIsMissingIsEmpty)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\r\nIconIndex=1\r\n"), L"");
    EXPECT_EQ(readFrom("[DEFAULT]\r\nURL=http://a/\r\n"), L"");
    EXPECT_EQ(readFrom("URL=http://a/\r\n"), L"");
    EXPECT_EQ(readFrom(withUrl("")), L"");
    EXPECT_EQ(readFrom(""), L"");
    EXPECT_EQ(readIn(L"missing.url"), L"");
    EXPECT_EQ(readIn(L"missing\\A.url"), L"");
}

TEST_F(ShortcutFile, AFolderOfThatNameIsEmpty)
{
    CreateDirectoryW(folder.file(L"A.url").c_str(), nullptr);
    EXPECT_EQ(readIn(L"A.url"), L"");
}

TEST_F(ShortcutFile, TwoHundredAndFiftyFourBytesAreReadAndTheRestIsCut)
{
    for (const std::size_t length : {1U, 253U, 254U, 255U, 256U, 257U, 1000U, 70'000U}) {
        const std::string value = "http://" + std::string(length, 'x') + "end";
        const std::string url = value.substr(value.size() - length);
        const std::wstring expected(url.begin(), url.end());
        EXPECT_EQ(readFrom(withUrl(url)), expected.substr(0, 254)) << length;
    }
}

TEST_F(ShortcutFile, QuotesAroundAValueAreDroppedAndOthersKept)
{
    EXPECT_EQ(readFrom(withUrl("\"http://a/\"")), L"http://a/");
    EXPECT_EQ(readFrom(withUrl("'http://a/'")), L"http://a/");
    EXPECT_EQ(readFrom(withUrl("http://a/?q=\"b\"&c")), L"http://a/?q=\"b\"&c");
}

TEST_F(ShortcutFile, SemicolonsEqualSignsAndPercentSignsBelongToTheValue)
{
    EXPECT_EQ(readFrom(withUrl("http://a/;x=1?b=c&d=%20#e")), L"http://a/;x=1?b=c&d=%20#e");
}

TEST_F(ShortcutFile, ACommentIsNotAValue)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\r\n;URL=http://no/\r\nURL=http://a/\r\n"), L"http://a/");
}

TEST_F(ShortcutFile, BlanksAroundAValueAreDropped)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\r\n URL = http://a/b c \r\n"), L"http://a/b c");
}

TEST_F(ShortcutFile, TheFirstOfTwoValuesCounts)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\r\nURL=http://a/\r\nURL=http://b/\r\n"), L"http://a/");
}

TEST_F(ShortcutFile, LineEndsOfOtherSystemsAreRead)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\nURL=http://a/\nIconIndex=1\n"), L"http://a/");
}

TEST_F(ShortcutFile, TheLastLineNeedsNoEnd)
{
    EXPECT_EQ(readFrom("[InternetShortcut]\r\nURL=http://a/"), L"http://a/");
    EXPECT_EQ(readFrom("[InternetShortcut]\nURL=http://a/"), L"http://a/");
}

TEST_F(ShortcutFile, AUnicodeFileIsRead)
{
    EXPECT_EQ(readFrom(unicode(u"\uFEFF[InternetShortcut]\r\nName=\u65E5\r\nURL=http://a/\r\n")),
              L"http://a/");
}

TEST_F(ShortcutFile, ALetterOfAUnicodeFileThatTheCodePageLacksIsAQuestionMark)
{
    EXPECT_EQ(readFrom(unicode(u"\uFEFF[InternetShortcut]\r\nURL=http://\U0001F600\u0416/\r\n")),
              GetACP() == 932 ? L"http://?\?\u0416/" : L"http://?\?\?/");
}

TEST_F(ShortcutFile, AChangeByAnotherProgramIsSeenAtOnce)
{
    EXPECT_EQ(readFrom(withUrl("http://a/")), L"http://a/");
    EXPECT_EQ(readFrom(withUrl("http://b/")), L"http://b/");
}

TEST_F(ShortcutFile, ReadingLeavesTheFileAsItWas)
{
    const std::string bytes = "\r\n; note\r\n[InternetShortcut]\nURL = http://a/\r\n\r\n";
    readFrom(bytes);
    EXPECT_EQ(folder.read(L"A.url"), bytes);
    readIn(L"missing.url");
    EXPECT_FALSE(folder.has(L"missing.url"));
}

// ---- writing

TEST_F(ShortcutFile, ANewFileHoldsWhatWasWrittenInThatOrder)
{
    Module1::WriteINIValue(L"DEFAULT", L"BaseURL", L"http://a/", folder.file(L"A.url"));
    writeTo(L"A.url", L"http://a/");
    EXPECT_EQ(folder.read(L"A.url"),
              "[DEFAULT]\r\nBaseURL=http://a/\r\n[InternetShortcut]\r\nURL=http://a/\r\n");
}

TEST_F(ShortcutFile, AnEmptyFileIsFilled) { EXPECT_EQ(rewritten("", L"http://a/"), withUrl("http://a/")); }

TEST_F(ShortcutFile, AValueIsReplacedInItsPlaceAndAllElseIsKept)
{
    EXPECT_EQ(rewritten("; a note\r\n[Other]\r\nURL=keep\r\n[InternetShortcut]\r\nIconFile=a.ico\r\n"
                        "URL=http://old/\r\nModified=1234\r\n; the end\r\n[Last]\r\nx=y\r\n",
                        L"http://new/"),
              "; a note\r\n[Other]\r\nURL=keep\r\n[InternetShortcut]\r\nIconFile=a.ico\r\n"
              "URL=http://new/\r\nModified=1234\r\n; the end\r\n[Last]\r\nx=y\r\n");
}

TEST_F(ShortcutFile, ANewKeyJoinsTheExistingSection)
{
    folder.write(L"A.url", "[InternetShortcut]\r\nIconIndex=1\r\n[Last]\r\nx=y\r\n");
    writeTo(L"A.url", L"http://a/");
    EXPECT_EQ(folder.read(L"A.url"),
              "[InternetShortcut]\r\nIconIndex=1\r\nURL=http://a/\r\n[Last]\r\nx=y\r\n");
}

TEST_F(ShortcutFile, AKeyInAnotherCaseIsReplaced)
{
    const std::string bytes = rewritten("[INTERNETSHORTCUT]\r\nurl=http://old/\r\n", L"http://new/");
    EXPECT_EQ(bytes.find("old"), std::string::npos);
    EXPECT_EQ(std::ranges::count(bytes, '['), 1);
    EXPECT_EQ(readIn(L"A.url"), L"http://new/");
}

TEST_F(ShortcutFile, ALongValueIsWrittenWhole)
{
    const std::string url = "http://" + std::string(3000, 'x') + "/end";
    writeTo(L"A.url", std::wstring(url.begin(), url.end()));
    EXPECT_EQ(folder.read(L"A.url"), withUrl(url));
}

TEST_F(ShortcutFile, ASemicolonAndAPercentSignAreWrittenAsTheyAre)
{
    writeTo(L"A.url", L"http://a/;x=1?b=%20#e");
    EXPECT_EQ(folder.read(L"A.url"), withUrl("http://a/;x=1?b=%20#e"));
}

TEST_F(ShortcutFile, AUnicodeFileStaysOne)
{
    const std::string before = unicode(u"\uFEFF[InternetShortcut]\r\nURL=http://old/\r\nName=\u65E5\r\n");
    EXPECT_EQ(rewritten(before, L"http://new/"),
              unicode(u"\uFEFF[InternetShortcut]\r\nURL=http://new/\r\nName=\u65E5\r\n"));
}

TEST_F(ShortcutFile, AFileThatCannotBeWrittenStaysAsItWasAndNothingIsRaised)
{
    folder.write(L"A.url", withUrl("http://old/"));
    {
        const HeldFile held(folder.file(L"A.url"));
        EXPECT_NO_THROW(writeTo(L"A.url", L"http://new/"));
    }
    EXPECT_EQ(folder.read(L"A.url"), withUrl("http://old/"));
    EXPECT_NO_THROW(writeTo(L"missing\\A.url", L"http://new/"));
    CreateDirectoryW(folder.file(L"B.url").c_str(), nullptr);
    EXPECT_NO_THROW(writeTo(L"B.url", L"http://new/"));
    EXPECT_EQ(folder.names(), Lines{L"A.url"});
}

// ---- letters

class WesternShortcutFile : public ShortcutFile {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
    }
};

TEST_F(WesternShortcutFile, AnAccentedLetterIsOneByte)
{
    EXPECT_EQ(readFrom(withUrl("http://caf\xE9/\x80")), L"http://caf\u00E9/\u20AC");
    writeTo(L"B.url", L"http://caf\u00E9/\u20AC");
    EXPECT_EQ(folder.read(L"B.url"), withUrl("http://caf\xE9/\x80"));
}

TEST_F(WesternShortcutFile, TheLimitCountsBytesSoAsManyAccentedLettersFit)
{
    EXPECT_EQ(readFrom(withUrl(std::string(300, '\xE9'))), std::wstring(254, L'\u00E9'));
}

TEST_F(WesternShortcutFile, ALetterThatTheCodePageLacksIsWrittenAsAQuestionMark)
{
    writeTo(L"A.url", L"http://\u65E5\uFF5C/");
    EXPECT_EQ(folder.read(L"A.url"), withUrl("http://?"
                                             "?/"));
}

// ---- paths

class ShortcutPathTest : public ShortcutFile, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ShortcutPathTest, AFileIsReadAndWrittenWhereItIs)
{
    const std::wstring name = GetParam();
    if (const auto slash = name.find(L'\\'); slash != std::wstring::npos) {
        CreateDirectoryW(folder.file(name.substr(0, slash)).c_str(), nullptr);
    }
    writeTo(name, L"http://new/");
    ASSERT_TRUE(folder.has(name));
    EXPECT_EQ(folder.read(name), withUrl("http://new/"));
    EXPECT_EQ(readIn(name), L"http://new/");
    writeTo(name, L"http://again/");
    EXPECT_EQ(folder.read(name), withUrl("http://again/"));
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path())) ++entries;
    EXPECT_EQ(entries, 1U) << "nothing was written beside it";
}

INSTANTIATE_TEST_SUITE_P(Names, ShortcutPathTest,
                         testing::Values(L"plain.url", L"with blanks in it.url", L"a.b;c=d [x].url",
                                         L"F\u00FC\u00DFe.url", L"\u65E5\u672C\u8A9E.url",
                                         L"\u041D\u043E\u0432\u044B\u0439 \u044F\u0440\u043B\u044B\u043A.url",
                                         L"\U0001F600.url", L"\u65E5\u672C folder\\A.url",
                                         L"\u65E5\u672C\\\u041D\u043E\u0432.url"));

TEST_F(ShortcutFile, AFileOfALongPathIsRead)
{
    std::wstring name;
    for (int depth = 0; depth < 4; ++depth) {
        name += (name.empty() ? L"" : L"\\") + std::wstring(80, L'f');
        CreateDirectoryW((L"\\\\?\\" + folder.file(name)).c_str(), nullptr);
    }
    const std::wstring path = folder.file(name + L"\\A.url");
    ASSERT_GT(path.size(), 300U);
    const HANDLE file = CreateFileW((L"\\\\?\\" + path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0,
                                    nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const std::string bytes = withUrl("http://a/");
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    EXPECT_EQ(Module1::ReadINIValue(section, L"URL", path), L"http://a/");
    DeleteFileW((L"\\\\?\\" + path).c_str());
    for (; !name.empty(); name.resize(name.rfind(L'\\') == std::wstring::npos ? 0 : name.rfind(L'\\'))) {
        RemoveDirectoryW((L"\\\\?\\" + folder.file(name)).c_str());
    }
}

// On a volume without short names, or when they are longer than the path, the code page cannot express such
// a path at all.
TEST_F(ShortcutFile, APathThatNoShortNameCoversIsReadAndWritten)
{
    std::wstring deep = folder.path();
    for (int depth = 0; depth < 40; ++depth) {
        deep += L"\\\u0416";
        ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
    }
    const std::wstring path = deep + L"\\\u0416.url";
    ASSERT_LT(path.size(), static_cast<std::size_t>(MAX_PATH));
    Module1::WriteINIValue(section, L"URL", L"http://new/", path);
    EXPECT_EQ(readBytes(path), withUrl("http://new/"));
    EXPECT_EQ(Module1::ReadINIValue(section, L"URL", path), L"http://new/");
}

// ---- code page 932

class JapaneseShortcutFile : public ShortcutFile {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    }
};

TEST_F(JapaneseShortcutFile, LettersOfTwoBytesAreReadAndWritten)
{
    // The second bytes are those of "|", the backslash and "]".
    const std::string bytes = withUrl("http://\x83\x7C\x95\x5C\x83\x5D/");
    EXPECT_EQ(readFrom(bytes), L"http://\u30DD\u8868\u30BE/");
    writeTo(L"B.url", L"http://\u30DD\u8868\u30BE/");
    EXPECT_EQ(folder.read(L"B.url"), bytes);
}

TEST_F(JapaneseShortcutFile, TheLimitCountsBytes)
{
    std::string url;
    std::wstring text;
    for (int i = 0; i < 127; ++i) {
        url += "\x83\x7C";
        text += L'\u30DD';
    }
    EXPECT_EQ(readFrom(withUrl(url)), text) << "254 bytes";
    EXPECT_EQ(readFrom(withUrl(url + "\x83\x7C")), text);
    EXPECT_EQ(readFrom(withUrl(url + std::string(500, 'x'))), text);
}

TEST_F(JapaneseShortcutFile, ALetterThatWouldBeCutIsLeftOut)
{
    std::string url = "x";
    std::wstring text = L"x";
    for (int i = 0; i < 126; ++i) {
        url += "\x83\x7C";
        text += L'\u30DD';
    }
    EXPECT_EQ(readFrom(withUrl(url + "\x83\x7C\x83\x7C")), text);
}

TEST_F(JapaneseShortcutFile, AFileIsFoundByAJapaneseAndByAWesternName)
{
    for (const wchar_t* const name :
         {L"\u30DD\u8868.url", L"\u65B0\u3057\u3044 \u30BD.url", L"caf\u00E9.url"}) {
        writeTo(name, L"http://a/");
        ASSERT_TRUE(folder.has(name));
        EXPECT_EQ(readIn(name), L"http://a/");
    }
}

} // namespace
} // namespace vandrel::test
