#include "model/row_table.h"

#include "platform/base/prefetch.h"
#include "platform/text/text_sort.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace vandrel {

// Tells the observer before and after a change.
class RowTable::Change {
  public:
    Change(RowTable& table, RowChange kind) : table_(table), kind_(kind)
    {
        if (table_.observer_ != nullptr) table_.observer_->rowsChanging(kind_);
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    ~Change()
    {
        ++table_.changes_;
        if (table_.observer_ != nullptr) table_.observer_->rowsChanged(kind_);
    }

  private:
    RowTable& table_;
    RowChange kind_;
};

RowTable::RowTable(RowTable&& other) noexcept
    : rows_(std::move(other.rows_)),
      kept_(std::move(other.kept_)),
      blocks_(std::move(other.blocks_)),
      lastId_(other.lastId_),
      sorted_(other.sorted_),
      sortKey_(other.sortKey_),
      sortOrder_(other.sortOrder_),
      inOrder_(std::exchange(other.inOrder_, 0))
{}

// ---- one row

void RowTable::tellOf(std::size_t row) const
{
    if (observer_ != nullptr) observer_->rowChanged(row);
}

CompactText RowTable::text(std::size_t row, std::size_t column) const
{
    return column < maxColumns ? rows_[row].texts[column] : CompactText();
}

void RowTable::setMark(std::size_t row, Mark mark)
{
    rows_[row].marked = mark.selected;
    rows_[row].current = mark.current;
}

std::optional<std::size_t> RowTable::lastMarked(std::size_t before) const
{
    for (std::size_t row = before; row-- > 0;) {
        if (rows_[row].marked || rows_[row].current) return row;
    }
    return std::nullopt;
}

RowTexts RowTable::keep(const Texts& texts)
{
    if (!kept_) kept_ = std::make_unique<TextMemory>();
    return RowTexts::written(texts, *kept_);
}

void RowTable::setText(std::size_t row, std::size_t column, const CompactText& text)
{
    Texts texts = rows_[row].texts.views();
    texts[column] = text;
    setTexts(row, texts);
}

void RowTable::setTexts(std::size_t row, const Texts& texts) { useTexts(row, keep(texts)); }

void RowTable::useTexts(std::size_t row, const RowTexts& kept)
{
    if (kept[sortKey_] != rows_[row].texts[sortKey_]) inOrder_ = std::min(inOrder_, row);
    rows_[row].texts = kept;
    tellOf(row);
}

void RowTable::setImage(std::size_t row, int image)
{
    if (rows_[row].image == image) return;
    rows_[row].image = static_cast<std::uint8_t>(image);
    tellOf(row);
}

std::optional<std::size_t> RowTable::rowOf(Id id) const
{
    const auto found = std::ranges::find(rows_, id, &Row::id);
    return found == rows_.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

// ---- all rows

// Needs no memory, so a list can always be emptied.
void RowTable::clear()
{
    const Change change(*this, RowChange::replaced);
    std::vector<std::shared_ptr<const void>> blocks;
    std::vector<Row> rows;
    replace(blocks, rows);
}

void RowTable::fill(std::shared_ptr<const void> block, std::vector<Row> rows)
{
    // This may fail, so it comes before anything is given up.
    std::vector<std::shared_ptr<const void>> blocks{std::move(block)};
    const Change change(*this, RowChange::replaced);
    sorted_ = false;
    replace(blocks, rows);
}

void RowTable::take(RowTable&& other)
{
    const Change change(*this, RowChange::replaced);
    sorted_ = false;
    replace(other.blocks_, other.rows_);
    kept_.swap(other.kept_);
}

// The old rows end up in the arguments and are freed with them, so a short list does not hold on to the
// memory of a long one before it.
void RowTable::replace(std::vector<std::shared_ptr<const void>>& blocks, std::vector<Row>& rows)
{
    ++fillings_;
    rows_.swap(rows);
    identify(rows_);
    kept_.reset();
    blocks_.swap(blocks);
    inOrder_ = 0;
}

void RowTable::identify(std::span<Row> rows)
{
    for (Row& row : rows) row.id = ++lastId_;
}

void RowTable::append(std::shared_ptr<const void> block, std::span<const Row> rows)
{
    const Change change(*this, RowChange::appended);
    blocks_.push_back(std::move(block)); // first, so that there is never a row without its texts
    rows_.insert(rows_.end(), rows.begin(), rows.end());
    identify(std::span(rows_).last(rows.size()));
}

void RowTable::append(Block&& block)
{
    if (!rows_.empty()) return append(std::move(block.texts), std::span<const Row>(block.rows));
    const Change change(*this, RowChange::appended);
    blocks_.push_back(std::move(block.texts));
    rows_ = std::move(block.rows);
    identify(rows_);
}

// ---- rows come and go

RowTable::Row RowTable::keptRow(const Texts& texts, int image)
{
    return {keep(texts), static_cast<std::uint8_t>(image), false, false, ++lastId_};
}

std::size_t RowTable::add(const Texts& texts, int image)
{
    const Change change(*this, RowChange::moved);
    const Row row = keptRow(texts, image);
    auto place = rows_.end();
    if (sorted_) {
        // After its equals, where a stable sort would put it.
        place = std::upper_bound(rows_.begin(), rows_.end(), row,
                                 [this](const Row& a, const Row& b) { return comesBefore(a, b); });
    }
    const auto index = static_cast<std::size_t>(place - rows_.begin());
    rows_.insert(place, row);
    if (sorted_ && index <= inOrder_) ++inOrder_;
    return index;
}

void RowTable::addCopies(std::span<const Row> rows)
{
    for (const Row& row : rows) add(row.texts.views(), row.image);
}

void RowTable::insert(std::size_t row, const Texts& texts, int image)
{
    const Change change(*this, RowChange::moved);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row), keptRow(texts, image));
    inOrder_ = std::min(inOrder_, row);
}

void RowTable::remove(std::size_t row)
{
    const Change change(*this, RowChange::moved);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    if (row < inOrder_) --inOrder_;
}

std::size_t RowTable::removeMarked()
{
    const Change change(*this, RowChange::moved);
    const bool allInOrder = inOrder_ == rows_.size();
    const std::size_t removed = std::erase_if(rows_, [](const Row& row) { return row.marked; });
    inOrder_ = allInOrder ? rows_.size() : 0;
    return removed;
}

// ---- sorting

std::optional<RowSource::Order> RowTable::order() const
{
    return sorted_ ? std::optional(Order{sortKey_, sortOrder_}) : std::nullopt;
}

void RowTable::setSorted(bool on)
{
    if (on || sorted_) arrange(on, sortKey_, sortOrder_);
}

void RowTable::setSortKey(std::size_t column) { arrange(sorted_, column, sortOrder_); }

void RowTable::setSortOrder(SortOrder order) { arrange(sorted_, sortKey_, order); }

void RowTable::sortBy(std::size_t column, SortOrder order) { arrange(true, column, order); }

void RowTable::sortOtherWayBy(std::size_t column)
{
    sortBy(column, sortOrder_ == SortOrder::ascending ? SortOrder::descending : SortOrder::ascending);
}

// A failed sort changes nothing; otherwise the next one would take the rows to be sorted.
void RowTable::arrange(bool on, std::size_t key, SortOrder order)
{
    const Change change(*this, RowChange::moved);
    const auto before = std::tuple(sorted_, sortKey_, sortOrder_, inOrder_);
    const bool reversed = on && key == sortKey_ && order != sortOrder_ && inOrder_ == rows_.size();
    if (key != sortKey_ || order != sortOrder_) inOrder_ = 0;
    std::tie(sorted_, sortKey_, sortOrder_) = std::tuple(on, key, order);
    if (reversed) return reverse();
    try {
        sort();
    } catch (...) {
        std::tie(sorted_, sortKey_, sortOrder_, inOrder_) = before;
        throw;
    }
}

bool RowTable::comesBefore(const Row& a, const Row& b) const
{
    // Contract: every column is compared as text, dates too.
    const int order = a.texts[sortKey_].compare(b.texts[sortKey_]);
    return sortOrder_ == SortOrder::ascending ? order < 0 : order > 0;
}

// For rows in the opposite order. Equal ones keep their places among themselves, as in a stable sort.
void RowTable::reverse()
{
    std::ranges::reverse(rows_);
    for (auto first = rows_.begin(); first != rows_.end();) {
        const auto end = std::find_if(first + 1, rows_.end(), [&](const Row& row) {
            return row.texts[sortKey_] != first->texts[sortKey_];
        });
        std::reverse(first, end);
        first = end;
    }
    inOrder_ = rows_.size();
}

void RowTable::sort()
{
    if (!sorted_) return;
    const auto before = [this](const Row& a, const Row& b) { return comesBefore(a, b); };
    const auto known = rows_.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(inOrder_, 1) - 1);
    const auto end = std::is_sorted_until(known, rows_.end(), before);
    inOrder_ = rows_.size();
    if (end == rows_.end()) return;
    if (end + 1 == rows_.end()) {
        // One row added to others in order: it goes after its equals, where a stable sort would put it.
        std::rotate(std::upper_bound(rows_.begin(), end, *end, before), end, rows_.end());
        return;
    }
    // Filled one by one: of a million rows, even setting the memory to zero first takes time.
    std::vector<CompactText> keys;
    keys.reserve(rows_.size());
    for (const Row& row : rows_) keys.push_back(row.texts[sortKey_]);
    const std::vector<std::uint32_t> order = sortedOrder(keys, sortOrder_ == SortOrder::descending);
    std::vector<Row> sorted;
    sorted.reserve(rows_.size());
    constexpr std::size_t ahead = 16;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i + ahead < order.size()) prefetch(reinterpret_cast<std::uintptr_t>(&rows_[order[i + ahead]]));
        sorted.push_back(rows_[order[i]]);
    }
    rows_ = std::move(sorted);
}

} // namespace vandrel
