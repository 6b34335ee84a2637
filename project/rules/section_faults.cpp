#include "project/rules/section_faults.h"

#include <utility>

#include "core/model.h"
#include "core/text.h"
#include "project/rules/section_columns.h"

namespace orvane {

namespace {

std::string MarkOf(int row) {
  return std::string(Trim(Items.At(row).Mark));
}

}  // namespace

std::string& SectionFaults::CountedMark(int row) {
  return marks_.at(static_cast<std::size_t>(row) - 1);
}

// Counts the mark that the row is left with; true if it is another row's no longer single one.
bool SectionFaults::Count(int row) {
  CountedMark(row) = MarkOf(row);
  return !CountedMark(row).empty() && ++bearers_[CountedMark(row)] > 1;
}

// The row doesn't bear its mark any more; true if another does.
bool SectionFaults::Withdraw(int row) {
  const auto bearers = bearers_.find(std::exchange(CountedMark(row), {}));
  if (bearers == bearers_.end()) return false;
  if (--bearers->second > 0) return true;
  bearers_.erase(bearers);
  return false;
}

void SectionFaults::Refill() {
  entered_ = 0;
  bearers_.clear();
  marks_.assign(static_cast<std::size_t>(Items.UBound()), {});
  for (int row = 1; row <= Items.UBound(); ++row) Count(row);
}

SectionFaults::Moved SectionFaults::Enter(int row) {
  Moved moved;
  if (row == entered_) return moved;
  const int left = std::exchange(entered_, 0);
  if (left > 0 && left <= Items.UBound() && MarkOf(left) != CountedMark(left)) {
    moved.Others = Withdraw(left);
    moved.Others = Count(left) || moved.Others;
  }
  // Rows that came without the cursor's going there have been left as well.
  const auto known = static_cast<int>(marks_.size());
  marks_.resize(static_cast<std::size_t>(Items.UBound()));
  for (int other = known + 1; other <= Items.UBound(); ++other) {
    if (other != row) moved.Others = Count(other) || moved.Others;
  }
  if (row < 1 || row > Items.UBound()) return moved;
  signs_.assign(static_cast<std::size_t>(SectionColumns), false);
  for (int column = 0; row <= known && column < SectionColumns; ++column) {
    signs_.at(static_cast<std::size_t>(column)) = Fault(row, column).has_value();
  }
  entered_ = row;
  return moved;
}

SectionFaults::Moved SectionFaults::Changed(int row) {
  Moved moved;
  if (row < 1 || row > Items.UBound() || row > static_cast<int>(marks_.size())) return moved;
  if (MarkOf(row) != CountedMark(row)) {
    moved.Others = Withdraw(row);
    if (row != entered_) moved.Others = Count(row) || moved.Others;
  }
  if (row != entered_) return {true, moved.Others};
  for (int column = 0; column < SectionColumns; ++column) {
    if (!signs_.at(static_cast<std::size_t>(column))) continue;
    signs_.at(static_cast<std::size_t>(column)) = Fault(row, column).has_value();
    moved.Own = true;
  }
  return moved;
}

std::optional<std::string> SectionFaults::Of(int row, int column) const {
  if (row < 1 || row > Items.UBound() || row > static_cast<int>(marks_.size())) return std::nullopt;
  if (column < 0 || column >= SectionColumns) return std::nullopt;
  if (row == entered_ && !signs_.at(static_cast<std::size_t>(column))) return std::nullopt;
  return Fault(row, column);
}

std::optional<std::string> SectionFaults::Fault(int row, int column) const {
  const auto inUse = [&](std::string_view mark) {
    const auto bearers = bearers_.find(std::string(mark));
    if (bearers == bearers_.end()) return false;
    const bool own = marks_.at(static_cast<std::size_t>(row) - 1) == mark;
    return bearers->second > (own ? 1 : 0);
  };
  return CellFault(Items.At(row), column, inUse);
}

}  // namespace orvane
