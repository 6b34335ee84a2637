#include "ui/frm_main_accessories.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "core/model.h"
#include "ui/platform/guard.h"
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

AccessoryList::AccessoryList(QWidget* parent) : QListWidget(parent) {
  setObjectName("lstAccessories");
  // By a click or the key of its label alone: a Tab on its way to another control, or a turn of the
  // wheel, must not make the project count as changed.
  setFocusPolicy(Qt::ClickFocus);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setUniformItemSizes(true);
  setItemDelegate(new MarkDelegate(this));
}

void AccessoryList::FillAccessoryList() {
  clear();
  const int count = AccType1Count + AccType2Count;
  for (int index = 1; index <= count; ++index) addItem(ToQt("  " + AccDefs.At(index).Name));
}

void AccessoryList::SetAccUsage() {
  for (int at = 0; at < count(); ++at) {
    SetAccessoryMark(*item(at), AccUsed.At(at + 1) != False ? UsedMark : UnusedMark);
  }
}

void AccessoryList::ClearAccUsage() {
  for (int at = 0; at < count(); ++at) SetAccessoryMark(*item(at), UnusedMark);
}

void AccessoryList::focusInEvent(QFocusEvent* event) {
  Guard([&] {
    QListWidget::focusInEvent(event);
    // Deliberately whether anything is changed afterwards or not.
    if (IsUsersArrival(event->reason())) ProjectDirty = True;
  });
}

void AccessoryList::mousePressEvent(QMouseEvent* event) {
  Guard([&] {
    if (event->button() != Qt::RightButton) {
      QListWidget::mousePressEvent(event);
      return;
    }
    // What the pop-up does is done to the entry that the user points at.
    if (QListWidgetItem* entry = itemAt(event->position().toPoint())) setCurrentItem(entry);
    event->accept();
  });
}

}  // namespace orvane
