#include "tests/support/input.h"
#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

class OptionsTaking : public OptionsTest {
  protected:
    // Changes everything on both pages.
    static void changeAll(const OptionsDialog& dialog)
    {
        dialog.clickFont(options::fonts, monoFace());
        dialog.choose(options::fontSize, L"14");
        dialog.click(options::bold);
        dialog.click(options::italic);
        dialog.clickFont(options::htmlFonts, monoFace());
        dialog.choose(options::border, L"3");
        dialog.choose(options::width, L"55%");
        dialog.click(options::empty);
    }
    // Makes the colour black, which cancelling the colour dialog does.
    static void blacken(const OptionsDialog& dialog)
    {
        Answers answers;
        answers.expect(L"Color", [](HWND box) { press(box, IDCANCEL); });
        dialog.click(options::fontColor);
        EXPECT_ANSWERED(answers);
    }
    LOGFONTW mainFont() const
    {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(form.label.handle(), WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        return font;
    }
    bool isOpen() const { return !loaded->unloaded() && IsWindowVisible(loaded->handle()); }
};

TEST_F(OptionsTaking, OkTakesEveryValueAndCloses)
{
    state.font.color = 0x00C0FF;
    const OptionsDialog dialog = open();
    changeAll(dialog);
    press(dialog.window, IDOK);
    EXPECT_TRUE(loaded->unloaded());
    const OptionsState expected{
        .font = {.name = monoFace(), .color = 0x00C0FF, .size = 14, .bold = true, .italic = true},
        .htmlFont = monoFace(),
        .htmlTableWidth = L"55%",
        .htmlBorder = 3,
        .generateEmpty = true};
    EXPECT_EQ(state, expected);
    EXPECT_EQ(form.changes, 1);
    EXPECT_EQ(form.label.foreColor(), 0x00C0FFU);
    EXPECT_EQ(std::wstring(mainFont().lfFaceName), monoFace());
    EXPECT_EQ(mainFont().lfHeight, -MulDiv(14, static_cast<int>(loaded->dpi()), 72));
    EXPECT_EQ(mainFont().lfWeight, FW_BOLD);
    EXPECT_NE(mainFont().lfItalic, 0);
}

TEST_F(OptionsTaking, OkWithoutAChangeChangesNothing)
{
    state = {.font = {.name = serifFace(), .color = 0x123456, .size = 13, .bold = true, .italic = false},
             .htmlFont = sansFace(),
             .htmlTableWidth = L"640",
             .htmlBorder = 9,
             .generateEmpty = true};
    const OptionsState before = state;
    const OptionsDialog dialog = open();
    press(dialog.window, IDOK);
    EXPECT_EQ(state, before);
    EXPECT_TRUE(loaded->unloaded());
}

TEST_F(OptionsTaking, CancelEscAndTheCloseButtonChangeNothing)
{
    const OptionsState before = state;
    const std::function<void(const OptionsDialog&)> ways[] = {
        [](const OptionsDialog& dialog) { press(dialog.window, IDCANCEL); },
        [](const OptionsDialog& dialog) {
            dialog.focus(options::fonts);
            pressKey(VK_ESCAPE);
        },
        [](const OptionsDialog& dialog) { SendMessageW(dialog.window, WM_CLOSE, 0, 0); },
    };
    for (const auto& close : ways) {
        const OptionsDialog dialog = open();
        changeAll(dialog);
        close(dialog);
        EXPECT_TRUE(loaded->unloaded());
        EXPECT_EQ(state, before);
        EXPECT_EQ(form.changes, 0);
        loaded.reset();
    }
}

TEST_F(OptionsTaking, EnterIsOkFromEveryField)
{
    for (const int field : {options::fonts, options::fontSize, options::bold, options::italic, IDOK}) {
        const OptionsDialog dialog = open();
        dialog.type(options::border, L"4");
        dialog.focus(field);
        pressKey(VK_RETURN);
        EXPECT_TRUE(loaded->unloaded()) << field;
        EXPECT_EQ(state.htmlBorder, 4) << field;
        state.htmlBorder = 0;
        loaded.reset();
    }
}

TEST_F(OptionsTaking, NothingIsTakenBeforeOk)
{
    const OptionsState before = state;
    const OptionsDialog dialog = open();
    changeAll(dialog);
    EXPECT_EQ(state, before);
    EXPECT_EQ(form.changes, 0);
}

// ---- texts that are not numbers

TEST_F(OptionsTaking, ASizeThatIsNotANumberIsAnErrorAfterNameAndColourWereTaken)
{
    for (const auto& [text, error] :
         {std::pair{L"big", options::mismatch}, std::pair{L"", options::mismatch},
          std::pair{L"40000", options::overflow}, std::pair{L"-32769", options::overflow}}) {
        state.font.name = sansFace();
        state.font.color = 0x00C0FF;
        const OptionsDialog dialog = open();
        changeAll(dialog);
        blacken(dialog);
        dialog.type(options::fontSize, text);
        expectError(error, [&] { press(dialog.window, IDOK); });
        EXPECT_TRUE(isOpen());
        const OptionsState expected{.font = {.name = monoFace(), .color = 0, .size = 8},
                                    .htmlFont = serifFace(),
                                    .htmlTableWidth = L"75%",
                                    .htmlBorder = 0,
                                    .generateEmpty = false};
        EXPECT_EQ(state, expected);
        EXPECT_EQ(form.changes, 0);
        EXPECT_EQ(dialog.text(options::fontSize), text);
        EXPECT_EQ(windowText(dialog.fontName()), monoFace());
        EXPECT_EQ(dialog.text(options::border), L"3");
        EXPECT_EQ(dialog.text(options::width), L"55%");
        EXPECT_TRUE(dialog.checked(options::bold));
        loaded.reset();
    }
}

TEST_F(OptionsTaking, ABorderThatIsNotANumberIsAnErrorAfterTheFontWasTaken)
{
    for (const auto& [text, error] :
         {std::pair{L"thin", options::mismatch}, std::pair{L"40000", options::overflow}}) {
        form.changes = 0;
        state.htmlFont = serifFace();
        state.font = {.name = sansFace(), .color = 0, .size = 8};
        const OptionsDialog dialog = open();
        changeAll(dialog);
        dialog.type(options::border, text);
        expectError(error, [&] { press(dialog.window, IDOK); });
        EXPECT_TRUE(isOpen());
        const OptionsState expected{
            .font = {.name = monoFace(), .color = 0, .size = 14, .bold = true, .italic = true},
            .htmlFont = monoFace(),
            .htmlTableWidth = L"75%",
            .htmlBorder = 0,
            .generateEmpty = false};
        EXPECT_EQ(state, expected);
        EXPECT_EQ(form.changes, 1);
        EXPECT_EQ(dialog.text(options::border), text);
        loaded.reset();
    }
}

TEST_F(OptionsTaking, AfterAnErrorTheUserCorrectsItAndOkTakesTheRest)
{
    const OptionsDialog dialog = open();
    changeAll(dialog);
    dialog.type(options::fontSize, L"x");
    expectError(options::mismatch, [&] { press(dialog.window, IDOK); });
    dialog.type(options::fontSize, L"11");
    press(dialog.window, IDOK);
    EXPECT_TRUE(loaded->unloaded());
    EXPECT_EQ(state.font.size, 11);
    EXPECT_EQ(state.htmlTableWidth, L"55%");
}

TEST_F(OptionsTaking, NumbersAreReadAsThePlatformReadsThem)
{
    const std::pair<const wchar_t*, int> sizes[] = {{L" 12 ", 12},  {L"12.5", 12}, {L"13.5", 14},
                                                    {L"1e1", 10},   {L"+9", 9},    {L"011", 11},
                                                    {L"11.51", 12}, {L"1,0", 10}};
    for (const auto& [text, size] : sizes) {
        const OptionsDialog dialog = open();
        dialog.type(options::fontSize, text);
        dialog.type(options::border, text);
        press(dialog.window, IDOK);
        EXPECT_EQ(state.font.size, size) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(state.htmlBorder, size) << testing::PrintToString(std::wstring(text));
        EXPECT_TRUE(loaded->unloaded());
        loaded.reset();
    }
}

TEST_F(OptionsTaking, ASizeThatNoFontHasIsTakenAndTheControlsKeepTheirs)
{
    for (const int size : {0, -3, 3000}) {
        state.font = {.name = sansFace(), .color = 0, .size = 9};
        const OptionsDialog dialog = open();
        form.label.setFont({sansFace(), 9});
        dialog.clickFont(options::fonts, monoFace());
        dialog.type(options::fontSize, std::to_wstring(size));
        press(dialog.window, IDOK);
        EXPECT_TRUE(loaded->unloaded()) << size;
        EXPECT_EQ(state.font.size, size);
        EXPECT_EQ(mainFont().lfHeight, -MulDiv(9, static_cast<int>(form.window.dpi()), 72)) << size;
        EXPECT_EQ(std::wstring(mainFont().lfFaceName), monoFace()) << size;
        loaded.reset();
    }
}

// ---- texts that are stored as typed

TEST_F(OptionsTaking, AWidthIsStoredAsItWasTyped)
{
    for (const wchar_t* const text : {L"55%", L"55", L"640", L"", L" 33 % ", L"wide", L"a|b\"c"}) {
        const OptionsDialog dialog = open();
        dialog.type(options::width, text);
        press(dialog.window, IDOK);
        EXPECT_EQ(state.htmlTableWidth, text);
        loaded.reset();
    }
}

TEST_F(OptionsTaking, AFontThatIsNotInstalledKeepsItsNameAndThePagesFontBecomesNone)
{
    state.font.name = L"No Such Face";
    state.htmlFont = L"Nor This One";
    const OptionsDialog dialog = open();
    press(dialog.window, IDOK);
    EXPECT_EQ(state.font.name, L"No Such Face");
    EXPECT_EQ(state.htmlFont, L"");
}

} // namespace
} // namespace vandrel::test
