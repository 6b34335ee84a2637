#include "ui/sections_model.h"

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

SectionsModel::SectionsModel(QObject* parent) : FlexGridModel(SectionHeadings(), parent) {
  SetFixedColumns(1);
  for (int column = 0; column < SectionColumns; ++column) {
    const bool right = SectionColumnAt(column).Side == CellSide::Right;
    SetAlignment(column, right ? Qt::AlignRight : Qt::AlignLeft);
  }
}

std::vector<int> SectionsModel::WidthShares() {
  std::vector<int> shares;
  for (int column = 0; column < SectionColumns; ++column) {
    shares.push_back(SectionColumnAt(column).Width.Share);
  }
  return shares;
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
  rows_ = rows;
  endInsertRows();
}

void SectionsModel::Refill() {
  beginResetModel();
  typed_.clear();
  rows_ = Items.UBound();
  endResetModel();
}

}  // namespace orvane
