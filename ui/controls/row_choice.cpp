#include "ui/controls/row_choice.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace orvane {

namespace {

std::vector<int> RowsFrom(int first, int last) {
  std::vector<int> rows(static_cast<std::size_t>(last - first + 1));
  std::iota(rows.begin(), rows.end(), first);
  return rows;
}

}  // namespace

std::vector<int> RowChoice::Rows() const {
  if (Empty()) return {};
  const std::vector<int> stretch = RowsFrom(std::min(at_, end_), std::max(at_, end_));
  std::vector<int> rows;
  rows.reserve(others_.size() + stretch.size());
  std::set_union(others_.begin(), others_.end(), stretch.begin(), stretch.end(),
                 std::back_inserter(rows));
  return rows;
}

bool RowChoice::Has(int row) const {
  if (Empty()) return false;
  return (row >= std::min(at_, end_) && row <= std::max(at_, end_)) ||
         std::binary_search(others_.begin(), others_.end(), row);
}

void RowChoice::Begin(int row) {
  others_.clear();
  at_ = end_ = row;
}

void RowChoice::All(int last, int at) {
  others_ = RowsFrom(1, last);
  at_ = end_ = at;
}

void RowChoice::StretchTo(int row, Others others) {
  if (others == Others::Go) others_.clear();
  end_ = row;
}

void RowChoice::Add(int row) {
  others_ = Rows();
  at_ = end_ = row;
}

void RowChoice::Remove(int row) {
  if (!Has(row)) return;
  others_ = Rows();
  const auto place = others_.erase(std::lower_bound(others_.begin(), others_.end(), row));
  if (others_.empty()) {
    at_ = end_ = 0;
    return;
  }
  if (row == at_) at_ = place == others_.end() ? others_.back() : *place;
  end_ = at_;
}

}  // namespace orvane
