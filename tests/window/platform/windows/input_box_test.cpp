#include "platform/windows/input_box.h"

#include "tests/support/answers.h"
#include "tests/support/from_outside.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class InputBoxes : public testing::Test {
  protected:
    InputBoxes() { window.show(); }
    std::wstring ask(Answers& answers)
    {
        const std::wstring answer = inputBox(window.handle(), L"Please type a name:", L"New Category");
        EXPECT_ANSWERED(answers);
        EXPECT_TRUE(IsWindowEnabled(window.handle()));
        return answer;
    }
    static HWND field(HWND box) { return FindWindowExW(box, nullptr, L"Edit", nullptr); }
    static void type(HWND box, const wchar_t* text)
    {
        SendMessageW(field(box), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }

    TestWindow window;
};

TEST_F(InputBoxes, AnswerTheTextTyped)
{
    Answers answers;
    answers.expectInput(L"New Category", L"Please type a name:", L" Ksi\u0105\u017Cki & more ");
    EXPECT_EQ(ask(answers), L" Ksi\u0105\u017Cki & more ");
}

TEST_F(InputBoxes, AnswerATextThatCameWithoutTheKeyboard)
{
    Answers answers;
    answers.expect(L"New Category", [](HWND box) {
        setTextFromOutside(field(box), L"dictated");
        press(box, IDOK);
    });
    EXPECT_EQ(ask(answers), L"dictated");
}

TEST_F(InputBoxes, AnswerNothingWhenCancelled)
{
    Answers answers;
    answers.expect(L"New Category", [](HWND box) {
        type(box, L"typed");
        press(box, IDCANCEL);
    });
    EXPECT_EQ(ask(answers), L"");
}

TEST_F(InputBoxes, EnterAcceptsAndEscCancels)
{
    Answers enter;
    enter.expect(L"New Category", [](HWND box) {
        type(box, L"Work");
        PostMessageW(field(box), WM_KEYDOWN, VK_RETURN, 1);
    });
    EXPECT_EQ(ask(enter), L"Work");
    Answers escape;
    escape.expect(L"New Category", [](HWND box) {
        type(box, L"Work");
        PostMessageW(field(box), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    EXPECT_EQ(ask(escape), L"");
}

TEST_F(InputBoxes, TheCloseBoxCancels)
{
    Answers answers;
    answers.expect(L"New Category", [](HWND box) {
        type(box, L"Work");
        PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    EXPECT_EQ(ask(answers), L"");
}

TEST_F(InputBoxes, StartEmptyWithTheFocusInTheField)
{
    Answers answers;
    answers.expect(L"New Category", [](HWND box) {
        EXPECT_EQ(windowText(field(box)), L"");
        EXPECT_EQ(GetFocus(), field(box));
        press(box, IDOK);
    });
    EXPECT_EQ(ask(answers), L"");
}

TEST_F(InputBoxes, ShowPromptAndButtonsWhole)
{
    const std::wstring prompt(120, L'W');
    Answers answers;
    answers.expect(L"Title", [&](HWND box) {
        RECT area{};
        GetClientRect(box, &area);
        for (const HWND child :
             {childWithText(box, prompt), field(box), GetDlgItem(box, IDOK), GetDlgItem(box, IDCANCEL)}) {
            RECT place{};
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&place), 2);
            EXPECT_GE(place.left, 0);
            EXPECT_LE(place.right, area.right);
            EXPECT_LE(place.bottom, area.bottom);
            EXPECT_GT(place.bottom, place.top);
        }
        press(box, IDCANCEL);
    });
    inputBox(window.handle(), prompt, L"Title");
    EXPECT_ANSWERED(answers);
}

} // namespace
} // namespace vandrel::test
