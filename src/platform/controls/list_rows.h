#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

enum class SortOrder { ascending, descending };

// The rows behind a list view: texts, image and a mark for the selection, in display order. No window in it.
//
// Texts are views. They look into the blocks that filled the list or into texts that were kept one by one; both
// live until the rows are cleared, so a list of 100,000 rows costs one block and not 400,000 strings.
//
// What finds no memory leaves the rows as they were.
class ListRows {
  public:
    static constexpr std::size_t maxColumns = 4;
    using Texts = std::array<std::wstring_view, maxColumns>;

    using Id = std::uint32_t;

    struct Row {
        Texts texts;
        std::uint8_t image = 1; // from 1, as in the image list
        bool marked = false;    // carries the selection through a change of order
        bool current = false;
        Id id = 0; // the list gives each row that comes into it another one
    };

    ListRows() = default;
    // Not copied: the views of a copy would look into the texts of the original.
    ListRows(ListRows&&) = default;
    ListRows& operator=(ListRows&&) = default;

    std::size_t size() const { return rows_.size(); }
    const Row& operator[](std::size_t row) const { return rows_[row]; }
    Row& operator[](std::size_t row) { return rows_[row]; } // for all but its texts
    std::span<const Row> all() const { return rows_; }
    // What owns the texts of the rows that the list was filled with; null when nothing filled it.
    std::shared_ptr<const void> block() const { return blocks_.empty() ? nullptr : blocks_.front(); }
    std::wstring_view text(std::size_t row, std::size_t column) const { return rows_[row].texts[column]; }
    // Where the row of that id stands; none when it has gone.
    std::optional<std::size_t> rowOf(Id id) const;
    void setText(std::size_t row, std::size_t column, std::wstring text);
    // In two steps: what can find no memory, and what cannot fail.
    std::wstring_view keepText(std::wstring text) { return keep(std::move(text)); }
    void useText(std::size_t row, std::size_t column, std::wstring_view kept);
    void setTexts(std::size_t row,
                  std::array<std::wstring, maxColumns> texts); // all or, without memory, none

    void clear();
    // Puts rows whose texts look into what `block` owns in place of all rows, in the order given, unsorted
    // from then on.
    void fill(std::shared_ptr<const void> block, std::vector<Row> rows);
    // Adds such rows at the end, whatever the sort order says.
    void append(std::shared_ptr<const void> block, std::span<const Row> rows);
    // Adds a row: at the end, or at its place while sorted is on. Returns where it stands.
    std::size_t add(std::array<std::wstring, maxColumns> texts, std::uint8_t image);
    // At that row, whatever the sort order says.
    void insert(std::size_t row, std::array<std::wstring, maxColumns> texts, std::uint8_t image);
    void remove(std::size_t row);
    std::optional<std::size_t> firstMarked() const;
    // Removes every marked row and returns how many there were.
    std::size_t removeMarked();

    // Each setter sorts at once while sorted is on, and returns whether the rows may stand elsewhere now.
    bool sorted() const { return sorted_; }
    std::size_t sortKey() const { return sortKey_; }
    SortOrder sortOrder() const { return sortOrder_; }
    bool setSorted(bool on);
    bool setSortKey(std::size_t column);
    bool setSortOrder(SortOrder order);
    // All three at once, with one sort.
    bool sortBy(std::size_t column, SortOrder order);

  private:
    void identify(std::span<Row> rows);
    bool comesBefore(const Row& a, const Row& b) const;
    bool arrange(bool on, std::size_t key, SortOrder order);
    bool sort();
    std::wstring_view keep(std::wstring text);
    Row keptRow(std::array<std::wstring, maxColumns> texts, std::uint8_t image);

    std::vector<Row> rows_;
    std::deque<std::wstring> kept_;
    std::vector<std::shared_ptr<const void>> blocks_;
    Id lastId_ = 0;
    bool sorted_ = false;
    std::size_t sortKey_ = 0;
    SortOrder sortOrder_ = SortOrder::ascending;
    // So many rows from the first are known to stand in the order of key and sort order.
    std::size_t inOrder_ = 0;
};

} // namespace vandrel
