#include "platform/base/modal_scope.h"

#include "platform/base/message_box.h"
#include "platform/windows/input_box.h"
#include "tests/support/answers.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class ModalScopes : public testing::Test {
  protected:
    ModalScopes()
    {
        owner.show();
        other.show();
        pump();
    }

    TestWindow owner;
    TestWindow other;
};

TEST_F(ModalScopes, TakeTheInputFromTheOtherWindowsAndGiveItBack)
{
    {
        const ModalScope scope(nullptr, owner.handle());
        EXPECT_FALSE(IsWindowEnabled(other.handle()));
        EXPECT_TRUE(IsWindowEnabled(owner.handle())) << "the owner is for whoever shows the dialog";
    }
    EXPECT_TRUE(IsWindowEnabled(other.handle()));
}

TEST_F(ModalScopes, LeaveTheDialogItselfAlone)
{
    const ModalScope scope(other.handle(), owner.handle());
    EXPECT_TRUE(IsWindowEnabled(other.handle()));
}

TEST_F(ModalScopes, LeaveAWindowDisabledThatWasDisabledBefore)
{
    EnableWindow(other.handle(), FALSE);
    {
        const ModalScope scope(nullptr, owner.handle());
    }
    EXPECT_FALSE(IsWindowEnabled(other.handle()));
}

TEST_F(ModalScopes, CanBeNested)
{
    const ModalScope outer(nullptr, owner.handle());
    {
        const ModalScope inner(nullptr, owner.handle());
    }
    EXPECT_FALSE(IsWindowEnabled(other.handle())) << "the outer one still needs it";
}

TEST_F(ModalScopes, AreInForceWhileADialogIsOpen)
{
    Answers answers;
    answers.expect(L"Title", [this](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(other.handle()));
        press(dialog, IDCANCEL);
    });
    inputBox(owner.handle(), L"Prompt", L"Title");
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindowEnabled(other.handle()));
}

TEST_F(ModalScopes, AreInForceWhileAMessageBoxIsOpen)
{
    Answers answers;
    answers.expect(L"Title", [this](HWND box) {
        EXPECT_FALSE(IsWindowEnabled(other.handle()));
        press(box, IDOK);
    });
    tell(owner.handle(), L"Text", L"Title", BoxIcon::information);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindowEnabled(other.handle()));
}

} // namespace
} // namespace vandrel::test
