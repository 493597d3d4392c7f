#pragma once

#include "tests/program/support/eventually.h"
#include "tests/program/support/program_driver.h"
#include "tests/program/support/program_files.h"
#include "tests/program/support/real_input.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// Vandrel.exe in a folder of its own, with no preferences set. When a test fails and the environment
// variable VANDREL_PICTURES names a folder, a picture of the screen is left there under the test's name.
class ProgramTest : public testing::Test {
  protected:
    ProgramTest();
    ~ProgramTest() override;
    void TearDown() override;

    void start(const std::wstring& commandLine = L"") { program.start(commandLine); }
    // Quits the program and starts it again, as a user does.
    void restart();

    static std::wstring preference(const std::wstring& section, const std::wstring& key);
    static void setPreference(const std::wstring& section, const std::wstring& key, const std::wstring& text);
    static void clearPreferences();

    // Today's date as the program writes it.
    static std::string today();
    // The names of the category files, sorted.
    Texts categoryFiles() const;

    TempFolder folder{L"vandrel program"};
    ProgramDriver program;
};

} // namespace vandrel::test
