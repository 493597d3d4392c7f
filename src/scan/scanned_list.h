#pragma once

#include "model/row_table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vandrel {

struct Workspace;

// What tells a site in a list that was read again. The date does not: opening a site changes it.
struct ScannedTexts {
    std::wstring name;
    std::wstring url;
    std::wstring description;

    bool operator==(const ScannedTexts&) const = default;
};

// A site that is checked.
struct ScannedSite {
    RowTable::Id id;
    ScannedTexts texts;
};

// The sites of the list as it was when a scan began, and the way from each of them to its picture in what the
// list is by now. Whatever the user shows, loads or removes meanwhile, no site is lost and no other gets its
// mark.
class ScannedList {
  public:
    enum class Which { all, selected };
    // Takes down the texts of every site, in memory of its own.
    ScannedList(const Workspace& workspace, Which which);
    ScannedList(const ScannedList&) = delete;
    ScannedList& operator=(const ScannedList&) = delete;

    std::size_t size() const { return sites_.size(); }
    // The site with that number, from 0, to be checked now: as it stands in the list, and as it was at the
    // beginning when it does not stand there any more. Nothing when only the selected ones are asked for and
    // it is none of them.
    std::optional<ScannedSite> next(std::size_t number);

    // The picture of that site, where the list shows it.
    void setImage(const ScannedSite& site, int image);
    // That of the current site, as long as the list shows the sites that are scanned. A list that was read
    // again has none until the user selects one; then it is the one that was current before.
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
    std::unordered_multimap<std::wstring_view, std::size_t> rowsByUrl_; // of a list that was read again
};

} // namespace vandrel
