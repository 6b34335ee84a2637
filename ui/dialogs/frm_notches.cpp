#include "ui/dialogs/frm_notches.h"

#include <QHBoxLayout>
#include <QPainter>

#include "core/model.h"
#include "project/rules/notch_rules.h"
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

// The list is the first panel's neighbour in the array of the two.
constexpr std::string_view EditPanels = "SSPanelEdit";

TextRowsModel* NewNotchesModel(std::int16_t ItemIndex) {
  auto* model = new TextRowsModel({"", "Code", "Depth", "Width", "Position"}, NotchRows(ItemIndex),
                                  0, nullptr);
  for (const int column : {NotchDepthColumn, NotchWidthColumn, NotchPositionColumn}) {
    model->SetAlignment(column, Qt::AlignRight);
  }
  return model;
}

CellEdit NotchCellEdit(int column) {
  return column == NotchCodeColumn ? CellEdit::Choice : CellEdit::Number;
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

// The table.

NotchesTable::NotchesTable(std::int16_t ItemIndex, QWidget* parent)
    : TextTable(NewNotchesModel(ItemIndex), NotchCellEdit, CellTakes::AtOnce,
                IndexedName(EditPanels, 0), parent) {
  setObjectName("MSFlexGrid1");
  setAccessibleName("Notches");
  SetColumnRatio({180, 1000, 1000, 1000, 1000});
  setMinimumHeight(HeightOf(GridRows));
  setMinimumWidth(fontMetrics().averageCharWidth() * 56);
  Editor().AddChoices(NotchCodeColumn, IndexedName(EditPanels, 1), "cboEdit").Fill(NotchCodes);
}

// The dialog.

FrmNotches::FrmNotches(std::int16_t ItemIndex, QWidget* parent)
    : PlainDialog(parent), itemIndex_(ItemIndex), MSFlexGrid1_(new NotchesTable(itemIndex_, this)) {
  setObjectName("frmNotches");
  setWindowTitle("Notches");
  setWindowIcon(ProgramIcon());

  const auto add = [this](QBoxLayout& layout, const char* name, const char* caption, auto press) {
    QPushButton* button = AddButton(name, caption);
    connect(button, &QPushButton::clicked, this, [press] { Guard(press); });
    layout.addWidget(button);
  };
  auto* rowButtons = new QVBoxLayout;
  add(*rowButtons, "cmdNotch(0)", "&Add", [this] { MSFlexGrid1_->AddRow(); });
  add(*rowButtons, "cmdNotch(1)", "&Delete", [this] { MSFlexGrid1_->RemoveRow(); });
  add(*rowButtons, "cmdNotch(2)", "Clea&r All", [this] { ClearAll(); });
  rowButtons->addStretch();
  auto* table = new QHBoxLayout;
  table->addWidget(MSFlexGrid1_, 1);
  table->addLayout(rowButtons);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  add(*buttons, "SSCommand2(0)", "&OK", [this] { Store(); });
  add(*buttons, "SSCommand2(1)", "&Cancel", [this] { Cancel(); });

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(new NotchPicture(this));
  layout->addLayout(table, 1);
  layout->addLayout(buttons);
  MSFlexGrid1_->GoToFirst();
}

bool FrmNotches::HasChanges() {
  return MSFlexGrid1_->HasChanges();
}

void FrmNotches::ClearAll() {
  MSFlexGrid1_->ClearRows();
}

// A notch whose code was typed but not settled would be dropped without a word.
void FrmNotches::Store() {
  if (MSFlexGrid1_->LeadsToUndecided()) return;
  StoreNotches(itemIndex_, MSFlexGrid1_->Texts());
  accept();
}

}  // namespace orvane
