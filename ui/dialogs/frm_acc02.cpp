#include "ui/dialogs/frm_acc02.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <array>

#include "core/desktop.h"
#include "project/rules/accessory_rules.h"
#include "ui/dialogs/accessory_pane.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// What the title bar and the edges of a window take of the screen, device-independent pixels.
constexpr QSize RoomForFrame(40, 80);

// Lines of text that the dialog is higher at first than it must be.
constexpr int FirstLines = 12;
// Shares of the height.
constexpr int PictureShare = 3;
constexpr int TableShare = 2;

// The cleat columns of the VCR assembly.
constexpr int FirstCleatColumn = 9;
constexpr int SecondCleatColumn = 8;
constexpr int NoEndCleat = 88;  // the end mark "X"

// The key that both "&Add" and "&Accessory" underline. It adds a line, which is what the typing of
// a table needs at every step; the menu opens by Alt and then A.
bool IsAddKey(const QKeyEvent& key) {
  return key.key() == Qt::Key_A && key.modifiers() == Qt::AltModifier;
}

}  // namespace

FrmAcc02::FrmAcc02(std::int16_t AccIndex, QWidget* parent)
    : PlainDialog(parent), accIndex_(AccIndex) {
  // Whatever way the dialog is left, but for OK.
  AccDialogResult = "Cancelled";
  setObjectName("frmAcc02");
  setWindowTitle(ToQt(AccDefs.At(accIndex_).Name));
  setWindowIcon(ProgramIcon());
  table_ = new Acc02Table(accIndex_, this);
  BuildMenus();
  BuildLayout();
  table_->installEventFilter(this);
  for (QWidget* editor : table_->findChildren<QWidget*>()) editor->installEventFilter(this);
  const QScreen& shownOn = parent != nullptr ? *parent->screen() : *screen();
  const QSize first = sizeHint() + QSize(0, FirstLines * fontMetrics().height());
  resize(first.boundedTo(shownOn.availableSize() - RoomForFrame));
  table_->GoToFirst();
}

void FrmAcc02::BuildMenus() {
  struct MenuEntry {
    const char* Caption;
    void (FrmAcc02::*Run)();
  };
  struct NamedMenu {
    const char* Array;
    const char* Caption;
    std::array<MenuEntry, 3> Entries;
  };
  const NamedMenu menus[] = {
      {"mnuAcc",
       "&Accessory",
       {{{"&Update and close", &FrmAcc02::Ok},
         {"&Print", &FrmAcc02::PrintAcc},
         {"&Close without updating", &FrmAcc02::Cancel}}}},
      {"mnuLine",
       "&Line",
       {{{"&Add", &FrmAcc02::AddLine},
         {"&Delete", &FrmAcc02::DeleteLine},
         {"&Clear all", &FrmAcc02::ClearAll}}}},
  };
  menus_ = new QMenuBar(this);
  menus_->setNativeMenuBar(false);
  for (const NamedMenu& named : menus) {
    QMenu* menu = menus_->addMenu(named.Caption);
    menu->setObjectName(named.Array);
    int index = 0;
    for (const MenuEntry& entry : named.Entries) {
      QAction* action = menu->addAction(entry.Caption);
      action->setObjectName(IndexedName(named.Array, index++));
      action->setMenuRole(QAction::NoRole);
      connect(action, &QAction::triggered, this,
              [this, run = entry.Run] { Guard([&] { (this->*run)(); }); });
    }
  }
}

void FrmAcc02::BuildLayout() {
  // First of all: a picture that can't be loaded leaves nothing half built.
  QWidget* picture = HasPicture(accIndex_) ? new AccessoryPicture(accIndex_, this) : nullptr;
  struct NamedButton {
    const char* Caption;
    void (FrmAcc02::*Press)();
  };
  const std::array<NamedButton, 6> named = {{{"&OK", &FrmAcc02::Ok},
                                             {"Clea&r", &FrmAcc02::ClearAll},
                                             {"&Print", &FrmAcc02::PrintAcc},
                                             {"&Cancel", &FrmAcc02::Cancel},
                                             {"&Add", &FrmAcc02::AddLine},
                                             {"&Delete", &FrmAcc02::DeleteLine}}};
  const auto add = [&](QBoxLayout& layout, int index) {
    const NamedButton& entry = named.at(static_cast<std::size_t>(index));
    QPushButton* button = AddButton(IndexedName("cmdButton", index), entry.Caption);
    connect(button, &QPushButton::clicked, this,
            [this, press = entry.Press] { Guard([&] { (this->*press)(); }); });
    layout.addWidget(button);
  };
  auto* lineButtons = new QVBoxLayout;
  for (const int index : {4, 5, 1}) add(*lineButtons, index);
  lineButtons->addStretch();
  auto* table = new QHBoxLayout;
  table->addWidget(table_, 1);
  table->addLayout(lineButtons);
  auto* buttons = new QHBoxLayout;
  add(*buttons, 2);
  buttons->addStretch();
  for (const int index : {0, 3}) add(*buttons, index);

  QVBoxLayout* layout = AddLayout();
  FrmAcc02::layout()->setMenuBar(menus_);
  if (picture != nullptr) layout->addWidget(picture, PictureShare);
  layout->addLayout(table, TableShare);
  layout->addLayout(buttons);
}

// Commands.

void FrmAcc02::Ok() {
  if (AccValidate()) UpdateAcc();
}

// A choice that was typed but not settled would be stored as what it was before.
bool FrmAcc02::AccValidate() {
  if (table_->LeadsToUndecided()) return false;
  const auto refusal = ValidateAccessory(accIndex_, table_->Texts());
  if (!refusal) return true;
  TheDesktop().ShowMessageBox(refusal->Text, refusal->Title, Buttons::Ok, Icon::None);
  if (refusal->Column > 0) {
    table_->GoTo(refusal->Row, refusal->Column);
  } else {
    table_->ShowRow(refusal->Row);
  }
  return false;
}

void FrmAcc02::UpdateAcc() {
  table_->Commit();
  StoreType2Lines(accIndex_, table_->Texts());
  AccDialogResult = "OK";
  accept();
}

void FrmAcc02::ClearAll() {
  table_->ClearRows();
}

void FrmAcc02::PrintAcc() {
  if (table_->LeadsToUndecided()) return;
  PrintAccessorySheet(this, AccessoryType::Two, table_->Texts());
}

void FrmAcc02::AddLine() {
  table_->AddRow();
}

void FrmAcc02::DeleteLine() {
  table_->RemoveRow();
}

bool FrmAcc02::HasChanges() {
  return table_->HasChanges();
}

void FrmAcc02::FillVCRCleatCombo(int column, int firstEndMark, int secondEndMark) {
  Table<std::string> cleats;
  if ((column == FirstCleatColumn && firstEndMark != NoEndCleat) ||
      (column == SecondCleatColumn && secondEndMark != NoEndCleat)) {
    for (const char* cleat : {"KT31", "KT33", "KT36"}) cleats.Append(cleat);
  }
  for (const char* cleat : {"KT39", "KT41"}) cleats.Append(cleat);
  table_->FillChoices(column, cleats);
}

// Keys.

bool FrmAcc02::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && IsAddKey(*static_cast<QKeyEvent*>(event))) {
    // Kept from the shortcuts, which would be two of the same key; it comes back as a plain press.
    event->accept();
    return true;
  }
  return PlainDialog::event(event);
}

bool FrmAcc02::AddKey(const QKeyEvent& key) {
  if (!IsAddKey(key)) return false;
  // One that is held down adds one line.
  if (!key.isAutoRepeat()) Guard([this] { AddLine(); });
  return true;
}

bool FrmAcc02::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && AddKey(*static_cast<QKeyEvent*>(event))) return true;
  return PlainDialog::eventFilter(watched, event);
}

void FrmAcc02::keyPressEvent(QKeyEvent* event) {
  if (!AddKey(*event)) PlainDialog::keyPressEvent(event);
}

}  // namespace orvane
