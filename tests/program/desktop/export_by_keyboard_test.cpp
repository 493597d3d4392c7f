#include "tests/program/support/shortcut_test.h"

namespace vandrel::test {
namespace {

constexpr const wchar_t* saveCaption = L"Export URL File";

std::string exported(const std::string& url)
{
    return "[DEFAULT]\r\nBaseURL=" + url + "\r\n[InternetShortcut]\r\nURL=" + url + "\r\n";
}

// An address of exactly this length.
std::string longAddress(std::size_t length)
{
    std::string url = "http://long.example/";
    for (char letter = 'a'; url.size() < length; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1))
        url += letter;
    return url;
}

class ExportByKeyboard : public ShortcutTest {
  protected:
    // Starts with one site, which is selected and has the focus.
    void startWith(const std::string& name, const std::string& url)
    {
        folder.write(L"Work.udb", name + "|" + url + "|about|1/1/2001\r\n");
        folder.write(L"Zoo.udb", "");
        start();
        EXPECT_SOON(program.siteCount(), 1);
        program.openCategory(L"Work");
        program.click(program.sites(), 0);
        EXPECT_SOON(program.focus(), program.sites());
        EXPECT_TRUE(soon([&] { return !program.panel(2).empty() && !program.panel(3).empty(); }));
    }
    // Ctrl+E, the whole path, Enter.
    void exportTo(const std::wstring& path) const
    {
        program.key('E', {VK_CONTROL});
        program.dialog(saveCaption);
        program.retype(path);
        EXPECT_SOON(program.focusText(), path);
        program.key(VK_RETURN);
        program.back();
    }
    // Ctrl+I, the file by arrow keys, Enter, no description. Returns the address of the only site of "Zoo"
    // after that.
    std::string importedAddress(const std::wstring& file)
    {
        program.click(program.categories(), L"Zoo");
        EXPECT_SOON(program.caption(), std::wstring(L"Vandrel - Zoo"));
        EXPECT_SOON(program.siteCount(), 0);
        const HWND dialog = openImport();
        arrowTo(files(dialog), file);
        program.key(VK_RETURN);
        program.dialog(L"Site Description");
        program.key(VK_RETURN);
        program.back();
        EXPECT_SOON(program.siteCount(), 1);
        const std::string line = folder.read(L"Zoo.udb");
        const std::size_t begin = line.find('|') + 1;
        return line.substr(begin, line.find('|', begin) - begin);
    }
    void expectRoundTrip(const std::string& url)
    {
        startWith("News", url);
        exportTo(favorites.file(L"Link.url"));
        EXPECT_SOON(favorites.read(L"Link.url"), exported(url));
        restart();
        EXPECT_EQ(importedAddress(L"Link.url"), url);
        EXPECT_EQ(folder.read(L"Work.udb"), "News|" + url + "|about|1/1/2001\r\n");
    }
};

TEST_F(ExportByKeyboard, CtrlEProposesTheNameOfTheSiteAndEscWritesNothing)
{
    startWith("News", "http://news.example/");
    program.key('E', {VK_CONTROL});
    program.dialog(saveCaption);
    EXPECT_SOON(program.focusText(), std::wstring(L"News"));
    program.retype(favorites.file(L"Link.url"));
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_EQ(favorites.names(), Texts{});
    EXPECT_EQ(program.focus(), program.sites());
}

TEST_F(ExportByKeyboard, ATypedPathAndEnterWriteTheFileWithoutAMessage)
{
    startWith("News", "http://news.example/");
    exportTo(favorites.file(L"Link.url"));
    EXPECT_SOON(favorites.names(), Texts{L"Link.url"});
    EXPECT_SOON(favorites.read(L"Link.url"), exported("http://news.example/"));
    EXPECT_FALSE(program.dialogIsOpen());
    EXPECT_EQ(program.focus(), program.sites());
}

TEST_F(ExportByKeyboard, AnExistingFileKeepsItsOtherContent)
{
    favorites.write(L"Link.url",
                    "[Other]\r\nKey=1\r\n[InternetShortcut]\r\nURL=http://old/\r\nIconIndex=2\r\n");
    startWith("News", "http://news.example/");
    exportTo(favorites.file(L"Link.url"));
    EXPECT_SOON(favorites.read(L"Link.url"),
                std::string("[Other]\r\nKey=1\r\n[InternetShortcut]\r\nURL=http://news.example/\r\n"
                            "IconIndex=2\r\n[DEFAULT]\r\nBaseURL=http://news.example/\r\n"));
}

TEST_F(ExportByKeyboard, AnAddressComesBackAsItWas)
{
    expectRoundTrip("http://user@news.example:8080/a/b.html?x=1&y=%20#part");
}

TEST_F(ExportByKeyboard, AnAddressOf254LettersComesBackAsItWas) { expectRoundTrip(longAddress(254)); }

TEST_F(ExportByKeyboard, AnAddressOf255LettersIsWrittenWholeAndReadWithoutItsLast)
{
    const std::string url = longAddress(255);
    startWith("News", url);
    exportTo(favorites.file(L"Link.url"));
    EXPECT_SOON(favorites.read(L"Link.url"), exported(url));
    restart();
    EXPECT_EQ(importedAddress(L"Link.url"), url.substr(0, 254));
}

TEST_F(ExportByKeyboard, AnAddressWithAccentedLettersComesBackAsItWas)
{
    expectRoundTrip("http://caf\xE9.example/\xDC"
                    "bung/\xF1");
}

TEST_F(ExportByKeyboard, AnAddressWithMarksOfTheFileFormatComesBackAsItWas)
{
    expectRoundTrip("http://marks.example/;a=1;b=[2]#c=\"d\"&e='f'");
}

} // namespace
} // namespace vandrel::test
