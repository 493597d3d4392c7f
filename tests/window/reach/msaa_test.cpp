#include "platform/base/com_pointer.h"
#include "platform/windows/ole_session.h"
#include "tests/window/reach/reach_test.h"

#include <oleacc.h>
#include <iostream>

namespace vandrel::test {
namespace {

// What the system answers a screen reader that asks for a window through Active Accessibility.
struct Answer {
    std::wstring name;
    long role = 0;
};

Answer answerOf(HWND window)
{
    Answer answer;
    void* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                          &object)))
        return answer;
    const ComPointer<IAccessible> accessible(static_cast<IAccessible*>(object));
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    if (accessible.get()->get_accName(self, &name) == S_OK && name != nullptr) answer.name = name;
    SysFreeString(name);
    VARIANT role{};
    if (accessible.get()->get_accRole(self, &role) == S_OK && role.vt == VT_I4) answer.role = role.lVal;
    return answer;
}

class Msaa : public ReachTest, public testing::WithParamInterface<Shown> {
    OleSession ole_;
};

TEST_P(Msaa, SaysTheNameOfEachControlAndThatBoxesAreForText)
{
    in(GetParam(), [](HWND window) {
        int asked = 0;
        for (const HWND control : visibleWithin(window)) {
            const std::wstring kind = classOf(control);
            // Wine says what is chosen in these; Windows says the label before them.
            if (kind == WC_LISTBOXW || kind == WC_COMBOBOXW) continue;
            const Answer answer = answerOf(control);
            EXPECT_EQ(answer.name, spokenName(control)) << testing::PrintToString(kind);
            if (kind == WC_EDITW) {
                EXPECT_EQ(answer.role, ROLE_SYSTEM_TEXT);
            }
            ++asked;
        }
        EXPECT_GT(asked, 0);
    });
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, Msaa, testing::ValuesIn(allShown));

} // namespace
} // namespace vandrel::test
