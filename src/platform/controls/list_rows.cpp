#include "platform/controls/list_rows.h"

#include "platform/text/text_sort.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vandrel {

std::wstring_view ListRows::keep(std::wstring text)
{
    // A deque never moves its elements, so the views stay good.
    return text.empty() ? std::wstring_view{} : std::wstring_view(kept_.emplace_back(std::move(text)));
}

void ListRows::setText(std::size_t row, std::size_t column, std::wstring text)
{
    useText(row, column, keep(std::move(text)));
}

void ListRows::useText(std::size_t row, std::size_t column, std::wstring_view kept)
{
    rows_[row].texts[column] = kept;
    if (column == sortKey_) inOrder_ = std::min(inOrder_, row);
}

void ListRows::setTexts(std::size_t row, std::array<std::wstring, maxColumns> texts)
{
    Texts kept;
    for (std::size_t column = 0; column < maxColumns; ++column) kept[column] = keep(std::move(texts[column]));
    rows_[row].texts = kept;
    inOrder_ = std::min(inOrder_, row);
}

std::optional<std::size_t> ListRows::rowOf(Id id) const
{
    const auto found = std::ranges::find(rows_, id, &Row::id);
    return found == rows_.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

void ListRows::clear()
{
    rows_ =
        std::vector<Row>(); // with its memory: a million rows must not stay because there were so many once
    kept_.clear();
    blocks_.clear();
    inOrder_ = 0;
}

void ListRows::fill(std::shared_ptr<const void> block, std::vector<Row> rows)
{
    std::vector<std::shared_ptr<const void>> blocks{std::move(block)}; // before anything is given up
    clear();
    sorted_ = false;
    rows_ = std::move(rows);
    identify(rows_);
    blocks_ = std::move(blocks);
}

void ListRows::identify(std::span<Row> rows)
{
    for (Row& row : rows) row.id = ++lastId_;
}

void ListRows::append(std::shared_ptr<const void> block, std::span<const Row> rows)
{
    blocks_.push_back(std::move(block)); // first, so that no row is without its texts
    rows_.insert(rows_.end(), rows.begin(), rows.end());
    identify(std::span(rows_).last(rows.size()));
}

ListRows::Row ListRows::keptRow(std::array<std::wstring, maxColumns> texts, std::uint8_t image)
{
    Row row{{}, image, false, false, ++lastId_};
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
        place = std::upper_bound(rows_.begin(), rows_.end(), row,
                                 [this](const Row& a, const Row& b) { return comesBefore(a, b); });
    }
    const auto index = static_cast<std::size_t>(place - rows_.begin());
    rows_.insert(place, row);
    if (sorted_ && index <= inOrder_) ++inOrder_;
    return index;
}

void ListRows::insert(std::size_t row, std::array<std::wstring, maxColumns> texts, std::uint8_t image)
{
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row), keptRow(std::move(texts), image));
    inOrder_ = std::min(inOrder_, row);
}

void ListRows::remove(std::size_t row)
{
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    if (row < inOrder_) --inOrder_;
}

std::optional<std::size_t> ListRows::firstMarked() const
{
    const auto found = std::ranges::find(rows_, true, &Row::marked);
    return found == rows_.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

std::size_t ListRows::removeMarked()
{
    const bool allInOrder = inOrder_ == rows_.size();
    const std::size_t removed = std::erase_if(rows_, [](const Row& row) { return row.marked; });
    inOrder_ = allInOrder ? rows_.size() : 0;
    return removed;
}

bool ListRows::setSorted(bool on) { return arrange(on, sortKey_, sortOrder_); }

bool ListRows::setSortKey(std::size_t column) { return arrange(sorted_, column, sortOrder_); }

bool ListRows::setSortOrder(SortOrder order) { return arrange(sorted_, sortKey_, order); }

bool ListRows::sortBy(std::size_t column, SortOrder order) { return arrange(true, column, order); }

// A sort that fails leaves nothing behind, or the next one would take the rows for sorted.
bool ListRows::arrange(bool on, std::size_t key, SortOrder order)
{
    const auto before = std::tuple(sorted_, sortKey_, sortOrder_, inOrder_);
    if (key != sortKey_ || order != sortOrder_) inOrder_ = 0;
    std::tie(sorted_, sortKey_, sortOrder_) = std::tuple(on, key, order);
    try {
        return sort();
    } catch (...) {
        std::tie(sorted_, sortKey_, sortOrder_, inOrder_) = before;
        throw;
    }
}

bool ListRows::comesBefore(const Row& a, const Row& b) const
{
    const int order = a.texts[sortKey_].compare(b.texts[sortKey_]);
    return sortOrder_ == SortOrder::ascending ? order < 0 : order > 0;
}

bool ListRows::sort()
{
    if (!sorted_) return false;
    const auto before = [this](const Row& a, const Row& b) { return comesBefore(a, b); };
    const auto known = rows_.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(inOrder_, 1) - 1);
    const auto end = std::is_sorted_until(known, rows_.end(), before);
    inOrder_ = rows_.size();
    if (end == rows_.end()) return false;
    if (end + 1 == rows_.end()) {
        // One row added to others in order: it goes behind its equals, where a stable sort would put it.
        std::rotate(std::upper_bound(rows_.begin(), end, *end, before), end, rows_.end());
        return true;
    }
    std::vector<std::wstring_view> keys(rows_.size());
    std::ranges::transform(rows_, keys.begin(), [this](const Row& row) { return row.texts[sortKey_]; });
    const std::vector<std::uint32_t> order = sortedOrder(keys, sortOrder_ == SortOrder::descending);
    std::vector<Row> sorted(rows_.size());
    std::ranges::transform(order, sorted.begin(), [this](std::uint32_t index) { return rows_[index]; });
    rows_ = std::move(sorted);
    return true;
}

} // namespace vandrel
