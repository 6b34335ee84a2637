// Choosing rows in the sections grid, by the mouse on their letters and by keys from a cell, and
// what a command does to several of them.
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/model.h"
#include "core/numbers.h"
#include "project/rules/chosen_sections.h"
#include "project/rules/section_columns.h"
#include "ui/platform/busy.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"
#include "ui/sections_grid.h"
#include "ui/sections_model.h"

namespace orvane {

namespace {

// Nothing of the field's text, be it empty, is left unselected.
bool IsAllSelected(const QLineEdit& field) {
  return field.selectedText().size() == field.text().size();
}

// A letter or a figure, which a list takes for the beginning of an entry's name.
bool IsLetter(const QKeyEvent& key) {
  constexpr Qt::KeyboardModifiers command =
      Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return !key.text().isEmpty() && key.text().front().isPrint() && !(key.modifiers() & command);
}

// The rows by which a key draws a choice out, Shift being held.
std::optional<int> StretchOf(const QKeyEvent& key, int page) {
  const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
  if (held != Qt::ShiftModifier) return std::nullopt;
  switch (key.key()) {
    case Qt::Key_Up:
      return -1;
    case Qt::Key_Down:
      return 1;
    case Qt::Key_PageUp:
      return -page;
    case Qt::Key_PageDown:
      return page;
    default:
      return std::nullopt;
  }
}

std::string CountedSections(std::size_t count) {
  return Counted(static_cast<long long>(count), "section");
}

}  // namespace

std::vector<int> SectionsGrid::ChosenRows() const {
  if (!choice_.Empty() && choice_.At() == grid_->Row()) return choice_.Rows();
  if (grid_->Row() < 1) return {};
  return {grid_->Row()};
}

// What there is, or what one begins as.
RowChoice SectionsGrid::Choice() const {
  RowChoice choice = choice_;
  if (choice.Empty()) choice.Begin(grid_->Row());
  return choice;
}

void SectionsGrid::Choose(RowChoice choice) {
  if (choice.Empty()) return EndChoice();
  choice_ = std::move(choice);
  choiceColumn_ = grid_->Col();
  const std::vector<int> rows = choice_.Rows();
  grid_->ShowChosen(rows);
  editor_.SetNote(rows.size() == 1 ? "chosen" : ToQt(CountedSections(rows.size()) + " chosen"));
}

void SectionsGrid::EndChoice() {
  if (choice_.Empty()) return;
  choice_ = {};
  grid_->ShowChosen({});
  editor_.SetNote({});
}

// A single row was chosen to be copied as one: in another of its cells a person is at its texts
// again.
void SectionsGrid::FollowCursor() {
  const bool stays =
      grid_->Row() == choice_.At() && (choice_.Count() > 1 || grid_->Col() == choiceColumn_);
  if (!stays) EndChoice();
}

void SectionsGrid::WatchChoice() {
  grid_->FixedPressed = [this](int row, Qt::KeyboardModifiers held) {
    return FixedPressed(row, held);
  };
  grid_->FixedDragged = [this](int row) {
    if (GridBusy_ || refusing_ || choice_.Empty() || row > Items.UBound()) return;
    RowChoice further = choice_;
    further.StretchTo(row, RowChoice::Others::Stay);
    Choose(std::move(further));
    grid_->EnsureVisible(row, LetterColumn);
  };
  auto* field = findChild<QLineEdit*>("txtEdit");
  field->installEventFilter(this);
  cboEdit_->installEventFilter(this);
  // What is typed goes into one section alone.
  connect(field, &QLineEdit::textEdited, this, [this] { EndChoice(); });
  connect(cboEdit_, &QComboBox::activated, this, [this] { EndChoice(); });
  // Who picks letters out of a cell wants to copy these.
  connect(field, &QLineEdit::selectionChanged, this, [this, field] {
    if (choice_.Count() == 1 && !IsAllSelected(*field)) EndChoice();
  });
}

// By the mouse.

// The cursor goes to the row that is pressed; with Shift it stays and the rows from its own to that
// one are chosen, with Ctrl one more or one less is. Both together add the rows between to others.
// True if it can be dragged on from there.
bool SectionsGrid::FixedPressed(int row, Qt::KeyboardModifiers held) {
  if (GridBusy_ || refusing_ || row > Items.UBound()) return false;
  const Busy busy(GridBusy_);
  const bool ctrl = held.testFlag(Qt::ControlModifier);
  if (held.testFlag(Qt::ShiftModifier) && grid_->Row() >= 1) {
    RowChoice further = Choice();
    further.StretchTo(row, ctrl ? RowChoice::Others::Stay : RowChoice::Others::Go);
    if (!MoveTo(grid_->Row(), grid_->Col())) return false;
    Choose(std::move(further));
    return true;
  }
  if (ctrl) return ChooseFurther(row);
  if (!MoveTo(row, MarkColumn)) return false;
  RowChoice alone;
  alone.Begin(row);
  Choose(std::move(alone));
  return true;
}

bool SectionsGrid::ChooseFurther(int row) {
  RowChoice further = choice_;
  const bool gone = further.Has(row);
  if (gone) {
    further.Remove(row);
  } else {
    if (grid_->Row() >= 1) further = Choice();
    further.Add(row);
  }
  const int at = further.Empty() ? grid_->Row() : further.At();
  if (!MoveTo(at, at == grid_->Row() ? grid_->Col() : MarkColumn)) return false;
  Choose(std::move(further));
  return !gone;
}

// By keys.

bool SectionsGrid::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::KeyPress && !GridBusy_ && !refusing_) {
    Guard([&] { taken = ChoosesByKey(watched, *static_cast<QKeyEvent*>(event)); });
  }
  return taken || QWidget::eventFilter(watched, event);
}

// Escape that no cell has taken for itself. One press does one thing; of a single row the bar goes
// unnoticed.
void SectionsGrid::keyPressEvent(QKeyEvent* event) {
  const bool ends = event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier;
  const bool several = choice_.Count() > 1;
  if (ends) Guard([this] { EndChoice(); });
  if (!ends || !several) QWidget::keyPressEvent(event);
}

bool SectionsGrid::ChoosesByKey(const QObject* watched, const QKeyEvent& key) {
  if (watched == cboEdit_ && IsLetter(key)) EndChoice();
  // The keys of letters that a list waits with are the list's.
  if (grid_->Row() < 1 || cboEdit_->Typed().Pending()) return false;
  if (key.key() == Qt::Key_A && key.modifiers() == Qt::ControlModifier) return ChooseAll(watched);
  return StretchBy(key);
}

// The cursor stays where it is, so that its cell can be filled into the others; what comes into
// sight is the end that moves.
bool SectionsGrid::StretchBy(const QKeyEvent& key) {
  const std::optional<int> step = StretchOf(key, grid_->PageRows());
  if (!step) return false;
  RowChoice further = Choice();
  const int last = std::max(1, grid_->Rows() - 1);
  const int end = std::clamp(further.End() + *step, 1, last);
  further.StretchTo(end);
  if (further.Count() == 1) {
    EndChoice();
  } else {
    Choose(std::move(further));
  }
  grid_->EnsureVisible(end, grid_->Col());
  return true;
}

// The first Ctrl+A selects the text of a cell that is being edited, which this leaves to its field.
bool SectionsGrid::ChooseAll(const QObject* watched) {
  const auto* field = qobject_cast<const QLineEdit*>(watched);
  if (field != nullptr && !IsAllSelected(*field)) return false;
  if (Items.UBound() < 2) return false;
  RowChoice all;
  all.All(Items.UBound(), grid_->Row());
  Choose(std::move(all));
  return true;
}

// The commands.

// Rows were appended from that one on. The cursor is in its mark; several stand chosen.
void SectionsGrid::ChooseAppended(std::int16_t first, ShownHoles holes) {
  mirroredRow_ = holes == ShownHoles::AsTheyStand ? first : 0;
  Select(first, MarkColumn, holes);
  GridEnterCell();
  RowChoice appended;
  appended.Begin(first);
  appended.StretchTo(Items.UBound());
  if (appended.Count() > 1) Choose(std::move(appended));
}

void SectionsGrid::DuplicateChosen() {
  const std::vector<int> rows = ChosenRows();
  if (rows.size() < 2) return Duplicate(grid_->Row());
  if (!SettleEditor()) return;
  const Busy busy(GridBusy_);
  ChooseAppended(Append([&] { return DuplicateSectionRows(rows); }), ShownHoles::Afresh);
}

void SectionsGrid::CreateOppHandChosen() {
  const std::vector<int> rows = ChosenRows();
  if (rows.size() < 2) return CreateOppHand(grid_->Row());
  if (!SettleEditor()) return;
  const Busy busy(GridBusy_);
  ChooseAppended(Append([&] { return OppositeHandSectionRows(rows); }), ShownHoles::AsTheyStand);
}

void SectionsGrid::DeleteChosen() {
  const std::vector<int> rows = ChosenRows();
  if (rows.size() < 2) return DeleteItem(grid_->Row());
  const std::string question = "Remove " + CountedSections(rows.size()) + "?";
  if (TheDesktop().ShowMessageBox(question, "", Buttons::YesNo, Icon::None) != Answer::Yes) return;
  TakeOut(rows, ChangeKind::DeleteSections);
}

// The cursor's row is then the one that has come up into the place of the first that went.
void SectionsGrid::TakeOut(const std::vector<int>& rows, ChangeKind kind) {
  const Busy busy(GridBusy_);
  ForgetEditors();
  const std::vector<int> formerRows = DeleteSectionRows(rows, kind);
  model_->MoveRefusals(formerRows);
  detail_->MoveUndecided(formerRows);
  grid_->SetCurrent(rows.front(), grid_->Col());
  ShowCurrentRow();
}

// An error leaves the others going on, and is
// told of its section.
void SectionsGrid::ConvertChosen() {
  const std::vector<int> rows = ChosenRows();
  if (rows.size() < 2) {
    if (!rows.empty()) detail_->ConvertToCustom(Int16(rows.front()));
    return;
  }
  std::string errors;
  const bool done = RunOnRows([&] {
    errors = ConvertSectionRows(rows);
    return 0;
  });
  if (done && !errors.empty()) TheDesktop().Message(errors);
}

}  // namespace orvane
