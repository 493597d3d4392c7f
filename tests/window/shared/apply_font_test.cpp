#include "shared/apply_font.h"

#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/form.h"
#include "tests/support/test_window.h"
#include "tests/support/window_facts.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

struct TestForm : Form {
    std::vector<Control*> controls() override { return {&label, &box, &button, &list}; }
    void fontsChanged() override
    {
        ++changes;
        sizeWhenTold = label.font().size;
        lastSizeWhenTold = list.font().size;
    }

    TestWindow window;
    Label label{window.handle(), L"label"};
    TextBox box{window.handle(), 1};
    Button button{window.handle(), 2, L"button"};
    RowTable rows;
    ListView list{window.handle(), 3, ListView::Selection::many, false, {{L"Column", Twips{1000}}}, rows};
    int changes = 0;
    int sizeWhenTold = 0;
    int lastSizeWhenTold = 0;
};

TEST(ApplyFont, GivesFaceSizeBoldAndItalicToEveryControl)
{
    TestForm form;
    ApplyFont(form, L"Tahoma", 0, 12, true, true);
    for (const Control* const control : form.controls()) {
        const LOGFONTW font = fontOf(control->handle());
        EXPECT_STREQ(font.lfFaceName, L"Tahoma");
        EXPECT_EQ(font.lfHeight, -MulDiv(12, static_cast<int>(form.window.dpi()), 72));
        EXPECT_EQ(font.lfWeight, FW_BOLD);
        EXPECT_EQ(font.lfItalic, TRUE);
    }
}

TEST(ApplyFont, BoldAndItalicAreTakenAwayAgain)
{
    TestForm form;
    ApplyFont(form, L"Arial", 0, 12, true, true);
    ApplyFont(form, L"Arial", 0, 12, false, false);
    for (const Control* const control : form.controls()) {
        EXPECT_EQ(fontOf(control->handle()).lfWeight, FW_NORMAL);
        EXPECT_EQ(fontOf(control->handle()).lfItalic, FALSE);
    }
}

TEST(ApplyFont, BoldAndItalicAreIndependent)
{
    TestForm form;
    ApplyFont(form, L"Arial", 0, 9, true, false);
    EXPECT_EQ(fontOf(form.label.handle()).lfWeight, FW_BOLD);
    EXPECT_EQ(fontOf(form.label.handle()).lfItalic, FALSE);
    ApplyFont(form, L"Arial", 0, 9, false, true);
    EXPECT_EQ(fontOf(form.label.handle()).lfWeight, FW_NORMAL);
    EXPECT_EQ(fontOf(form.label.handle()).lfItalic, TRUE);
}

TEST(ApplyFont, ColoursOnlyWhatHasATextColour)
{
    TestForm form;
    ApplyFont(form, L"Arial", RGB(1, 2, 250), 9, false, false);
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(form.list.handle(), LVM_GETTEXTCOLOR, 0, 0)),
              RGB(1, 2, 250));
    const HDC context = CreateCompatibleDC(nullptr);
    for (const Control* const control :
         {static_cast<Control*>(&form.label), static_cast<Control*>(&form.box)}) {
        SetTextColor(context, 0);
        const UINT message = control == &form.box ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
        SendMessageW(form.window.handle(), message, reinterpret_cast<WPARAM>(context),
                     reinterpret_cast<LPARAM>(control->handle()));
        EXPECT_EQ(GetTextColor(context), RGB(1, 2, 250));
    }
    DeleteDC(context);
}

TEST(ApplyFont, TakesTheDisplayFontOfTheOptionsAsOne)
{
    TestForm form;
    ApplyFont(form, DisplayFont{L"Courier New", 0xFF, 10, true, false});
    const LOGFONTW font = fontOf(form.button.handle());
    EXPECT_STREQ(font.lfFaceName, L"Courier New");
    EXPECT_EQ(font.lfHeight, -MulDiv(10, static_cast<int>(form.window.dpi()), 72));
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(form.list.handle(), LVM_GETTEXTCOLOR, 0, 0)), 0xFFU);
}

TEST(ApplyFont, NotifiesTheFormOnceWhenAllControlsHaveTheFont)
{
    TestForm form;
    ApplyFont(form, L"Arial", 0, 14, false, false);
    EXPECT_EQ(form.changes, 1);
    EXPECT_EQ(form.sizeWhenTold, 14);
    EXPECT_EQ(form.lastSizeWhenTold, 14);
}

TEST(ApplyFont, AFaceThatNoSystemHasOrThatIsTooLongRaisesNothing)
{
    TestForm form;
    EXPECT_NO_THROW(ApplyFont(form, L"No Such Face", 0, 9, false, false));
    EXPECT_NO_THROW(ApplyFont(form, std::wstring(300, L'f'), 0, 9, false, false));
    EXPECT_NE(SendMessageW(form.label.handle(), WM_GETFONT, 0, 0), 0);
}

TEST(ApplyFont, AFormWithoutControlsIsNotifiedToo)
{
    struct Bare : Form {
        std::vector<Control*> controls() override { return {}; }
        void fontsChanged() override { told = true; }
        bool told = false;
    } form;
    ApplyFont(form, L"Arial", 0, 9, false, false);
    EXPECT_TRUE(form.told);
}

} // namespace
} // namespace vandrel::test
