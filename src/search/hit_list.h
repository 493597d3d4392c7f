#pragma once

#include "model/row_table.h"
#include "platform/text/single_bytes.h"
#include "search/byte_search.h"
#include "search/site_match.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// The hits of a search until they are shown as rows: name, URL, category, description. Their texts are
// copied into pieces of memory that grow as hits come, so that no hit holds on to the file that it is
// from.
class HitList {
  public:
    HitList();

    // The category of the hits that follow.
    void setCategory(std::wstring_view title);
    void add(const SiteTexts& site);

    // In two steps for a site that was not decoded yet: its texts but for the date, until the next call of
    // any function, and the hit that it proves to be.
    SiteTexts decode(const ByteSearch::Site& site, const CodePageLetters& letters);
    void addDecoded();

    bool empty() const { return rows_.empty(); }
    // Takes the hits out. They share the memory of their texts with those that follow.
    RowTable::Block take();

  private:
    struct Texts {
        std::vector<std::unique_ptr<wchar_t[]>> pieces;
    };
    wchar_t* room(std::size_t units);
    void addLine(const RowTexts& line);

    std::shared_ptr<Texts> texts_;
    wchar_t* free_ = nullptr; // of the last piece
    std::size_t freeUnits_ = 0;
    std::wstring category_;
    RowTexts decoded_;
    std::vector<RowTable::Row> rows_;
};

} // namespace vandrel
