#include "ui/find_line.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <algorithm>
#include <functional>

#include "core/model.h"
#include "core/numbers.h"
#include "project/section_serial.h"
#include "ui/controls/refused_look.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int FieldWidth = 160;  // at least, device-independent pixels

QToolButton* FindButton(const QString& name, const QString& tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  // A press leaves the cursor in the field.
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

}  // namespace

FindLine::FindLine(SectionsGrid& sections, QWidget* parent)
    : QWidget(parent),
      sections_(sections),
      txtFind_(new PlainField(this)),
      lblFound_(new QLabel(this)) {
  setObjectName("findLine");
  txtFind_->setObjectName("txtFind");
  txtFind_->setMinimumWidth(FieldWidth);
  txtFind_->setPlaceholderText("Mark, product, length or notes");
  lblFound_->setObjectName("lblFound");
  auto* label = new QLabel("Fin&d:", this);
  label->setBuddy(txtFind_);
  auto* previous = FindButton("cmdFindPrevious", "Previous (Shift+F3)", this);
  auto* next = FindButton("cmdFindNext", "Next (F3)", this);
  auto* close = FindButton("cmdFindClose", "Close, and go back (Esc)", this);
  previous->setIcon(LineIcon("find-previous"));
  next->setIcon(LineIcon("find-next"));
  close->setText(QChar(0x00D7));
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins({});
  line->addWidget(label);
  line->addWidget(txtFind_, 1);
  line->addWidget(lblFound_);
  line->addWidget(previous);
  line->addWidget(next);
  line->addWidget(close);
  hide();

  txtFind_->installEventFilter(this);
  connect(txtFind_, &QLineEdit::textChanged, this, [this] { Guard([&] { Search(); }); });
  connect(previous, &QToolButton::clicked, this, [this] { Guard([&] { Step(-1); }); });
  connect(next, &QToolButton::clicked, this, [this] { Guard([&] { Step(1); }); });
  connect(close, &QToolButton::clicked, this, [this] { Guard([&] { GoBack(); }); });
}

void FindLine::Open() {
  if (Items.UBound() == 0 || !sections_.SettleEditor()) return;
  if (!txtFind_->hasFocus()) {
    startRow_ = sections_.Grid().Row();
    startSerial_ = startRow_ < 1 ? 0 : SerialOf(Int16(startRow_));
    startColumn_ = sections_.Grid().Col();
    QWidget* focus = QApplication::focusWidget();
    before_ =
        focus != nullptr && !sections_.isAncestorOf(focus) && focus != &sections_ ? focus : nullptr;
  }
  show();
  txtFind_->setFocus(Qt::ShortcutFocusReason);
  txtFind_->selectAll();
  found_ = SectionsWith(FromQt(txtFind_->text()));
  ShowCount(sections_.Grid().Row());
}

void FindLine::Step(int step) {
  found_ = SectionsWith(FromQt(txtFind_->text()));
  if (txtFind_->text().isEmpty()) return Open();
  if (found_.empty()) return ShowCount(0);
  const int row = sections_.Grid().Row();
  if (step > 0) {
    const auto behind =
        std::upper_bound(found_.begin(), found_.end(), row,
                         [](int from, const FoundSection& found) { return from < found.Row; });
    return Show(behind == found_.end() ? found_.front() : *behind);
  }
  const auto at =
      std::lower_bound(found_.begin(), found_.end(), row,
                       [](const FoundSection& found, int from) { return found.Row < from; });
  Show(at == found_.begin() ? found_.back() : *std::prev(at));
}

bool FindLine::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::KeyPress) {
    Guard([&] { taken = KeyPressed(*static_cast<const QKeyEvent*>(event)); });
  }
  return taken || QWidget::eventFilter(watched, event);
}

bool FindLine::KeyPressed(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Escape:
      GoBack();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Take();
      return true;
    case Qt::Key_Up:
      Step(-1);
      return true;
    case Qt::Key_Down:
      Step(1);
      return true;
    default:
      return false;
  }
}

// From the cell on that one was in, so that a further letter doesn't lead away from a section that
// still fits.
void FindLine::Search() {
  if (!isVisible()) return;
  found_ = SectionsWith(FromQt(txtFind_->text()));
  if (found_.empty()) {
    sections_.LookAt(StartRow(), startColumn_);
    return ShowCount(0);
  }
  const int start = StartRow();
  const auto from = std::find_if(found_.begin(), found_.end(),
                                 [start](const FoundSection& found) { return found.Row >= start; });
  Show(from == found_.end() ? found_.front() : *from);
}

void FindLine::Show(const FoundSection& found) {
  if (txtFind_->hasFocus()) {
    sections_.LookAt(found.Row, found.Column);
  } else {
    sections_.GoTo(found.Row, found.Column);
  }
  ShowCount(found.Row);
}

// "3 of 12": which of them is the current one, and how many there are.
void FindLine::ShowCount(int row) {
  AcceptField(*txtFind_);
  // Readers of the screen are told it with the field.
  const auto tell = [this](const QString& count) {
    lblFound_->setText(count);
    txtFind_->setAccessibleDescription(count);
  };
  if (txtFind_->text().isEmpty()) return tell({});
  if (found_.empty()) {
    RefuseField(*txtFind_, "No section holds this text");
    return tell("None");
  }
  const auto at = std::find_if(found_.begin(), found_.end(),
                               [row](const FoundSection& found) { return found.Row == row; });
  const std::string count = DecimalText(static_cast<long long>(found_.size()));
  if (at == found_.end()) return tell(ToQt(count));
  const std::string place = DecimalText(static_cast<long long>(at - found_.begin() + 1));
  tell(ToQt(place + " of " + count));
}

// Where the section stands now that the cursor was in; of one that has gone, the row that it stood
// in, or the last one.
int FindLine::StartRow() const {
  for (int row = 1; startSerial_ != 0 && row <= Items.UBound(); ++row) {
    if (Items.At(row).Serial == startSerial_) return row;
  }
  return std::min(startRow_, Items.UBound());
}

// The cursor comes into the cell that was found.
void FindLine::Take() {
  if (found_.empty() && !txtFind_->text().isEmpty()) return;
  Close();
  sections_.GridEnterCell();
}

void FindLine::GoBack() {
  Close();
  const int row = StartRow();
  if (row < 1) return;
  if (before_ == nullptr) return sections_.GoTo(row, startColumn_);
  sections_.LookAt(row, startColumn_);
  before_->setFocus();
}

void FindLine::Close() {
  AcceptField(*txtFind_);
  hide();
}

}  // namespace orvane
