#pragma once

#include "mainwindow/frm_main.h"
#include "tests/support/answers.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// The real main window in this process, with a data folder and preferences of its own.
class MainWindowTest : public testing::Test {
  protected:
    MainWindowTest();
    ~MainWindowTest() override;

    // Creates the window and loads it. Write category files and preferences first.
    void start(const std::wstring& commandLine = L"");
    // Closes it as the user does, so that the preferences are written.
    void stop();

    std::wstring preference(const std::wstring& section, const std::wstring& key) const;
    void setPreference(const std::wstring& section, const std::wstring& key, const std::wstring& text) const;

    ListView& lstCategory() { return main->workspace().lstCategory; }
    ListView& lstInfo() { return main->workspace().lstInfo; }
    RowTable& categoryRows() { return main->workspace().categories; }
    RowTable& siteRows() { return main->workspace().shown.sites; }
    // Selects the row, as a click on it does.
    void clickCategory(const std::wstring& title);
    std::vector<std::wstring> column(ListView& list, std::size_t column = 0);

    TempFolder folder;
    std::wstring today = L"11/16/2002";
    SettingsStore store;
    std::unique_ptr<frmMain> main;

  private:
    std::wstring application_;
};

} // namespace vandrel::test
