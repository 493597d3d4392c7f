#pragma once

#include "platform/controls/list_rows.h"

namespace vandrel {

// The hits of a search in one category until they are shown as rows: name, URL, category, description.
class HitList {
  public:
    struct Block {
        std::shared_ptr<const void> texts; // what the rows look into
        std::vector<ListRows::Row> rows;
    };

    // `sites` owns the texts of the rows that will be added, `size` units in all.
    HitList(std::wstring category, std::shared_ptr<const void> sites, std::size_t size);

    void add(const ListRows::Row& site);
    bool empty() const { return rows_.empty(); }
    // Takes the hits out. They keep the category's whole text when most of it is theirs, and else a copy of
    // their own: one hit must not hold on to megabytes.
    Block take();

  private:
    // Each makes result rows of the hits and returns what owns their texts.
    std::shared_ptr<const void> copyTexts();
    std::shared_ptr<const void> shareTexts();

    std::wstring category_;
    std::shared_ptr<const void> sites_;
    std::size_t size_;
    std::size_t units_ = 0; // of the texts of the hits
    std::vector<ListRows::Row> rows_;
};

} // namespace vandrel
