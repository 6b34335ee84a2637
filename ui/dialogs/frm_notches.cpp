#include "ui/dialogs/frm_notches.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "core/catalogues.h"
#include "core/model.h"
#include "core/numbers.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr int GridRows = 6;  // in sight at first

// The places of the notches: column and row of a raster of three by three, and whether a notch
// stands on the section's ends or edges is the same thing.
struct NotchPlace {
  std::string_view Code;
  int Across;  // 0 left end, 1 along the length, 2 right end
  int Down;    // 0 top flange, 1 web, 2 bottom flange
};

constexpr NotchPlace NotchPlaces[] = {
    {"TL1", 0, 0}, {"T2", 1, 0},  {"TR1", 2, 0}, {"L3", 0, 1},
    {"R3", 2, 1},  {"BL1", 0, 2}, {"B2", 1, 2},  {"BR1", 2, 2},
};

QPalette PaperOf(const QWidget& editor) {
  // The cell under it is white with black text in a dark desktop too.
  QPalette paper = editor.palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  return paper;
}

}  // namespace

// The picture.

NotchPicture::NotchPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("Image1");
  setAccessibleName("Places of the notches");
  setAccessibleDescription(
      "TL1, T2, TR1 in the top flange, BL1, B2, BR1 in the bottom flange, L3 and R3 in the ends");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize NotchPicture::NotchSize() const {
  return {fontMetrics().horizontalAdvance("TR1") * 2, fontMetrics().height() * 5 / 4};
}

QSize NotchPicture::sizeHint() const {
  return {NotchSize().width() * 7, NotchSize().height() * 6};
}

QRect NotchPicture::SectionPlace() const {
  const int margin = fontMetrics().height() / 2;
  return rect().adjusted(margin, margin, -margin - 1, -margin - 1);
}

QRect NotchPicture::PlaceOf(std::string_view code) const {
  const QRect section = SectionPlace();
  const QSize size = NotchSize();
  for (const NotchPlace& place : NotchPlaces) {
    if (place.Code != code) continue;
    const QPoint corner(section.left() + (section.width() - size.width()) * place.Across / 2,
                        section.top() + (section.height() - size.height()) * place.Down / 2);
    return {corner, size};
  }
  return {};
}

void NotchPicture::paintEvent(QPaintEvent*) {
  Guard([&] {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::Text);
    painter.fillRect(rect(), palette().base());
    QColor steel = ink;
    steel.setAlpha(36);
    painter.fillRect(SectionPlace(), steel);
    painter.setPen(ink);
    painter.drawRect(SectionPlace());
    for (const NotchPlace& place : NotchPlaces) {
      const QRect notch = PlaceOf(place.Code);
      painter.fillRect(notch, palette().base());
      painter.setPen(QPen(ink, 1, Qt::DashLine));
      painter.drawRect(notch);
      painter.drawText(notch, Qt::AlignCenter, ToQt(place.Code));
    }
  });
}

// The rows.

class NotchesModel : public FlexGridModel {
 public:
  NotchesModel(Table<NotchTexts> rows, QObject* parent)
      : FlexGridModel({"", "Code", "Depth", "Width", "Position"}, parent), rows_(std::move(rows)) {
    SetFixedColumns(1);
    for (const int column : {NotchDepthColumn, NotchWidthColumn, NotchPositionColumn}) {
      SetAlignment(column, Qt::AlignRight);
    }
  }

  const Table<NotchTexts>& Rows() const { return rows_; }
  std::string CellText(int row, int column) const override {
    if (row < 1 || row > rows_.UBound() || column < 0 || column >= NotchColumns) return {};
    return NotchText(rows_.At(row), column);
  }
  int DataRows() const override { return rows_.UBound(); }

  void SetText(int row, int column, std::string text) {
    SetNotchText(rows_.At(row), column, std::move(text));
    CellChanged(row, column);
  }
  void Append() {
    beginInsertRows({}, rows_.UBound(), rows_.UBound());
    rows_.Append(BlankNotch());
    endInsertRows();
  }
  void Remove(int row) {
    beginRemoveRows({}, row - 1, row - 1);
    rows_.Remove(row);
    endRemoveRows();
  }
  void Clear() {
    beginResetModel();
    rows_.Clear();
    rows_.Append(BlankNotch());
    endResetModel();
  }

 private:
  Table<NotchTexts> rows_;
};

// The dialog.

FrmNotches::FrmNotches(std::int16_t ItemIndex, QWidget* parent)
    : PlainDialog(parent), itemIndex_(ItemIndex) {
  setObjectName("frmNotches");
  setWindowTitle("Notches");
  setWindowIcon(ProgramIcon());
  BuildGrid();
  BuildEditors();

  struct NamedButton {
    const char* Name;
    const char* Caption;
    void (FrmNotches::*Press)();
  };
  const auto add = [this](QBoxLayout& layout, const NamedButton& named) {
    QPushButton* button = AddButton(named.Name, named.Caption);
    connect(button, &QPushButton::clicked, this,
            [this, press = named.Press] { Guard([&] { (this->*press)(); }); });
    layout.addWidget(button);
  };
  auto* rowButtons = new QVBoxLayout;
  add(*rowButtons, {"cmdNotch(0)", "&Add", &FrmNotches::AddRow});
  add(*rowButtons, {"cmdNotch(1)", "&Delete", &FrmNotches::DeleteRow});
  add(*rowButtons, {"cmdNotch(2)", "Clea&r All", &FrmNotches::ClearAll});
  rowButtons->addStretch();
  auto* table = new QHBoxLayout;
  table->addWidget(MSFlexGrid1_, 1);
  table->addLayout(rowButtons);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  add(*buttons, {"SSCommand2(0)", "&OK", &FrmNotches::Store});
  add(*buttons, {"SSCommand2(1)", "&Cancel", &FrmNotches::reject});

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(new NotchPicture(this));
  layout->addLayout(table, 1);
  layout->addLayout(buttons);
  MSFlexGrid1_->setFocus();
}

void FrmNotches::BuildGrid() {
  model_ = new NotchesModel(NotchRows(itemIndex_), this);
  MSFlexGrid1_ = new FlexGrid(model_, this);
  MSFlexGrid1_->setObjectName("MSFlexGrid1");
  MSFlexGrid1_->setAccessibleName("Notches");
  MSFlexGrid1_->SetColumnRatio({180, 1000, 1000, 1000, 1000});
  MSFlexGrid1_->setMinimumHeight(MSFlexGrid1_->HeightOf(GridRows));
  MSFlexGrid1_->setMinimumWidth(fontMetrics().averageCharWidth() * 56);
  // The keys rest here while no cell is edited.
  MSFlexGrid1_->setFocusPolicy(Qt::TabFocus);
  MSFlexGrid1_->installEventFilter(this);
  MSFlexGrid1_->SetCurrent(1, NotchCodeColumn);
  model_->SetGreyRow(1);
  MSFlexGrid1_->CellPressed = [this](int row, int column, Qt::MouseButton, QPoint) {
    // Column 0 only marks the row.
    if (column >= NotchCodeColumn) StartEditing(row, column);
  };
  MSFlexGrid1_->Scrolled = [this] { PlaceEditor(); };
}

void FrmNotches::BuildEditors() {
  txtEdit_ = new QLineEdit;
  txtEdit_->setObjectName("txtEdit");
  txtEdit_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  txtEdit_->setPalette(PaperOf(*txtEdit_));
  cboEdit_ = new PlainCombo;
  cboEdit_->setObjectName("cboEdit");
  cboEdit_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  cboEdit_->Fill(NotchCodes);
  const std::array<QWidget*, 2> editors = {txtEdit_, cboEdit_};
  for (std::size_t at = 0; at < editors.size(); ++at) {
    auto* panel = new QFrame(MSFlexGrid1_->viewport());
    panel->setObjectName(IndexedName("SSPanelEdit", static_cast<int>(at)));
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(editors.at(at));
    editors.at(at)->installEventFilter(this);
    panel->hide();
    SSPanelEdit_.at(at) = panel;
  }
  connect(txtEdit_, &QLineEdit::textEdited, this,
          [this](const QString& text) { Guard([&] { Edited(FromQt(text)); }); });
  // The same code chosen again counts too: the cell may hold one that the list hasn't.
  connect(cboEdit_, &QComboBox::activated, this,
          [this] { Guard([&] { Edited(cboEdit_->Text()); }); });
}

void FrmNotches::StartEditing(int row, int column) {
  const bool code = column == NotchCodeColumn;
  MSFlexGrid1_->SetCurrent(row, column);
  model_->SetGreyRow(row);
  MSFlexGrid1_->EnsureVisible(row, column);
  const std::string text = MSFlexGrid1_->TextMatrix(row, column);
  const QString name =
      ToQt(MSFlexGrid1_->TextMatrix(0, column)) + ", row " + ToQt(DecimalText(row));
  QFrame* shown = SSPanelEdit_.at(code ? 1 : 0);
  QFrame* hidden = SSPanelEdit_.at(code ? 0 : 1);
  if (code) {
    // Letters typed in the cell before don't go on here.
    cboEdit_->SearchAfresh();
    cboEdit_->SelectQuietly(FindComboIndex(cboEdit_->Entries(), text));
    cboEdit_->setAccessibleName(name);
  } else {
    txtEdit_->setText(ToQt(text));
    txtEdit_->selectAll();
    txtEdit_->setAccessibleName(name);
  }
  shown->setGeometry(MSFlexGrid1_->CellRect(row, column));
  shown->show();
  shown->raise();
  if (code) {
    cboEdit_->setFocus();
  } else {
    txtEdit_->setFocus();
  }
  // Hidden only now: a control that is hidden with the focus in it gives it to anybody.
  hidden->hide();
}

// Keeps the editor over its cell while the grid moves under it.
void FrmNotches::PlaceEditor() {
  for (QFrame* panel : SSPanelEdit_) {
    if (panel == nullptr || panel->isHidden()) continue;
    panel->setGeometry(MSFlexGrid1_->CellRect(MSFlexGrid1_->Row(), MSFlexGrid1_->Col()));
  }
}

void FrmNotches::HideEditors() {
  MSFlexGrid1_->setFocus();
  for (QFrame* panel : SSPanelEdit_) panel->hide();
}

void FrmNotches::Edited(const std::string& text) {
  if (MSFlexGrid1_->Row() >= 1) model_->SetText(MSFlexGrid1_->Row(), MSFlexGrid1_->Col(), text);
}

// Keys.

bool FrmNotches::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    Guard([&] {
      taken = watched == MSFlexGrid1_
                  ? GridKey(key)
                  : EditorKey(key) || (watched == cboEdit_ && PlainCombo::ChoosesByKey(key));
    });
  }
  return taken || PlainDialog::eventFilter(watched, event);
}

// The keys of both editors; true when the key was one of them.
bool FrmNotches::EditorKey(const QKeyEvent& key) {
  if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  const int row = MSFlexGrid1_->Row();
  const int column = MSFlexGrid1_->Col();
  const bool back = key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (back && column > NotchCodeColumn) {
        StartEditing(row, column - 1);
      } else if (!back && column < MSFlexGrid1_->Cols() - 1) {
        StartEditing(row, column + 1);
      }
      return true;
    case Qt::Key_Up:
      if (row > 1) StartEditing(row - 1, column);
      return true;
    case Qt::Key_Down:
      if (row < MSFlexGrid1_->Rows() - 1) StartEditing(row + 1, column);
      return true;
    default:
      return false;
  }
}

// From the grid itself, where no cell is edited, the keys lead back into it.
bool FrmNotches::GridKey(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) return false;
      if (MSFlexGrid1_->Rows() > 1) {
        StartEditing(std::max(1, MSFlexGrid1_->Row()),
                     std::max(NotchCodeColumn, MSFlexGrid1_->Col()));
      }
      return true;
    default:
      return false;
  }
}

// Buttons.

void FrmNotches::AddRow() {
  model_->Append();
  StartEditing(MSFlexGrid1_->Rows() - 1, NotchCodeColumn);
}

void FrmNotches::DeleteRow() {
  HideEditors();
  const int row = MSFlexGrid1_->Row();
  if (row < 1) return;
  const int column = MSFlexGrid1_->Col();
  model_->SetGreyRow(0);
  model_->Remove(row);
  MSFlexGrid1_->SetCurrent(row, column);
  model_->SetGreyRow(MSFlexGrid1_->Row());
}

void FrmNotches::ClearAll() {
  HideEditors();
  model_->Clear();
  MSFlexGrid1_->SetCurrent(1, NotchCodeColumn);
  model_->SetGreyRow(1);
}

void FrmNotches::Store() {
  StoreNotches(itemIndex_, model_->Rows());
  accept();
}

}  // namespace orvane
