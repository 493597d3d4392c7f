#include "tests/window/reach/reach_test.h"

namespace vandrel::test {
namespace {

using AccessKeys = std::map<wchar_t, std::wstring>; // by letter, the control that it leads to

// Records presses of buttons and keeps them from their parents, so that they do nothing.
class Presses {
  public:
    explicit Presses(HWND parent) : parent_(parent)
    {
        SetWindowSubclass(parent, proc, 3, reinterpret_cast<DWORD_PTR>(this));
    }
    Presses(const Presses&) = delete;
    Presses& operator=(const Presses&) = delete;
    ~Presses() { RemoveWindowSubclass(parent_, proc, 3); }

    HWND last = nullptr;

  private:
    static LRESULT CALLBACK proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR object)
    {
        const auto control = reinterpret_cast<HWND>(lParam);
        if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED || control == nullptr)
            return DefSubclassProc(window, message, wParam, lParam);
        reinterpret_cast<Presses*>(object)->last = control;
        return 0;
    }
    HWND parent_;
};

bool hasMarks(HWND control)
{
    const std::wstring kind = classOf(control);
    if (kind == WC_BUTTONW) return true;
    return kind == WC_STATICW && (GetWindowLongPtrW(control, GWL_STYLE) & SS_NOPREFIX) == 0;
}

// The access keys of all visible controls, in lower case.
std::vector<wchar_t> lettersOf(HWND window)
{
    std::vector<wchar_t> letters;
    for (const HWND control : visibleWithin(window)) {
        const std::wstring text = windowText(control);
        const std::size_t mark = text.find(L'&');
        if (hasMarks(control) && mark != std::wstring::npos && mark + 1 < text.size())
            letters.push_back(static_cast<wchar_t>(std::towlower(text[mark + 1])));
    }
    std::ranges::sort(letters);
    return letters;
}

const std::map<Shown, AccessKeys> accessKeys{
    {Shown::mainWindow, {}},
    {Shown::siteEditor, {}},
    {Shown::properties, {{L'o', L"OK"}}},
    {Shown::import,
     {{L'd', L"Drive:"}, {L'o', L"Folders:"}, {L'f', L"Files:"}, {L'i', L"Import"}, {L'a', L"Import All"}}},
    {Shown::search, {{L's', L"Search"}, {L'c', L"Close"}}},
    {Shown::options, {}},
    {Shown::htmlOptions, {}},
    {Shown::about, {}},
    {Shown::inputBox, {}},
};

class LettersWithAlt : public ReachTest, public testing::WithParamInterface<Shown> {};

TEST_P(LettersWithAlt, AreTheMarkedOnesAndEachBelongsToOneControl)
{
    std::vector<wchar_t> expected;
    for (const auto& [letter, name] : accessKeys.at(GetParam())) expected.push_back(letter);
    in(GetParam(), [&](HWND window) { EXPECT_EQ(lettersOf(window), expected); });
}

TEST_P(LettersWithAlt, LeadToTheirControlOrPressIt)
{
    in(GetParam(), [](HWND window) {
        for (const auto& [letter, name] : accessKeys.at(GetParam())) {
            SCOPED_TRACE(static_cast<char>(letter));
            // Start from a control that no letter leads to.
            SetFocus(window);
            Presses presses(window);
            PostMessageW(window, WM_SYSCHAR, letter, 0x20000001);
            MessageLoop::current().dispatchPending();
            const HWND reached = presses.last != nullptr ? presses.last : wholeControl(GetFocus());
            EXPECT_EQ(spokenName(reached), name);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, LettersWithAlt, testing::ValuesIn(allShown));

class EnterAndEsc : public ReachTest, public testing::WithParamInterface<Shown> {};

TEST_P(EnterAndEsc, EnterPressesTheDefaultButton)
{
    in(GetParam(), [](HWND window) {
        const LRESULT answer = SendMessageW(window, DM_GETDEFID, 0, 0);
        ASSERT_EQ(HIWORD(answer), DC_HASDEFID);
        const HWND button = GetDlgItem(window, LOWORD(answer));
        EXPECT_EQ(LOWORD(answer), IDOK);
        EXPECT_TRUE(IsWindowVisible(button));
        EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
    });
}

TEST_P(EnterAndEsc, EscClosesIt)
{
    in(
        GetParam(), [](HWND) { typeIn(GetFocus(), VK_ESCAPE); }, false);
}

INSTANTIATE_TEST_SUITE_P(EveryDialog, EnterAndEsc, testing::ValuesIn(allDialogs));

} // namespace
} // namespace vandrel::test
