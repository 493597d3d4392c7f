#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

namespace vandrel::bench {

using RowNumbers = std::vector<std::size_t>;

// For work that takes seconds.
inline constexpr int slowRepetitions = 3;

void selectRows(HWND list, const RowNumbers& rows);
RowNumbers selectedRows(HWND list);

// What the platform takes for its part of the work: a list view of that many rows and four columns, in a window that
// does nothing else. All times are in milliseconds.
class BareList {
  public:
    explicit BareList(std::size_t rows);
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;
    ~BareList();

    // The list's rows come and are painted.
    double timeOfShowing() const;
    // These rows are selected while none is.
    double timeOfSelecting(const RowNumbers& rows) const;
    // The list is asked which rows are selected.
    double timeOfAsking(const RowNumbers& rows) const;

  private:
    void clear() const;
    void fill() const;

    std::size_t rows_;
    HWND parent_;
    HWND list_;
};

} // namespace vandrel::bench
