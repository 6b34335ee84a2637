#include "ui/sections_model.h"

#include <algorithm>

#include "core/model.h"
#include "project/rules/section_columns.h"

namespace orvane {

namespace {

std::vector<std::string> SectionHeadings() {
  std::vector<std::string> headings;
  for (int column = 0; column < SectionColumns; ++column) {
    headings.emplace_back(SectionColumnAt(column).Heading);
  }
  return headings;
}

}  // namespace

void FigureLengths::Clear() {
  lengths_.clear();
  rows_ = {};
}

void FigureLengths::Set(int row, std::size_t length) {
  const auto at = static_cast<std::size_t>(row) - 1;
  if (at < lengths_.size()) {
    --rows_.at(lengths_[at]);
  } else {
    lengths_.resize(at + 1);
  }
  lengths_[at] = std::min(length, rows_.size() - 1);
  ++rows_.at(lengths_[at]);
}

int FigureLengths::Longest() const {
  const auto longest =
      std::find_if(rows_.rbegin(), rows_.rend(), [](int rows) { return rows > 0; });
  return std::max(0, static_cast<int>(rows_.rend() - longest) - 1);
}

SectionsModel::SectionsModel(QObject* parent) : FlexGridModel(SectionHeadings(), parent) {
  SetFixedColumns(1);
  LetRowsBeChosen();
  for (int column = 0; column < SectionColumns; ++column) {
    const bool right = SectionColumnAt(column).Side == CellSide::Right;
    SetAlignment(column, right ? Qt::AlignRight : Qt::AlignLeft);
    if (SectionColumnAt(column).Width.Figures > 0) figures_[column];
  }
}

std::vector<int> SectionsModel::WidthShares() {
  std::vector<int> shares;
  for (int column = 0; column < SectionColumns; ++column) {
    shares.push_back(SectionColumnAt(column).Width.Share);
  }
  return shares;
}

std::vector<int> SectionsModel::LeastFigures() {
  std::vector<int> figures;
  for (int column = 0; column < SectionColumns; ++column) {
    figures.push_back(SectionColumnAt(column).Width.Figures);
  }
  return figures;
}

int SectionsModel::LongestFigure(int column) const {
  const auto found = figures_.find(column);
  return found == figures_.end() ? 0 : found->second.Longest();
}

std::string SectionsModel::FaultOf(int row, int column) const {
  return row > rows_ ? std::string() : faults_.Of(row, column).value_or("");
}

void SectionsModel::FollowRow(int row) {
  FollowFigures(row);
  const SectionFaults::Moved moved = faults_.Changed(row);
  if (moved.Own) RowChanged(row);
  if (moved.Others) ColumnChanged(MarkColumn);
}

void SectionsModel::EnterRow(int row) {
  if (faults_.Enter(row).Others) ColumnChanged(MarkColumn);
}

void SectionsModel::FollowLimits() {
  ColumnChanged(LengthColumn);
}

void SectionsModel::ColumnChanged(int column) {
  if (rows_ > 0) emit dataChanged(index(0, column), index(rows_ - 1, column));
}

void SectionsModel::FollowFigures(int row) {
  for (auto& [column, figures] : figures_) {
    figures.Set(row, ItemText(static_cast<std::int16_t>(row), column).size());
  }
}

std::string SectionsModel::CellText(int row, int column) const {
  // Items may be shorter than what is shown while a command is under way.
  if (row < 1 || row > rows_ || row > Items.UBound()) return {};
  if (!typed_.empty()) {
    const auto typed = typed_.find({row, column});
    if (typed != typed_.end()) return typed->second;
  }
  return ItemText(static_cast<std::int16_t>(row), column);
}

void SectionsModel::SetTyped(int row, int column, const std::string& text) {
  if (text == ItemText(static_cast<std::int16_t>(row), column)) {
    typed_.erase({row, column});
  } else {
    typed_[{row, column}] = text;
  }
  CellChanged(row, column);
}

void SectionsModel::ShowRecord(int row, int column) {
  typed_.erase({row, column});
  CellChanged(row, column);
}

void SectionsModel::FollowAppended() {
  const int rows = Items.UBound();
  if (rows <= rows_) return;
  beginInsertRows({}, rows_, rows - 1);
  while (rows_ < rows) FollowFigures(++rows_);
  endInsertRows();
}

void SectionsModel::Refill() {
  beginResetModel();
  typed_.clear();
  rows_ = Items.UBound();
  for (auto& [column, figures] : figures_) figures.Clear();
  for (int row = 1; row <= rows_; ++row) FollowFigures(row);
  faults_.Refill();
  endResetModel();
}

}  // namespace orvane
