#pragma once

#include "tests/support/row_block.h"

#include <string>
#include <utility>
#include <vector>

// Rows written as plain text, for the tests of lists.
namespace vandrel {

using Names = std::vector<std::wstring>;

inline constexpr std::size_t nameColumn = 0;
inline constexpr std::size_t urlColumn = 1;

inline void fill(RowTable& list, const std::vector<Strings>& texts)
{
    RowBlock block(texts);
    list.fill(std::move(block.text), std::move(block.rows));
}

inline RowTable filled(const std::vector<Strings>& texts)
{
    RowTable list;
    fill(list, texts);
    return list;
}

inline Names column(const RowTable& list, std::size_t number)
{
    Names texts;
    for (std::size_t row = 0; row < list.size(); ++row) texts.emplace_back(list.text(row, number));
    return texts;
}

inline Names names(const RowTable& list) { return column(list, nameColumn); }

} // namespace vandrel
