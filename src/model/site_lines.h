#pragma once

#include "model/row_table.h"

#include <span>

namespace vandrel {

// The text of a category file, line ends included, piece by piece. What is contiguous in memory is one
// piece, separators included: a site whose fields are all there, and sites read from a file that are still in
// its order. The pieces are views of the rows' texts, which must not change meanwhile.
class SiteLines {
  public:
    explicit SiteLines(std::span<const RowTable::Row> rows) : rows_(rows) {}

    // Empty at the end.
    CompactText next();

  private:
    CompactText piece() const;
    void passPiece();
    CompactText takeRun();

    std::span<const RowTable::Row> rows_;
    std::size_t field_ = 0; // of the first row, to be taken next
    CompactText separator_; // due after what was taken, unless it follows in memory
};

} // namespace vandrel
