#pragma once

#include "platform/text/compact_text.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vandrel {

enum class SortOrder { ascending, descending };

enum class RowChange {
    replaced, // none of the previous rows is left
    appended, // after the others, which keep their places
    moved,    // rows were added, removed or moved
};

// Is told of every change of the rows. None of these calls may throw.
class RowObserver {
  public:
    virtual void rowsChanging(RowChange change) = 0;
    virtual void rowsChanged(RowChange change) = 0; // also after a change that failed half-way through
    virtual void rowChanged(std::size_t row) = 0;   // its texts or its picture

  protected:
    ~RowObserver() = default;
};

// The rows of a list view: texts, a picture, and a mark in which the view keeps its selection while rows
// move. Knows no window. Rows and columns count from 0.
class RowSource {
  public:
    // Identifies a row while row numbers change. No two rows of a source ever have the same id; 0 means no
    // row.
    using Id = std::uint32_t;
    struct Mark {
        bool selected = false;
        bool current = false; // has the keyboard focus
    };
    struct Order {
        std::size_t column;
        SortOrder direction;
        friend bool operator==(const Order&, const Order&) = default;
    };

    virtual std::size_t size() const = 0;
    virtual CompactText text(std::size_t row, std::size_t column) const = 0; // empty beyond the last column
    virtual int image(std::size_t row) const = 0;                            // Contract: images count from 1
    virtual Id id(std::size_t row) const = 0;
    virtual std::optional<std::size_t> rowOf(Id id) const = 0; // no value once it has gone
    virtual std::optional<Order> order() const = 0;            // no value while the rows are not sorted
    virtual Mark mark(std::size_t row) const = 0;
    virtual void setMark(std::size_t row, Mark mark) = 0;
    // The last row before that one that is selected or current; no value if there is none.
    virtual std::optional<std::size_t> lastMarked(std::size_t before) const = 0;

    // Borrows the observer; null for none. Only one at a time.
    virtual void observe(RowObserver* observer) = 0;

  protected:
    ~RowSource() = default;
};

} // namespace vandrel
