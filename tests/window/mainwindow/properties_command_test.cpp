#include "platform/windows/topmost.h"
#include "tests/support/link_test.h"

namespace vandrel::test {
namespace {

class PropertiesCommand : public LinkTest {};

TEST_F(PropertiesCommand, ShowsTheCurrentSitesTexts)
{
    startWithSites();
    Answers answers;
    answers.expect(L"Alpha's Properties", [](HWND dialog) {
        for (const wchar_t* const text : {L"Alpha", L"http://c.example/", L"10-01-2002", L"first"}) {
            EXPECT_NE(childWithText(dialog, text), nullptr) << std::wstring(text);
        }
        press(dialog, IDOK);
    });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    const PropertiesHandOff& shown = workspace().properties;
    EXPECT_EQ(shown.PropSiteName, L"Alpha");
    EXPECT_EQ(shown.PropSiteURL, L"http://c.example/");
    EXPECT_EQ(shown.PropSiteDate, L"10/1/2002");
    EXPECT_EQ(shown.PropSiteDesc, L"first");
}

TEST_F(PropertiesCommand, ShowsEachSiteAfresh)
{
    startWithSites();
    Answers answers;
    for (const auto& [row, caption] :
         {std::pair{0U, L"Beta's Properties"}, std::pair{2U, L"Gamma's Properties"}}) {
        answers.expect(caption, [](HWND dialog) { press(dialog, IDOK); });
        lstInfo().select(row);
        choose(mnuProperties);
    }
    EXPECT_ANSWERED(answers);
}

TEST_F(PropertiesCommand, ItsDialogKeepsTheMainWindowFromTakingInput)
{
    startWithSites();
    Answers answers;
    answers.expect(L"Alpha's Properties", [&](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), main->handle());
        EXPECT_FALSE(IsWindowEnabled(main->handle()));
        press(dialog, IDOK);
    });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(IsWindowEnabled(main->handle()));
}

TEST_F(PropertiesCommand, ChangesNothing)
{
    startWithSites();
    Answers answers;
    answers.expect(L"Alpha's Properties", [](HWND dialog) {
        for (HWND box = nullptr; (box = FindWindowExW(dialog, box, L"Edit", nullptr)) != nullptr;) {
            SendMessageW(box, EM_SETSEL, 0, -1);
            SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"typed"));
            EXPECT_EQ(windowText(box), L"typed");
        }
        press(dialog, IDOK);
    });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(sites(),
              (Lines{L"Beta|http://b.example/|second|9/30/2002", L"Alpha|http://c.example/|first|10/1/2002",
                     L"Gamma|http://a.example/|third|1/15/2003"}));
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
}

TEST_F(PropertiesCommand, ItsDialogDoesNotUseTheDisplayFont)
{
    startWithSites();
    workspace().options.font.name = L"Times New Roman";
    workspace().options.font.size = 24;
    LOGFONTW used{};
    Answers answers;
    answers.expect(L"Alpha's Properties", [&](HWND dialog) {
        const HWND label = childWithText(dialog, L"Description:");
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof used, &used);
        press(dialog, IDOK);
    });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(std::wstring(used.lfFaceName), L"Arial");
    EXPECT_EQ(used.lfHeight, -MulDiv(8, static_cast<int>(main->dpi()), 72));
}

TEST_F(PropertiesCommand, WithNoneSelectedShowsNothing)
{
    startWithSites();
    lstInfo().clearSelection();
    Answers none;
    main->run(mnuProperties);
    EXPECT_ANSWERED(none);
}

TEST_F(PropertiesCommand, ItsDialogIsInFrontOfAWindowThatIsKeptOnTop)
{
    setPreference(L"Config", L"KeepTop", L"1");
    startWithSites();
    ASSERT_TRUE(isTopmost(main->handle()));
    bool meanwhile = true;
    Answers answers;
    answers.expect(L"Alpha's Properties", [&](HWND dialog) {
        meanwhile = isTopmost(main->handle());
        press(dialog, IDOK);
    });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(meanwhile);
    EXPECT_TRUE(isTopmost(main->handle()));
}

TEST_F(PropertiesCommand, DoesNotMakeAWindowTopmostThatWasNot)
{
    startWithSites();
    Answers answers;
    answers.expect(L"Alpha's Properties", [](HWND dialog) { press(dialog, IDOK); });
    choose(mnuProperties);
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(isTopmost(main->handle()));
}

} // namespace
} // namespace vandrel::test
