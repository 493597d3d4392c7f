#pragma once

#include "platform/controls/list_rows.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Rows written as plain text, for the tests of lists.
namespace vandrel {

using Strings = std::array<std::wstring, ListRows::maxColumns>;
using Names = std::vector<std::wstring>;

inline constexpr std::size_t nameColumn = 0;
inline constexpr std::size_t urlColumn = 1;

inline void fill(ListRows& list, const std::vector<Strings>& texts)
{
    auto block = std::make_shared<std::wstring>();
    for (const Strings& row : texts) {
        for (const std::wstring& text : row) *block += text;
    }
    std::vector<ListRows::Row> rows;
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

inline ListRows filled(const std::vector<Strings>& texts)
{
    ListRows list;
    fill(list, texts);
    return list;
}

inline Names column(const ListRows& list, std::size_t number)
{
    Names texts;
    for (std::size_t row = 0; row < list.size(); ++row) texts.emplace_back(list.text(row, number));
    return texts;
}

inline Names names(const ListRows& list) { return column(list, nameColumn); }

} // namespace vandrel
