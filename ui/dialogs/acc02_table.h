// The table of a type 2 accessory: marked lines in the accessory's own columns, edited cell by
// cell.
#pragma once

#include <cstdint>
#include <string>

#include "core/table.h"
#include "ui/controls/text_table.h"

namespace orvane {

// MSFlexGrid1 with its editors txtEdit and cboEdit, a list for each column that has choices. What
// is typed or chosen goes to the cell when it is left, and at Commit.
class Acc02Table : public TextTable {
 public:
  Acc02Table(std::int16_t AccIndex, QWidget* parent);

  // Replaces the choices of a column; "Subscript out of range" for a column without any.
  void FillChoices(int column, const Table<std::string>& texts);
};

}  // namespace orvane
