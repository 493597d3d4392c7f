#pragma once

#include "model/row_table.h"

#include <span>
#include <string_view>

namespace vandrel {

// The text of a category file, every line with its end, piece by piece. What lies together in memory is one
// piece, separators included: sites that were read from a file and still stand in its order are taken as a
// whole, not field by field. The pieces look into the texts of the rows, which must stay as they are
// meanwhile.
class SiteLines {
  public:
    explicit SiteLines(std::span<const RowTable::Row> rows) : rows_(rows) {}

    // Empty when there is none any more.
    std::wstring_view next();

  private:
    std::wstring_view takeRun();

    std::span<const RowTable::Row> rows_;
    std::size_t field_ = 0;       // of the first row, the next one to be taken
    std::wstring_view separator_; // behind what was taken, when it does not stand there in memory
};

} // namespace vandrel
