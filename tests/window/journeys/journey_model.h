#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vandrel::test {

// A window that is expected to come up, and what the user does with it.
struct Reply {
    enum class Button { ok, cancel, yes, no, all };
    std::wstring caption;
    std::wstring text; // of a message box; empty for a dialog
    Button button = Button::ok;
    std::vector<std::wstring> typed; // one text for the input box, three for the site editor
};

using ModelSite = std::array<std::wstring, 4>; // name, URL, description, date
using ModelSites = std::vector<ModelSite>;

// What the program should do, written a second time and as simply as possible: lists are vectors, and a file
// is its sites. Nothing here uses the program's own code.
//
// Each command takes the answers that the user will give, and leaves the windows that should come up in
// `replies` and the state that should follow.
class JourneyModel {
  public:
    // ---- the disk
    std::map<std::wstring, ModelSites> files; // by title, without those that have been removed
    std::set<std::wstring> readOnly;          // titles
    // ---- the window
    std::vector<std::wstring> categories;
    std::vector<std::wstring> moveEntries;
    std::optional<std::size_t> shown;
    ModelSites list;
    std::set<std::wstring> dead; // URLs of the list's sites that have the dead link's picture
    std::vector<std::wstring> scanLog;
    bool unsaved = false;
    std::wstring caption = L"Vandrel";
    std::size_t focusedCategory = 0; // taken from the window
    std::vector<Reply> replies;

    std::wstring today;
    // The user's answers: a title for "Category Name" (none: cancelled), and Yes or No to questions about
    // unsaved sites.
    std::optional<std::wstring> titleAnswer;
    bool yes = true;

    void start();
    void clickCategory(std::size_t row);
    void addSite(const std::array<std::wstring, 3>& texts);
    void dropLink(const std::wstring& text); // the editor is confirmed without changes
    void editSite(std::size_t row, const std::array<std::wstring, 3>& texts);
    void openSite(std::size_t row);
    void removeSites(const std::set<std::size_t>& rows);
    void moveSite(std::size_t row, std::size_t entry);
    void sortSites(std::size_t column);
    void sortCategories();
    void addCategory();
    void renameCategory(const std::wstring& title);
    void removeCategory();
    void importAll(const std::vector<std::pair<std::wstring, std::wstring>>& shortcuts); // names and URLs
    void searchAll();
    void pageOfAll();
    void pageOfShown();
    // Sites on the test's server answer; no others do.
    void scanAll();
    void scanSite(std::size_t row);
    void exportSite(const std::wstring& file);
    void backUp();
    void checkUpdates(const std::wstring& version);
    void showProperties(std::size_t row);
    // Another program has the shown category's file open.
    void addSiteWhileHeld(const std::array<std::wstring, 3>& texts);
    // The program is closed and started again.
    void restart();

  private:
    enum class Saved { yes, notMade, failed };
    Saved save();
    void saveOrTell();
    bool leave();
    void show(std::size_t row);
    Saved insertAndSave(ModelSite site);
    bool makeCategory(); // from the user's answer
    void rebuildMoveEntries() { moveEntries = categories; }
    void expect(std::wstring title, std::wstring text, Reply::Button button);
    void expectError(int number, const std::wstring& description);
    bool check(const ModelSite& site);
    std::size_t placeFor(const ModelSite& site) const;

    std::wstring newDescription_; // of the last site that was added; importing all files reuses it
    bool held_ = false;           // another program has the shown category's file open
    bool sorted_ = false;
    bool descending_ = false;
    std::size_t key_ = 0;
    bool categoriesSorted_ = false;
    bool categoriesDescending_ = false;
};

} // namespace vandrel::test
