#include "shared/vendor.h"
#include "tests/support/name_keeper.h"
#include "tests/support/registered_class.h"
#include "tests/window/reach/reach_test.h"

namespace vandrel::test {
namespace {

// Every visible control by its kind and name, except labels, frames and panels. The splitter bar has no
// name because it is for the mouse only; the status bar's is told to readers alone.
const std::map<Shown, Names> names{
    {Shown::mainWindow,
     {L"Button: Quick Search", L"ComboBox: Quick Search", L"SysListView32: Categories",
      L"SysListView32: Sites", L"ToolbarWindow32: Toolbar", L"Vandrel.SplitterBar: ",
      L"msctls_statusbar32: "}},
    {Shown::siteEditor,
     {L"Button: ...", L"Button: Cancel", L"Button: OK", L"Edit: Description:", L"Edit: Site Name:",
      L"Edit: Site URL:"}},
    {Shown::properties, {L"Button: OK", L"Edit: Description:", L"Edit: Name:", L"Static: http://b.example/"}},
    {Shown::import,
     {L"Button: Cancel", L"Button: Import", L"Button: Import All", L"ComboBox: Drive:", L"ListBox: Files:",
      L"ListBox: Folders:"}},
    {Shown::search,
     {L"Button: All Sections", L"Button: Case Sensitive", L"Button: Close", L"Button: Description only",
      L"Button: Name Only", L"Button: Search", L"Button: URL Only", L"Edit: Search Term:",
      L"SysListView32: Search Results", L"msctls_statusbar32: "}},
    {Shown::options,
     {L"Button: Bold", L"Button: Cancel", L"Button: Font Color...", L"Button: Italic", L"Button: OK",
      L"ComboBox: Font Size:", L"ListBox: Overall Font Name:", L"SysTabControl32: Pages",
      L"Vandrel.PictureBox: Font Color", L"Vandrel.PictureBox: Sample"}},
    {Shown::htmlOptions,
     {L"Button: Cancel", L"Button: Generate Empty Categories", L"Button: OK", L"ComboBox: Border:",
      L"ComboBox: Width:", L"ListBox: HTML Font Name:", L"SysTabControl32: Pages"}},
    {Shown::about,
     {L"Button: OK", L"Static: " + makersEmail, L"Static: " + makersSite.substr(makersSite.find(L"www")),
      L"SysTabControl32: Pages", L"Vandrel.PictureBox: Vandrel's logo"}},
    {Shown::inputBox,
     {L"Button: Cancel", L"Button: OK", L"Edit: Please enter a title for the new category."}},
};

class SpokenNames : public ReachTest, public testing::WithParamInterface<Shown> {
  protected:
    static Names namesOf(HWND window)
    {
        Names all;
        for (const HWND control : visibleWithin(window)) {
            if (isLabel(control) || isFrame(control) || isPanel(control)) continue;
            all.push_back(classOf(control) + L": " + spokenName(control));
        }
        std::ranges::sort(all);
        return all;
    }
};

TEST_P(SpokenNames, AreThoseOfTheTable)
{
    in(GetParam(), [](HWND window) { EXPECT_EQ(namesOf(window), names.at(GetParam())); });
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, SpokenNames, testing::ValuesIn(allShown));

class SpokenNamesOfHidden : public ReachTest {};

TEST_F(SpokenNamesOfHidden, ProgressBarsAreNamedBeforeTheyAppear)
{
    for (const Shown shown : {Shown::mainWindow, Shown::import}) {
        in(shown, [](HWND window) {
            HWND bar = FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr);
            if (bar == nullptr) { // it is inside the status bar
                const HWND status = FindWindowExW(window, nullptr, STATUSCLASSNAMEW, nullptr);
                bar = FindWindowExW(status, nullptr, PROGRESS_CLASSW, nullptr);
            }
            ASSERT_NE(bar, nullptr);
            EXPECT_FALSE(IsWindowVisible(bar));
            EXPECT_EQ(spokenName(bar), L"Progress");
        });
    }
}

TEST_F(SpokenNamesOfHidden, EachColumnOfAListHasAHeading)
{
    for (const Shown shown : {Shown::mainWindow, Shown::search}) {
        in(shown, [](HWND window) {
            for (const HWND list : visibleWithin(window)) {
                if (classOf(list) != WC_LISTVIEWW) continue;
                std::array<wchar_t, 64> heading{};
                LVCOLUMNW column{};
                column.mask = LVCF_TEXT;
                column.pszText = heading.data();
                column.cchTextMax = static_cast<int>(heading.size());
                WPARAM columns = 0;
                while (SendMessageW(list, LVM_GETCOLUMNW, columns, reinterpret_cast<LPARAM>(&column)) != 0) {
                    EXPECT_STRNE(heading.data(), L"") << columns;
                    ++columns;
                }
                EXPECT_EQ(columns, spokenName(list) == L"Categories" ? 1U : 4U);
            }
        });
    }
}

// In force before the main window is made.
struct KeptNames {
    NameKeeper keeper;
    RegisteredClass registered{CLSID_AccPropServices, &keeper};

    Names sorted() const
    {
        Names all;
        for (const auto& [window, name] : keeper.names) all.push_back(name);
        std::ranges::sort(all);
        return all;
    }
};

class NamesToldToReaders : protected KeptNames, public ReachTest {};

TEST_F(NamesToldToReaders, AreThoseOfListsAndBars)
{
    const Names own{L"Categories", L"Progress", L"Sites", L"Status", L"Toolbar"};
    SendMessageW(main->handle(), WM_TIMER, 1, 0); // they come with the first tick, after the first painting
    EXPECT_EQ(sorted(), own);
    in(Shown::search, [&](HWND window) {
        const HWND bar = FindWindowExW(window, nullptr, STATUSCLASSNAMEW, nullptr);
        EXPECT_EQ(keeper.names[bar], L"Status");
        EXPECT_EQ(keeper.names[GetDlgItem(window, 107)], L"Search Results");
        EXPECT_EQ(keeper.names.size(), own.size() + 2);
    });
    in(Shown::options, [&](HWND) { EXPECT_EQ(std::ranges::count(sorted(), L"Pages"), 1); });
    MessageLoop::current().rest();
    EXPECT_EQ(sorted(), own);
}

} // namespace
} // namespace vandrel::test
