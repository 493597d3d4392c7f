#include "platform/controls/simple_controls.h"
#include "tests/support/from_outside.h"
#include "tests/support/input.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

class TextBoxes : public testing::Test {
  protected:
    TextBoxes()
    {
        box.place(10, 10, 300, 24);
        other.place(10, 50, 300, 24);
        window.show();
        pump();
    }
    void type(wchar_t letter)
    {
        PostMessageW(box.handle(), WM_CHAR, letter, 1);
        pump();
    }
    std::pair<DWORD, DWORD> selection() const
    {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(box.handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }

    TestWindow window;
    TextBox box{window.handle(), 1};
    TextBox other{window.handle(), 2};
};

TEST_F(TextBoxes, ATextThatWasSetIsReturnedUnchanged)
{
    for (const std::wstring& text :
         {std::wstring(L""), std::wstring(L"News"), std::wstring(L"a\nb"), std::wstring(L"a\r\nb\r"),
          std::wstring(L"a\tb"), std::wstring(L"a\0b", 3), std::wstring(L"\xDC83 half"),
          std::wstring(L"\U0001F600"), std::wstring(100'000, L'x')}) {
        box.setText(text);
        EXPECT_TRUE(box.text() == text);
    }
}

TEST_F(TextBoxes, TheTextIsShown)
{
    box.setText(L"News");
    EXPECT_EQ(windowText(box.handle()), L"News");
}

TEST_F(TextBoxes, WhatTheUserTypesIsTheTextFromThenOn)
{
    box.setText(L"New");
    box.select(3, 0);
    type(L's');
    EXPECT_EQ(box.text(), L"News");
    type(L'\b');
    EXPECT_EQ(box.text(), L"New");
}

TEST_F(TextBoxes, SettingATextAfterTypingIsExactAgain)
{
    box.setText(L"a");
    type(L'x');
    box.setText(L"b\nc");
    EXPECT_EQ(box.text(), L"b\nc");
}

TEST_F(TextBoxes, WhatIsPastedOrDeletedCounts)
{
    box.setText(L"a\nb");
    SendMessageW(box.handle(), EM_SETSEL, 0, -1);
    SendMessageW(box.handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"pasted"));
    EXPECT_EQ(box.text(), L"pasted");
    box.setText(L"News");
    box.select(0, 4);
    typeKey(box.handle(), VK_DELETE);
    EXPECT_EQ(box.text(), L"");
}

TEST_F(TextBoxes, ATextThatIsSetFromOutsideIsTheTextFromThenOn)
{
    for (const std::wstring& before : {std::wstring(), std::wstring(L"http://"), std::wstring(L"a\nb")}) {
        box.setText(before);
        setTextFromOutside(box.handle(), L"dictated");
        EXPECT_EQ(box.text(), L"dictated");
        setTextFromOutside(box.handle(), L"");
        EXPECT_EQ(box.text(), L"");
    }
}

TEST_F(TextBoxes, ATextThatIsSetFromOutsideAfterTypingCountsToo)
{
    box.setText(L"a\nb");
    box.select(0, 0);
    type(L'x');
    setTextFromOutside(box.handle(), L"dictated");
    EXPECT_EQ(box.text(), L"dictated");
    box.setText(L"c\nd");
    EXPECT_EQ(box.text(), L"c\nd");
}

TEST_F(TextBoxes, ALetterThatIsTypedAndDeletedLosesNothing)
{
    box.setText(L"a\nb");
    const std::wstring shown = windowText(box.handle());
    box.select(0, 0);
    type(L'x');
    EXPECT_EQ(box.text(), L"x" + shown);
    type(L'\b');
    EXPECT_EQ(box.text(), L"a\nb");
}

TEST_F(TextBoxes, APartOfTheTextIsSelected)
{
    box.setText(L"http://");
    box.select(0, 7);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>(0, 7)));
    box.select(2, 3);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>(2, 5)));
}

TEST_F(TextBoxes, ASelectionBeyondTheEndReachesTheEnd)
{
    box.setText(L"News");
    box.select(1, 1000);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>(1, 4)));
    box.select(1000, 5);
    EXPECT_EQ(selection(), (std::pair<DWORD, DWORD>(4, 4)));
}

TEST_F(TextBoxes, ALineCanBeTypedUpToTheLengthThatTheBoxIsMadeFor)
{
    box.setText(std::wstring(40'000, L'x'));
    box.select(40'000, 0);
    type(L'y');
    EXPECT_EQ(box.text().size(), 40'001U);
}

TEST_F(TextBoxes, ReportWhenTheyGetTheFocus)
{
    int times = 0;
    box.GotFocus = [&] { ++times; };
    other.setFocus();
    EXPECT_EQ(times, 0);
    box.setFocus();
    EXPECT_EQ(times, 1);
    EXPECT_TRUE(box.hasFocus());
    EXPECT_FALSE(other.hasFocus());
    other.setFocus();
    EXPECT_EQ(times, 1);
}

} // namespace
} // namespace vandrel::test
