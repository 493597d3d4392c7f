#pragma once

#include "model/row_texts.h"
#include "model/text_memory.h"
#include "platform/controls/row_source.h"

#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace vandrel {

// The rows of a list (sites, hits or the titles of categories) in the order in which they are shown.
//
// Texts are views into the blocks that filled the table or into lines kept one by one. Both live until the
// rows are cleared, so 100,000 rows cost one block and not 400,000 strings.
//
// A change that runs out of memory leaves the rows as they were.
class RowTable final : public RowSource {
  public:
    static constexpr std::size_t maxColumns = RowTexts::count;
    using Texts = RowTexts::Views;

    struct Row {
        RowTexts texts;
        std::uint8_t image = 1; // from 1, as in the image list
        bool marked = false;    // selected, while rows change places
        bool current = false;
        Id id = 0; // given by the table, a new one for each row that comes in
    };

    // Rows whose texts are views into what `texts` owns.
    struct Block {
        std::shared_ptr<const void> texts;
        std::vector<Row> rows;
    };

    RowTable() = default;
    // Takes the rows; an observer stays with the table it observes.
    RowTable(RowTable&& other) noexcept;
    RowTable& operator=(RowTable&&) = delete; // see take

    std::size_t size() const override { return rows_.size(); }
    bool empty() const { return rows_.empty(); }
    const Row& operator[](std::size_t row) const { return rows_[row]; }
    std::span<const Row> all() const { return rows_; }
    CompactText text(std::size_t row, std::size_t column) const override;
    int image(std::size_t row) const override { return rows_[row].image; }
    Id id(std::size_t row) const override { return rows_[row].id; }
    std::optional<std::size_t> rowOf(Id id) const override;
    Mark mark(std::size_t row) const override { return {rows_[row].marked, rows_[row].current}; }
    void setMark(std::size_t row, Mark mark) override;
    std::optional<std::size_t> lastMarked(std::size_t before) const override;
    void observe(RowObserver* observer) override { observer_ = observer; }

    // Changes whenever rows come, go or change places.
    unsigned changes() const { return changes_; }
    // Changes whenever the table is filled or cleared.
    unsigned fillings() const { return fillings_; }

    void setText(std::size_t row, std::size_t column, const CompactText& text);
    void setTexts(std::size_t row, const Texts& texts); // all, or none if memory runs out
    // The same in two steps: the first may run out of memory, the second cannot fail.
    RowTexts keep(const Texts& texts);
    void useTexts(std::size_t row, const RowTexts& kept);
    void setImage(std::size_t row, int image);

    void clear();
    // Replaces all rows, in the order given, by rows whose texts are views into what `block` owns; they are
    // unsorted from then on.
    void fill(std::shared_ptr<const void> block, std::vector<Row> rows);
    // The same with the rows of another table and the texts that it keeps for them.
    void take(RowTable&& other);
    // Adds such rows at the end, whatever the sort order; setSorted(true) puts them in order.
    void append(std::shared_ptr<const void> block, std::span<const Row> rows);
    // The same; an empty table takes the rows as they are, without a copy.
    void append(Block&& block);
    // Adds a row: at the end or, while sorted, in its place. Returns its number.
    std::size_t add(const Texts& texts, int image);
    // Adds a copy of each row, as add does.
    void addCopies(std::span<const Row> rows);
    // Inserts a row at that number, whatever the sort order.
    void insert(std::size_t row, const Texts& texts, int image);
    void remove(std::size_t row);
    // Removes every marked row and returns how many there were. A list view marks what is selected in it when
    // the change begins.
    std::size_t removeMarked();

    // Setting the key or the order sorts again while sorted is on.
    bool sorted() const { return sorted_; }
    std::size_t sortKey() const { return sortKey_; }
    SortOrder sortOrder() const { return sortOrder_; }
    std::optional<Order> order() const override;
    void setSorted(bool on);
    void setSortKey(std::size_t column);
    void setSortOrder(SortOrder order);
    // All three at once, with one sort.
    void sortBy(std::size_t column, SortOrder order);
    // Sorts by that column in the opposite order to before, whichever column that was by.
    void sortOtherWayBy(std::size_t column);

  private:
    class Change;
    void replace(std::vector<std::shared_ptr<const void>>& blocks, std::vector<Row>& rows);
    void identify(std::span<Row> rows);
    bool comesBefore(const Row& a, const Row& b) const;
    void arrange(bool on, std::size_t key, SortOrder order);
    void sort();
    void reverse();
    Row keptRow(const Texts& texts, int image);
    void tellOf(std::size_t row) const;

    std::vector<Row> rows_;
    std::unique_ptr<TextMemory> kept_; // none while it would be empty
    std::vector<std::shared_ptr<const void>> blocks_;
    RowObserver* observer_ = nullptr;
    unsigned changes_ = 0;
    unsigned fillings_ = 0;
    Id lastId_ = 0;
    bool sorted_ = false;
    std::size_t sortKey_ = 0;
    SortOrder sortOrder_ = SortOrder::ascending;
    // How many rows, from the first, are known to be in the order of key and sort order.
    std::size_t inOrder_ = 0;
};

} // namespace vandrel
