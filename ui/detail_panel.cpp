#include "ui/detail_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/text.h"
#include "holes/hole_list.h"
#include "project/history.h"
#include "project/section_look.h"
#include "ui/controls/plain_field.h"
#include "ui/controls/tab_stop.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// Characters that a list of the panel has room for at least; longer entries don't widen the panel.
constexpr int ListRoom = 10;

// Places of the panel's left-hand column from top to bottom, and its share of the width.
enum DetailPlace { PunchingPlace, LabelPlace, FieldPlace, SagBarsPlace, FreePlace };
constexpr int OptionShare = 2;
constexpr int HoleListShare = 3;

PlainCombo* NewList(const char* name, QWidget* parent) {
  auto* list = new PlainCombo(parent);
  list->setObjectName(name);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(ListRoom);
  return list;
}

QLabel* NewLabel(const char* name, const char* caption, QWidget* field, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setObjectName(name);
  label->setBuddy(field);
  return label;
}

// A hidden part keeps its room, so that no other jumps when it comes and goes.
void KeepRoom(QWidget& part) {
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part.setSizePolicy(policy);
}

}  // namespace

// The parts.

DetailPanel::DetailPanel(const FlexGrid& sections, QWidget* parent)
    : QWidget(parent), sections_(sections) {
  setObjectName("DetailPanel");
  BuildPunching();
  BuildPitch();
  BuildJointing();
  BuildSagBars();
  BuildHoleList();
  BuildHolesMenu();
  LayParts();
  HideParts();
}

void DetailPanel::BuildPunching() {
  SSPanelPunching_ = new QWidget(this);
  SSPanelPunching_->setObjectName("SSPanelPunching");
  cboPattern_ = NewList("cboPattern", SSPanelPunching_);
  auto* column = new QVBoxLayout(SSPanelPunching_);
  column->setContentsMargins({});
  column->addWidget(NewLabel("lblPunching", "Pu&nching", cboPattern_, SSPanelPunching_));
  column->addWidget(cboPattern_);
  connect(cboPattern_, &QComboBox::activated, this, [this] { Guard([&] { PatternChosen(); }); });
  WatchList(patterns_, cboPattern_);
}

void DetailPanel::BuildPitch() {
  cboPitch_ = NewList("cboPitch", this);
  lblPitch_ = NewLabel("lblPitch", "Pitch", cboPitch_, this);
  connect(cboPitch_, &QComboBox::activated, this, [this] { Guard([&] { PitchSelected(); }); });
  WatchList(pitches_, cboPitch_);
}

void DetailPanel::BuildJointing() {
  auto* jointing = new PlainField(this);
  jointing->TakePastedNumber(NumberForm::Whole);
  txtJointing_ = jointing;
  txtJointing_->setObjectName("txtJointing");
  lblJointing_ = NewLabel("lblJointing", "No. off jointing pieces", txtJointing_, this);
  connect(txtJointing_, &QLineEdit::textEdited, this,
          [this] { Guard([&] { JointingChanged(); }); });
  connect(txtJointing_, &QLineEdit::editingFinished, this, [] {
    Guard([] {
      EndStep();
      ShowLater(ErrorsToSay());
    });
  });
}

void DetailPanel::BuildSagBars() {
  fraSagBars_ = new QGroupBox("Sag bars", this);
  fraSagBars_->setObjectName("fraSagBars");
  optSagBars_ = new QButtonGroup(this);
  auto* column = new QVBoxLayout(fraSagBars_);
  const std::array captions = {"Spring Fix (18mm)", "Threaded (14mm)"};
  for (std::size_t option = 0; option < captions.size(); ++option) {
    auto* button = new QRadioButton(captions.at(option), fraSagBars_);
    button->setObjectName(IndexedName("optSagBars", static_cast<int>(option)));
    optSagBars_->addButton(button, static_cast<int>(option));
    column->addWidget(button);
  }
  KeepTabAtChecked(*optSagBars_);
  // The user's click alone: a change of the pair by code isn't a choice.
  connect(optSagBars_, &QButtonGroup::idClicked, this,
          [this](int option) { Guard([&] { SagBarsSelected(option); }); });
}

void DetailPanel::LayParts() {
  // Pitch and jointing pieces share one place, since no section has both.
  auto* options = new QGridLayout;
  options->addWidget(SSPanelPunching_, PunchingPlace, 0);
  options->addWidget(lblPitch_, LabelPlace, 0);
  options->addWidget(cboPitch_, FieldPlace, 0);
  options->addWidget(lblJointing_, LabelPlace, 0);
  options->addWidget(txtJointing_, FieldPlace, 0);
  options->addWidget(fraSagBars_, SagBarsPlace, 0);
  options->setRowStretch(FreePlace, 1);

  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins({});
  columns->addLayout(options, OptionShare);
  columns->addWidget(SSpanelCustom_, HoleListShare);
  for (QWidget* part : {SSPanelPunching_, SSpanelCustom_, static_cast<QWidget*>(fraSagBars_),
                        static_cast<QWidget*>(lblPitch_), static_cast<QWidget*>(cboPitch_),
                        static_cast<QWidget*>(lblJointing_), static_cast<QWidget*>(txtJointing_)}) {
    KeepRoom(*part);
  }
}

int DetailPanel::WidthForFigures() const {
  const int list = MSFlexGrid2_->LeastWidth();
  const int options =
      std::max(list * OptionShare / HoleListShare, layout()->itemAt(0)->minimumSize().width());
  return options + layout()->spacing() + list;
}

// Showing.

std::int16_t DetailPanel::Row() const {
  return Int16(sections_.Row());
}

// The toolkit would pass the focus of a part that goes on to some other control, maybe one where
// its arrival counts as a change of the project.
void DetailPanel::ShowPart(QWidget& part, bool shown) {
  QWidget* focus = window()->focusWidget();
  if (!shown && focus != nullptr && (&part == focus || part.isAncestorOf(focus))) {
    if (&part != SSPanelPunching_ && SSPanelPunching_->isVisible()) {
      cboPattern_->setFocus(Qt::OtherFocusReason);
    } else {
      focus->clearFocus();
    }
  }
  part.setVisible(shown);
}

void DetailPanel::HideParts() {
  ShowPart(*SSPanelPunching_, false);
  ShowPart(*SSpanelCustom_, false);
  ShowPart(*fraSagBars_, false);
  ShowPart(*lblPitch_, false);
  ShowPart(*cboPitch_, false);
  ShowPart(*lblJointing_, false);
  ShowPart(*txtJointing_, false);
}

// What the section letter alone decides. Sag bars and the hole list follow the pattern.
void DetailPanel::ShowParts(const std::string& letter) {
  const bool pitch = HasPitch(letter);
  const bool jointing = HasJointingPieces(letter);
  ShowPart(*SSPanelPunching_, true);
  ShowPart(*lblPitch_, pitch);
  ShowPart(*cboPitch_, pitch);
  ShowPart(*lblJointing_, jointing);
  ShowPart(*txtJointing_, jointing);
}

void DetailPanel::ShowSagBars(SagBars choice) {
  if (choice == SagBars::SpringFix) optSagBars_->button(0)->setChecked(true);
  if (choice == SagBars::Threaded) optSagBars_->button(1)->setChecked(true);
  ShowPart(*fraSagBars_, choice != SagBars::Hidden);
}

void DetailPanel::FillPitches() {
  cboPitch_->Fill(Pitches);
}

void DetailPanel::FillPatternCombo(const std::string& Letter) {
  cboPattern_->Fill(PatternNames(Letter));
}

bool DetailPanel::SetDetailPanel(const std::string& Letter, std::int16_t ItemIndex,
                                 ShownHoles holes) {
  FillPatternCombo(Letter);
  ShowParts(Letter);
  MarkHole(0);

  // A pattern that the catalogue no longer has stays in the record: looking at a section must not
  // erase it.
  const int index = FindComboIndex(cboPattern_->Entries(), Items.At(ItemIndex).PatternName);
  cboPattern_->SelectQuietly(index);
  if (index < 0) {
    ShowPart(*SSpanelCustom_, false);
  } else {
    LookAndSay(ItemIndex, [&] {
      Change(ChangeKind::ShowSection, ItemIndex, [&] {
        ApplyPattern(ItemIndex, holes);
        SettleSagBars(ItemIndex);
      });
    });
  }
  ShowUndecided(patterns_, ItemIndex);
  // Here also for a section of another letter whose pattern has left it a diameter.
  ShowSagBars(ShownSagBars(ItemIndex));
  return index >= 0;
}

void DetailPanel::ClearDetailPanel() {
  cboPattern_->SelectQuietly(-1);
  cboPitch_->SelectQuietly(-1);
  EmptyHoleGrid();
  txtJointing_->clear();
  if (Row() < 1) {
    HideParts();
  } else {
    ShowPart(*SSpanelCustom_, false);
  }
}

void DetailPanel::ShowPitch(std::int16_t ItemIndex) {
  cboPitch_->SelectQuietly(FindComboIndex(cboPitch_->Entries(), Items.At(ItemIndex).Pitch));
  ShowUndecided(pitches_, ItemIndex);
}

void DetailPanel::ShowJointingPieces(std::int16_t ItemIndex) {
  txtJointing_->setText(ToQt(ShortestText(Items.At(ItemIndex).JointingPieces)));
}

std::string DetailPanel::ShownPattern() const {
  return cboPattern_->Text();
}

void DetailPanel::RebuildShownHoles(std::int16_t ItemIndex) {
  Change(ChangeKind::ShowSection, ItemIndex, [&] {
    SettleSagBars(ItemIndex);
    RebuildHoles(ItemIndex, ShownPattern());
  });
}

void DetailPanel::ShowHolesAsTheyStand(std::int16_t ItemIndex) {
  Change(ChangeKind::ShowSection, ItemIndex, [&] { SettleSagBars(ItemIndex); });
}

void DetailPanel::Follow(const ChangeNotice& change) {
  const ChangeRule& rule = RuleOf(change.Kind);
  if (rule.Subject != ChangeSubject::Section || !rule.MakesHoles || !IsHoleListShown()) return;
  // A hole that was removed has gone even where only the gaps behind it failed.
  if (change.Failed && change.Kind != ChangeKind::RemoveHole) return;
  if (change.Row == Row()) FillHoleGrid(change.Row);
}

// Lists left undecided.

void DetailPanel::WatchList(WatchedList& watched, PlainCombo* list) {
  watched.List = list;
  list->LeftUndecided = [this, &watched](const QString& reason) {
    if (Row() >= 1) watched.Undecided[Row()] = reason;
  };
  list->RefusalEnded = [this, &watched] { watched.Undecided.erase(Row()); };
}

// A list shows the rows one after the other, and the look of each with it.
void DetailPanel::ShowUndecided(const WatchedList& watched, int row) {
  const auto found = watched.Undecided.find(row);
  if (found != watched.Undecided.end()) watched.List->ShowRefusal(found->second);
}

void DetailPanel::SettleLists() {
  cboPattern_->Leave();
  cboPitch_->Leave();
}

bool DetailPanel::DropLetters() {
  bool dropped = false;
  for (const WatchedList* watched : {&patterns_, &pitches_}) {
    if (!watched->List->Typed().Pending()) continue;
    watched->List->DropLetters();
    dropped = true;
  }
  return dropped;
}

int DetailPanel::UndecidedRow() const {
  int first = 0;
  for (const WatchedList* watched : {&patterns_, &pitches_}) {
    if (watched->Undecided.empty()) continue;
    const int row = watched->Undecided.begin()->first;
    first = first == 0 ? row : std::min(first, row);
  }
  return first;
}

void DetailPanel::EnterUndecided() {
  for (WatchedList* watched : {&patterns_, &pitches_}) {
    const auto found = watched->Undecided.find(Row());
    if (found == watched->Undecided.end()) continue;
    const QString reason = found->second;
    watched->Undecided.erase(found);
    watched->List->setFocus(Qt::OtherFocusReason);
    // Whoever is led there sees why.
    watched->List->ShowRefusal(reason);
    return;
  }
}

void DetailPanel::ForgetUndecided() {
  patterns_.Undecided.clear();
  pitches_.Undecided.clear();
}

void DetailPanel::ForgetRow(int row) {
  for (WatchedList* watched : {&patterns_, &pitches_}) {
    std::map<int, QString> rest;
    for (const auto& [other, reason] : watched->Undecided) {
      if (other != row) rest[other > row ? other - 1 : other] = reason;
    }
    watched->Undecided = std::move(rest);
  }
}

void DetailPanel::MoveUndecided(const std::vector<int>& formerRows) {
  for (WatchedList* watched : {&patterns_, &pitches_}) {
    const auto former = std::exchange(watched->Undecided, {});
    for (std::size_t at = 0; at < formerRows.size(); ++at) {
      const auto found = former.find(formerRows[at]);
      if (found != former.end()) watched->Undecided[static_cast<int>(at) + 1] = found->second;
    }
  }
}

void DetailPanel::RunOwn(const std::function<void()>& command) {
  Guard([&] {
    if (BeforeCommand) BeforeCommand();
    command();
  });
}

QWidget* DetailPanel::PatternStop() const {
  return SSPanelPunching_->isVisibleTo(this) ? cboPattern_ : nullptr;
}

// Choices.

void DetailPanel::PatternChosen() {
  const std::int16_t row = Row();
  if (row < 1) return;
  patterns_.Undecided.erase(row);
  const int index = cboPattern_->currentIndex();
  // The list tells of the choice of the entry that stood there already too.
  const bool another = Trim(ShownPattern()) != Trim(Items.At(row).PatternName);
  if (index < 0) {
    Change(ChangeKind::NoPattern, row, [&] {
      ClearPattern(row);
      if (another) Change(ChangeKind::PatternText, row);
    });
    return;
  }
  bool dropsHoles = false;
  Answer answer = Answer::Yes;
  Guard([&] {
    dropsHoles = RemovesCustomHoles(row, index);
    if (!dropsHoles) return;
    answer = TheDesktop().ShowMessageBox(
        "Selecting a standard pattern will remove custom holes, continue?", "Punching Pattern",
        Buttons::YesNo, Icon::None);
  });
  if (answer != Answer::Yes) {
    cboPattern_->SelectQuietly(0);
    if (another) Change(ChangeKind::PatternText, row);
    return;
  }
  LookAndSay(row, [&] {
    Change(another ? ChangeKind::Pattern : ChangeKind::SamePattern, row, [&] {
      if (dropsHoles) {
        EmptyHoles(row);
        EmptyHoleGrid();
      }
      TakePattern(row);
    });
  });
}

// The selected pattern goes into the record, and what follows from it. An error of a step is the
// look's, and the next goes on.
void DetailPanel::TakePattern(std::int16_t ItemIndex) {
  Tell([&] { SetPattern(ItemIndex, ShownPattern()); }, TakeLookError);
  ApplyPattern(ItemIndex, ShownHoles::Afresh);
}

// What follows from the pattern selected, for the user's choice and for showing a section alike.
void DetailPanel::ApplyPattern(std::int16_t ItemIndex, ShownHoles holes) {
  const std::string pattern = ShownPattern();
  Tell([&] { ShowPart(*SSpanelCustom_, cboPattern_->currentIndex() == 0); }, TakeLookError);
  const auto setSagBars = [&] {
    const auto choice = SagBarsOfPattern(ItemIndex, pattern);
    SetSagBarsOfPattern(ItemIndex, pattern);
    if (choice) ShowSagBars(*choice);
  };
  Tell(setSagBars, TakeLookError);
  if (holes == ShownHoles::Afresh) RebuildHoles(ItemIndex, pattern, TakeLookError);
}

void DetailPanel::SagBarsSelected(int option) {
  const std::int16_t row = Row();
  if (row < 1) return;
  LookAndSay(row, [&] {
    Change(ChangeKind::SagBars, row, [&] {
      Tell([&] { SetSagBars(row, option); }, TakeLookError);
      RebuildHoles(row, ShownPattern(), TakeLookError);
    });
  });
}

void DetailPanel::PitchSelected() {
  SetPitch(Row(), cboPitch_->Text());
}

// The sheet follows each letter; what is wrong with it is said when the field is left. A number too
// large for the field is told at once.
void DetailPanel::JointingChanged() {
  std::exception_ptr refused;
  LookAtSection(Row(), [&] {
    try {
      SetJointingPieces(Row(), FromQt(txtJointing_->text()));
    } catch (const std::exception&) {
      refused = std::current_exception();
    }
  });
  if (refused) std::rethrow_exception(refused);
}

}  // namespace orvane
