#pragma once

#include "model/row_table.h"
#include "model/site_columns.h"

#include <string>

namespace vandrel {

// A copy of a site's texts, which stays valid whatever becomes of the row.
struct Site {
    std::wstring name;
    std::wstring url;
    std::wstring description;
    std::wstring date;
};

inline Site siteAt(const RowTable& sites, std::size_t row)
{
    const RowTexts& texts = sites[row].texts;
    return {std::wstring(texts[nameColumn]), std::wstring(texts[urlColumn]),
            std::wstring(texts[descriptionColumn]), std::wstring(texts[dateColumn])};
}

} // namespace vandrel
