#include "tests/support/link_test.h"

namespace vandrel::test {
namespace {

class OpeningInANewWindow : public LinkTest {
  protected:
    void expectItCannotBeStarted()
    {
        Answers answers;
        expectErrorBox(answers, 53, L"File not found");
        choose(mnuOpenNew);
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(lstInfo().text(1, 3), L"10/1/2002");
        EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
        EXPECT_TRUE(recorder.nothingWasStarted());
    }
};

TEST_F(OpeningInANewWindow, StartsTheSystemsBrowserWithTheAddress)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", recorder.program());
    startWithSites();
    choose(mnuOpenNew);
    EXPECT_EQ(recorder.linesOf(1), Lines{recorder.program() + L" http://c.example/"});
}

TEST_F(OpeningInANewWindow, FindsABrowserWithBlanksInItsPathAndDoesNotQuoteTheAddress)
{
    const TempFolder programs(L"a browser");
    const std::wstring path = programs.file(L"my browser.exe");
    ASSERT_TRUE(CopyFileW(recorder.program().c_str(), path.c_str(), TRUE));
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", path);
    folder.write(L"Work.udb", "A|http://a/x y%20z \"q\"||\r\n");
    start();
    lstInfo().select(0);
    choose(mnuOpenNew);
    const Lines lines = recorder.linesOf(1);
    ASSERT_EQ(lines.size(), 1U);
    // Some systems put the quotes around the path that a program expects there.
    const std::wstring found = lines[0].starts_with(L'"') ? L"\"" + path + L"\"" : path;
    EXPECT_EQ(lines[0], found + L" http://a/x y%20z \"q\"");
}

TEST_F(OpeningInANewWindow, DatesTheSiteTodayAndSavesAtOnce)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", recorder.program());
    startWithSites();
    choose(mnuOpenNew);
    EXPECT_EQ(lstInfo().text(1, 3), L"11/16/2002");
    EXPECT_EQ(folder.read(L"Work.udb"), threeSitesWithTheSecondOpened());
    EXPECT_EQ(lstInfo().currentRow(), 1U);
}

TEST_F(OpeningInANewWindow, WithoutABrowserRaisesAnErrorAndChangesNothing)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", std::nullopt);
    startWithSites();
    expectItCannotBeStarted();
}

TEST_F(OpeningInANewWindow, WithAnEmptyBrowserPathRaisesAnErrorAndChangesNothing)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", L"");
    startWithSites();
    expectItCannotBeStarted();
}

TEST_F(OpeningInANewWindow, WithAWrongBrowserPathRaisesAnErrorAndChangesNothing)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", folder.file(L"no browser.exe"));
    startWithSites();
    expectItCannotBeStarted();
}

TEST_F(OpeningInANewWindow, WithNoneSelectedDoesNothing)
{
    const RegistryValue browser(HKEY_LOCAL_MACHINE, browserKey, L"", recorder.program());
    startWithSites();
    lstInfo().clearSelection();
    Answers none;
    main->run(mnuOpenNew);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

} // namespace
} // namespace vandrel::test
