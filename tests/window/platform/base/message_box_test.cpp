#include "platform/base/message_box.h"

#include "platform/base/runtime_error.h"
#include "tests/support/answers.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class MessageBoxes : public testing::Test {
  protected:
    MessageBoxes() { window.show(); }
    TestWindow window;
};

TEST_F(MessageBoxes, ShowEachIcon)
{
    const std::pair<BoxIcon, UINT> icons[] = {{BoxIcon::critical, MB_ICONHAND},
                                              {BoxIcon::question, MB_ICONQUESTION},
                                              {BoxIcon::exclamation, MB_ICONEXCLAMATION},
                                              {BoxIcon::information, MB_ICONASTERISK}};
    for (const auto& [icon, native] : icons) {
        Answers answers;
        answers.expectBox(L"No Categories", L"There are no categories.", IDOK, native);
        tell(window.handle(), L"There are no categories.", L"No Categories", icon);
        EXPECT_ANSWERED(answers);
    }
}

TEST_F(MessageBoxes, AskForYesOrNo)
{
    Answers answers;
    answers.expectBox(L"Remove", L"Really?", IDYES, MB_ICONQUESTION);
    answers.expectBox(L"Remove", L"Really?", IDNO, MB_ICONQUESTION);
    EXPECT_TRUE(askYesNo(window.handle(), L"Really?", L"Remove", BoxIcon::question));
    EXPECT_FALSE(askYesNo(window.handle(), L"Really?", L"Remove", BoxIcon::question));
    EXPECT_ANSWERED(answers);
}

TEST_F(MessageBoxes, AQuestionHasNoOtherButtonsAndANoticeOnlyOne)
{
    Answers answers;
    answers.expect(L"Remove", [](HWND box) {
        EXPECT_NE(GetDlgItem(box, IDYES), nullptr);
        EXPECT_NE(GetDlgItem(box, IDNO), nullptr);
        EXPECT_EQ(GetDlgItem(box, IDCANCEL), nullptr);
        EXPECT_EQ(GetDlgItem(box, IDOK), nullptr);
        press(box, IDNO);
    });
    answers.expect(L"Notice", [](HWND box) {
        EXPECT_EQ(GetDlgItem(box, IDYES), nullptr);
        EXPECT_EQ(GetDlgItem(box, IDNO), nullptr);
        press(box, IDOK);
    });
    askYesNo(window.handle(), L"Really?", L"Remove", BoxIcon::question);
    tell(window.handle(), L"Done.", L"Notice", BoxIcon::information);
    EXPECT_ANSWERED(answers);
}

TEST_F(MessageBoxes, TheOwnerTakesNoInputMeanwhile)
{
    Answers answers;
    answers.expect(L"Notice", [this](HWND box) {
        EXPECT_EQ(GetWindow(box, GW_OWNER), window.handle());
        EXPECT_FALSE(IsWindowEnabled(window.handle()));
        press(box, IDOK);
    });
    tell(window.handle(), L"Done.", L"Notice", BoxIcon::information);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
}

TEST_F(MessageBoxes, ARunTimeErrorIsShownWithItsNumberAndDescription)
{
    Answers answers;
    answers.expectBox(L"Vandrel", L"Run-time error '75':\n\nPath/File access error", IDOK, MB_ICONHAND);
    answers.expectBox(L"Vandrel", L"Run-time error '9999':\n\nits own words", IDOK, MB_ICONHAND);
    showRuntimeError(window.handle(), RuntimeError(error_number::pathFileAccess));
    showRuntimeError(window.handle(), RuntimeError(9999, L"its own words"));
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
