// The table that every list of the system uses: rows counted from 1 behind a blank element 0.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "core/runtime_error.h"

namespace orvane {

// Rows 1..UBound() of records, with an element 0 that always exists and as a rule stays blank. A
// table owns its rows; copying is deep. Every access is checked: a row outside 0..UBound() raises
// "Subscript out of range". A reference into a table dies when the table grows, so procedures take
// row numbers.
template <class T>
class Table {
 public:
  // The number of real rows; 0 when empty.
  int UBound() const { return static_cast<int>(rows_.size()); }
  bool Empty() const { return rows_.empty(); }

  T& At(int row) { return row == 0 ? blank_ : rows_[Checked(row)]; }
  const T& At(int row) const { return row == 0 ? blank_ : rows_[Checked(row)]; }

  // Adds a row behind the last one and gives it back.
  T& Append(T record) { return rows_.emplace_back(std::move(record)); }

  // Puts a record at `row`, 1..UBound() + 1; the rows from there on move up by one.
  void Insert(int row, T record) {
    const std::size_t at = row == UBound() + 1 ? rows_.size() : CheckedReal(row);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), std::move(record));
  }

  // Takes a row out; the rows behind it move down by one.
  void Remove(int row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(CheckedReal(row)));
  }

  // Gives the table `count` rows, keeping what it holds; new rows are blank. A negative count
  // raises "Subscript out of range".
  void Resize(int count) {
    if (count < 0) throw RuntimeError(Failure::SubscriptOutOfRange);
    rows_.resize(static_cast<std::size_t>(count));
  }

  // Room for `count` rows, so that appending them moves nothing.
  void Reserve(int count) { rows_.reserve(static_cast<std::size_t>(count < 0 ? 0 : count)); }

  // Empties the table, element 0 included.
  void Clear() {
    rows_.clear();
    blank_ = T{};
  }

  // The real rows in order, element 0 left out.
  auto begin() { return rows_.begin(); }
  auto end() { return rows_.end(); }
  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.end(); }

 private:
  std::size_t Checked(int row) const {
    if (row < 0 || row > UBound()) throw RuntimeError(Failure::SubscriptOutOfRange);
    return static_cast<std::size_t>(row) - 1;
  }
  std::size_t CheckedReal(int row) const {
    if (row < 1) throw RuntimeError(Failure::SubscriptOutOfRange);
    return Checked(row);
  }

  T blank_{};
  std::vector<T> rows_;
};

}  // namespace orvane
