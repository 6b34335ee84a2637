#include "ui/accessory_chooser.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "core/desktop.h"
#include "core/model.h"
#include "project/rules/accessory_rules.h"
#include "ui/controls/refused_look.h"
#include "ui/dialogs/frm_acc01.h"
#include "ui/dialogs/frm_acc02.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// In front of the accessory's name stand its mark and one blank.
constexpr int MarkWidth = 2;
constexpr char16_t UsedMark = u'*';
constexpr char16_t UnusedMark = u' ';

// Air above and below an entry's text together, device-independent pixels.
constexpr int EntryAir = 6;

// Draws the mark in a column of its own, so that a name doesn't move when its mark comes or goes:
// a star and a blank differ in width.
class MarkDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem entry = option;
    initStyleOption(&entry, index);
    const QRect place = entry.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration,
                                                              &entry, entry.widget);
    const bool selected = entry.state.testFlag(QStyle::State_Selected);
    const bool active = entry.state.testFlag(QStyle::State_Active);
    painter->save();
    painter->setFont(entry.font);
    painter->setPen(entry.palette.color(active ? QPalette::Active : QPalette::Inactive,
                                        selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(place, Qt::AlignCenter, index.data().toString().left(1));
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, EntryAir);
  }

 protected:
  // The name as the entry's text, and the room of the mark in place of an icon.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text.remove(0, MarkWidth);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = {option->fontMetrics.horizontalAdvance(UsedMark),
                              option->fontMetrics.height()};
  }
};

// A real arrival of the user. The way back from a menu, a dialog or another program gives the focus
// too, and so does the program itself.
bool IsUsersArrival(Qt::FocusReason reason) {
  return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
         reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

void SetAccessoryMark(QListWidgetItem& entry, char16_t mark) {
  entry.setText(entry.text().replace(0, 1, mark));
}

}  // namespace

AccessoryChooser::AccessoryChooser(QWidget* parent) : QListWidget(parent) {
  setObjectName("lstAccessories");
  setAccessibleName("Accessories");
  // By a click or the key of its label alone: a Tab on its way to another control, or a turn of the
  // wheel, must not make the project count as changed.
  setFocusPolicy(Qt::ClickFocus);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setItemDelegate(new MarkDelegate(this));
  BuildMenu();
}

void AccessoryChooser::BuildMenu() {
  mnuAccPU_ = new QMenu("AccPopup", this);
  mnuAccPU_->setObjectName("mnuAccPU");
  for (const CommandEntry& entry : CommandsOf(Place::mnuAccPUI)) {
    QAction* action = mnuAccPU_->addAction(LineIcon(entry.Icon), ToQt(entry.Caption));
    action->setObjectName(IndexedName("mnuAccPUI", entry.Index));
    connect(action, &QAction::triggered, this,
            [this, command = entry.What] { Guard([&] { Run(command); }); });
  }
}

void AccessoryChooser::FillAccessoryList() {
  clear();
  const int count = AccType1Count + AccType2Count;
  for (int index = 1; index <= count; ++index) addItem(ToQt("  " + AccDefs.At(index).Name));
}

void AccessoryChooser::SetAccUsage() {
  for (int at = 0; at < count(); ++at) {
    SetAccessoryMark(*item(at), AccUsed.At(at + 1) != False ? UsedMark : UnusedMark);
  }
}

void AccessoryChooser::ClearAccUsage() {
  for (int at = 0; at < count(); ++at) SetAccessoryMark(*item(at), UnusedMark);
}

std::int16_t AccessoryChooser::Selected() const {
  const QListWidgetItem* entry = currentItem();
  return entry != nullptr && entry->isSelected() ? Int16(currentRow() + 1) : std::int16_t{0};
}

void AccessoryChooser::EditAccessories() {
  const std::int16_t index = Selected();
  CurrentAcc = index;
  if (index == 0) return;
  if (IsType1Accessory(index)) {
    FrmAcc01(index, window()).exec();
  } else {
    FrmAcc02(index, window()).exec();
  }
}

void AccessoryChooser::EditLine(int line, int column) {
  const std::int16_t index = AccLines2.At(line).AccIndex;
  if (index < 1 || index > count() || IsType1Accessory(index)) {
    return TheDesktop().Message(
        "This line's accessory isn't in the catalogue. It is kept, but can't be edited.");
  }
  setCurrentRow(index - 1);
  CurrentAcc = index;
  int row = 0;  // of the dialog, which shows this accessory's lines alone
  for (int at = 1; at <= line; ++at) row += AccLines2.At(at).AccIndex == index ? 1 : 0;
  FrmAcc02 dialog(index, window());
  dialog.GoTo(row, column);
  dialog.exec();
}

void AccessoryChooser::ClearAccessory() {
  if (Selected() > 0) orvane::ClearAccessory(Selected());
}

// A dialog that was left without a change tells of none.
void AccessoryChooser::Follow(const ChangeNotice& change) {
  if (change.Kind == ChangeKind::ClearAccessory) SetAccUsage();
  if (change.Kind != ChangeKind::EditAccessory || change.Row > count()) return;
  SetAccessoryMark(*item(change.Row - 1), AccUsed.At(change.Row) != False ? UsedMark : UnusedMark);
}

void AccessoryChooser::Run(Command command) {
  if (!SettleSearch()) return;
  if (command == Command::EditAccessory) EditAccessories();
  if (command == Command::ClearAccessory) ClearAccessory();
}

void AccessoryChooser::focusInEvent(QFocusEvent* event) {
  Guard([&] {
    QListWidget::focusInEvent(event);
    if (!IsUsersArrival(event->reason())) return;
    if (!typed_.Pending()) Accept();
    // Deliberately whether anything is changed afterwards or not.
    Change(ChangeKind::AccessoryListEntered);
    // Whoever comes by the keyboard sees where he is.
    const bool byMouse = event->reason() == Qt::MouseFocusReason;
    if (!byMouse && Selected() == 0) setCurrentRow(std::max(currentRow(), 0));
  });
}

// The mouse. What the pop-up does is done to the entry that the user points at.

void AccessoryChooser::SelectAt(QPoint place) {
  if (QListWidgetItem* entry = itemAt(place)) setCurrentItem(entry);
}

void AccessoryChooser::ShowMenu(QPoint globalPos) {
  // The menu key can come as a key and as the wish for a menu, one behind the other.
  if (!mnuAccPU_->isVisible()) mnuAccPU_->popup(globalPos);
}

void AccessoryChooser::mousePressEvent(QMouseEvent* event) {
  Guard([&] {
    if (typed_.Pending()) EndSearch();
    Accept();
    if (event->button() != Qt::RightButton) {
      QListWidget::mousePressEvent(event);
      return;
    }
    event->accept();
    SelectAt(event->position().toPoint());
    ShowMenu(event->globalPosition().toPoint());
  });
}

void AccessoryChooser::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second press of the right button is one more press.
  if (event->button() == Qt::RightButton) return mousePressEvent(event);
  Guard([&] {
    QListWidget::mouseDoubleClickEvent(event);
    const bool onEntry = itemAt(event->position().toPoint()) != nullptr;
    if (event->button() == Qt::LeftButton && onEntry) EditAccessories();
  });
}

// The press of the right button has opened the menu already.
void AccessoryChooser::contextMenuEvent(QContextMenuEvent* event) {
  Guard([&] {
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse) ShowMenuAtEntry();
  });
}

// The keyboard.

void AccessoryChooser::ShowMenuAtEntry() {
  if (HoldsCursor()) return;
  QPoint place(0, 0);
  if (Selected() > 0) {
    scrollToItem(currentItem());
    place = visualItemRect(currentItem()).bottomLeft();
  }
  ShowMenu(viewport()->mapToGlobal(place));
}

// The keys of the list's commands. One that is held down must not open a dialog again and again, or
// run through the accessories.
bool AccessoryChooser::ListKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  const bool plain = modifiers == Qt::NoModifier;
  if (plain && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
    if (!key.isAutoRepeat()) EditAccessories();
    return true;
  }
  if (plain && key.key() == Qt::Key_Delete) {
    if (!key.isAutoRepeat()) ClearAccessory();
    return true;
  }
  if (key.key() == Qt::Key_Menu || (key.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier)) {
    ShowMenuAtEntry();
    return true;
  }
  return false;
}

// Typed letters.

QLabel* AccessoryChooser::NewLettersLabel(QWidget* parent) {
  lblTyped_ = new QLabel(parent);
  lblTyped_->setObjectName("lblTyped");
  lblTyped_->setTextFormat(Qt::PlainText);
  return lblTyped_;
}

void AccessoryChooser::keyboardSearch(const QString& typed) {
  if (!typed_.Pending()) {
    QStringList names;
    for (int at = 0; at < count(); ++at) names.append(item(at)->text().mid(MarkWidth));
    typed_.SetNames(names);
    formerRow_ = Selected() - 1;
  }
  if (typed_.Type(typed)) FollowLetters();
}

void AccessoryChooser::FollowLetters() {
  if (!typed_.Pending()) setCurrentRow(formerRow_);
  if (typed_.First() >= 0) setCurrentRow(typed_.First());
  if (lblTyped_ != nullptr) lblTyped_->setText(typed_.Letters());
  Accept();
  setAccessibleDescription(typed_.Letters());
  if (typed_.NothingFits()) RefuseField(*this, typed_.Reason());
}

// The entry shown stays selected.
void AccessoryChooser::EndSearch() {
  typed_.Drop();
  formerRow_ = Selected() - 1;
  FollowLetters();
}

// True when the letters leave open which name is meant: the cursor stays with them.
bool AccessoryChooser::HoldsCursor() {
  if (!typed_.Pending()) return false;
  const int choice = typed_.Choice();
  if (choice < 0) {
    RefuseField(*this, typed_.Reason());
    return true;
  }
  setCurrentRow(choice);
  EndSearch();
  return false;
}

bool AccessoryChooser::SettleSearch() {
  if (!HoldsCursor()) return true;
  const QString reason = typed_.Reason();
  typed_.Drop();
  FollowLetters();
  RefuseField(*this, reason);
  undecided_ = true;
  return false;
}

void AccessoryChooser::Accept() {
  undecided_ = false;
  AcceptField(*this);
}

void AccessoryChooser::EnterUndecided() {
  undecided_ = false;  // the look stays: whoever is led there sees why
  setFocus(Qt::OtherFocusReason);
}

void AccessoryChooser::DropSearch() {
  const bool pending = typed_.Pending();
  typed_.Drop();
  if (pending) FollowLetters();
  Accept();
}

// The keys of the search; true when the key was one of them.
bool AccessoryChooser::SearchKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers held =
      key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  // With Ctrl and Alt together some keyboards type a third letter.
  const bool typing = !held || held == (Qt::ControlModifier | Qt::AltModifier);
  if (typing && !key.text().isEmpty() && key.text().front().isPrint()) {
    keyboardSearch(key.text());
    return true;
  }
  if (!typed_.Pending() || held) return false;
  switch (key.key()) {
    case Qt::Key_Backspace:
      typed_.TakeBack();
      FollowLetters();
      return true;
    case Qt::Key_Escape:
      typed_.Drop();
      FollowLetters();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
      return HoldsCursor();
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      if (typed_.First() >= 0) EndSearch();
      return true;
    default:
      return false;
  }
}

// Tab never reaches the handler of keys.
bool AccessoryChooser::event(QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (tab && !key.modifiers().testFlag(Qt::ControlModifier)) {
      Guard([&] { taken = HoldsCursor(); });
    }
  }
  return taken || QListWidget::event(event);
}

void AccessoryChooser::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  // A menu, a box or another program in front takes the focus only for a while.
  if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason ||
      event->reason() == Qt::ActiveWindowFocusReason) {
    return;
  }
  GuardFocusChange([&] { SettleSearch(); });
}

void AccessoryChooser::keyPressEvent(QKeyEvent* event) {
  Guard([&] {
    event->accept();
    if (!SearchKey(*event) && !ListKey(*event)) QListWidget::keyPressEvent(event);
  });
}

}  // namespace orvane
