#include "ui/sections_grid.h"

#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/model.h"
#include "project/rules/section_columns.h"
#include "project/rules/section_details.h"
#include "project/section_look.h"
#include "project/step_kinds.h"
#include "ui/commands.h"
#include "ui/platform/busy.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"
#include "ui/sections_model.h"

namespace orvane {

namespace {

std::int16_t ItemRow(int row) {
  return Int16(row);
}

bool IsEdited(int row, int column) {
  return SectionCellEdit(ItemRow(row), column) != CellEdit::None;
}

// The column whose cells make changes of that kind.
std::optional<int> ColumnOf(ChangeKind kind) {
  for (int column = MarkColumn; column < SectionColumns; ++column) {
    if (SectionColumnAt(column).Kind == kind) return column;
  }
  return std::nullopt;
}

// Every text that the grid shows, to tell whether filling it anew changed one.
std::vector<std::string> ShownTexts(const FlexGrid& grid) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(grid.Rows()) * static_cast<std::size_t>(SectionColumns));
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 0; column < SectionColumns; ++column) {
      texts.push_back(grid.TextMatrix(row, column));
    }
  }
  return texts;
}

}  // namespace

SectionsGrid::SectionsGrid(QWidget* parent)
    : QWidget(parent),
      model_(new SectionsModel(this)),
      grid_(new FlexGrid(model_, this)),
      editor_(*grid_, *this, Cells(), "sspEditText"),
      cboEdit_(&editor_.AddChoices(ProductColumn, "sspEditCombo", "cboEdit")) {
  // A stop on the way by Tab, which leads on to the cursor's cell.
  setFocusPolicy(Qt::TabFocus);
  grid_->setObjectName("MSFlexGrid1");
  // Here the cursor rests beside the cells.
  setAccessibleName("Sections");
  grid_->setAccessibleName("Sections");
  grid_->SetEmptyText("No sections yet. " + ToQt(FamilyKeys()) +
                      " add the first one, Ctrl+V those of a spreadsheet.");
  grid_->SetColumnRatio(SectionsModel::WidthShares(), SectionsModel::LeastFigures());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(grid_);

  grid_->CellPressed = [this](int row, int column, Qt::MouseButton button, QPoint) {
    CellPressed(row, column, button);
  };
  WatchChoice();
  grid_->MenuAsked = [this](QPoint globalPos) {
    if (!refusing_) emit MenuAsked(globalPos);
  };
}

void SectionsGrid::Follow(const ChangeNotice& change) {
  switch (change.Kind) {
    case ChangeKind::AddSection:
    case ChangeKind::Duplicate:
    case ChangeKind::OppositeHand:
    case ChangeKind::NextSection:
      // After an error too: the row stays as far as it came.
      model_->FollowAppended();
      return grid_->FitFigures();
    case ChangeKind::Delete:
    case ChangeKind::Sort:
      if (!change.Failed) DisplayItems(true);
      return;
    case ChangeKind::Product:
      model_->FollowRow(change.Row);
      return model_->ShowRecord(change.Row, ProductColumn);
    case ChangeKind::Mark:
    case ChangeKind::Length:
    case ChangeKind::Quantity:
      model_->FollowRow(change.Row);
      return grid_->FitFigures();
    case ChangeKind::MaxDims:
      return model_->FollowLimits();
    default:
      // After an error too.
      if (RuleOf(change.Kind).Subject == ChangeSubject::Sections) DisplayItems(true);
      return;
  }
}

void SectionsGrid::Connect(DetailPanel& detail, SheetView& sheet) {
  detail_ = &detail;
  sheet_ = &sheet;
}

// Commands.

// Appends a row to Items. After an error the row stays as far as it came, and the cell edited
// before is edited on.
std::int16_t SectionsGrid::Append(const std::function<std::int16_t()>& append) {
  const int former = Items.UBound();
  try {
    return append();
  } catch (...) {
    if (Items.UBound() > former) Change(ChangeKind::GridTexts);
    GridEnterCell();
    throw;
  }
}

void SectionsGrid::AddSection(const std::string& Letter) {
  if (!SettleEditor()) return;
  const Busy busy(GridBusy_);
  const std::int16_t row = Append([&] { return AddSectionRow(Letter); });
  Select(row, MarkColumn);
  EditSectionType_ = Letter;
  FillSectionCombo(Letter);
  detail_->FillPatternCombo(Letter);
  detail_->SetDetailPanel(Letter, row);
  detail_->ClearDetailPanel();
  ClearCurrentSection(Letter, TheDesktop().Now().Day);
  GridEnterCell();
}

// What is left to type of a further section like that one is how many there are of it.
void SectionsGrid::NextSection(int ItemIndex) {
  if (ItemIndex < 1 || !SettleEditor()) return;
  const Busy busy(GridBusy_);
  const std::int16_t row = Append([&] { return NextSectionRow(ItemRow(ItemIndex)); });
  Select(row, QuantityColumn);
  GridEnterCell();
}

void SectionsGrid::Duplicate(int ItemIndex) {
  if (ItemIndex < 1 || !SettleEditor()) return;
  const Busy busy(GridBusy_);
  const std::int16_t row = Append([&] { return DuplicateRow(ItemRow(ItemIndex)); });
  Select(row, MarkColumn);
  GridEnterCell();
}

// The new row is shown once with its holes as they are mirrored; from the next move on the pattern
// puts them.
void SectionsGrid::CreateOppHand(int ItemIndex) {
  if (ItemIndex < 1 || !SettleEditor()) return;
  const Busy busy(GridBusy_);
  const std::int16_t row = Append([&] { return CreateOppHandRow(ItemRow(ItemIndex)); });
  mirroredRow_ = row;
  Select(row, MarkColumn, ShownHoles::AsTheyStand);
  GridEnterCell();
}

bool SectionsGrid::IsMirrorShown() {
  if (mirroredRow_ == 0 || sheet_->ShownRow() != mirroredRow_) return false;
  // Once its holes stand as the pattern puts them, they stay so.
  if (!ShowsMirroredPattern(ItemRow(mirroredRow_))) mirroredRow_ = 0;
  return mirroredRow_ != 0;
}

void SectionsGrid::DeleteItem(int ItemIndex) {
  if (ItemIndex < 1 || ItemIndex > Items.UBound()) return;
  const std::string question = "Remove mark " + Items.At(ItemIndex).Mark + "?";
  if (TheDesktop().ShowMessageBox(question, "", Buttons::YesNo, Icon::None) != Answer::Yes) return;
  const Busy busy(GridBusy_);
  ForgetEditors();
  DeleteItemRow(ItemRow(ItemIndex));
  model_->AcceptRow(ItemIndex);
  detail_->ForgetRow(ItemIndex);
  Change(ChangeKind::GridTexts);  // the grid has a row less
  ShowCurrentRow();
}

void SectionsGrid::SortItems(SortKey Key) {
  if (Items.UBound() < 2) return;
  const Busy busy(GridBusy_);
  const std::vector<std::string> former = ShownTexts(*grid_);
  ForgetEditors();
  // What was left undecided goes with its section.
  const std::vector<int> formerRows = SortItemRows(Key);
  model_->MoveRefusals(formerRows);
  detail_->MoveUndecided(formerRows);
  if (ShownTexts(*grid_) != former) Change(ChangeKind::GridTexts);
  ShowCurrentRow();
}

bool SectionsGrid::RunOnRows(const std::function<int()>& command) {
  if (!SettleEditor()) return false;
  const Busy busy(GridBusy_);
  RowChoice kept = choice_;
  const int rows = Items.UBound();
  ForgetEditors();
  int row = 0;
  try {
    row = command();
  } catch (...) {
    ShowCurrentRow();
    throw;
  }
  if (row > 0) grid_->SetCurrent(row, grid_->Col());
  ShowCurrentRow();
  if (Items.UBound() == rows && grid_->Row() == kept.At()) Choose(std::move(kept));
  return true;
}

// Showing.

void SectionsGrid::DisplayItems(bool keepRow) {
  ForgetEditors();
  EndChoice();
  if (!keepRow) ForgetUndecided();
  MakeCurrent(0);
  mirroredRow_ = 0;
  // Its row may stand for another section now.
  sheet_->Clear();
  model_->Refill();
  grid_->FitFigures();
  grid_->SetCurrent(keepRow ? grid_->Row() : 0, keepRow ? grid_->Col() : 0);
}

void SectionsGrid::ForgetUndecided() {
  model_->AcceptAllCells();
  detail_->ForgetUndecided();
}

void SectionsGrid::SelectFirstItem() {
  if (grid_->Rows() < 2) return;
  const Busy busy(GridBusy_);
  Select(1, MarkColumn);
  GridEnterCell();
}

// What Delete and Sort show behind the refill: the row number stays, the section behind it is
// another.
void SectionsGrid::ShowCurrentRow(ShownHoles holes, bool entersCell) {
  if (grid_->Row() == 0 && grid_->Rows() > 1) grid_->SetCurrent(1, MarkColumn);
  const int row = grid_->Row();
  if (row == 0) {
    detail_->ClearDetailPanel();
    sheet_->Clear();
    return;
  }
  if (grid_->Col() < MarkColumn) grid_->SetCurrent(row, MarkColumn);
  EditSectionType_ = Items.At(row).SectionType;
  FillSectionCombo(EditSectionType_);
  detail_->FillPatternCombo(EditSectionType_);
  bool drawn = false;
  LookAndSay(ItemRow(row), [&] { drawn = ShowRow(row, holes); });
  grid_->EnsureVisible(row, grid_->Col());
  if (entersCell) EnterSlidCell();
  if (!drawn) LookAndSay(ItemRow(row), [&] { detail_->ShowHolesAsTheyStand(ItemRow(row)); });
}

// Nobody came into the cell: it slid under the cursor, and what was left undecided in it stays so.
void SectionsGrid::EnterSlidCell() {
  const int row = grid_->Row();
  const QString undecided = model_->RefusalOfCell(row, grid_->Col());
  GridEnterCell();
  if (undecided.isEmpty()) return;
  model_->RefuseCell(row, grid_->Col(), undecided);
  editor_.ShowRefusal(undecided);
}

void SectionsGrid::ShowRestored(const RestoredStep& step, bool entersCell) {
  const Busy busy(GridBusy_);
  ForgetEditors();
  if (step.RowsMoved || step.Several) {
    if (step.RowsMoved) {
      model_->MoveRefusals(step.FormerRows);
      detail_->MoveUndecided(step.FormerRows);
    }
    DisplayItems(true);
  } else if (step.Row >= 1) {
    for (int column = MarkColumn; column < SectionColumns; ++column) {
      model_->ShowRecord(step.Row, column);
    }
    model_->FollowRow(step.Row);
    grid_->FitFigures();
  }
  const int row = std::min(step.Row >= 1 ? step.Row : grid_->Row(), grid_->Rows() - 1);
  if (row >= 1) grid_->SetCurrent(row, ColumnOf(step.Kind).value_or(grid_->Col()));
  FollowCursor();
  MakeCurrent(0);
  // A section that comes under the cursor because another has gone is looked at as behind Delete.
  const bool moved = step.Redone && (TakesAway(step.Kind) || step.Kind == ChangeKind::Sort);
  // It may be an opposite hand as it stood before its pattern was put in its place.
  mirroredRow_ = row;
  const int hole = detail_->MarkedHole();
  ShowCurrentRow(moved ? ShownHoles::Afresh : ShownHoles::AsTheyStand,
                 entersCell || step.RowsMoved || step.Several);
  if (!entersCell) detail_->MarkHole(hole);
}

// The row that is worked on, and that a dialog opened next works on, bears the grey.
void SectionsGrid::MakeCurrent(std::int16_t row) {
  // Both rows are painted afresh: the one that is left bears its signs.
  model_->EnterRow(row);
  model_->SetGreyRow(row);
  CurrentItem = row;
}

// The detail panel and the grey row for a row that becomes the current one. True when it has a
// pattern, with which the sheet was drawn.
bool SectionsGrid::ShowRow(int row, ShownHoles holes) {
  const std::int16_t item = ItemRow(row);
  const std::string& letter = Items.At(row).SectionType;
  // The row is the current one from here on, whatever fails below.
  MakeCurrent(item);
  const bool drawn = detail_->SetDetailPanel(letter, item, holes);
  detail_->FillHoleGrid(item);
  if (HasPitch(letter)) detail_->ShowPitch(item);
  if (HasJointingPieces(letter)) detail_->ShowJointingPieces(item);
  return drawn;
}

void SectionsGrid::FillSectionCombo(const std::string& Letter) {
  cboEdit_->Fill(SectionProducts(Letter));
}

// Moving.

// The one way in which a key or a click moves the current cell: the cell left is validated, then
// row and column change in one step. False when the cell left was refused.
bool SectionsGrid::MoveTo(int row, int column) {
  if (row != grid_->Row() || column != grid_->Col()) {
    if (!LeaveCell()) return false;
    // The panel's lists are left too when the row changes under them.
    detail_->SettleLists();
    Select(row, PassOver(row, column));
  }
  GridEnterCell();
  return true;
}

// The column itself, or the nearest that is edited where this one isn't, such as the product of a
// rail: left of it if the cursor comes from the right, else right of it, and back at the last one.
int SectionsGrid::PassOver(int row, int column) {
  if (IsEdited(row, column)) return column;
  const int step = std::exchange(EditPrevCol_, column) > column ? -1 : 1;
  for (const int toward : {step, -step}) {
    for (int to = column + toward; to > 0 && to < SectionColumns; to += toward) {
      if (IsEdited(row, to)) return to;
    }
  }
  return MarkColumn;
}

// Makes a cell the current one and runs the row change.
void SectionsGrid::Select(int row, int column, ShownHoles holes) {
  // What went wrong while the row now left was typed is told before it is out of sight.
  if (row != grid_->Row()) {
    DrawTyped();
    SayErrors();
  }
  grid_->SetCurrent(row, column);
  grid_->EnsureVisible(row, column);
  LookAndSay(ItemRow(row), [&] { GridRowChange(holes); });
}

// The part of the row change behind the validation.
void SectionsGrid::GridRowChange(ShownHoles holes) {
  const int row = grid_->Row();
  if (row == 0) return;
  const std::string letter = grid_->TextMatrix(row, LetterColumn);
  if (letter != EditSectionType_) {
    EditSectionType_ = letter;
    FillSectionCombo(letter);
    detail_->FillPatternCombo(letter);
  }
  typed_ = false;
  // A row that is shown anew is rebuilt and drawn on the way, once.
  if (row != CurrentItem && ShowRow(row, holes)) return;
  if (holes == ShownHoles::Afresh) {
    detail_->RebuildShownHoles(ItemRow(row));
  } else {
    detail_->ShowHolesAsTheyStand(ItemRow(row));
  }
}

void SectionsGrid::GoTo(int row, int column) {
  const Busy busy(GridBusy_);
  MoveTo(row, column);
}

void SectionsGrid::LookAt(int row, int column) {
  if (row < 1 || row >= grid_->Rows() || !SettleEditor()) return;
  const Busy busy(GridBusy_);
  editor_.Hide();
  detail_->SettleLists();
  grid_->SetCurrent(row, column);
  FollowCursor();
  grid_->EnsureVisible(row, column);
  LookAtSection(ItemRow(row), [&] { GridRowChange(ShownHoles::Afresh); });
}

int SectionsGrid::UndecidedRow() const {
  return model_->FirstRefusedCell().first;
}

// A press beside the columns that are edited means the mark.
// The menu of the right button is for all chosen rows, if it is opened on one of them.
void SectionsGrid::CellPressed(int row, int column, Qt::MouseButton button) {
  if (GridBusy_ || refusing_ || row > Items.UBound()) return;
  const Busy busy(GridBusy_);
  RowChoice kept = choice_;
  const bool keeps = button == Qt::RightButton && kept.Count() > 1 && kept.Has(row);
  if (!MoveTo(row, IsEdited(row, column) ? column : MarkColumn) || !keeps) return;
  kept.Add(row);
  Choose(std::move(kept));
}

}  // namespace orvane
