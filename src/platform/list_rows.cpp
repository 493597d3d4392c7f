#include "platform/list_rows.h"

#include "platform/text_sort.h"

#include <algorithm>
#include <utility>

namespace vandrel {

std::wstring_view ListRows::keep(std::wstring text)
{
    // A deque never moves its elements, so the views stay good.
    return text.empty() ? std::wstring_view{} : std::wstring_view(kept_.emplace_back(std::move(text)));
}

void ListRows::setText(std::size_t row, std::size_t column, std::wstring text)
{
    rows_[row].texts[column] = keep(std::move(text));
}

void ListRows::clear()
{
    rows_.clear();
    kept_.clear();
    block_.reset();
}

void ListRows::fill(std::shared_ptr<const void> block, std::vector<Row> rows)
{
    clear();
    sorted_ = false;
    rows_ = std::move(rows);
    block_ = std::move(block);
}

ListRows::Row ListRows::keptRow(std::array<std::wstring, maxColumns> texts, std::uint8_t image)
{
    Row row{{}, image, false, false};
    for (std::size_t column = 0; column < maxColumns; ++column)
        row.texts[column] = keep(std::move(texts[column]));
    return row;
}

std::size_t ListRows::add(std::array<std::wstring, maxColumns> texts, std::uint8_t image)
{
    const Row row = keptRow(std::move(texts), image);
    auto place = rows_.end();
    if (sorted_) {
        // Behind its equals, where a stable sort would put it.
        place = std::upper_bound(rows_.begin(), rows_.end(), row, [this](const Row& a, const Row& b) {
            const int order = a.texts[sortKey_].compare(b.texts[sortKey_]);
            return sortOrder_ == SortOrder::ascending ? order < 0 : order > 0;
        });
    }
    const auto inserted = rows_.insert(place, row);
    return static_cast<std::size_t>(inserted - rows_.begin());
}

void ListRows::insert(std::size_t row, std::array<std::wstring, maxColumns> texts, std::uint8_t image)
{
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row), keptRow(std::move(texts), image));
}

void ListRows::remove(std::size_t row) { rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row)); }

std::size_t ListRows::removeMarked()
{
    return std::erase_if(rows_, [](const Row& row) { return row.marked; });
}

bool ListRows::setSorted(bool on)
{
    sorted_ = on;
    return sort();
}

bool ListRows::setSortKey(std::size_t column)
{
    sortKey_ = column;
    return sort();
}

bool ListRows::setSortOrder(SortOrder order)
{
    sortOrder_ = order;
    return sort();
}

bool ListRows::sortBy(std::size_t column, SortOrder order)
{
    sortKey_ = column;
    sortOrder_ = order;
    sorted_ = true;
    return sort();
}

bool ListRows::sort()
{
    if (!sorted_) return false;
    std::vector<std::wstring_view> keys(rows_.size());
    std::ranges::transform(rows_, keys.begin(), [this](const Row& row) { return row.texts[sortKey_]; });
    const std::vector<std::uint32_t> order = sortedOrder(keys, sortOrder_ == SortOrder::descending);
    if (std::ranges::is_sorted(order)) return false;
    std::vector<Row> sorted(rows_.size());
    std::ranges::transform(order, sorted.begin(), [this](std::uint32_t index) { return rows_[index]; });
    rows_ = std::move(sorted);
    return true;
}

} // namespace vandrel
