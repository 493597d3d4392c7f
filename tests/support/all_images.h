#pragma once

#include "model/row_table.h"

namespace vandrel::test {

inline void setAllImages(RowTable& rows, int image)
{
    for (std::size_t row = 0; row < rows.size(); ++row) rows.setImage(row, image);
}

} // namespace vandrel::test
