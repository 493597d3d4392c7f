#pragma once

#include "model/row_table.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Rows written as plain text, for the tests of lists.
namespace vandrel {

using Strings = std::array<std::wstring, RowTable::maxColumns>;
using Names = std::vector<std::wstring>;

inline constexpr std::size_t nameColumn = 0;
inline constexpr std::size_t urlColumn = 1;

inline void fill(RowTable& list, const std::vector<Strings>& texts)
{
    auto block = std::make_shared<std::wstring>();
    for (const Strings& row : texts) {
        for (const std::wstring& text : row) *block += text;
    }
    std::vector<RowTable::Row> rows;
    std::wstring_view rest = *block;
    for (const Strings& row : texts) {
        auto& added = rows.emplace_back();
        for (std::size_t column = 0; column < row.size(); ++column) {
            added.texts[column] = rest.substr(0, row[column].size());
            rest.remove_prefix(row[column].size());
        }
    }
    list.fill(std::move(block), std::move(rows));
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
