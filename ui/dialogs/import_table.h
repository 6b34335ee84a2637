// The preview of a list of sections: a row for each of its own, as it will be, and what becomes of
// it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "project/section_list/section_list.h"
#include "project/section_list/section_plan.h"
#include "ui/controls/cell_editor.h"
#include "ui/controls/flex_grid.h"

namespace orvane {

// What a column of the preview shows.
struct ImportColumn {
  enum class Shows {
    Number,  // of the row in what was read
    Taken,   // a tick: the row is taken
    Holes,   // a tick: its pattern may remove holes placed by hand, with their number
    Text,    // a column of the list
    Words    // what becomes of the row
  };
  Shows What = Shows::Text;
  int Column = 0;  // of the list
};

class ImportModel : public FlexGridModel {
 public:
  // The list and the plan outlive it.
  ImportModel(const SectionList& list, const SectionPlan& plan, std::vector<ImportColumn> columns,
              QObject* parent);

  const ImportColumn& ColumnAt(int column) const {
    return columns_.at(static_cast<std::size_t>(column));
  }
  // The column that shows that; 0 for none.
  int Find(ImportColumn::Shows what, int column = 0) const;
  // The plan is another.
  void ShowPlan();
  // A cell by which its row is refused.
  bool IsRefused(int row, int column) const;

  std::string CellText(int row, int column) const override;
  int DataRows() const override { return static_cast<int>(plan_.Rows.size()); }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const PlannedSection& RowAt(int row) const {
    return plan_.Rows.at(static_cast<std::size_t>(row) - 1);
  }
  const PlannedCell& CellAt(int row, int column) const;
  QVariant Tick(int row, int column) const;

  const SectionList& list_;
  const SectionPlan& plan_;
  const std::vector<ImportColumn> columns_;
};

// Rows count from 1.
class ImportTable : public FlexGrid {
 public:
  ImportTable(const SectionList& list, const SectionPlan& plan, QWidget* parent);

  // A cell of the list was mended.
  std::function<void(int row, int column, const std::string& text)> Mended;
  // The cursor came to another cell.
  std::function<void()> Moved;
  // A tick was pressed.
  std::function<void(int row, ImportColumn::Shows what)> Ticked;

  void ShowPlan();
  // Has the open cell take what was typed.
  void Commit() { editor_.Commit(); }
  // Makes a row the current one, without an open cell.
  void ShowRow(int row);
  // Opens the next refused cell behind the current one, or the first; false where there is none.
  bool GoToRefused();
  // Whether rows have a tick for holes that go.
  bool HasHoles() const;

 private:
  ImportTable(ImportModel* model, QWidget* parent);
  CellTable Cells();
  int FirstTextColumn() const;
  void GoToCell(int row, int column);

  ImportModel& model_;
  CellEditor editor_;
};

}  // namespace orvane
