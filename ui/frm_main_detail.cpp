#include "ui/frm_main_detail.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "core/catalogues.h"
#include "core/desktop.h"
#include "core/text.h"
#include "holes/hole_coding.h"
#include "holes/hole_list.h"
#include "project/custom_holes.h"
#include "ui/frm_add_holes.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
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

DetailPanel::DetailPanel(const FlexGrid& sections, SheetView& sheet, QWidget* parent)
    : QWidget(parent), sections_(sections), sheet_(sheet) {
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
  SSPanelPunching = new QWidget(this);
  SSPanelPunching->setObjectName("SSPanelPunching");
  cboPattern = NewList("cboPattern", SSPanelPunching);
  auto* column = new QVBoxLayout(SSPanelPunching);
  column->setContentsMargins({});
  column->addWidget(NewLabel("lblPunching", "Pu&nching", cboPattern, SSPanelPunching));
  column->addWidget(cboPattern);
  connect(cboPattern, &QComboBox::activated, this, [this] { Guard([&] { PatternChosen(); }); });
}

void DetailPanel::BuildPitch() {
  cboPitch = NewList("cboPitch", this);
  lblPitch = NewLabel("lblPitch", "Pitch", cboPitch, this);
  connect(cboPitch, &QComboBox::activated, this, [this] { Guard([&] { PitchSelected(); }); });
}

void DetailPanel::BuildJointing() {
  txtJointing = new QLineEdit(this);
  txtJointing->setObjectName("txtJointing");
  lblJointing = NewLabel("lblJointing", "No. off jointing pieces", txtJointing, this);
  connect(txtJointing, &QLineEdit::textEdited, this, [this] { Guard([&] { JointingChanged(); }); });
}

void DetailPanel::BuildSagBars() {
  fraSagBars = new QGroupBox("Sag bars", this);
  fraSagBars->setObjectName("fraSagBars");
  optSagBars = new QButtonGroup(this);
  auto* column = new QVBoxLayout(fraSagBars);
  const std::array captions = {"Spring Fix (18mm)", "Threaded (14mm)"};
  for (std::size_t option = 0; option < captions.size(); ++option) {
    auto* button = new QRadioButton(captions.at(option), fraSagBars);
    button->setObjectName(IndexedName("optSagBars", static_cast<int>(option)));
    optSagBars->addButton(button, static_cast<int>(option));
    column->addWidget(button);
  }
  // The user's click alone: a change of the pair by code isn't a choice.
  connect(optSagBars, &QButtonGroup::idClicked, this,
          [this](int option) { Guard([&] { SagBarsSelected(option); }); });
}

void DetailPanel::BuildHoleList() {
  SSpanelCustom = new QWidget(this);
  SSpanelCustom->setObjectName("SSpanelCustom");

  holes_ = new TextGridModel({"Xpos", "Rel X", "BF", "W1", "W2", "TF", "Dia", "Slot", "C"}, this);
  MSFlexGrid2 = new FlexGrid(holes_, SSpanelCustom);
  MSFlexGrid2->setObjectName("MSFlexGrid2");
  MSFlexGrid2->setAccessibleName("Custom hole positions");
  MSFlexGrid2->SetColumnRatio({520, 520, 360, 360, 360, 360, 320, 360, 200});
  // By the keyboard alone: a click must not take the focus out of the editor of a section.
  MSFlexGrid2->setFocusPolicy(Qt::TabFocus);
  MSFlexGrid2->installEventFilter(this);
  MSFlexGrid2->CellPressed = [this](int row, int, Qt::MouseButton, QPoint) { MarkHole(row); };
  // What the menu does to a hole, it must not do to one that isn't pointed at.
  MSFlexGrid2->SpacePressed = [this](Qt::MouseButton) { MarkHole(0); };
  MSFlexGrid2->MenuAsked = [this](QPoint globalPos) { ShowHolesMenu(globalPos); };

  auto* buttons = new QHBoxLayout;
  const std::array captions = {"Holes (&Absolute X)", "Holes (&Relative X)"};
  const std::array modes = {AddAbsolute, AddRelative};
  for (std::size_t index = 0; index < captions.size(); ++index) {
    auto* button = new QPushButton(captions.at(index), SSpanelCustom);
    button->setObjectName(IndexedName("cmdHoles", static_cast<int>(index)));
    buttons->addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [this, mode = modes.at(index)] { Guard([&] { AddCustomHoles(mode); }); });
  }

  auto* column = new QVBoxLayout(SSpanelCustom);
  column->setContentsMargins({});
  column->addWidget(new QLabel(" Custom hole positions:", SSpanelCustom));
  column->addWidget(MSFlexGrid2, 1);
  column->addLayout(buttons);
}

void DetailPanel::BuildHolesMenu() {
  mnuCHPU = new QMenu(this);
  mnuCHPU->setObjectName("mnuCHPU");
  for (const CommandEntry& entry : CommandsOf(Place::mnuCHPUI)) {
    QAction* action = mnuCHPU->addAction(LineIcon(entry.Icon), ToQt(entry.Caption));
    action->setObjectName(IndexedName("mnuCHPUI", entry.Index));
    connect(action, &QAction::triggered, this,
            [this, command = entry.What] { Guard([&] { RunHoleCommand(command); }); });
  }
}

void DetailPanel::LayParts() {
  // Pitch and jointing pieces share one place, since no section has both.
  auto* options = new QGridLayout;
  options->addWidget(SSPanelPunching, PunchingPlace, 0);
  options->addWidget(lblPitch, LabelPlace, 0);
  options->addWidget(cboPitch, FieldPlace, 0);
  options->addWidget(lblJointing, LabelPlace, 0);
  options->addWidget(txtJointing, FieldPlace, 0);
  options->addWidget(fraSagBars, SagBarsPlace, 0);
  options->setRowStretch(FreePlace, 1);

  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins({});
  columns->addLayout(options, OptionShare);
  columns->addWidget(SSpanelCustom, HoleListShare);
  for (QWidget* part : {SSPanelPunching, SSpanelCustom, static_cast<QWidget*>(fraSagBars),
                        static_cast<QWidget*>(lblPitch), static_cast<QWidget*>(cboPitch),
                        static_cast<QWidget*>(lblJointing), static_cast<QWidget*>(txtJointing)}) {
    KeepRoom(*part);
  }
}

// Showing.

std::int16_t DetailPanel::Row() const {
  return Int16(sections_.Row());
}

bool DetailPanel::IsHoleListShown() const {
  // Whether the window itself is on the screen doesn't count.
  return SSpanelCustom->isVisibleTo(this);
}

// The toolkit would pass the focus of a part that goes on to some other control, maybe one where
// its arrival counts as a change of the project.
void DetailPanel::ShowPart(QWidget& part, bool shown) {
  QWidget* focus = window()->focusWidget();
  if (!shown && focus != nullptr && (&part == focus || part.isAncestorOf(focus))) {
    if (&part != SSPanelPunching && SSPanelPunching->isVisible()) {
      cboPattern->setFocus(Qt::OtherFocusReason);
    } else {
      focus->clearFocus();
    }
  }
  part.setVisible(shown);
}

void DetailPanel::HideParts() {
  ShowPart(*SSPanelPunching, false);
  ShowPart(*SSpanelCustom, false);
  ShowPart(*fraSagBars, false);
  ShowPart(*lblPitch, false);
  ShowPart(*cboPitch, false);
  ShowPart(*lblJointing, false);
  ShowPart(*txtJointing, false);
}

// What the section letter alone decides. Sag bars and the hole list follow the pattern.
void DetailPanel::ShowParts(const std::string& letter) {
  const bool pitch = HasPitch(letter);
  const bool jointing = HasJointingPieces(letter);
  ShowPart(*SSPanelPunching, true);
  ShowPart(*lblPitch, pitch);
  ShowPart(*cboPitch, pitch);
  ShowPart(*lblJointing, jointing);
  ShowPart(*txtJointing, jointing);
}

void DetailPanel::ShowSagBars(SagBars choice) {
  if (choice == SagBars::SpringFix) optSagBars->button(0)->setChecked(true);
  if (choice == SagBars::Threaded) optSagBars->button(1)->setChecked(true);
  ShowPart(*fraSagBars, choice != SagBars::Hidden);
}

void DetailPanel::FillPitches() {
  cboPitch->Fill(Pitches);
}

void DetailPanel::FillPatternCombo(const std::string& Letter) {
  cboPattern->Fill(PatternNames(Letter));
}

bool DetailPanel::SetDetailPanel(const std::string& Letter, std::int16_t ItemIndex,
                                 ShownHoles holes) {
  FillPatternCombo(Letter);
  ShowParts(Letter);
  MarkHole(0);

  // A pattern that the catalogue no longer has stays in the record: looking at a section must not
  // erase it.
  const int index = FindComboIndex(cboPattern->Entries(), Items.At(ItemIndex).PatternName);
  cboPattern->SelectQuietly(index);
  if (index < 0) {
    ShowPart(*SSpanelCustom, false);
  } else {
    ApplyPattern(ItemIndex, false, holes);
  }
  // Here also for a section of another letter whose pattern has left it a diameter.
  ShowSagBars(ShownSagBars(ItemIndex));
  return index >= 0;
}

void DetailPanel::ClearDetailPanel() {
  cboPattern->SelectQuietly(-1);
  cboPitch->SelectQuietly(-1);
  EmptyHoleGrid();
  txtJointing->clear();
  if (Row() < 1) {
    HideParts();
  } else {
    ShowPart(*SSpanelCustom, false);
  }
}

void DetailPanel::FillHoleGrid(std::int16_t ItemIndex) {
  holes_->SetRows(HoleGridRows(ItemIndex));
  MarkHole(MSFlexGrid2->Row());
}

void DetailPanel::EmptyHoleGrid() {
  holes_->SetRows({});
  MarkHole(0);
}

void DetailPanel::ShowPitch(std::int16_t ItemIndex) {
  cboPitch->SelectQuietly(FindComboIndex(cboPitch->Entries(), Items.At(ItemIndex).Pitch));
}

void DetailPanel::ShowJointingPieces(std::int16_t ItemIndex) {
  txtJointing->setText(ToQt(ShortestText(Items.At(ItemIndex).JointingPieces)));
}

void DetailPanel::RebuildShownHoles(std::int16_t ItemIndex) {
  RemoveStandardHoles(ItemIndex);
  if (cboPattern->currentIndex() >= 0) ExpandPattern(cboPattern->Text(), ItemIndex);
  SortHoles(ItemIndex);
  AdjustHoleSpacing(ItemIndex);
  if (IsHoleListShown()) FillHoleGrid(ItemIndex);
}

// Choices.

void DetailPanel::PatternChosen() {
  const std::int16_t row = Row();
  // The list tells of the choice of the entry that stood there already too.
  if (row >= 1 && Trim(cboPattern->Text()) != Trim(Items.At(row).PatternName)) ProjectDirty = True;
  PatternSelected();
}

// Each step shows its own error, and the next goes on.
void DetailPanel::PatternSelected() {
  const std::int16_t row = Row();
  const int index = cboPattern->currentIndex();
  if (row < 1 || index < 0) {
    ClearPattern(row);
    return;
  }
  bool refused = false;
  Guard([&] {
    if (!RemovesCustomHoles(row, index)) return;
    const Answer answer = TheDesktop().ShowMessageBox(
        "Selecting a standard pattern will remove custom holes, continue?", "Punching Pattern",
        Buttons::YesNo, Icon::None);
    if (answer == Answer::Yes) {
      EmptyHoles(row);
      EmptyHoleGrid();
    } else {
      cboPattern->SelectQuietly(0);
      refused = true;
    }
  });
  if (!refused) ApplyPattern(row, true);
}

// What follows from the pattern selected, for the user's choice and for showing a section alike;
// only a choice goes into the record.
void DetailPanel::ApplyPattern(std::int16_t ItemIndex, bool chosen, ShownHoles holes) {
  const std::string pattern = cboPattern->Text();
  Guard([&] { ShowPart(*SSpanelCustom, cboPattern->currentIndex() == 0); });
  if (chosen) Guard([&] { SetPattern(ItemIndex, pattern); });
  Guard([&] {
    if (const auto choice = SagBarsOfPattern(ItemIndex, pattern)) ShowSagBars(*choice);
  });
  if (holes == ShownHoles::Afresh) {
    RebuildStepByStep(ItemIndex);
  } else {
    ShowHolesAndSheet(ItemIndex);
  }
}

void DetailPanel::RebuildStepByStep(std::int16_t ItemIndex) {
  Guard([&] { RemoveStandardHoles(ItemIndex); });
  Guard([&] {
    if (cboPattern->currentIndex() >= 0) ExpandPattern(cboPattern->Text(), ItemIndex);
  });
  Guard([&] { SortHoles(ItemIndex); });
  Guard([&] { AdjustHoleSpacing(ItemIndex); });
  ShowHolesAndSheet(ItemIndex);
}

void DetailPanel::ShowHolesAndSheet(std::int16_t ItemIndex) {
  Guard([&] {
    if (IsHoleListShown()) FillHoleGrid(ItemIndex);
  });
  Guard([&] { sheet_.DrawSection(ItemIndex); });
}

void DetailPanel::SagBarsSelected(int option) {
  const std::int16_t row = Row();
  if (row < 1) return;
  Guard([&] { SetSagBars(row, option); });
  RebuildStepByStep(row);
}

// ProjectDirty stays as it is, deliberately, for the pitch as for the jointing pieces, the sag bars
// and the hole list.
void DetailPanel::PitchSelected() {
  const std::int16_t row = Row();
  if (row < 1) return;
  SetPitch(row, cboPitch->Text());
  sheet_.DrawSection(row);
}

void DetailPanel::JointingChanged() {
  const std::int16_t row = Row();
  if (row < 1) return;
  SetJointingPieces(row, FromQt(txtJointing->text()));
  sheet_.DrawSection(row);
}

// Commands.

void DetailPanel::ConvertToCustom(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return;
  ConvertHolesToCustom(ItemIndex);
  cboPattern->SelectQuietly(0);
  // By name: the list tells nothing when "Custom" was selected already.
  PatternSelected();
  ProjectDirty = True;
  FillHoleGrid(ItemIndex);
}

void DetailPanel::DeleteCustomHole(std::int16_t ItemIndex, int CustomRow) {
  try {
    if (!DeleteCustomHoleRow(ItemIndex, CustomRow)) return;
  } catch (...) {
    // The hole went, and only the gaps failed: the list must not show it any more.
    FillHoleGrid(ItemIndex);
    throw;
  }
  FillHoleGrid(ItemIndex);
  sheet_.DrawSection(ItemIndex);
}

void DetailPanel::AddCustomHoles(std::int16_t Mode) {
  if (Row() < 1 || cboPattern->currentIndex() != 0) {
    TheDesktop().Message("Punching pattern must be 'Custom'");
    return;
  }
  OpenHoleDialog(Mode, 0);
}

void DetailPanel::EditCustomHole() {
  // Nothing to edit without a hole of the list selected.
  const int hole = MSFlexGrid2->Row();
  if (CustomHoleRow(Row(), hole) > 0) OpenHoleDialog(EditHole, hole);
}

void DetailPanel::OpenHoleDialog(std::int16_t Mode, int CustomRow) {
  HoleDialogMode = Mode;
  const auto follow = [this, row = Row()] { ShowHolesAndSheet(row); };
  FrmAddHoles(Row(), CustomRow, follow, window()).exec();
}

// The hole list.

void DetailPanel::MarkHole(int row) {
  MSFlexGrid2->SetCurrent(row, 0);
  holes_->SetGreyRow(MSFlexGrid2->Row());
}

void DetailPanel::ShowHolesMenu(QPoint globalPos) {
  // The menu key can come as a key and as the wish for a menu, one behind the other.
  if (!mnuCHPU->isVisible()) mnuCHPU->popup(globalPos);
}

void DetailPanel::RunHoleCommand(Command command) {
  if (command == Command::HolesAbsolute) AddCustomHoles(AddAbsolute);
  if (command == Command::HolesRelative) AddCustomHoles(AddRelative);
  if (command == Command::EditHole) EditCustomHole();
  if (command == Command::RemoveHole) DeleteCustomHole(Row(), MSFlexGrid2->Row());
}

bool DetailPanel::HoleListKey(int key, Qt::KeyboardModifiers modifiers) {
  const int row = MSFlexGrid2->Row();
  const int last = MSFlexGrid2->Rows() - 1;
  int target = row;
  if (key == Qt::Key_Up && modifiers == Qt::NoModifier) {
    target = std::min(std::max(row - 1, 1), last);
  } else if (key == Qt::Key_Down && modifiers == Qt::NoModifier) {
    target = std::min(row + 1, last);
  } else if (key == Qt::Key_Delete && modifiers == Qt::NoModifier) {
    RunHoleCommand(Command::RemoveHole);
    return true;
  } else if (key == Qt::Key_Menu || (key == Qt::Key_F10 && modifiers == Qt::ShiftModifier)) {
    const QPoint place = MSFlexGrid2->CellRect(row, 0).bottomLeft();
    ShowHolesMenu(MSFlexGrid2->viewport()->mapToGlobal(place));
    return true;
  } else {
    return false;
  }
  MarkHole(target);
  MSFlexGrid2->EnsureVisible(target, 0);
  return true;
}

bool DetailPanel::eventFilter(QObject* watched, QEvent* event) {
  bool handled = false;
  Guard([&] {
    if (watched != MSFlexGrid2) return;
    if (event->type() == QEvent::KeyPress) {
      const auto& press = static_cast<const QKeyEvent&>(*event);
      // A key held down must not run through the holes.
      handled = (press.key() == Qt::Key_Delete && press.isAutoRepeat()) ||
                HoleListKey(press.key(), press.modifiers());
    } else if (event->type() == QEvent::FocusIn) {
      // Whoever comes by the keyboard sees where he is.
      MarkHole(std::min(std::max(MSFlexGrid2->Row(), 1), MSFlexGrid2->Rows() - 1));
      MSFlexGrid2->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    } else if (event->type() == QEvent::FocusOut) {
      MSFlexGrid2->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                                 static_cast<int>(QFrame::Sunken));
    }
  });
  return handled || QWidget::eventFilter(watched, event);
}

}  // namespace orvane
