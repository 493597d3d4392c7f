#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vandrel {

enum class SortOrder { ascending, descending };

enum class RowChange {
    replaced, // none of the rows of before is left
    appended, // behind the others, which stay where they are
    moved,    // rows came, went or changed places
};

// Hears of every change of the rows. None of the calls may throw.
class RowObserver {
  public:
    virtual void rowsChanging(RowChange change) = 0;
    virtual void rowsChanged(RowChange change) = 0; // also after a change that failed half-way
    virtual void rowChanged(std::size_t row) = 0;   // its texts or its picture

  protected:
    ~RowObserver() = default;
};

// Rows that a list view shows: texts, a picture, and what the view leaves with each row while rows change
// places. No window in it. Rows and columns count from 0.
class RowSource {
  public:
    // What a row is known by while numbers change. No two rows of one source ever have the same; 0 is none's.
    using Id = std::uint32_t;
    struct Mark {
        bool selected = false;
        bool current = false; // has the keyboard's focus
    };
    struct Order {
        std::size_t column;
        SortOrder direction;
        friend bool operator==(const Order&, const Order&) = default;
    };

    virtual std::size_t size() const = 0;
    virtual std::wstring_view text(std::size_t row,
                                   std::size_t column) const = 0; // empty beyond the last column
    virtual int image(std::size_t row) const = 0;                 // from 1, as in the image list
    virtual Id id(std::size_t row) const = 0;
    virtual std::optional<std::size_t> rowOf(Id id) const = 0; // none when it has gone
    virtual std::optional<Order> order() const = 0;            // none while the rows are not sorted
    virtual Mark mark(std::size_t row) const = 0;
    virtual void setMark(std::size_t row, Mark mark) = 0;

    // Borrowed; null for none. One at a time.
    virtual void observe(RowObserver* observer) = 0;

  protected:
    ~RowSource() = default;
};

} // namespace vandrel
