#pragma once

#include "model/row_table.h"
#include "model/text_memory.h"
#include "search/site_match.h"

#include <memory>
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

    bool empty() const { return rows_.empty(); }
    // Takes the hits out. They share the memory of their texts with those that follow.
    RowTable::Block take();

  private:
    std::shared_ptr<TextMemory> texts_;
    RowTexts category_; // the title alone, in texts_
    std::vector<RowTable::Row> rows_;
};

} // namespace vandrel
