#include "tests/support/color_box.h"
#include "tests/support/input.h"
#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

using Pixels = std::vector<COLORREF>;

// What `draw` draws into a bitmap compatible with the screen.
Pixels pictureOf(SIZE size, const std::function<void(HDC)>& draw)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC context = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(context, bitmap);
    draw(context);
    GdiFlush();
    Pixels pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<const DWORD*>(bits)[i] & 0xFFFFFF;
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    return pixels;
}

class OptionsPreview : public OptionsTest {
  protected:
    OptionsPreview() { state.font = {.name = sansFace(), .color = 0, .size = 10}; }

    static Pixels shown(const OptionsDialog& dialog)
    {
        const HWND picture = dialog.part(options::preview);
        UpdateWindow(picture);
        RECT area{};
        GetClientRect(picture, &area);
        return pictureOf({area.right, area.bottom}, [&](HDC context) {
            const HDC screen = GetDC(picture);
            BitBlt(context, 0, 0, area.right, area.bottom, screen, 0, 0, SRCCOPY);
            ReleaseDC(picture, screen);
        });
    }
    // The name of the font, in the font itself, drawn at the upper left corner.
    Pixels sample(const OptionsDialog& dialog, const DisplayFont& font) const
    {
        RECT area{};
        GetClientRect(dialog.part(options::preview), &area);
        const FontHandle used = makeFont({font.name, font.size, font.bold, font.italic}, loaded->dpi());
        return pictureOf({area.right, area.bottom}, [&](HDC context) {
            const HDC screen = GetDC(nullptr);
            const HDC drawing = CreateCompatibleDC(screen);
            const HBITMAP bitmap = CreateCompatibleBitmap(screen, area.right, area.bottom);
            const HGDIOBJ before = SelectObject(drawing, bitmap);
            FillRect(drawing, &area, GetSysColorBrush(COLOR_WINDOW));
            const HGDIOBJ fontBefore = SelectObject(drawing, used.get());
            SetTextColor(drawing, font.color);
            SetBkMode(drawing, TRANSPARENT);
            TextOutW(drawing, 0, 0, font.name.c_str(), static_cast<int>(font.name.size()));
            BitBlt(context, 0, 0, area.right, area.bottom, drawing, 0, 0, SRCCOPY);
            SelectObject(drawing, fontBefore);
            SelectObject(drawing, before);
            DeleteObject(bitmap);
            DeleteDC(drawing);
            ReleaseDC(nullptr, screen);
        });
    }
    void expectSample(const OptionsDialog& dialog, const DisplayFont& font) const
    {
        EXPECT_TRUE(shown(dialog) == sample(dialog, font));
    }
    static COLORREF swatch(const OptionsDialog& dialog)
    {
        const HWND picture = dialog.part(options::color);
        UpdateWindow(picture);
        const HDC screen = GetDC(picture);
        const COLORREF pixel = GetPixel(screen, 5, 5);
        ReleaseDC(picture, screen);
        return pixel;
    }

    // ---- the system's colour dialog

    static void pickColor(const OptionsDialog& dialog, COLORREF color)
    {
        Answers answers;
        answers.expect(L"Color", [color](HWND box) {
            typeColor(box, color);
            press(box, IDOK);
        });
        dialog.click(options::fontColor);
        EXPECT_ANSWERED(answers);
    }
    static void cancelColor(const OptionsDialog& dialog)
    {
        Answers answers;
        answers.expect(L"Color", [](HWND box) {
            typeColor(box, 0x123456);
            press(box, IDCANCEL);
        });
        dialog.click(options::fontColor);
        EXPECT_ANSWERED(answers);
    }
};

TEST_F(OptionsPreview, ShowsTheNameOfTheFontInTheFontOfTheOptions)
{
    state.font = {.name = serifFace(), .color = 0x00C00000, .size = 16, .bold = true, .italic = true};
    const OptionsDialog dialog = open();
    expectSample(dialog, state.font);
    DisplayFont other = state.font;
    other.bold = false;
    EXPECT_FALSE(shown(dialog) == sample(dialog, other));
}

TEST_F(OptionsPreview, AClickOnAFontNamesAndShowsIt)
{
    const OptionsDialog dialog = open();
    dialog.clickFont(options::fonts, monoFace());
    EXPECT_EQ(windowText(dialog.fontName()), monoFace());
    expectSample(dialog, {.name = monoFace(), .color = 0, .size = 10});
    EXPECT_EQ(dialog.selected(options::htmlFonts), serifFace()) << "the page's font is chosen apart";
}

TEST_F(OptionsPreview, TheArrowKeysChooseAFontToo)
{
    const std::vector<std::wstring> all = screenFonts();
    state.font.name = all[0];
    const OptionsDialog dialog = open();
    dialog.focus(options::fonts);
    pressKey(VK_DOWN);
    EXPECT_EQ(windowText(dialog.fontName()), all[1]);
    expectSample(dialog, {.name = all[1], .color = 0, .size = 10});
}

TEST_F(OptionsPreview, AClickOnAFontOfThePageChangesNoSample)
{
    const OptionsDialog dialog = open();
    dialog.clickFont(options::htmlFonts, monoFace());
    EXPECT_EQ(dialog.selected(options::htmlFonts), monoFace());
    EXPECT_EQ(windowText(dialog.fontName()), sansFace());
    expectSample(dialog, state.font);
}

TEST_F(OptionsPreview, ASizeThatIsChosenShowsAtOnce)
{
    const OptionsDialog dialog = open();
    for (const int size : {18, 8, 12, 14, 16, 10}) {
        dialog.choose(options::fontSize, std::to_wstring(size));
        EXPECT_EQ(dialog.text(options::fontSize), std::to_wstring(size));
        expectSample(dialog, {.name = sansFace(), .color = 0, .size = size});
    }
}

TEST_F(OptionsPreview, ASizeChosenByTheArrowKeysShowsAtOnce)
{
    const OptionsDialog dialog = open();
    dialog.focus(options::fontSize);
    dialog.choose(options::fontSize, L"10");
    pressKey(VK_DOWN);
    EXPECT_EQ(dialog.text(options::fontSize), L"12");
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 12});
}

TEST_F(OptionsPreview, ATypedSizeShowsOnlyAfterTheNextControl)
{
    const OptionsDialog dialog = open();
    dialog.type(options::fontSize, L"17");
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10});
    dialog.focus(options::fonts);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10});
    dialog.click(options::italic);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 17, .italic = true});
    dialog.type(options::fontSize, L"9");
    dialog.clickFont(options::fonts, serifFace());
    expectSample(dialog, {.name = serifFace(), .color = 0, .size = 9, .italic = true});
}

TEST_F(OptionsPreview, BoldAndItalicEachShowAtOnce)
{
    const OptionsDialog dialog = open();
    dialog.click(options::bold);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10, .bold = true});
    dialog.click(options::italic);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10, .bold = true, .italic = true});
    dialog.click(options::bold);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10, .italic = true});
    dialog.click(options::italic);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10});
}

TEST_F(OptionsPreview, ASizeThatIsNotANumberIsError13AndChangesNoSample)
{
    const OptionsDialog dialog = open();
    for (const wchar_t* const text : {L"abc", L"", L"8pt"}) {
        dialog.type(options::fontSize, text);
        expectError(options::mismatch, [&] { dialog.click(options::bold); });
        EXPECT_EQ(dialog.text(options::fontSize), text);
        expectSample(dialog, state.font);
    }
    dialog.type(options::fontSize, L"40000");
    expectError(options::overflow, [&] { dialog.click(options::bold); });
    dialog.type(options::fontSize, L"12");
    dialog.click(options::italic);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 12, .italic = true});
}

TEST_F(OptionsPreview, ASizeThatNoFontHasIsError380)
{
    const OptionsDialog dialog = open();
    for (const wchar_t* const text : {L"0", L"-3", L"3000", L"0.4"}) {
        dialog.type(options::fontSize, text);
        expectError(options::invalidValue, [&] { dialog.click(options::italic); });
        EXPECT_EQ(dialog.text(options::fontSize), text);
    }
    expectSample(dialog, state.font);
}

TEST_F(OptionsPreview, AFontCanBeChosenThoughTheSizeIsNotANumber)
{
    const OptionsDialog dialog = open();
    dialog.type(options::fontSize, L"abc");
    expectError(options::mismatch, [&] { dialog.clickFont(options::fonts, monoFace()); });
    EXPECT_EQ(windowText(dialog.fontName()), monoFace());
}

TEST_F(OptionsPreview, TheSampleIsPaintedAgainAsItWasAfterTheOtherPage)
{
    const OptionsDialog dialog = open();
    dialog.type(options::fontSize, L"17");
    for (const bool hidden : {true, false}) {
        ShowWindow(dialog.page(options::appearancePage), hidden ? SW_HIDE : SW_SHOW);
        pump();
    }
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10});
}

// ---- the colour

TEST_F(OptionsPreview, AColourThatIsPickedShowsInTheSwatchAndInTheSample)
{
    const OptionsDialog dialog = open();
    pickColor(dialog, 0x0000FF);
    EXPECT_EQ(swatch(dialog), 0x0000FFU);
    expectSample(dialog, {.name = sansFace(), .color = 0x0000FF, .size = 10});
    EXPECT_EQ(state.font.color, 0U);
}

TEST_F(OptionsPreview, CancellingTheFirstTimeMakesItBlack)
{
    state.font.color = 0x00FF00;
    const OptionsDialog dialog = open();
    EXPECT_EQ(swatch(dialog), 0x00FF00U);
    cancelColor(dialog);
    EXPECT_EQ(swatch(dialog), 0U);
    expectSample(dialog, {.name = sansFace(), .color = 0, .size = 10});
}

TEST_F(OptionsPreview, CancellingLaterKeepsTheColourPickedLast)
{
    state.font.color = 0x00FF00;
    const OptionsDialog dialog = open();
    pickColor(dialog, 0xFF0000);
    pickColor(dialog, 0x0000FF);
    cancelColor(dialog);
    EXPECT_EQ(swatch(dialog), 0x0000FFU);
    expectSample(dialog, {.name = sansFace(), .color = 0x0000FF, .size = 10});
}

TEST_F(OptionsPreview, AColourCanBePickedThoughTheSizeIsNotANumber)
{
    const OptionsDialog dialog = open();
    dialog.type(options::fontSize, L"abc");
    Answers answers;
    answers.expect(L"Color", [](HWND box) {
        typeColor(box, 0x0000FF);
        press(box, IDOK);
    });
    answers.expectBox(L"Vandrel", options::mismatch, IDOK, MB_ICONHAND);
    dialog.click(options::fontColor);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(swatch(dialog), 0x0000FFU);
}

TEST_F(OptionsPreview, AnotherTimeTheDialogBeginsWithBlackAgain)
{
    OptionsDialog dialog = open();
    pickColor(dialog, 0x0000FF);
    loaded.reset();
    state.font.color = 0x00FF00;
    dialog = open();
    cancelColor(dialog);
    EXPECT_EQ(swatch(dialog), 0U);
}

TEST_F(OptionsPreview, TheColourOfTheOptionsIsNotShownToTheColourDialog)
{
    state.font.color = 0x0000FF;
    const OptionsDialog dialog = open();
    Answers answers;
    answers.expect(L"Color", [](HWND box) { press(box, IDOK); });
    dialog.click(options::fontColor);
    EXPECT_ANSWERED(answers);
    EXPECT_NE(swatch(dialog), 0x0000FFU);
}

} // namespace
} // namespace vandrel::test
