#include "ui/sections_model.h"

#include "core/model.h"
#include "project/rules/section_rules.h"

namespace orvane {

SectionsModel::SectionsModel(QObject* parent)
    : FlexGridModel({"", "Mark", "Product", "Length (mm)", "Qty", "Notes"}, parent) {
  SetFixedColumns(1);
  SetAlignment(LengthColumn, Qt::AlignRight);
  SetAlignment(QuantityColumn, Qt::AlignRight);
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
