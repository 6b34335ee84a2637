#include "ui/accessory_chooser.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "core/model.h"
#include "project/rules/accessory_rules.h"
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
  // By a click or the key of its label alone: a Tab on its way to another control, or a turn of the
  // wheel, must not make the project count as changed.
  setFocusPolicy(Qt::ClickFocus);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setItemDelegate(new MarkDelegate(this));
  BuildMenu();
}

void AccessoryChooser::BuildMenu() {
  mnuAccPU = new QMenu("AccPopup", this);
  mnuAccPU->setObjectName("mnuAccPU");
  for (const CommandEntry& entry : CommandsOf(Place::mnuAccPUI)) {
    QAction* action = mnuAccPU->addAction(LineIcon(entry.Icon), ToQt(entry.Caption));
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
  if (command == Command::EditAccessory) EditAccessories();
  if (command == Command::ClearAccessory) ClearAccessory();
}

void AccessoryChooser::focusInEvent(QFocusEvent* event) {
  Guard([&] {
    QListWidget::focusInEvent(event);
    if (!IsUsersArrival(event->reason())) return;
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
  if (!mnuAccPU->isVisible()) mnuAccPU->popup(globalPos);
}

void AccessoryChooser::mousePressEvent(QMouseEvent* event) {
  Guard([&] {
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

void AccessoryChooser::keyboardSearch(const QString& typed) {
  const bool goesOn =
      lastLetter_.isValid() && !lastLetter_.hasExpired(QApplication::keyboardInputInterval());
  if (typed.isEmpty() || !goesOn) sought_.clear();
  lastLetter_.start();
  // A blank in front begins no name.
  if (typed.isEmpty() || (sought_.isEmpty() && typed == " ")) return;
  sought_ += typed;
  const bool sameLetter = sought_.count(sought_.front(), Qt::CaseInsensitive) == sought_.size();
  const QString beginning = sameLetter ? sought_.left(1) : sought_;
  const int from = std::max(0, sameLetter ? currentRow() + 1 : currentRow());
  for (int step = 0; step < count(); ++step) {
    const int row = (from + step) % count();
    if (!item(row)->text().mid(MarkWidth).startsWith(beginning, Qt::CaseInsensitive)) continue;
    setCurrentRow(row);
    return;
  }
}

void AccessoryChooser::keyPressEvent(QKeyEvent* event) {
  Guard([&] {
    event->accept();
    if (!ListKey(*event)) QListWidget::keyPressEvent(event);
  });
}

}  // namespace orvane
