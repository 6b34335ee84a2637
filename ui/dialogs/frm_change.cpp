#include "ui/dialogs/frm_change.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "core/numbers.h"
#include "project/rules/section_details.h"
#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The lines from top to bottom, and the place of each one's box.
enum class ChangeLine : std::size_t { Product, Pattern, SagBars, Pitch, Length, Quantity, Notes };

constexpr std::size_t At(ChangeLine line) {
  return static_cast<std::size_t>(line);
}

Table<std::string> EntriesOf(std::initializer_list<const char*> texts) {
  Table<std::string> table;
  for (const char* text : texts) table.Append(text);
  return table;
}

// The ways of changing a length and a note, in the order of their lists.
constexpr std::initializer_list<const char*> LengthWays = {"Set to", "Add"};
constexpr std::array LengthMeanings = {ChosenChange::LengthBy::Set, ChosenChange::LengthBy::Add};
constexpr std::initializer_list<const char*> NotesWays = {"Set to", "Append", "Replace"};
constexpr std::array NotesMeanings = {ChosenChange::NotesBy::Set, ChosenChange::NotesBy::Append,
                                      ChosenChange::NotesBy::Replace};
constexpr int ReplaceWay = 2;

constexpr std::initializer_list<const char*> SagBarNames = {"Spring Fix (18mm)", "Threaded (14mm)"};

constexpr int EntryRoom = 18;  // characters

}  // namespace

FrmChange::FrmChange(int sections, const std::string& letter, QWidget* parent)
    : PlainDialog(parent),
      cboProduct_(NewList("cboProduct", "Product", SectionProducts(letter))),
      cboPattern_(NewList("cboPattern", "Punching pattern", PatternNames(letter))),
      cboSagBars_(NewList("cboSagBars", "Sag bars", EntriesOf(SagBarNames))),
      cboPitch_(NewList("cboPitch", "Pitch", Pitches)),
      cboLengthBy_(NewList("cboLengthBy", "How the length changes", EntriesOf(LengthWays))),
      cboNotesBy_(NewList("cboNotesBy", "How the notes change", EntriesOf(NotesWays))),
      txtLength_(NewField("txtLength", "Length in mm")),
      txtQty_(NewField("txtQty", "Quantity")),
      txtNotesFrom_(NewField("txtNotesFrom", "Text that is replaced")),
      txtNotes_(NewField("txtNotes", "Notes")) {
  setObjectName("frmChange");
  setWindowTitle("Change Chosen Sections");
  setWindowIcon(ProgramIcon());
  txtLength_->TakePastedNumber(NumberForm::Signed);
  txtQty_->TakePastedNumber(NumberForm::Whole);
  txtNotes_->TakeText(TextForm::Quoted);
  txtNotesFrom_->TakeText(TextForm::Quoted);
  txtNotesFrom_->setPlaceholderText("this text");
  cboLengthBy_->SelectQuietly(0);
  cboNotesBy_->SelectQuietly(0);

  AddLine("chkProduct", "&Product", {cboProduct_});
  AddLine("chkPattern", "P&unching pattern", {cboPattern_});
  AddLine("chkSagBars", "&Sag bars", {cboSagBars_});
  AddLine("chkPitch", "P&itch", {cboPitch_});
  AddLine("chkLength", "&Length (mm)", {cboLengthBy_, txtLength_});
  AddLine("chkQty", "&Qty", {txtQty_});
  AddLine("chkNotes", "&Notes", {cboNotesBy_, txtNotesFrom_, txtNotes_});
  connect(cboNotesBy_, &QComboBox::currentIndexChanged, this, [this] { FollowWays(); });
  FollowWays();

  auto* chosen =
      new QLabel("What is ticked is changed in " + ToQt(Counted(sections, "section")) + ".", this);
  chosen->setObjectName("lblChosen");
  QPushButton* ok = AddButton("cmdOk", "&OK");
  QPushButton* cancel = AddButton("cmdCancel", "&Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Guard([this] { Accept(); }); });
  connect(cancel, &QPushButton::clicked, this, [this] { Guard([this] { Cancel(); }); });
  PressByEnter(*ok);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(chosen);
  layout->addLayout(lines_);
  layout->addStretch();
  layout->addLayout(buttons);
  boxes_.front()->setFocus();
}

// A value that is chosen or typed ticks its box.
QCheckBox* FrmChange::AddLine(const QString& name, const QString& caption,
                              const std::vector<QWidget*>& controls) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  auto* line = new QHBoxLayout;
  for (QWidget* control : controls) {
    line->addWidget(control, control == controls.back() ? 1 : 0);
    const auto tick = [box, control] {
      AcceptField(*control);
      box->setChecked(true);
    };
    if (auto* list = qobject_cast<QComboBox*>(control)) {
      connect(list, &QComboBox::activated, this, tick);
    } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
      connect(field, &QLineEdit::textEdited, this, tick);
    }
  }
  const int row = static_cast<int>(boxes_.size());
  lines_->addWidget(box, row, 0);
  lines_->addLayout(line, row, 1);
  lines_->setColumnStretch(1, 1);
  boxes_.push_back(box);
  return box;
}

PlainCombo* FrmChange::NewList(const QString& name, const QString& reads,
                               const Table<std::string>& entries) {
  auto* list = new PlainCombo(this);
  list->setObjectName(name);
  list->setAccessibleName(reads);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  std::size_t longest = 0;
  for (const std::string& entry : entries) longest = std::max(longest, entry.size());
  list->setMinimumContentsLength(std::min(static_cast<int>(longest) + 1, EntryRoom));
  list->Fill(entries);
  return list;
}

PlainField* FrmChange::NewField(const QString& name, const QString& reads) {
  auto* field = new PlainField(this);
  field->setObjectName(name);
  field->setAccessibleName(reads);
  return field;
}

void FrmChange::FollowWays() {
  const bool replaces = cboNotesBy_->currentIndex() == ReplaceWay;
  txtNotesFrom_->setVisible(replaces);
  txtNotes_->setPlaceholderText(replaces ? "by this one" : "");
}

QCheckBox& FrmChange::BoxOf(std::size_t line) const {
  return *boxes_.at(line);
}

bool FrmChange::HasChanges() {
  for (const QCheckBox* box : boxes_) {
    if (box->isChecked()) return true;
  }
  return false;
}

// The chosen entry, if its line is ticked.
std::optional<std::string> FrmChange::EntryOf(QCheckBox& box, PlainCombo& list) {
  if (!box.isChecked()) return std::nullopt;
  list.Leave();
  if (list.currentIndex() >= 0) return list.Text();
  RefuseField(list, "Nothing is chosen");
  if (wrong_ == nullptr) wrong_ = &list;
  return std::nullopt;
}

std::optional<std::string> FrmChange::NumberOf(QCheckBox& box, PlainField& field, NumberForm form) {
  if (!box.isChecked()) return std::nullopt;
  PastedNumber number = NumberToPaste(FromQt(field.text()), form);
  if (number.Text.empty() && number.Refusal.empty()) number.Refusal = "A number is missing";
  if (number.Refusal.empty() && Val(number.Text) != std::floor(Val(number.Text))) {
    number.Refusal = "Lengths are whole millimetres";
  }
  if (number.Refusal.empty()) return number.Text;
  RefuseField(field, ToQt(number.Refusal));
  if (wrong_ == nullptr) wrong_ = &field;
  return std::nullopt;
}

void FrmChange::Accept() {
  wrong_ = nullptr;
  ChosenChange change;
  change.Product = EntryOf(BoxOf(At(ChangeLine::Product)), *cboProduct_);
  change.Pattern = EntryOf(BoxOf(At(ChangeLine::Pattern)), *cboPattern_);
  change.SagBars = EntryOf(BoxOf(At(ChangeLine::SagBars)), *cboSagBars_);
  change.Pitch = EntryOf(BoxOf(At(ChangeLine::Pitch)), *cboPitch_);
  change.ByLength = LengthMeanings.at(static_cast<std::size_t>(cboLengthBy_->currentIndex()));
  const bool adds = change.ByLength == ChosenChange::LengthBy::Add;
  change.Length = NumberOf(BoxOf(At(ChangeLine::Length)), *txtLength_,
                           adds ? NumberForm::Signed : NumberForm::Whole);
  change.Quantity = NumberOf(BoxOf(At(ChangeLine::Quantity)), *txtQty_, NumberForm::Whole);
  if (BoxOf(At(ChangeLine::Notes)).isChecked()) change.Notes = FromQt(txtNotes_->text());
  change.ByNotes = NotesMeanings.at(static_cast<std::size_t>(cboNotesBy_->currentIndex()));
  change.NotesFrom = FromQt(txtNotesFrom_->text());
  const bool replaces = change.ByNotes == ChosenChange::NotesBy::Replace;
  if (change.Notes && replaces && change.NotesFrom.empty()) {
    RefuseField(*txtNotesFrom_, "The text that is replaced is missing");
    if (wrong_ == nullptr) wrong_ = txtNotesFrom_;
  }
  if (wrong_ != nullptr) {
    const QString reason = RefusalOf(*wrong_);
    wrong_->setFocus();
    // A list that is entered loses the look of one that was left.
    return RefuseField(*wrong_, reason);
  }
  chosen_ = change;
  accept();
}

}  // namespace orvane
