#include "tests/support/own_process.h"
#include "tests/window/endurance/endurance_test.h"

#include <cstdio>
#include <memory>

namespace vandrel::test {
namespace {

struct Opening;

class DialogEndurance : public EnduranceTest {
  protected:
    static constexpr const wchar_t* chosenOpening = L"VANDREL_OPENING";

    // Removes the site again, so that the program holds the same after each round.
    void addAndRemove()
    {
        open(mnuAddWebsite, typeSite(L"Added", L"zzz://last.example/", L"by the test"));
        ASSERT_EQ(lstInfo().count(), 3U);
        lstInfo().select(2);
        open(mnuRemoveWebsite, pressing(IDYES));
        ASSERT_EQ(lstInfo().count(), 2U);
    }
    void edit()
    {
        lstInfo().select(1);
        open(mnuEditSel, typeSite(L"Edited", L"http://sky.example/daily", L"by the test"));
        ASSERT_EQ(lstInfo().text(1), L"Edited");
    }
    void cancelEditor() { open(mnuAddWebsite, pressing(IDCANCEL)); }
    void denyQuestion()
    {
        lstInfo().select(0);
        open(mnuRemoveWebsite, pressing(IDNO));
    }
    void properties()
    {
        lstInfo().select(0);
        open(mnuProperties, pressing(IDOK));
    }
    void cancelImport() { open(mnuImport, pressing(IDCANCEL)); }
    void cancelInputBox() { open(mnuAddCategory, pressing(IDCANCEL)); }
    void takeOptions() { open(mnuOptions, pressing(IDOK)); }
    void cancelOptions() { open(mnuOptions, pressing(IDCANCEL)); }
    // The two modeless windows are gone once messages have been dispatched.
    void openSearch()
    {
        SearchTest::open();
        press(dialog(), IDCANCEL);
        ASSERT_TRUE(pumpUntil([this] { return main->searchWindow() == nullptr; }));
    }
    void about()
    {
        choose(mnuAbout);
        const HWND window = FindWindowW(nullptr, L"About Vandrel");
        ASSERT_NE(window, nullptr);
        press(window, IDOK);
        ASSERT_TRUE(pumpUntil([window] { return IsWindow(window) == 0; }));
    }

    void repeat(void (DialogEndurance::*round)())
    {
        startSmall();
        endure(rounds(2000), [&] { (this->*round)(); });
    }

    static const Opening openings[];
};

struct Opening {
    const wchar_t* name;
    void (DialogEndurance::*round)();
};

// The slow ones first, so that none runs on alone at the end.
const Opening DialogEndurance::openings[] = {
    {L"the editor that adds, and the question", &DialogEndurance::addAndRemove},
    {L"the options, taken", &DialogEndurance::takeOptions},
    {L"the options, cancelled", &DialogEndurance::cancelOptions},
    {L"the search window", &DialogEndurance::openSearch},
    {L"the import", &DialogEndurance::cancelImport},
    {L"the editor that edits", &DialogEndurance::edit},
    {L"the editor, cancelled", &DialogEndurance::cancelEditor},
    {L"the question, denied", &DialogEndurance::denyQuestion},
    {L"the properties", &DialogEndurance::properties},
    {L"the input box", &DialogEndurance::cancelInputBox},
    {L"about", &DialogEndurance::about},
};

TEST_F(DialogEndurance, LeavesNothingBehindWhenEachDialogIsOpenedAndClosedAgainAndAgain)
{
    if (const auto chosen = environmentText(chosenOpening)) {
        repeat(openings[std::stoul(*chosen)].round);
        return;
    }
    // Several at a time, because each spends most of its time waiting for the system.
    constexpr std::size_t atATime = 3;
    constexpr DWORD limit = 20 * 60 * 1000;
    std::unique_ptr<OwnProcess> runs[std::size(openings)];
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = std::string(test->test_suite_name()) + "." + test->name();
    std::size_t next = 0;
    std::vector<std::size_t> running;
    while (next < std::size(runs) || !running.empty()) {
        for (; next < std::size(runs) && running.size() < atATime; ++next) {
            runs[next] = std::make_unique<OwnProcess>(chosenOpening, std::to_wstring(next), filter);
            ASSERT_NE(runs[next]->handle(), nullptr);
            running.push_back(next);
        }
        std::vector<HANDLE> handles;
        for (const std::size_t run : running) handles.push_back(runs[run]->handle());
        const DWORD ended = WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE,
                                                   limit);
        ASSERT_LT(ended, WAIT_OBJECT_0 + handles.size()) << "they take too long";
        const std::size_t run = running[ended - WAIT_OBJECT_0];
        running.erase(running.begin() + static_cast<std::ptrdiff_t>(ended - WAIT_OBJECT_0));
        EXPECT_TRUE(runs[run]->succeeded())
            << testing::PrintToString(std::wstring(openings[run].name)) << "\n"
            << runs[run]->output();
        if (runs[run]->succeeded())
            std::printf("%ls: %s", openings[run].name, reportIn(runs[run]->output()).c_str());
    }
}

} // namespace
} // namespace vandrel::test
