#pragma once

#include "mainwindow/menu_entries.h"
#include "tests/support/store_test.h"

namespace vandrel::test {

inline constexpr const wchar_t* invalidTitle = L"Invalid Category Title";
inline constexpr const wchar_t* refusedCharacters =
    L"The following characters are not allowed:\r\n          \\ / : * ? \" < > |";

inline Answers& expectTitle(Answers& answers, const std::wstring& title)
{
    return answers.expectInput(L"Category Name", L"Please enter a title for the new category.", title);
}

inline Answers& expectRefusal(Answers& answers)
{
    return answers.expectBox(invalidTitle, refusedCharacters, IDOK, MB_ICONHAND);
}

// The notice that there is no category for a site.
inline Answers& expectNoCategories(Answers& answers)
{
    return answers.expectBox(L"No Categories",
                             L"There are no categories. Please make a category before adding a site.", IDOK,
                             MB_ICONASTERISK);
}

} // namespace vandrel::test
