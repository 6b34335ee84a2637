#include "ui/dialogs/frm_acc01.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <array>

#include "project/rules/accessory_rules.h"
#include "ui/controls/text_table.h"
#include "ui/dialogs/accessory_pane.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The columns from left to right.
constexpr int QtyColumn = 1;
constexpr int ParamColumn = 3;
constexpr std::array<const char*, 4> Headings = {"Code", "No. Off", "Description", "Param"};

// The greatest number of a field has five digits; one more is seen before it is refused.
constexpr const char* WidestNumber = "000000";

// What the title bar and the edges of a window take, and what is left of the screen around it,
// device-independent pixels.
constexpr QSize ScreenEdge(40, 80);

QLabel* NewSizeLabel(const std::string& text, const QString& name) {
  auto* label = new QLabel(ToQt(text));
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

// The rows and the headings above them, in columns that are as wide as their widest entry.
class SizeColumns {
 public:
  explicit SizeColumns(const std::array<bool, 4>& shown)
      : shown_(shown), headingRow_(new QWidget), rows_(new QWidget) {
    headingGrid_ = new QGridLayout(headingRow_);
    rowGrid_ = new QGridLayout(rows_);
    for (std::size_t at = 0; at < Headings.size(); ++at) {
      auto* heading =
          NewSizeLabel(Headings.at(at), IndexedName("lblHeading", static_cast<int>(at)));
      QFont bold = heading->font();
      bold.setBold(true);
      heading->setFont(bold);
      Add(*headingGrid_, heading, 0, at);
    }
  }

  QWidget* HeadingRow() const { return headingRow_; }
  QWidget* Rows() const { return rows_; }

  void AddRow(const std::array<QWidget*, 4>& elements) {
    for (std::size_t column = 0; column < elements.size(); ++column) {
      Add(*rowGrid_, elements.at(column), count_, column);
    }
    ++count_;
  }

  // Called behind the last row.
  void Lay() {
    const int edge = rows_->fontMetrics().height() / 4;
    for (QGridLayout* grid : {headingGrid_, rowGrid_}) {
      grid->setContentsMargins(edge, edge, edge, edge);
      grid->setHorizontalSpacing(rows_->fontMetrics().height());
      for (std::size_t at = 0; at < widths_.size(); ++at) {
        grid->setColumnMinimumWidth(static_cast<int>(at), widths_.at(at));
      }
      // What is left of the room stays free.
      grid->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
  }

 private:
  void Add(QGridLayout& grid, QWidget* element, int row, std::size_t column) {
    const bool isNumber = column == QtyColumn || column == ParamColumn;
    grid.addWidget(element, row, static_cast<int>(column),
                   isNumber ? Qt::AlignRight : Qt::Alignment());
    element->setHidden(!shown_.at(column));
    if (!shown_.at(column)) return;
    const int width = std::min(element->sizeHint().width(), element->maximumWidth());
    widths_.at(column) = std::max(widths_.at(column), width);
  }

  std::array<bool, 4> shown_;
  std::array<int, 4> widths_{};
  int count_ = 0;
  QWidget* headingRow_;
  QWidget* rows_;
  QGridLayout* headingGrid_ = nullptr;
  QGridLayout* rowGrid_ = nullptr;
};

// A scrolled list under headings that stay.
class SizeList : public QScrollArea {
 public:
  SizeList(QWidget* headings, QWidget* rows, QWidget* parent)
      : QScrollArea(parent), headings_(headings) {
    setObjectName("areaSizes");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(rows);
    setWidgetResizable(true);
    headings_->setParent(this);
    setViewportMargins(0, headings_->sizeHint().height(), 0, 0);
  }

  // As large as the rows, so that nothing is scrolled where there is room.
  QSize sizeHint() const override {
    const QSize rows = widget()->sizeHint();
    return {rows.width() + verticalScrollBar()->sizeHint().width(),
            rows.height() + headings_->sizeHint().height()};
  }
  QSize minimumSizeHint() const override {
    const int line = fontMetrics().height();
    return QSize(line * 12, line * 6).boundedTo(sizeHint());
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QScrollArea::resizeEvent(event);
    LayHeadings();
  }
  void scrollContentsBy(int dx, int dy) override {
    QScrollArea::scrollContentsBy(dx, dy);
    LayHeadings();
  }
  // The toolkit brings only the text cursor of a field into sight.
  bool focusNextPrevChild(bool next) override {
    const bool moved = QScrollArea::focusNextPrevChild(next);
    if (const QWidget* field = focusWidget()) {
      const QPoint middle = field->mapTo(widget(), field->rect().center());
      ensureVisible(middle.x(), middle.y(), field->width(), field->height());
    }
    return moved;
  }

 private:
  void LayHeadings() {
    const int shift = horizontalScrollBar()->value();
    headings_->setGeometry(-shift, 0, widget()->width(), headings_->sizeHint().height());
  }

  QWidget* headings_;
};

// Whether a key would type something other than digits. Keys that only edit, such as backspace and
// the arrows, type nothing printable.
bool TypesOtherThanDigits(const QKeyEvent& key) {
  // Ctrl with Alt types a third letter.
  const bool command =
      (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
  const QString text = key.text();
  return !command && std::any_of(text.begin(), text.end(),
                                 [](QChar letter) { return letter.isPrint() && !IsDigit(letter); });
}

}  // namespace

// The field.

NumberField::NumberField(QWidget* parent) : PlainField(parent) {
  TakePastedNumber(NumberForm::Whole);
  setAlignment(Qt::AlignRight);
  setFixedWidth(fontMetrics().horizontalAdvance(WidestNumber) + fontMetrics().height());
  connect(this, &QLineEdit::textEdited, this, [this] { Guard([this] { KeepDigits(); }); });
}

// Of what came otherwise than by keys, from an input method say, the digits stay.
void NumberField::KeepDigits() {
  QString digits;
  int cursor = 0;
  for (int at = 0; at < text().size(); ++at) {
    if (!IsDigit(text()[at])) continue;
    digits += text()[at];
    if (at < cursorPosition()) ++cursor;
  }
  if (digits == text()) return;
  setText(digits);
  setCursorPosition(cursor);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // One that is held down must not come to a button and press it.
    if (!event->isAutoRepeat()) focusNextChild();
    return;
  }
  if (TypesOtherThanDigits(*event)) return;
  PlainField::keyPressEvent(event);
}

// The dialog.

FrmAcc01::FrmAcc01(std::int16_t AccIndex, QWidget* parent)
    : PlainDialog(parent),
      accIndex_(AccIndex),
      hasTexts_(AccDefs.At(AccIndex).Flag != False),
      hasParam_(AccDefs.At(AccIndex).HasParamColumn != False) {
  // Whatever way the dialog is left, but for OK.
  AccDialogResult = "Cancelled";
  setObjectName("frmAcc01");
  setWindowTitle(ToQt(AccDefs.At(accIndex_).Name));
  setWindowIcon(ProgramIcon());

  QVBoxLayout* layout = AddLayout();
  auto* panes = new QHBoxLayout;
  layout->addLayout(panes, 1);
  panes->setSpacing(fontMetrics().height());
  panes->addWidget(BuildRows());
  if (HasPicture(accIndex_)) panes->addWidget(new AccessoryPicture(accIndex_, this), 1);
  layout->addLayout(BuildButtons());
  FillRows();

  const QScreen& shownOn = parent != nullptr ? *parent->screen() : *screen();
  resize(sizeHint().boundedTo(shownOn.availableSize() - ScreenEdge));
  if (txtQty_.empty()) return;
  txtQty_.front()->setFocus();
  txtQty_.front()->selectAll();
}

NumberField* FrmAcc01::NewField(std::string_view array, int index, std::string_view heading) {
  auto* field = new NumberField(this);
  field->setObjectName(IndexedName(array, index));
  const std::string& code = AccDefs.At(accIndex_).ParamNames.At(index);
  field->setAccessibleName(ToQt(code + ", " + std::string(heading)));
  return field;
}

QWidget* FrmAcc01::BuildRows() {
  const AccDef& accessory = AccDefs.At(accIndex_);
  SizeColumns columns({true, true, hasTexts_, hasParam_});
  for (int i = 1; i <= accessory.ParamCount(); ++i) {
    txtQty_.push_back(NewField("txtQty", i, Headings.at(QtyColumn)));
    txtParam_.push_back(NewField("txtParam", i, Headings.at(ParamColumn)));
    columns.AddRow(
        {NewSizeLabel(accessory.ParamNames.At(i), IndexedName("lblCode", i)), txtQty_.back(),
         NewSizeLabel(accessory.ParamTexts.At(i), IndexedName("lblDesc", i)), txtParam_.back()});
  }
  columns.Lay();
  return new SizeList(columns.HeadingRow(), columns.Rows(), this);
}

QLayout* FrmAcc01::BuildButtons() {
  struct NamedButton {
    const char* Caption;
    void (FrmAcc01::*Press)();
  };
  constexpr std::array<NamedButton, 4> Buttons = {{
      {"&OK", &FrmAcc01::Store},
      {"C&lea&r", &FrmAcc01::ClearFields},  // of two marks the first is its key
      {"&Print", &FrmAcc01::Print},
      {"&Cancel", &FrmAcc01::Cancel},
  }};
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (std::size_t at = 0; at < Buttons.size(); ++at) {
    QPushButton* button =
        AddButton(IndexedName("SSCommand2", static_cast<int>(at)), Buttons.at(at).Caption);
    connect(button, &QPushButton::clicked, this,
            [this, press = Buttons.at(at).Press] { Guard([&] { (this->*press)(); }); });
    row->addWidget(button);
  }
  return row;
}

void FrmAcc01::FillRows() {
  const TextRows rows = AccessoryRows(accIndex_);
  for (std::size_t at = 0; at < txtQty_.size(); ++at) {
    const Table<std::string>& row = rows.At(static_cast<int>(at) + 1);
    txtQty_.at(at)->setText(ToQt(row.At(1)));
    if (hasParam_) txtParam_.at(at)->setText(ToQt(row.At(2)));
  }
  openedWith_ = ShownRows();
}

bool FrmAcc01::HasChanges() {
  return !SameTexts(openedWith_, ShownRows());
}

TextRows FrmAcc01::ShownRows() const {
  TextRows rows;
  for (std::size_t at = 0; at < txtQty_.size(); ++at) {
    Table<std::string>& row = rows.Append({});
    row.Append(FromQt(txtQty_.at(at)->text()));
    if (hasParam_) row.Append(FromQt(txtParam_.at(at)->text()));
  }
  return rows;
}

void FrmAcc01::Store() {
  StoreType1Lines(accIndex_, ShownRows());
  AccDialogResult = "OK";
  accept();
}

void FrmAcc01::ClearFields() {
  for (NumberField* field : txtQty_) field->clear();
  for (NumberField* field : txtParam_) field->clear();
}

void FrmAcc01::Print() {
  PrintAccessorySheet(this, AccessoryType::One, ShownRows());
}

}  // namespace orvane
