#pragma once

#include "tests/program/support/day_surroundings.h"
#include "tests/program/support/shortcut_test.h"
#include "tests/support/test_server.h"

#include <map>

namespace vandrel::test {

// What differs from one day to another.
struct DayPlan {
    std::string pictures; // the beginning of its pictures' names
    std::wstring title = L"Newspapers";
    std::wstring otherTitle = L"Old favourites";
    std::wstring name = L"The Daily Paper";
    std::wstring description = L"News – every day";
    std::wstring category = L"Python"; // the one of the collection that is searched
    std::wstring quickTerm = L"anti-patterns";
    std::wstring quickName = L"The Little Book of Python Anti-Patterns";
    std::wstring term = L"anti-patterns"; // in all categories; small letters
    std::wstring fontSize = L"12";
    std::wstring dateForm = L"M/d/yyyy";
    int dpi = 96;
};

// A day with the program, from its first start in an empty folder to the next morning. It continues in a real
// collection that lies beside the project.
//
// When the environment variable VANDREL_PICTURES names a folder, each station leaves a picture of the screen
// there.
class Day : public ShortcutTest {
  protected:
    Day();
    // Skips the test when the collection is missing or the code page differs. Copies nothing yet.
    void requireCollection(const std::wstring& name, UINT codePage);
    void spend(const DayPlan& plan);

  private:
    // The stations, in order.
    void startForTheFirstTime();
    void makeCategories();
    void typeSite();
    void dropLink();
    void importShortcuts();
    void bringCollection();
    void startWithCollection();
    void searchCategoryAndOpen();
    void searchAllAndOpen();
    void scanLinks();
    void makePage();
    void backUp();
    void changeFont();
    void changeShape();
    void startNextDay();

    void picture(const char* name);
    void menu(WORD letter, WORD entry, WORD subEntry = 0) const;
    void dragColumnEdge(int column, LONG by) const;

    static std::string ansi(const std::wstring& text);
    std::wstring dated() const;
    Texts titlesOnDisk() const;
    std::map<std::wstring, std::string> bytesOnDisk() const;
    Texts sortedTitles() const;
    // The number of sites in one category file, and in all.
    std::size_t sitesIn(const std::wstring& title) const;
    std::size_t sitesInAll() const;
    int imageOf(int row) const;
    int rowHeight() const;
    std::vector<int> columnWidths() const;
    std::vector<LONG> place() const;
    static LONG widthOf(HWND window);
    static POINT middleOf(HWND window);

    DayPlan plan_;
    std::wstring collection_;
    int pictures_ = 0;
    std::size_t imported_ = 0;
    int found_ = 0; // the row of the site that was opened in plan_.category
    TestServer server_;
    BrowserStandIn browser_;
    TempFolder page_{L"page"};
    TempFolder backup_{L"backup"};
    // Where the folder browser begins.
    RegistryValue desktop_{HKEY_CURRENT_USER,
                           L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                           L"Desktop", backup_.path()};
};

} // namespace vandrel::test
