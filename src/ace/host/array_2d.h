/// A two-dimensional array with bounds for each dimension, for the matrix of the device under test.
#pragma once

#include <algorithm>
#include <limits>

#include <ace/host/dyn_array.h>

namespace ace {

/// Rows and columns with explicit bounds, stored row by row. Errors as `DynArray`: an unallocated
/// array or an index outside its bounds is error 9, an allocation that fails is error 7.
template <class T>
class Array2D {
  public:
    bool IsAllocated() const { return x_cells.IsAllocated(); }

    /// Makes the array anew; every cell is fresh.
    void Redim(std::int32_t rowLower, std::int32_t rowUpper, std::int32_t columnLower,
               std::int32_t columnUpper) {
        if (rowUpper < rowLower || columnUpper < columnLower) {
            Raise(Errors::SubscriptOutOfRange);
        }
        const std::int64_t columns = std::int64_t{columnUpper} - columnLower + 1;
        x_cells.Redim(0, LastCell(std::int64_t{rowUpper} - rowLower + 1, columns));
        x_rowLower = rowLower;
        x_rowUpper = rowUpper;
        x_columnLower = columnLower;
        x_columnUpper = columnUpper;
    }
    /// Moves the upper bound of the rows and keeps the rows that fit.
    void RedimPreserveRows(std::int32_t rowUpper) {
        RequireAllocated();
        if (rowUpper < x_rowLower) {
            Raise(Errors::SubscriptOutOfRange);
        }
        x_cells.RedimPreserve(LastCell(std::int64_t{rowUpper} - x_rowLower + 1, Columns()));
        x_rowUpper = rowUpper;
    }
    void Erase() { x_cells.Erase(); }

    /// How often the array may have been changed, see `DynArray`.
    std::uint32_t Changes() const { return x_cells.Changes(); }

    std::int32_t RowLowerBound() const { return RequireAllocated(), x_rowLower; }
    std::int32_t RowUpperBound() const { return RequireAllocated(), x_rowUpper; }
    std::int32_t ColumnLowerBound() const { return RequireAllocated(), x_columnLower; }
    std::int32_t ColumnUpperBound() const { return RequireAllocated(), x_columnUpper; }

    T& operator()(std::int32_t row, std::int32_t column) { return x_cells[Cell(row, column)]; }
    const T& operator()(std::int32_t row, std::int32_t column) const {
        return x_cells[Cell(row, column)];
    }

    /// The cells of a row, side by side from its lower column on; the bounds are asked once.
    const T* Row(std::int32_t row) const { return &x_cells[Cell(row, x_columnLower)]; }
    /// Copies every later row one row down, so that the row is gone and the last one stands twice.
    void CloseRowGap(std::int32_t row) {
        const std::ptrdiff_t first = Cell(row, x_columnLower);
        std::copy(x_cells.begin() + first + Columns(), x_cells.end(), x_cells.begin() + first);
    }

    friend bool operator==(const Array2D&, const Array2D&) = default;

  private:
    void RequireAllocated() const {
        if (!IsAllocated()) {
            Raise(Errors::SubscriptOutOfRange);
        }
    }
    std::int64_t Columns() const { return std::int64_t{x_columnUpper} - x_columnLower + 1; }
    static std::int32_t LastCell(std::int64_t rows, std::int64_t columns) {
        if (rows > std::numeric_limits<std::int32_t>::max() / columns) {
            Raise(Errors::OutOfMemory);
        }
        return static_cast<std::int32_t>(rows * columns - 1);
    }
    std::int32_t Cell(std::int32_t row, std::int32_t column) const {
        RequireAllocated();
        if (row < x_rowLower || row > x_rowUpper || column < x_columnLower ||
            column > x_columnUpper) {
            Raise(Errors::SubscriptOutOfRange);
        }
        return static_cast<std::int32_t>((std::int64_t{row} - x_rowLower) * Columns() +
                                         (std::int64_t{column} - x_columnLower));
    }

    DynArray<T> x_cells;
    std::int32_t x_rowLower = 0;
    std::int32_t x_rowUpper = -1;
    std::int32_t x_columnLower = 0;
    std::int32_t x_columnUpper = -1;
};

}  // namespace ace
