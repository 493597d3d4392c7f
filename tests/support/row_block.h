#pragma once

#include "model/row_table.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace vandrel {

using Strings = std::array<std::wstring, RowTable::maxColumns>;

// Rows of these texts, and the memory that the rows are views of.
struct RowBlock {
    explicit RowBlock(const std::vector<Strings>& lines)
    {
        for (const Strings& line : lines) rows.push_back({RowTexts::written(viewsOf(line), *text)});
    }
    static RowTexts::Views viewsOf(const Strings& line) { return {line[0], line[1], line[2], line[3]}; }

    std::shared_ptr<TextMemory> text = std::make_shared<TextMemory>();
    std::vector<RowTable::Row> rows;
};

} // namespace vandrel
