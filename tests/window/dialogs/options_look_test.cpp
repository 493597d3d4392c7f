#include "tests/support/window_facts.h"
#include "tests/support/window_parts.h"
#include "tests/window/dialogs/options_test.h"

namespace vandrel::test {
namespace {

std::wstring kindOf(HWND window)
{
    const std::wstring kind = classOf(window);
    const auto style = GetWindowLongPtrW(window, GWL_STYLE);
    if (kind != L"Button") return kind;
    if ((style & BS_TYPEMASK) == BS_GROUPBOX) return L"Frame";
    return (style & BS_TYPEMASK) == BS_AUTOCHECKBOX ? L"Check" : L"Button";
}

class OptionsLook : public OptionsTest {
  protected:
    static std::vector<std::wstring> textsOf(HWND parent, const std::wstring& kind)
    {
        std::vector<std::wstring> texts;
        for (const HWND child : childrenOf(parent)) {
            if (kindOf(child) == kind) texts.push_back(windowText(child));
        }
        std::ranges::sort(texts);
        return texts;
    }
    static std::string nameOf(HWND window)
    {
        return testing::PrintToString(windowText(window)) + " (" + testing::PrintToString(kindOf(window)) +
               ", " + std::to_string(GetDlgCtrlID(window)) + ")";
    }
    static void expectNothingClipped(HWND parent)
    {
        for (const HWND child : childrenOf(parent)) {
            const std::wstring kind = kindOf(child);
            const HFONT font = fontHandleOf(child);
            const SIZE text = textSize(font, windowText(child));
            const RECT room = clientOf(child);
            if (kind == L"Static" || kind == L"Frame") {
                EXPECT_GE(room.right, text.cx) << nameOf(child);
                EXPECT_GE(room.bottom, text.cy) << nameOf(child);
            } else if (kind == L"Check") {
                EXPECT_GE(room.right, text.cx + GetSystemMetrics(SM_CXMENUCHECK)) << nameOf(child);
                EXPECT_GE(room.bottom, text.cy) << nameOf(child);
            } else if (kind == L"Button") {
                EXPECT_GE(room.right, text.cx + 4 * GetSystemMetrics(SM_CXEDGE)) << nameOf(child);
                EXPECT_GE(room.bottom, text.cy + 2 * GetSystemMetrics(SM_CYEDGE)) << nameOf(child);
            } else if (kind == L"ComboBox") {
                RECT edit = clientOf(FindWindowExW(child, nullptr, L"Edit", nullptr));
                EXPECT_GE(edit.right, textSize(font, L"100%").cx) << nameOf(child);
                EXPECT_GE(edit.bottom, text.cy) << nameOf(child);
            }
        }
    }
    static void expectNoOverlap(HWND parent, int except = 0)
    {
        const std::vector<HWND> all = childrenOf(parent);
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(isWithin(placeOf(all[i]), clientOf(parent))) << nameOf(all[i]);
            for (std::size_t other = 0; other < i; ++other) {
                if (kindOf(all[i]) == L"Frame" || kindOf(all[other]) == L"Frame") continue;
                if (except != 0 && (GetDlgCtrlID(all[i]) == except || GetDlgCtrlID(all[other]) == except))
                    continue;
                RECT both{};
                const RECT one = placeOf(all[i]);
                const RECT two = placeOf(all[other]);
                const bool pages = kindOf(all[i]) == kindOf(all[other]) &&
                                   kindOf(all[i]) == L"Vandrel.PictureBox" && EqualRect(&one, &two);
                if (pages) continue; // only one of them is visible
                EXPECT_FALSE(IntersectRect(&both, &one, &two))
                    << nameOf(all[i]) << " over " << nameOf(all[other]);
            }
        }
    }
};

TEST_F(OptionsLook, TheTextsAreExactlyThese)
{
    state.font.name = L"Arial";
    const OptionsDialog dialog = open();
    const HWND appearance = dialog.page(options::appearancePage);
    const HWND html = dialog.page(options::htmlPage);
    using Texts = std::vector<std::wstring>;
    EXPECT_EQ(windowText(dialog.window), L"Options");
    EXPECT_EQ(textsOf(appearance, L"Static"), (Texts{L"Arial", L"Font Size:", L"Overall Font Name:"}));
    EXPECT_EQ(textsOf(appearance, L"Frame"), (Texts{L"Effects", L"Fonts"}));
    EXPECT_EQ(textsOf(appearance, L"Check"), (Texts{L"Bold", L"Italic"}));
    EXPECT_EQ(textsOf(appearance, L"Button"), Texts{L"Font Color..."});
    EXPECT_EQ(textsOf(html, L"Static"), (Texts{L"Border:", L"HTML Font Name:", L"Width:"}));
    EXPECT_EQ(textsOf(html, L"Frame"), Texts{L"Table"});
    EXPECT_EQ(textsOf(html, L"Check"), Texts{L"Generate Empty Categories"});
    EXPECT_EQ(textsOf(dialog.window, L"Button"), (Texts{L"Cancel", L"OK"}));
    EXPECT_EQ(windowText(GetDlgItem(dialog.window, IDOK)), L"OK");
    EXPECT_EQ(windowText(GetDlgItem(dialog.window, IDCANCEL)), L"Cancel");
}

TEST_F(OptionsLook, TheTabsAreNamed)
{
    const OptionsDialog dialog = open();
    std::vector<std::wstring> tabs;
    const LRESULT count = SendMessageW(dialog.part(options::tabs), TCM_GETITEMCOUNT, 0, 0);
    for (WPARAM tab = 0; tab < static_cast<WPARAM>(count); ++tab) {
        wchar_t text[64]{};
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = 64;
        SendMessageW(dialog.part(options::tabs), TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
        tabs.emplace_back(text);
    }
    EXPECT_EQ(tabs, (std::vector<std::wstring>{L"Appearance", L"HTML Generation"}));
}

TEST_F(OptionsLook, TheBoxesOfferTheseEntries)
{
    const OptionsDialog dialog = open();
    using Texts = std::vector<std::wstring>;
    EXPECT_EQ(dialog.entries(options::fontSize), (Texts{L"8", L"10", L"12", L"14", L"16", L"18"}));
    EXPECT_EQ(dialog.entries(options::border), (Texts{L"0", L"1", L"2", L"3", L"4", L"5"}));
    EXPECT_EQ(dialog.entries(options::width),
              (Texts{L"100%", L"95%", L"90%", L"85%", L"80%", L"75%", L"70%", L"65%", L"60%", L"55%", L"50%",
                     L"45%", L"40%", L"35%", L"30%", L"25%", L"20%", L"15%", L"10%"}));
}

TEST_F(OptionsLook, BothPagesBeginAt120To420Twips)
{
    const OptionsDialog dialog = open();
    const auto px = [&](int twips) { return MulDiv(twips, static_cast<int>(loaded->dpi()), 1440); };
    for (const int page : {options::appearancePage, options::htmlPage}) {
        EXPECT_EQ(placeOf(dialog.page(page)).left, px(120));
        EXPECT_EQ(placeOf(dialog.page(page)).top, px(420));
    }
}

TEST_F(OptionsLook, ItStaysInItsOwnFontWhateverTheDisplayFont)
{
    state.font = {.name = L"Courier New", .color = 0x0000FF, .size = 18, .bold = true, .italic = true};
    const OptionsDialog dialog = open();
    int looked = 0;
    for (const HWND parent :
         {dialog.window, dialog.page(options::appearancePage), dialog.page(options::htmlPage)}) {
        for (const HWND child : childrenOf(parent)) {
            if (kindOf(child) == L"Vandrel.PictureBox") continue;
            const LOGFONTW font = fontOf(child);
            EXPECT_EQ(std::wstring(font.lfFaceName), L"Arial") << nameOf(child);
            EXPECT_EQ(font.lfHeight, -MulDiv(8, static_cast<int>(loaded->dpi()), 72)) << nameOf(child);
            EXPECT_EQ(font.lfWeight, FW_NORMAL) << nameOf(child);
            EXPECT_EQ(font.lfItalic, 0) << nameOf(child);
            ++looked;
        }
    }
    EXPECT_EQ(looked, 21);
}

TEST_F(OptionsLook, NothingIsClippedOrCovered)
{
    const OptionsDialog dialog = open();
    for (const HWND parent :
         {dialog.window, dialog.page(options::appearancePage), dialog.page(options::htmlPage)}) {
        expectNothingClipped(parent);
        expectNoOverlap(parent, parent == dialog.window ? options::tabs : 0);
    }
    const RECT strip = placeOf(dialog.part(options::tabs));
    EXPECT_TRUE(isWithin(placeOf(dialog.page(options::appearancePage)), strip));
    RECT page = strip;
    SendMessageW(dialog.part(options::tabs), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
    EXPECT_TRUE(isWithin(placeOf(dialog.page(options::appearancePage)), page)) << "the tabs stay uncovered";
}

TEST_F(OptionsLook, TheFramesHoldTheirControls)
{
    const OptionsDialog dialog = open();
    const HWND appearance = dialog.page(options::appearancePage);
    const HWND html = dialog.page(options::htmlPage);
    const auto in = [&](HWND page, const wchar_t* frame, int id) {
        return isWithin(placeOf(dialog.part(id)), placeOf(childWithText(page, frame)));
    };
    for (const int id : {options::fonts, options::fontSize}) EXPECT_TRUE(in(appearance, L"Fonts", id)) << id;
    for (const int id : {options::bold, options::italic, options::fontColor, options::color})
        EXPECT_TRUE(in(appearance, L"Effects", id)) << id;
    for (const int id : {options::border, options::width}) EXPECT_TRUE(in(html, L"Table", id)) << id;
    EXPECT_FALSE(in(html, L"Table", options::htmlFonts));
}

TEST_F(OptionsLook, ALabelStandsBeforeEachFieldForScreenReaders)
{
    const OptionsDialog dialog = open();
    const std::pair<int, const wchar_t*> named[] = {{options::fonts, L"Overall Font Name:"},
                                                    {options::fontSize, L"Font Size:"},
                                                    {options::htmlFonts, L"HTML Font Name:"},
                                                    {options::border, L"Border:"},
                                                    {options::width, L"Width:"}};
    for (const auto& [id, label] : named)
        EXPECT_EQ(windowText(GetWindow(dialog.part(id), GW_HWNDPREV)), label);
}

} // namespace
} // namespace vandrel::test
