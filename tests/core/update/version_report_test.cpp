#include "update/version_report.h"

#include <gtest/gtest.h>

#include <regex>

namespace vandrel {
namespace {

TEST(VersionReport, TheRunningVersionIsThreeDecimalNumbersWithoutPadding)
{
    const std::wregex form(L"(0|[1-9][0-9]*)\\.(0|[1-9][0-9]*)\\.(0|[1-9][0-9]*)");
    EXPECT_TRUE(std::regex_match(runningVersion(), form)) << testing::PrintToString(runningVersion());
}

TEST(VersionReport, TheCurrentVersionNeedsNoUpdate)
{
    EXPECT_STREQ(noUpdateTitle, L"No update available");
    EXPECT_EQ(noUpdateText(L"1.3.0"),
              L"You have the current version of Vandrel, which is 1.3.0. No update is necessary.");
}

TEST(VersionReport, AnotherVersionIsOfferedWithBothNumbers)
{
    EXPECT_STREQ(newVersionTitle, L"New Version Available");
    EXPECT_EQ(newVersionText(L"1.3.0", L"1.10.2"),
              L"There is an update to this program.\r\n"
              L"You are running version 1.3.0. The latest version is 1.10.2\r\n"
              L"\r\n"
              L"Would you like to download the update?");
}

TEST(VersionReport, TheOtherVersionIsShownAsItWasReceived)
{
    EXPECT_EQ(newVersionText(L"1.3.0", L"1.3.0\r\n"),
              L"There is an update to this program.\r\n"
              L"You are running version 1.3.0. The latest version is 1.3.0\r\n"
              L"\r\n"
              L"\r\n"
              L"Would you like to download the update?");
    EXPECT_EQ(newVersionText(L"1.3.0", L""), L"There is an update to this program.\r\n"
                                             L"You are running version 1.3.0. The latest version is \r\n"
                                             L"\r\n"
                                             L"Would you like to download the update?");
}

TEST(VersionReport, DecliningShowsWhereToFindItLater)
{
    EXPECT_STREQ(declinedTitle, L"Failed to update");
    EXPECT_EQ(declinedText(), L"You have chosen not to update this program. Just choose Check For Updates\r\n"
                              L"from the Help menu if you ever need to update in the future.");
}

} // namespace
} // namespace vandrel
