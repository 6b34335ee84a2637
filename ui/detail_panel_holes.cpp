// The hole list of the detail panel: what it shows, its pop-up and its keys, and the commands that
// change a section's holes by hand.
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "core/desktop.h"
#include "holes/hole_list.h"
#include "project/rules/custom_holes.h"
#include "project/section_look.h"
#include "ui/detail_panel.h"
#include "ui/dialogs/frm_add_holes.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

// The parts.

void DetailPanel::BuildHoleList() {
  SSpanelCustom_ = new QWidget(this);
  SSpanelCustom_->setObjectName("SSpanelCustom");

  holes_ = new TextGridModel({"Xpos", "Rel X", "BF", "W1", "W2", "TF", "Dia", "Slot", "C"}, this);
  MSFlexGrid2_ = new FlexGrid(holes_, SSpanelCustom_);
  MSFlexGrid2_->setObjectName("MSFlexGrid2");
  MSFlexGrid2_->setAccessibleName("Custom hole positions");
  // Positions up to 32767, off-gauge distances and slots of three digits: a figure cut off in
  // "11..." may be any of a thousand.
  MSFlexGrid2_->SetColumnRatio({520, 520, 360, 360, 360, 360, 320, 360, 200},
                               {5, 5, 3, 3, 3, 3, 2, 3, 1});
  // By the keyboard alone: a click must not take the focus out of the editor of a section.
  MSFlexGrid2_->setFocusPolicy(Qt::TabFocus);
  MSFlexGrid2_->installEventFilter(this);
  MSFlexGrid2_->CellPressed = [this](int row, int, Qt::MouseButton, QPoint) { MarkHole(row); };
  MSFlexGrid2_->CellDoubleClicked = [this](int, int) {
    RunOwn([this] { RunHoleCommand(Command::EditHole); });
  };
  // What the menu does to a hole, it must not do to one that isn't pointed at.
  MSFlexGrid2_->SpacePressed = [this](Qt::MouseButton) { MarkHole(0); };
  MSFlexGrid2_->MenuAsked = [this](QPoint globalPos) { ShowHolesMenu(globalPos); };

  auto* buttons = new QHBoxLayout;
  const std::array captions = {"Holes (&Absolute X)", "Holes (&Relative X)"};
  const std::array modes = {AddAbsolute, AddRelative};
  for (std::size_t index = 0; index < captions.size(); ++index) {
    auto* button = new QPushButton(captions.at(index), SSpanelCustom_);
    button->setObjectName(IndexedName("cmdHoles", static_cast<int>(index)));
    buttons->addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [this, mode = modes.at(index)] { RunOwn([&] { AddCustomHoles(mode); }); });
  }

  auto* column = new QVBoxLayout(SSpanelCustom_);
  column->setContentsMargins({});
  column->addWidget(new QLabel(" Custom hole positions:", SSpanelCustom_));
  column->addWidget(MSFlexGrid2_, 1);
  column->addLayout(buttons);
}

void DetailPanel::BuildHolesMenu() {
  mnuCHPU_ = new QMenu(this);
  mnuCHPU_->setObjectName("mnuCHPU");
  for (const CommandEntry& entry : CommandsOf(Place::mnuCHPUI)) {
    QAction* action = mnuCHPU_->addAction(LineIcon(entry.Icon), ToQt(entry.Caption));
    action->setObjectName(IndexedName("mnuCHPUI", entry.Index));
    connect(action, &QAction::triggered, this,
            [this, command = entry.What] { RunOwn([&] { RunHoleCommand(command); }); });
  }
}

// Showing.

bool DetailPanel::IsHoleListShown() const {
  // Whether the window itself is on the screen doesn't count.
  return SSpanelCustom_->isVisibleTo(this);
}

void DetailPanel::FillHoleGrid(std::int16_t ItemIndex) {
  holes_->SetRows(HoleGridRows(ItemIndex));
  MSFlexGrid2_->FitFigures();
  MarkHole(markedHole_);
}

void DetailPanel::EmptyHoleGrid() {
  holes_->SetRows({});
  MarkHole(0);
}

void DetailPanel::MarkHole(int row) {
  MSFlexGrid2_->SetCurrent(row, 0);
  markedHole_ = MSFlexGrid2_->Row();
  holes_->SetGreyRow(markedHole_);
}

void DetailPanel::ShowHolesMenu(QPoint globalPos) {
  // The menu key can come as a key and as the wish for a menu, one behind the other.
  if (!mnuCHPU_->isVisible()) mnuCHPU_->popup(globalPos);
}

QWidget* DetailPanel::HoleListStop() const {
  return IsHoleListShown() ? MSFlexGrid2_ : nullptr;
}

// Commands.

void DetailPanel::ConvertToCustom(std::int16_t ItemIndex) {
  if (ItemIndex < 1) return;
  LookAndSay(ItemIndex, [&] {
    Change(ChangeKind::ConvertToCustom, ItemIndex, [&] {
      ConvertHolesToCustom(ItemIndex);
      cboPattern_->SelectQuietly(0);
      // By name: the list tells nothing when "Custom" was selected already.
      TakePattern(ItemIndex);
    });
  });
}

void DetailPanel::DeleteCustomHole(std::int16_t ItemIndex, int CustomRow) {
  if (CustomHoleRow(ItemIndex, CustomRow) == 0) return;
  LookAndSay(ItemIndex, [&] {
    Change(ChangeKind::RemoveHole, ItemIndex, [&] { DeleteCustomHoleRow(ItemIndex, CustomRow); });
  });
}

void DetailPanel::AddCustomHoles(std::int16_t Mode) {
  if (Row() < 1 || cboPattern_->currentIndex() != 0) {
    TheDesktop().Message("Punching pattern must be 'Custom'");
    return;
  }
  OpenHoleDialog(Mode);
}

void DetailPanel::EditCustomHole() {
  // Nothing to edit without a hole of the list selected.
  if (CustomHoleRow(Row(), markedHole_) > 0) OpenHoleDialog(EditHole);
}

void DetailPanel::OpenHoleDialog(std::int16_t Mode) {
  HoleDialogMode = Mode;
  FrmAddHoles dialog(Row(), Mode, markedHole_, window());
  // The mark goes with its hole: what is done next must be done to the hole that was pointed at.
  dialog.MarkedMoves = [this](int CustomRow) { markedHole_ = CustomRow; };
  if (ElevationPlace) KeepInSight(dialog, ElevationPlace());
  dialog.exec();
  if (markedHole_ > 0) MSFlexGrid2_->EnsureVisible(markedHole_, 0);
}

void DetailPanel::RunHoleCommand(Command command) {
  if (command == Command::HolesAbsolute) AddCustomHoles(AddAbsolute);
  if (command == Command::HolesRelative) AddCustomHoles(AddRelative);
  if (command == Command::EditHole) EditCustomHole();
  if (command == Command::RemoveHole) DeleteCustomHole(Row(), markedHole_);
}

bool DetailPanel::HoleListKey(const QKeyEvent& key) {
  // The number pad has the arrows and Delete as well.
  const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
  const bool alone = held == Qt::NoModifier;
  const int row = MSFlexGrid2_->Row();
  const int last = MSFlexGrid2_->Rows() - 1;
  const auto mark = [this](int target) {
    MarkHole(target);
    MSFlexGrid2_->EnsureVisible(target, 0);
    return true;
  };
  if (alone && key.key() == Qt::Key_Up) return mark(std::min(std::max(row - 1, 1), last));
  if (alone && key.key() == Qt::Key_Down) return mark(std::min(row + 1, last));
  const bool edits = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (alone && (edits || key.key() == Qt::Key_Delete)) {
    // Held down, it must not run through the holes.
    if (!key.isAutoRepeat()) RunHoleCommand(edits ? Command::EditHole : Command::RemoveHole);
    return true;
  }
  if (key.key() == Qt::Key_Menu || (key.key() == Qt::Key_F10 && held == Qt::ShiftModifier)) {
    const QPoint place = MSFlexGrid2_->CellRect(row, 0).bottomLeft();
    ShowHolesMenu(MSFlexGrid2_->viewport()->mapToGlobal(place));
    return true;
  }
  return false;
}

void DetailPanel::HoleListEntered(Qt::FocusReason reason) {
  // Whoever comes by the keyboard sees where he is. The way back from the menu is no arrival: it
  // may have been opened beside the holes.
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
    MarkHole(std::min(std::max(MSFlexGrid2_->Row(), 1), MSFlexGrid2_->Rows() - 1));
  }
  MSFlexGrid2_->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
}

bool DetailPanel::eventFilter(QObject* watched, QEvent* event) {
  bool handled = false;
  Guard([&] {
    if (watched != MSFlexGrid2_) return;
    if (event->type() == QEvent::KeyPress) {
      handled = HoleListKey(static_cast<const QKeyEvent&>(*event));
    } else if (event->type() == QEvent::FocusIn) {
      HoleListEntered(static_cast<const QFocusEvent&>(*event).reason());
    } else if (event->type() == QEvent::FocusOut) {
      MSFlexGrid2_->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                                  static_cast<int>(QFrame::Sunken));
    }
  });
  return handled || QWidget::eventFilter(watched, event);
}

}  // namespace orvane
