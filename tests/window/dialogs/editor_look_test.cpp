#include "platform/controls/font.h"
#include "tests/support/look.h"
#include "tests/support/window_facts.h"
#include "tests/window/dialogs/editor_test.h"

#include <array>

namespace vandrel::test {
namespace {

class EditorLook : public EditorTest, public testing::WithParamInterface<Look> {
  protected:
    EditorLook()
    {
        font = {.name = GetParam().face,
                .color = 0x0000C0,
                .size = GetParam().size,
                .bold = GetParam().bold,
                .italic = GetParam().italic};
    }

    struct Part {
        HWND window;
        std::wstring kind;
        std::wstring text;
        RECT area; // in the dialog
    };
    static std::vector<Part> partsOf(HWND dialog)
    {
        std::vector<Part> parts;
        for (const HWND child : childrenOf(dialog)) {
            const std::wstring kind = classOf(child);
            const bool frame = (GetWindowLongPtrW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX &&
                               kind == L"Button";
            parts.push_back({child, frame ? L"Frame" : kind, windowText(child), placeOf(child)});
        }
        return parts;
    }
    // How far the ink reaches of a text that is drawn at 0: a slanted letter extends beyond its own width.
    static int inkEnd(HFONT font, const std::wstring& text)
    {
        constexpr int width = 1500;
        constexpr int height = 200;
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const HDC context = CreateCompatibleDC(nullptr);
        const HBITMAP picture = CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ before = SelectObject(context, picture);
        const HGDIOBJ fontBefore = SelectObject(context, font);
        const RECT all{0, 0, width, height};
        FillRect(context, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        TextOutW(context, 0, 0, text.c_str(), static_cast<int>(text.size()));
        GdiFlush();
        const auto* const pixels = static_cast<const DWORD*>(bits);
        int end = 0;
        for (int i = 0; i < width * height; ++i) {
            if ((pixels[i] & 0xFFFFFF) != 0xFFFFFF) end = std::max(end, i % width + 1);
        }
        SelectObject(context, fontBefore);
        SelectObject(context, before);
        DeleteObject(picture);
        DeleteDC(context);
        return end;
    }
};

TEST_P(EditorLook, ShowsItsTextsAsTheyAreNamed)
{
    const frmInput editor = load();
    std::vector<std::wstring> labels;
    for (const Part& part : partsOf(editor.handle())) {
        if (part.kind == L"Static") labels.push_back(part.text);
    }
    EXPECT_EQ(labels, (std::vector<std::wstring>{L"Site Name:", L"Site URL:", L"Description:"}));
    EXPECT_EQ(fieldText(editor.handle(), IDOK), L"OK");
    EXPECT_EQ(fieldText(editor.handle(), IDCANCEL), L"Cancel");
    EXPECT_EQ(fieldText(editor.handle(), editor::browse), L"...");
}

TEST_P(EditorLook, EveryControlHasTheDisplayFont)
{
    const frmInput editor = load();
    const std::vector<Part> parts = partsOf(editor.handle());
    EXPECT_EQ(parts.size(), 10U);
    for (const Part& part : parts) {
        LOGFONTW used{};
        ASSERT_NE(GetObjectW(fontHandleOf(part.window), sizeof used, &used), 0);
        EXPECT_EQ(std::wstring(used.lfFaceName), font.name);
        EXPECT_EQ(used.lfHeight, -MulDiv(font.size, static_cast<int>(editor.dpi()), 72));
        EXPECT_EQ(used.lfItalic != 0, font.italic);
        EXPECT_EQ(used.lfWeight, font.bold ? FW_BOLD : FW_NORMAL);
    }
}

TEST_P(EditorLook, LabelsAndFieldsHaveTheDisplayColour)
{
    const frmInput editor = load();
    const HDC context = GetDC(editor.handle());
    for (const Part& part : partsOf(editor.handle())) {
        if (part.kind != L"Static" && part.kind != L"Edit") continue;
        SetTextColor(context, 0);
        SendMessageW(editor.handle(), part.kind == L"Edit" ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                     reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(part.window));
        EXPECT_EQ(GetTextColor(context), font.color);
    }
    ReleaseDC(editor.handle(), context);
}

TEST_P(EditorLook, NoControlOverlapsAnotherAndAllLieInTheWindow)
{
    const frmInput editor = load();
    RECT client{};
    GetClientRect(editor.handle(), &client);
    const std::vector<Part> parts = partsOf(editor.handle());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        RECT both{};
        UnionRect(&both, &client, &parts[i].area);
        EXPECT_TRUE(EqualRect(&both, &client)) << "part " << i << " reaches out of the window";
        EXPECT_FALSE(IsRectEmpty(&parts[i].area));
        for (std::size_t other = 0; other < i; ++other) {
            if (parts[i].kind == L"Frame" || parts[other].kind == L"Frame") continue;
            EXPECT_FALSE(IntersectRect(&both, &parts[i].area, &parts[other].area)) << i << " over " << other;
        }
    }
}

TEST_P(EditorLook, TheFrameHoldsTheFieldsAndNotTheTwoLastButtons)
{
    const frmInput editor = load();
    const std::vector<Part> parts = partsOf(editor.handle());
    const auto frame = std::ranges::find(parts, L"Frame", &Part::kind);
    ASSERT_NE(frame, parts.end());
    for (const Part& part : parts) {
        if (part.window == frame->window) continue;
        const int id = GetDlgCtrlID(part.window);
        RECT both{};
        if (id == IDOK || id == IDCANCEL) {
            EXPECT_FALSE(IntersectRect(&both, &part.area, &frame->area)) << id;
        } else {
            UnionRect(&both, &part.area, &frame->area);
            EXPECT_TRUE(EqualRect(&both, &frame->area)) << id;
        }
    }
}

TEST_P(EditorLook, NoTextIsClipped)
{
    const frmInput editor = load();
    for (const Part& part : partsOf(editor.handle())) {
        const SIZE text = textSize(fontHandleOf(part.window), part.text.empty() ? L"Ag" : part.text);
        RECT room{};
        GetClientRect(part.window, &room);
        if (part.kind == L"Static") {
            EXPECT_GE(room.right, inkEnd(fontHandleOf(part.window), part.text))
                << testing::PrintToString(part.text);
            EXPECT_GE(room.bottom, text.cy);
        } else if (part.kind == L"Edit") {
            RECT writing{};
            SendMessageW(part.window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&writing));
            EXPECT_GE(writing.bottom - writing.top, text.cy);
            EXPECT_GE(room.right, textSize(fontHandleOf(part.window), L"http://").cx);
        } else if (part.kind == L"Button") {
            const int border = 2 * GetSystemMetrics(SM_CXEDGE);
            EXPECT_GE(room.right, text.cx + 2 * border) << testing::PrintToString(part.text);
            EXPECT_GE(room.bottom, text.cy + border);
        }
    }
}

TEST_P(EditorLook, EachLabelStandsBesideItsField)
{
    const frmInput editor = load();
    const HWND dialog = editor.handle();
    for (const auto& [caption, field] :
         {std::pair{L"Site Name:", editor::name}, std::pair{L"Site URL:", editor::address},
          std::pair{L"Description:", editor::description}}) {
        RECT label{};
        RECT box{};
        GetWindowRect(childWithText(dialog, caption), &label);
        GetWindowRect(GetDlgItem(dialog, field), &box);
        EXPECT_LE(label.right, box.left);
        EXPECT_LE(std::abs((label.top + label.bottom) - (box.top + box.bottom)), 2);
        // To a screen reader, the label before a field in the window's order is its name.
        EXPECT_EQ(windowText(GetWindow(GetDlgItem(dialog, field), GW_HWNDPREV)), caption);
    }
}

TEST_P(EditorLook, ItOpensWhollyOnTheScreen)
{
    SetWindowPos(owner.handle(), nullptr, -300, -200, 400, 300, SWP_NOZORDER);
    RECT window{};
    show([&](HWND dialog) {
        GetWindowRect(dialog, &window);
        press(dialog, IDCANCEL);
    });
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_GE(window.left, work.left);
    EXPECT_GE(window.top, work.top);
    EXPECT_LE(window.right, work.right);
    EXPECT_LE(window.bottom, work.bottom);
}

INSTANTIATE_TEST_SUITE_P(Fonts, EditorLook,
                         testing::Values(Look{"Default", 8, false, false},
                                         Look{"LargeItalic", 18, false, true},
                                         Look{"HugeBoldItalic", 28, true, true},
                                         Look{"Small", 5, false, false},
                                         Look{"Serif", 14, false, true, L"Times New Roman"}),
                         [](const auto& look) { return std::string(look.param.name); });

} // namespace
} // namespace vandrel::test
