#include "ui/dialogs/acc02_table.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/catalogues.h"
#include "core/runtime_error.h"
#include "project/rules/accessory_rules.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int AccMarkColumn = 1;
constexpr int AccNoOffColumn = 2;

// Sizes of the table in twips.
constexpr int AccFixedColumn = 180;
constexpr int AccLeastColumn = 850;
constexpr int AccRowHeight = 270;

constexpr int LeastLinesInSight = 4;

// Twips as device-independent pixels, of which an inch has 96; a part of one counts whole.
constexpr int PixelsOf(int twips) {
  constexpr int TwipsPerPixel = 1440 / 96;
  return (twips + TwipsPerPixel - 1) / TwipsPerPixel;
}

std::vector<std::string> HeadingsOf(std::int16_t AccIndex) {
  const AccDef& accessory = AccDefs.At(AccIndex);
  std::vector<std::string> headings = {""};
  for (int param = 1; param <= accessory.ParamCount(); ++param) {
    headings.push_back(accessory.ParamNames.At(param));
  }
  return headings;
}

// The titles over the columns; none for an accessory without groups. A group that runs past the
// last column ends there.
std::vector<std::string> GroupTitlesOf(std::int16_t AccIndex) {
  const AccDef& accessory = AccDefs.At(AccIndex);
  if (accessory.Groups.Empty()) return {};
  std::vector<std::string> titles(static_cast<std::size_t>(accessory.ParamCount()) + 1);
  for (const AccGroup& group : accessory.Groups) {
    const int first = std::max<int>(group.FirstParam, AccMarkColumn);
    const int last = std::min<int>(group.FirstParam + group.GroupValue - 1, accessory.ParamCount());
    for (int column = first; column <= last; ++column) {
      titles.at(static_cast<std::size_t>(column)) = group.Title;
    }
  }
  return titles;
}

bool IsLineEnd(QChar c) {
  return c == u'\r' || c == u'\n';
}

// A cell holds one line: the line ends that a cell of a spreadsheet brings along are left out, and
// those inside a text become a blank.
QString InOneLine(const QString& text) {
  QString line;
  bool broken = false;
  for (const QChar c : text) {
    if (IsLineEnd(c)) {
      broken = true;
      continue;
    }
    if (broken && !line.isEmpty()) line += u' ';
    broken = false;
    line += c;
  }
  return line;
}

bool IsControl(QChar c) {
  return c < u' ' || c == u'\u007F';
}

// Options ends with the last parameter of the catalogue and has no row without one.
bool HasChoices(const AccDef& accessory, int column) {
  return column <= accessory.Options.UBound() && accessory.Options.At(column).OptionCount() > 0;
}

}  // namespace

// The rows.

Acc02Model::Acc02Model(std::int16_t AccIndex, TextRows rows, QObject* parent)
    : FlexGridModel(HeadingsOf(AccIndex), parent),
      columns_(AccDefs.At(AccIndex).ParamCount()),
      rows_(std::move(rows)) {
  SetFixedColumns(1);
  SetGroupTitles(GroupTitlesOf(AccIndex));
  for (Table<std::string>& row : rows_) row.Resize(columns_);
  if (rows_.Empty()) rows_.Append(BlankRow());
}

std::string Acc02Model::CellText(int row, int column) const {
  if (row < 1 || row > rows_.UBound() || column < 1 || column > columns_) return {};
  return rows_.At(row).At(column);
}

void Acc02Model::SetText(int row, int column, std::string text) {
  rows_.At(row).At(column) = std::move(text);
  CellChanged(row, column);
}

void Acc02Model::Append() {
  beginInsertRows({}, rows_.UBound(), rows_.UBound());
  rows_.Append(BlankRow());
  endInsertRows();
}

void Acc02Model::Remove(int row) {
  beginRemoveRows({}, row - 1, row - 1);
  rows_.Remove(row);
  endRemoveRows();
}

void Acc02Model::Clear() {
  beginResetModel();
  rows_.Clear();
  rows_.Append(BlankRow());
  endResetModel();
}

Table<std::string> Acc02Model::BlankRow() const {
  Table<std::string> row;
  row.Resize(columns_);
  return row;
}

// The table.

Acc02Table::Acc02Table(std::int16_t AccIndex, QWidget* parent) : QWidget(parent) {
  BuildGrid(AccIndex);
  BuildEditors(AccIndex);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MSFlexGrid1_);
  setFocusProxy(MSFlexGrid1_);
}

void Acc02Table::BuildGrid(std::int16_t AccIndex) {
  model_ = new Acc02Model(AccIndex, AccessoryRows(AccIndex), this);
  MSFlexGrid1_ = new FlexGrid(model_, this);
  MSFlexGrid1_->setObjectName("MSFlexGrid1");
  MSFlexGrid1_->setAccessibleName("Lines");
  MSFlexGrid1_->SetColumnsByHeading(PixelsOf(AccFixedColumn), PixelsOf(AccLeastColumn));
  MSFlexGrid1_->SetLeastRowHeight(PixelsOf(AccRowHeight));
  MSFlexGrid1_->setMinimumHeight(MSFlexGrid1_->HeightOf(LeastLinesInSight));
  // The keys rest here while no cell is edited.
  MSFlexGrid1_->setFocusPolicy(Qt::TabFocus);
  MSFlexGrid1_->installEventFilter(this);
  MSFlexGrid1_->CellPressed = [this](int row, int column, Qt::MouseButton, QPoint) {
    if (column >= AccMarkColumn) StartEditing(row, column);
  };
  MSFlexGrid1_->Scrolled = [this] { PlaceEditor(); };
  MSFlexGrid1_->SetCurrent(1, AccMarkColumn);
  model_->SetGreyRow(1);
}

void Acc02Table::BuildEditors(std::int16_t AccIndex) {
  txtEdit_ = new QLineEdit;
  txtEdit_->setObjectName("txtEdit");
  txtEdit_->setPalette(CellColours(txtEdit_->palette()));
  SSPanelEdit_ = MakePanel("SSPanelEdit", txtEdit_);
  const AccDef& accessory = AccDefs.At(AccIndex);
  for (int column = AccMarkColumn; column <= accessory.ParamCount(); ++column) {
    if (!HasChoices(accessory, column)) continue;
    auto* choices = new PlainCombo;
    choices->setObjectName(IndexedName("cboEdit", column));
    choices->setAccessibleName(ToQt(accessory.ParamNames.At(column)));
    choices->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    // The list is as wide as its texts, however narrow the column.
    choices->view()->setTextElideMode(Qt::ElideNone);
    choices->Fill(accessory.Options.At(column).OptionTexts);
    choices->view()->setMinimumWidth(choices->sizeHint().width());
    connect(choices, &QComboBox::activated, this, [this] { chosen_ = true; });
    sspEditCombo_[column] = MakePanel(IndexedName("sspEditCombo", column), choices);
    cboEdit_[column] = choices;
  }
}

QFrame* Acc02Table::MakePanel(const QString& name, QWidget* editor) {
  auto* panel = new QFrame(MSFlexGrid1_->viewport());
  panel->setObjectName(name);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(editor);
  editor->installEventFilter(this);
  panel->hide();
  return panel;
}

PlainCombo* Acc02Table::ChoicesOf(int column) const {
  const auto found = cboEdit_.find(column);
  return found == cboEdit_.end() ? nullptr : found->second;
}

// Editing.

void Acc02Table::Commit() {
  if (EditRow_ == 0) return;
  if (PlainCombo* choices = ChoicesOf(EditCol_)) {
    // A text that the list doesn't have stays as long as nothing is chosen for it.
    if (chosen_) model_->SetText(EditRow_, EditCol_, choices->Text());
    chosen_ = false;
  } else if (txtEdit_->text() != openedText_) {
    openedText_ = txtEdit_->text();
    model_->SetText(EditRow_, EditCol_, FromQt(InOneLine(openedText_)));
  }
}

void Acc02Table::StartEditing(int row, int column) {
  Commit();
  EditRow_ = 0;
  EditCol_ = 0;
  MSFlexGrid1_->SetCurrent(row, column);
  model_->SetGreyRow(row);
  MSFlexGrid1_->EnsureVisible(row, column);
  const std::string text = MSFlexGrid1_->TextMatrix(row, column);
  PlainCombo* choices = ChoicesOf(column);
  QFrame* former = openPanel_;
  if (choices != nullptr) {
    // Letters typed in the cell before don't go on here.
    choices->SearchAfresh();
    choices->SelectQuietly(FindComboIndex(choices->Entries(), text));
    openPanel_ = sspEditCombo_.at(column);
  } else {
    txtEdit_->setText(ToQt(text));
    txtEdit_->setAccessibleName(ToQt(MSFlexGrid1_->TextMatrix(0, column)));
    txtEdit_->selectAll();
    openPanel_ = SSPanelEdit_;
  }
  openedText_ = txtEdit_->text();
  chosen_ = false;
  EditRow_ = row;
  EditCol_ = column;
  PlaceEditor();
  openPanel_->show();
  openPanel_->raise();
  if (choices != nullptr) {
    choices->setFocus();
  } else {
    txtEdit_->setFocus();
  }
  // Hidden only now: a control that is hidden with the focus in it gives it to anybody.
  if (former != nullptr && former != openPanel_) former->hide();
}

// Keeps the editor over its cell while the table moves under it.
void Acc02Table::PlaceEditor() {
  if (openPanel_ != nullptr && EditRow_ > 0) {
    openPanel_->setGeometry(MSFlexGrid1_->CellRect(EditRow_, EditCol_));
  }
}

// Hides the editor with what is typed in it.
void Acc02Table::CloseEditor() {
  EditRow_ = 0;
  EditCol_ = 0;
  MSFlexGrid1_->setFocus();
  if (openPanel_ != nullptr) openPanel_->hide();
  openPanel_ = nullptr;
}

// Lines.

void Acc02Table::AddLine() {
  Commit();
  model_->Append();
  StartEditing(model_->DataRows(), AccMarkColumn);
}

void Acc02Table::DeleteLine() {
  // Closed before the rows move up, or its text would land in the one that takes the place.
  CloseEditor();
  const int row = MSFlexGrid1_->Row();
  if (row < 1) return;
  const int column = MSFlexGrid1_->Col();
  model_->SetGreyRow(0);
  model_->Remove(row);
  MSFlexGrid1_->SetCurrent(row, column);
  model_->SetGreyRow(MSFlexGrid1_->Row());
}

void Acc02Table::ClearAll() {
  CloseEditor();
  model_->Clear();
  MSFlexGrid1_->SetCurrent(1, AccMarkColumn);
  model_->SetGreyRow(1);
}

void Acc02Table::GoTo(int row, int column) {
  if (column > 0) {
    StartEditing(row, column);
    return;
  }
  Commit();
  CloseEditor();
  MSFlexGrid1_->SetCurrent(row, std::max(AccMarkColumn, MSFlexGrid1_->Col()));
  model_->SetGreyRow(row);
  MSFlexGrid1_->EnsureVisible(row, MSFlexGrid1_->Col());
}

void Acc02Table::FillChoices(int column, const Table<std::string>& texts) {
  PlainCombo* choices = ChoicesOf(column);
  if (choices == nullptr) throw RuntimeError(Failure::SubscriptOutOfRange);
  choices->Fill(texts);
}

// Keys.

bool Acc02Table::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    // A box inside a change of focus would come while the mouse button is down.
    GuardFocusChange([&] { Commit(); });
    return QWidget::eventFilter(watched, event);
  }
  bool taken = false;
  Guard([&] {
    if (event->type() == QEvent::KeyPress) {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (watched == MSFlexGrid1_) {
        taken = GridKey(key);
      } else {
        taken = EditorKey(key) ||
                (watched == txtEdit_ ? DropsCharacter(key) : PlainCombo::ChoosesByKey(key));
      }
    } else if (event->type() == QEvent::InputMethod && watched == txtEdit_) {
      taken = DropsComposed(*static_cast<QInputMethodEvent*>(event));
    }
  });
  return taken || QWidget::eventFilter(watched, event);
}

// The keys of both editors; true when the key was one of them.
bool Acc02Table::EditorKey(const QKeyEvent& key) {
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  const int row = MSFlexGrid1_->Row();
  const int column = MSFlexGrid1_->Col();
  const int lastRow = model_->DataRows();
  const bool back = key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
  int toRow = row;
  int toColumn = column;
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (back && column > AccMarkColumn) {
        --toColumn;
      } else if (!back && column < MSFlexGrid1_->Cols() - 1) {
        ++toColumn;
      }
      break;
    case Qt::Key_Up:
      if (row > 1) --toRow;
      break;
    case Qt::Key_Down:
      if (row < lastRow) ++toRow;
      break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const int page = std::max(
          1, MSFlexGrid1_->viewport()->height() / std::max(1, MSFlexGrid1_->rowHeight(0)) - 1);
      toRow = std::clamp(key.key() == Qt::Key_PageUp ? row - page : row + page, 1, lastRow);
      break;
    }
    default:
      return false;
  }
  if (toRow != row || toColumn != column) StartEditing(toRow, toColumn);
  return true;
}

// From the table itself, where no cell is edited, the keys lead back into it, and so does typing.
bool Acc02Table::GridKey(const QKeyEvent& key) {
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  const bool typed = !key.text().isEmpty() && key.text().front().isPrint();
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
    case Qt::Key_Up:
    case Qt::Key_Down:
      break;
    default:
      if (!typed) return false;
      break;
  }
  if (model_->DataRows() == 0) return true;
  StartEditing(std::max(1, MSFlexGrid1_->Row()), std::max(AccMarkColumn, MSFlexGrid1_->Col()));
  if (typed) {
    QKeyEvent again(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat());
    PlainCombo* choices = ChoicesOf(EditCol_);
    QCoreApplication::sendEvent(choices != nullptr ? static_cast<QWidget*>(choices) : txtEdit_,
                                &again);
  }
  return true;
}

// Of typed characters a number off takes digits alone. What edits the text passes, and so does what
// comes from the clipboard.
bool Acc02Table::DropsCharacter(const QKeyEvent& key) const {
  // With Alt a letter is still typed into a field, and Ctrl with Alt types a third letter.
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier) {
    return false;
  }
  return !TakesCharacters(key.text());
}

// The same of what an input method has composed. The event goes on without what isn't taken, as it
// also ends the composing.
bool Acc02Table::DropsComposed(const QInputMethodEvent& composed) {
  QString taken = composed.commitString();
  if (TakesCharacters(taken)) return false;
  taken.removeIf([](QChar c) { return !IsDigit(c); });
  QInputMethodEvent rest(composed.preeditString(), composed.attributes());
  rest.setCommitString(taken, composed.replacementStart(), composed.replacementLength());
  QCoreApplication::sendEvent(txtEdit_, &rest);
  return true;
}

bool Acc02Table::TakesCharacters(const QString& typed) const {
  if (EditCol_ != AccNoOffColumn) return true;
  return std::all_of(typed.begin(), typed.end(),
                     [](QChar c) { return IsControl(c) || IsDigit(c); });
}

}  // namespace orvane
