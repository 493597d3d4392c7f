#include "platform/windows/color_dialog.h"

#include "tests/support/color_box.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class ColorDialogs : public testing::Test {
  protected:
    ColorDialogs() { owner.show(); }
    ~ColorDialogs() override { pump(); }
    void show(std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(L"Color", std::move(answer));
        dialog.show(owner.handle());
        EXPECT_ANSWERED(answers);
    }
    void pick(COLORREF color)
    {
        show([color](HWND box) {
            typeColor(box, color);
            press(box, IDOK);
        });
    }
    void cancel()
    {
        show([](HWND box) {
            typeColor(box, 0x0A141E);
            press(box, IDCANCEL);
        });
    }

    TestWindow owner;
    ColorDialog dialog;
};

TEST_F(ColorDialogs, HoldBlackUntilAColourIsPicked)
{
    EXPECT_EQ(dialog.color, 0U);
    cancel();
    EXPECT_EQ(dialog.color, 0U);
}

TEST_F(ColorDialogs, TakeThePickedColourWithRedLowest)
{
    for (const COLORREF color : {0x0000FFU, 0xFF0000U, 0x123456U, 0xFFFFFFU}) {
        pick(color);
        EXPECT_EQ(dialog.color, color);
    }
}

TEST_F(ColorDialogs, KeepTheLastColourWhenCancelled)
{
    pick(0x336699);
    cancel();
    cancel();
    EXPECT_EQ(dialog.color, 0x336699U);
}

TEST_F(ColorDialogs, TheOwnerAndTheOtherWindowsTakeNoInputMeanwhile)
{
    TestWindow other;
    other.show();
    show([&](HWND box) {
        EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        EXPECT_FALSE(IsWindowEnabled(other.handle()));
        EXPECT_EQ(GetWindow(box, GW_OWNER), owner.handle());
        press(box, IDCANCEL);
    });
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    EXPECT_TRUE(IsWindowEnabled(other.handle()));
}

} // namespace
} // namespace vandrel::test
