#include "tests/program/support/program_test.h"

#include <commctrl.h>

namespace vandrel::test {
namespace {

constexpr const wchar_t* optionsCaption = L"Options";
constexpr const wchar_t* aboutCaption = L"About Vandrel";

class OptionsAndAboutByKeyboard : public ProgramTest {
  protected:
    OptionsAndAboutByKeyboard()
    {
        folder.write(L"A.udb", "One|http://1/|first|1/1/2001\r\n");
        start();
    }
    HWND openOptions() const
    {
        program.key('V', {VK_MENU});
        EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
        program.key('O');
        return program.dialog(optionsCaption);
    }
    HWND openAbout() const
    {
        program.key('H', {VK_MENU});
        EXPECT_TRUE(soon([&] { return program.menuIsOpen(); }));
        program.key('A');
        return program.dialog(aboutCaption);
    }
    // Presses Tab and waits until the focus has moved.
    void tab() const
    {
        const HWND before = program.focus();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != before; }));
    }
    void retypeSoon(const wchar_t* text) const
    {
        program.retype(text);
        EXPECT_SOON(program.focusText(), std::wstring(text));
    }
    // The height of the site list's header in pixels, which grows with the font.
    LONG headerHeight() const
    {
        RECT area{};
        GetWindowRect(FindWindowExW(program.sites(), nullptr, WC_HEADERW, nullptr), &area);
        return area.bottom - area.top;
    }
    static std::wstring option(const std::wstring& key) { return preference(L"Options", key); }
};

TEST_F(OptionsAndAboutByKeyboard, BothPagesAreFilledInAndComeBackAfterARestart)
{
    const LONG usual = headerHeight();
    openOptions();
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"8"));
    retypeSoon(L"17");
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"Bold"));
    program.key(VK_SPACE);
    EXPECT_SOON(ask(program.focus(), BM_GETCHECK), static_cast<LRESULT>(BST_CHECKED));
    program.key(VK_TAB, {VK_CONTROL});
    EXPECT_SOON(program.focusText(), std::wstring(L"Pages"));
    tab(); // the fonts of the page
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"0"));
    retypeSoon(L"3");
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"75%"));
    retypeSoon(L"55%");
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"Generate Empty Categories"));
    program.key(VK_SPACE);
    EXPECT_SOON(ask(program.focus(), BM_GETCHECK), static_cast<LRESULT>(BST_CHECKED));
    EXPECT_EQ(option(L"FontSize"), L"");
    program.key(VK_RETURN);
    program.back();
    EXPECT_TRUE(soon([&] { return headerHeight() > usual; }));
    const LONG large = headerHeight();

    restart();
    EXPECT_EQ(option(L"FontSize"), L"17");
    EXPECT_EQ(option(L"FontBold"), L"1");
    EXPECT_EQ(option(L"FontItalic"), L"0");
    EXPECT_EQ(option(L"HTMLBorder"), L"3");
    EXPECT_EQ(option(L"HTMLTWidth"), L"55%");
    EXPECT_EQ(option(L"GenEmpty"), L"1");
    EXPECT_EQ(headerHeight(), large);
    openOptions();
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"17"));
    program.key(VK_ESCAPE);
    program.back();
}

TEST_F(OptionsAndAboutByKeyboard, EscInTheOptionsChangesNothing)
{
    const LONG usual = headerHeight();
    openOptions();
    tab();
    retypeSoon(L"18");
    program.key(VK_ESCAPE);
    program.back();
    program.quit();
    EXPECT_EQ(option(L"FontSize"), L"8");
    program.start();
    EXPECT_EQ(headerHeight(), usual);
}

TEST_F(OptionsAndAboutByKeyboard, ASizeThatIsNotANumberIsReportedAndCanBeCorrected)
{
    openOptions();
    tab();
    retypeSoon(L"big");
    program.key(VK_RETURN);
    std::wstring text = program.answerBox(L"Vandrel");
    std::erase(text, L'\r');
    EXPECT_EQ(text, L"Run-time error '13':\n\nType mismatch");
    program.dialog(optionsCaption);
    EXPECT_SOON(program.focusText(), std::wstring(L"big"));
    retypeSoon(L"12");
    program.key(VK_RETURN);
    program.back();
    program.quit();
    EXPECT_EQ(option(L"FontSize"), L"12");
}

TEST_F(OptionsAndAboutByKeyboard, TabLeadsToTheLinksOfTheAboutBoxAndEscClosesIt)
{
    openAbout();
    EXPECT_SOON(program.focusText(), std::wstring(L"OK"));
    Texts passed;
    for (int stop = 0; stop < 4; ++stop) {
        tab();
        passed.push_back(program.focusText());
    }
    EXPECT_EQ(passed, (Texts{L"Pages", L"vandrel@brisan.example", L"www.brisan.example", L"OK"}));
    tab();
    tab();
    EXPECT_SOON(program.focusText(), std::wstring(L"vandrel@brisan.example"));
    program.key(VK_ESCAPE);
    program.back();
    EXPECT_FALSE(program.dialogIsOpen());
    openAbout();
    program.key(VK_RETURN);
    program.back();
}

TEST_F(OptionsAndAboutByKeyboard, EscClosesTheAboutBoxOfAWindowThatIsKeptOnTop)
{
    program.key('V', {VK_MENU});
    ASSERT_TRUE(soon([&] { return program.menuIsOpen(); }));
    program.key('T');
    EXPECT_SOON(preference(L"Config", L"KeepTop"), std::wstring(L"1"));
    program.back();
    for (int time = 0; time < 2; ++time) {
        openAbout();
        EXPECT_SOON(program.focusText(), std::wstring(L"OK"));
        program.key(VK_ESCAPE);
        program.back();
        EXPECT_FALSE(program.dialogIsOpen());
    }
}

} // namespace
} // namespace vandrel::test
