#pragma once

#include "model/row_table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vandrel {

struct Workspace;

// What identifies a site in a list that was read again. Not the date: opening a site changes it.
struct ScannedTexts {
    std::wstring name;
    std::wstring url;
    std::wstring description;

    bool operator==(const ScannedTexts&) const = default;
};

// A site to be checked.
struct ScannedSite {
    RowTable::Id id;
    ScannedTexts texts;
};

// The sites of the list as it was when a scan began, and the way from each to its picture in the list as it
// is now. Whatever the user shows, loads or removes meanwhile, no site is lost and none gets another's
// mark.
class ScannedList {
  public:
    enum class Which { all, selected };
    // Copies the texts of every site.
    ScannedList(const Workspace& workspace, Which which);
    ScannedList(const ScannedList&) = delete;
    ScannedList& operator=(const ScannedList&) = delete;

    std::size_t size() const { return sites_.size(); }
    // The site with that number, from 0, to be checked now: as it is in the list or, if it has gone, as it
    // was at the beginning. None if only selected sites are wanted and it is not selected.
    std::optional<ScannedSite> next(std::size_t number);
    // The address that `next` would return at this moment.
    std::optional<std::wstring> addressToCome(std::size_t number);

    // Sets the picture of that site, if the list shows it.
    void setImage(const ScannedSite& site, int image);
    // Sets the picture of the current site, as long as the list shows the sites that are scanned. A list
    // that was read again has no current site until the user selects one; until then it is the one that was
    // current before.
    void setImageOfCurrent(const ScannedSite& site, int image);

  private:
    struct Site {
        RowTable::Id id;
        bool selected;
        RowTable::Texts texts; // in texts_
    };
    void takeDown(Which which);
    void rememberCurrent();
    bool isReadAgain() const;
    void index();
    std::optional<std::size_t> rowOf(RowTable::Id id);
    bool isWanted(const Site& site, std::optional<std::size_t> row) const;
    std::vector<std::size_t> rowsOf(const ScannedTexts& texts);
    ScannedTexts textsAt(std::size_t row) const;

    const Workspace& workspace_;
    const bool selectedOnly_;
    const RowTable::Id category_; // of its row in the category list
    const unsigned filling_;      // of the table at the beginning
    std::wstring texts_;
    std::vector<Site> sites_;
    std::optional<ScannedTexts> current_;

    unsigned changes_ = 0; // of the list, when the rows below were looked up
    std::unordered_map<RowTable::Id, std::size_t> rowsById_;
    // By the hash of the address; of a list that was read again.
    std::unordered_multimap<std::size_t, std::size_t> rowsByUrl_;
};

} // namespace vandrel
