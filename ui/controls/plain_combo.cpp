#include "ui/controls/plain_combo.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStylePainter>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The open list stands under its box, which shows the letters, and scrolls by a bar.
class ListBelowStyle : public QProxyStyle {
 public:
  ListBelowStyle() : QProxyStyle("Fusion") {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }
};

// One for all lists, which don't own it; it lives as long as the application.
QStyle* StyleOfLists() {
  static QPointer<QStyle> style;
  if (style.isNull()) {
    style = new ListBelowStyle;
    style->setParent(qApp);
  }
  return style;
}

constexpr int TextIndent = 1;  // of the style's own text in the box, device-independent pixels

// With Ctrl and Alt together some keyboards type a third letter.
bool IsLetterKey(const QKeyEvent& key) {
  const Qt::KeyboardModifiers held =
      key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const bool plain = !held || held == (Qt::ControlModifier | Qt::AltModifier);
  return plain && !key.text().isEmpty() && key.text().front().isPrint();
}

bool IsArrow(const QKeyEvent& key) {
  return key.key() == Qt::Key_Left || key.key() == Qt::Key_Right || PlainCombo::ChoosesByKey(key);
}

bool IsHeld(const QKeyEvent& key) {
  return key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

bool IsPlainEnter(const QKeyEvent& key) {
  return !IsHeld(key) && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

bool IsPlainTab(const QKeyEvent& key) {
  return !IsHeld(key) && (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab);
}

// True while the toolkit takes or gives the focus only for a while: a menu or list is open, a box
// is shown, another program is in front.
bool IsOnlyAWhile(const QWidget& list, Qt::FocusReason reason) {
  if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
      reason == Qt::ActiveWindowFocusReason || QApplication::activePopupWidget() != nullptr) {
    return true;
  }
  const QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr && modal != list.window();
}

}  // namespace

PlainCombo::PlainCombo(QWidget* parent) : QComboBox(parent) {
  setStyle(StyleOfLists());
  setEditable(false);
  setFocusPolicy(Qt::StrongFocus);
  view()->installEventFilter(this);
  TellListsToReaders();
  // First of all who listen, so that they find the letters gone.
  connect(this, &QComboBox::activated, this, [this] {
    typed_.Drop();
    posted_ = false;
    EndRefusal();
    update();
    TellValue();
  });
}

// Quiet doors.

void PlainCombo::Fill(const Table<std::string>& entries) {
  DropLetters();
  const QSignalBlocker quiet(this);
  clear();
  for (const std::string& entry : entries) addItem(ToQt(entry));
  // The first entry added to an empty box selects itself.
  setCurrentIndex(-1);
}

void PlainCombo::SelectQuietly(int index) {
  DropLetters();
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
}

void PlainCombo::DropLetters() {
  typed_.Drop();
  left_ = false;
  posted_ = false;
  AcceptField(*this);
  update();
}

void PlainCombo::ShowRefusal(const QString& reason) {
  left_ = true;
  RefuseField(*this, reason);
}

Table<std::string> PlainCombo::Entries() const {
  Table<std::string> entries;
  for (int at = 0; at < count(); ++at) entries.Append(FromQt(itemText(at)));
  return entries;
}

std::string PlainCombo::Text() const {
  return currentIndex() < 0 ? std::string() : FromQt(currentText());
}

QString PlainCombo::ShownText() const {
  if (typed_.Pending()) return typed_.Letters() + typed_.Rest();
  return currentIndex() < 0 ? QString() : currentText();
}

// Choosing.

void PlainCombo::Choose(int index) {
  typed_.Drop();
  setCurrentIndex(index);
  emit activated(index);
}

void PlainCombo::TellPosted() {
  if (!posted_) return;
  posted_ = false;
  emit activated(currentIndex());
}

ListLeft PlainCombo::Leave() {
  TellPosted();
  if (!typed_.Pending()) return ListLeft::Untouched;
  if (typed_.Choice() >= 0) {
    Choose(typed_.Choice());
    return ListLeft::Chosen;
  }
  const QString reason = typed_.Reason();
  typed_.Drop();
  ShowRefusal(reason);
  update();
  TellValue();
  if (LeftUndecided) LeftUndecided(reason);
  return ListLeft::Undecided;
}

bool PlainCombo::HoldsCursor(const QKeyEvent& key) {
  if (!typed_.Pending() || !(IsPlainEnter(key) || IsPlainTab(key))) return false;
  if (typed_.Choice() >= 0) {
    Choose(typed_.Choice());
    return false;
  }
  RefuseField(*this, typed_.Reason());
  return true;
}

void PlainCombo::EndRefusal() {
  AcceptField(*this);
  if (!left_) return;
  left_ = false;
  if (RefusalEnded) RefusalEnded();
}

// Typing.

bool PlainCombo::ChoosesByKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    case Qt::Key_Down:
      return (key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::AltModifier;
    default:
      return false;
  }
}

// Letters and Backspace; true when the key was one of them.
bool PlainCombo::TypeLetter(const QKeyEvent& key) {
  if (IsLetterKey(key)) {
    if (!typed_.Pending()) {
      QStringList names;
      for (int at = 0; at < count(); ++at) names.append(itemText(at));
      typed_.SetNames(names);
    }
    if (!typed_.Type(key.text())) return false;
  } else if (key.key() != Qt::Key_Backspace || IsHeld(key) || !typed_.TakeBack()) {
    return false;
  }
  FollowLetters();
  return true;
}

void PlainCombo::FollowLetters() {
  EndRefusal();
  if (typed_.NothingFits()) RefuseField(*this, typed_.Reason());
  MarkFirst();
  update();
  TellValue();
}

// In the open list, the entry that the box shows.
void PlainCombo::MarkFirst() {
  if (!view()->isVisible() || typed_.First() < 0) return;
  view()->setCurrentIndex(model()->index(typed_.First(), modelColumn(), rootModelIndex()));
}

// The keys of the closed list while letters are typed; true when the key was one of them.
bool PlainCombo::TypingKey(const QKeyEvent& key) {
  if (TypeLetter(key)) return true;
  if (!typed_.Pending()) return false;
  if (IsPlainEnter(key)) {
    HoldsCursor(key);
    return true;
  }
  if (key.key() == Qt::Key_Escape && !IsHeld(key)) {
    // One held down since the list was closed by it has done its one thing.
    if (key.isAutoRepeat()) return true;
    typed_.Drop();
    FollowLetters();
    return true;
  }
  if (!IsArrow(key) || IsHeld(key)) return false;
  if (typed_.First() >= 0) Choose(typed_.First());
  return true;
}

// The same of the open list, in which an arrow only leads to the entry shown. What is left over is
// the list's own.
bool PlainCombo::ListKey(QKeyEvent& key) {
  if (TypeLetter(key)) return true;
  if (!typed_.Pending()) return false;
  if (IsPlainEnter(key) || IsPlainTab(key)) {
    if (HoldsCursor(key)) return true;
    hidePopup();
    // The way on by Tab begins at the box.
    if (IsPlainTab(key)) QCoreApplication::sendEvent(this, &key);
    return true;
  }
  if (!IsArrow(key) || IsHeld(key)) return false;
  if (typed_.First() >= 0) {
    typed_.Drop();
    FollowLetters();
  }
  return true;
}

bool PlainCombo::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::ShortcutOverride && watched == view() && typed_.Pending() &&
      IsPlainEnter(*static_cast<QKeyEvent*>(event))) {
    // The toolkit would take the marked entry already here, before the key itself comes.
    event->accept();
    return true;
  }
  if (event->type() == QEvent::KeyPress) {
    Guard([&] { taken = watched == view() && ListKey(*static_cast<QKeyEvent*>(event)); });
  }
  return taken || QComboBox::eventFilter(watched, event);
}

bool PlainCombo::IsCut() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect field =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  const int air = 1;  // on each side of the text
  return fontMetrics().horizontalAdvance(ShownText()) > field.width() - 2 * air;
}

// Tab never reaches the handler of keys. A name that the closed box cuts off is told whole to a
// resting mouse.
bool PlainCombo::event(QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && IsCut()) {
    const auto& help = static_cast<const QHelpEvent&>(*event);
    QToolTip::showText(help.globalPos(), PlainTip(FromQt(ShownText())), this);
    return true;
  }
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (IsPlainTab(key)) Guard([&] { taken = HoldsCursor(key); });
  }
  return taken || QComboBox::event(event);
}

void PlainCombo::keyPressEvent(QKeyEvent* event) {
  bool taken = false;
  Guard([&] { taken = TypingKey(*event); });
  if (taken) {
    event->accept();
    return;
  }
  const bool letter = !event->text().isEmpty() && event->text().front().isPrint();
  if (letter && event->key() != Qt::Key_Space) {
    // The toolkit's own search would forget its letters after a while.
    event->ignore();
    return;
  }
  QComboBox::keyPressEvent(event);
}

void PlainCombo::focusInEvent(QFocusEvent* event) {
  if (!typed_.Pending() && !IsOnlyAWhile(*this, event->reason())) EndRefusal();
  QComboBox::focusInEvent(event);
}

// The choice is told when the change of focus is over: whoever hears of it may ask a question.
void PlainCombo::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (IsOnlyAWhile(*this, event->reason()) || !typed_.Pending()) return;
  const int choice = typed_.Choice();
  if (choice < 0) {
    GuardFocusChange([&] { Leave(); });
    return;
  }
  SelectQuietly(choice);
  posted_ = true;
  QTimer::singleShot(0, this, [this] { Guard([&] { TellPosted(); }); });
}

void PlainCombo::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

// Showing.

void PlainCombo::showPopup() {
  const int line = std::max(1, view()->sizeHintForRow(0));
  const int half = screen()->availableGeometry().height() / 2 - 2 * line;
  setMaxVisibleItems(std::max(1, half / line));
  const int bar = view()->verticalScrollBar()->sizeHint().width();
  const int least = view()->sizeHintForColumn(0) + bar + 2 * view()->frameWidth();
  view()->setMinimumWidth(std::max(least, width()));
  QComboBox::showPopup();
  MarkFirst();
}

// The letters as typed and a cursor behind them, then the rest of the first entry that fits, marked
// as a text is that further typing replaces.
void PlainCombo::paintEvent(QPaintEvent* event) {
  if (!typed_.Pending()) {
    QComboBox::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  option.currentText.clear();
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect place =
      style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
          .adjusted(TextIndent, 0, -TextIndent, 0);
  const QFontMetrics metrics = fontMetrics();
  const int typedWidth = metrics.horizontalAdvance(typed_.Letters());
  // The end of long letters stays in sight.
  const int left = place.left() - std::max(0, typedWidth + 2 - place.width());
  painter.setClipRect(place);
  painter.setPen(option.palette.color(QPalette::ButtonText));
  painter.drawText(QRect(left, place.top(), typedWidth + 1, place.height()),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, typed_.Letters());
  const int end = left + typedWidth;
  const QString rest = typed_.Rest();
  const QRect marked(end + 1, place.top() + (place.height() - metrics.height()) / 2,
                     metrics.horizontalAdvance(rest), metrics.height());
  if (!rest.isEmpty()) {
    painter.fillRect(marked, option.palette.color(QPalette::Highlight));
    painter.setPen(option.palette.color(QPalette::HighlightedText));
    painter.drawText(marked, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, rest);
  }
  painter.setPen(option.palette.color(QPalette::ButtonText));
  painter.drawLine(end, marked.top(), end, marked.bottom());
}

void PlainCombo::TellValue() {
  QAccessibleValueChangeEvent told(this, ShownText());
  QAccessible::updateAccessibility(&told);
}

}  // namespace orvane
