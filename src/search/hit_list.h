#pragma once

#include "model/row_table.h"

namespace vandrel {

// The hits of a search in one category until they are shown as rows: name, URL, category, description.
class HitList {
  public:
    // `sites` owns the texts of the rows that will be added: `size` UTF-16 units in all.
    HitList(std::wstring category, std::shared_ptr<const void> sites, std::size_t size);

    void add(const RowTable::Row& site);
    bool empty() const { return rows_.empty(); }
    // Takes the hits out. They share the category's whole text if more than a quarter of it is theirs, and
    // otherwise get a copy of their own: one hit must not hold on to megabytes.
    RowTable::Block take();

  private:
    // Each makes result rows of the hits and returns what owns their texts.
    std::shared_ptr<const void> copyTexts();
    std::shared_ptr<const void> shareTexts();

    std::wstring category_;
    std::shared_ptr<const void> sites_;
    std::size_t size_;
    std::size_t units_ = 0; // of the texts of the hits
    std::vector<RowTable::Row> rows_;
};

} // namespace vandrel
