#include "ui/dialogs/import_table.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "core/model.h"
#include "core/numbers.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

using Shows = ImportColumn::Shows;
using CellResult = PlannedCell::Result;
using RowResult = PlannedSection::Result;

constexpr int MostFigures = 7;  // "12,500" as the list has it, with room for a blank

constexpr QRgb PassedOver = 0xFF606060;  // the text of a row that isn't taken

bool IsGiven(const SectionList& list, int column) {
  return std::any_of(list.Rows.begin(), list.Rows.end(), [column](const ListRow& row) {
    return row.Texts.at(static_cast<std::size_t>(column)).has_value();
  });
}

bool HasHolesByHand() {
  return std::any_of(Items.begin(), Items.end(), [](const Item& item) {
    return item.PatternName == CustomPattern && !item.Holes.Empty();
  });
}

// The grid's own columns always, and of the others those that the list has.
std::vector<ImportColumn> ColumnsOf(const SectionList& list) {
  std::vector<ImportColumn> columns = {{Shows::Number}, {Shows::Taken}};
  for (int column = 1; column < ListColumnsEnd; ++column) {
    if (column < SectionColumns || IsGiven(list, column)) columns.push_back({Shows::Text, column});
  }
  if (IsGiven(list, PunchingColumn) && HasHolesByHand()) columns.push_back({Shows::Holes});
  columns.push_back({Shows::Words});
  return columns;
}

std::vector<std::string> HeadingsOf(const std::vector<ImportColumn>& columns) {
  std::vector<std::string> headings;
  for (const ImportColumn& column : columns) {
    switch (column.What) {
      case Shows::Number:
        headings.emplace_back("Row");
        break;
      case Shows::Taken:
        headings.emplace_back("Take");
        break;
      case Shows::Holes:
        headings.emplace_back("Remove holes");
        break;
      case Shows::Text:
        headings.emplace_back(ListHeading(column.Column));
        break;
      case Shows::Words:
        headings.emplace_back("What becomes of it");
        break;
    }
  }
  return headings;
}

bool IsNumber(const ImportColumn& column) {
  if (column.What != Shows::Text) return false;
  return column.Column == LengthColumn || column.Column == QuantityColumn ||
         column.Column >= SagBarsColumn;
}

// Shares of the width, and figures that a column has room for at least.
int ShareOf(const ImportColumn& column) {
  switch (column.What) {
    case Shows::Words:
      return 3600;
    case Shows::Text:
      break;
    default:
      return 400;
  }
  if (IsNumber(column)) return 500;
  return column.Column == NotesColumn || column.Column == PunchingColumn ? 1300 : 900;
}

}  // namespace

// The rows.

ImportModel::ImportModel(const SectionList& list, const SectionPlan& plan,
                         std::vector<ImportColumn> columns, QObject* parent)
    : FlexGridModel(HeadingsOf(columns), parent),
      list_(list),
      plan_(plan),
      columns_(std::move(columns)) {
  SetFixedColumns(1);
  for (std::size_t at = 0; at < columns_.size(); ++at) {
    if (IsNumber(columns_[at])) SetAlignment(static_cast<int>(at), Qt::AlignRight);
  }
}

int ImportModel::Find(Shows what, int column) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ImportColumn& each) {
    return each.What == what && each.Column == column;
  });
  return found == columns_.end() ? 0 : static_cast<int>(found - columns_.begin());
}

const PlannedCell& ImportModel::CellAt(int row, int column) const {
  return RowAt(row).Cells.at(static_cast<std::size_t>(ColumnAt(column).Column));
}

bool ImportModel::IsRefused(int row, int column) const {
  return ColumnAt(column).What == Shows::Text && RowAt(row).What == RowResult::Refused &&
         CellAt(row, column).What == CellResult::Refused;
}

// One notice for all cells: a list has thousands.
void ImportModel::ShowPlan() {
  {
    const QSignalBlocker quiet(this);
    AcceptAllCells();
    for (int row = 1; row <= DataRows(); ++row) {
      if (RowAt(row).What != RowResult::Refused) continue;
      for (int column = 0; column < columnCount(); ++column) {
        if (IsRefused(row, column)) RefuseCell(row, column, ToQt(CellAt(row, column).Reason));
      }
    }
  }
  if (DataRows() > 0) emit dataChanged(index(0, 0), index(DataRows() - 1, columnCount() - 1));
}

std::string ImportModel::CellText(int row, int column) const {
  if (row < 1 || row > DataRows() || column < 0 || column >= columnCount()) return {};
  switch (ColumnAt(column).What) {
    case Shows::Number:
      return DecimalText(list_.Rows.at(static_cast<std::size_t>(row) - 1).Number);
    case Shows::Taken:
      return {};
    case Shows::Holes:
      return RowAt(row).RemovedHoles > 0 ? DecimalText(RowAt(row).RemovedHoles) : std::string();
    case Shows::Text:
      return CellAt(row, column).Text;
    case Shows::Words:
      return PlanText(RowAt(row));
  }
  return {};
}

// The tick of a cell; none for one without.
QVariant ImportModel::Tick(int row, int column) const {
  const PlannedSection& section = RowAt(row);
  const auto tick = [](bool set) { return QVariant(set ? Qt::Checked : Qt::Unchecked); };
  switch (ColumnAt(column).What) {
    case Shows::Taken:
      return tick(section.What != RowResult::LeftOut && section.What != RowResult::Refused);
    case Shows::Holes: {
      if (section.RemovedHoles == 0) return {};
      const PlannedCell& pattern = section.Cells.at(PunchingColumn);
      return tick(pattern.What != CellResult::HeldBack);
    }
    default:
      return {};
  }
}

QVariant ImportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= DataRows()) return {};
  const int row = index.row() + 1;
  const int column = index.column();
  const PlannedSection& section = RowAt(row);
  const bool text = ColumnAt(column).What == Shows::Text;
  if (role == Qt::CheckStateRole) return Tick(row, column);
  if (role == Qt::ForegroundRole && column > 0 &&
      (section.What == RowResult::LeftOut || section.What == RowResult::Same)) {
    return QColor(PassedOver);
  }
  const bool changed =
      text && section.What == RowResult::Changed && CellAt(row, column).What == CellResult::Changed;
  if (role == Qt::FontRole && changed) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  const QVariant shown = FlexGridModel::data(index, role);
  if ((role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) && shown.isNull()) {
    if (changed) return ToQt("was " + CellAt(row, column).From);
    if (text && CellAt(row, column).What == CellResult::HeldBack) {
      return ToQt(CellAt(row, column).Reason);
    }
  }
  return shown;
}

// The table.

ImportTable::ImportTable(const SectionList& list, const SectionPlan& plan, QWidget* parent)
    : ImportTable(new ImportModel(list, plan, ColumnsOf(list), nullptr), parent) {}

ImportTable::ImportTable(ImportModel* model, QWidget* parent)
    : FlexGrid(model, parent), model_(*model), editor_(*this, *this, Cells(), "SSPanelEdit") {
  model->setParent(this);
  setObjectName("MSFlexGrid1");
  setAccessibleName("Rows of the list");
  // The keys rest here while no cell is edited.
  setFocusPolicy(Qt::TabFocus);
  std::vector<int> shares;
  std::vector<int> figures;
  for (int column = 0; column < model->columnCount(); ++column) {
    shares.push_back(ShareOf(model->ColumnAt(column)));
    figures.push_back(column == 0 || IsNumber(model->ColumnAt(column)) ? MostFigures : 0);
  }
  SetColumnRatio(std::move(shares), std::move(figures));
  SetCurrent(1, FirstTextColumn());
  model_.SetGreyRow(Row());
  CellPressed = [this](int row, int column, Qt::MouseButton, QPoint) {
    const Shows what = model_.ColumnAt(column).What;
    if (what == Shows::Text) return GoToCell(row, column);
    ShowRow(row);
    const bool ticks =
        what == Shows::Taken || (what == Shows::Holes && !TextMatrix(row, column).empty());
    if (ticks && Ticked) Ticked(row, what);
  };
}

CellTable ImportTable::Cells() {
  CellTable cells;
  cells.EditOf = [this](int, int column) {
    const bool edited = column > 0 && model_.ColumnAt(column).What == Shows::Text;
    return edited ? CellEdit::Text : CellEdit::None;
  };
  cells.Take = [this](int row, int column, const std::string& text) {
    if (Mended) Mended(row, model_.ColumnAt(column).Column, text);
  };
  cells.TakesAtOnce = false;
  cells.GoesToEnds = true;
  cells.MoveTo = [this](int row, int column) { GoToCell(row, column); };
  cells.Enter = [this] {
    if (model_.DataRows() == 0) return false;
    GoToCell(std::max(1, Row()), std::max(FirstTextColumn(), Col()));
    return true;
  };
  return cells;
}

int ImportTable::FirstTextColumn() const {
  return model_.Find(Shows::Text, MarkColumn);
}

bool ImportTable::HasHoles() const {
  return model_.Find(Shows::Holes) > 0;
}

void ImportTable::ShowPlan() {
  model_.ShowPlan();
  FitFigures();
}

void ImportTable::GoToCell(int row, int column) {
  Commit();
  SetCurrent(row, column);
  model_.SetGreyRow(Row());
  EnsureVisible(row, column);
  editor_.Open(row, column);
  if (Moved) Moved();
}

void ImportTable::ShowRow(int row) {
  Commit();
  editor_.Forget();
  setFocus();
  editor_.Hide();
  SetCurrent(row, std::max(FirstTextColumn(), Col()));
  model_.SetGreyRow(Row());
  EnsureVisible(row, 0);
  if (Moved) Moved();
}

bool ImportTable::GoToRefused() {
  Commit();
  const int columns = model_.columnCount();
  const int cells = model_.DataRows() * columns;
  // From where the cursor is, else from the top.
  const int start = editor_.EditRow() == 0 ? -1 : (Row() - 1) * columns + Col();
  for (int step = 1; step <= cells; ++step) {
    const int at = (start + step) % cells;
    const int row = at / columns + 1;
    if (!model_.IsRefused(row, at % columns)) continue;
    GoToCell(row, at % columns);
    return true;
  }
  return false;
}

}  // namespace orvane
