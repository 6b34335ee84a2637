#include "ui/dialogs/frm_registration.h"

#include <QFocusEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStringList>
#include <algorithm>
#include <string>

#include "core/model.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "core/text.h"
#include "drawing/sheet_frame.h"
#include "drawing/sheet_source.h"
#include "project/changes.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr std::size_t FirstNumber = 2;  // Text1(2) to Text1(6) hold numbers
constexpr std::size_t LeftSide = 2;
constexpr std::size_t BottomSide = 5;
constexpr std::size_t Separation = 6;
constexpr int LongestNumber = 300;  // digits: any of them is still a number

constexpr double GreatestSeparation = 9;  // mm
constexpr double LeastSeparation = 3;

bool IsAllowedInNumber(QChar letter) {
  return (letter >= '0' && letter <= '9') || letter == ' ';
}

// A key that would type something other than a digit or a blank. Keys that only edit, such as
// backspace and the arrows, type nothing printable.
bool TypesOtherThanNumber(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier) return false;  // a command
  const QString text = key.text();
  return std::any_of(text.begin(), text.end(),
                     [](QChar letter) { return letter.isPrint() && !IsAllowedInNumber(letter); });
}

// Drops what a number field doesn't take from text that came in otherwise than by keys, from an
// input method say.
void KeepNumber(QLineEdit& field) {
  const QString text = field.text();
  QString kept;
  qsizetype cursor = field.cursorPosition();
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (IsAllowedInNumber(text[at])) {
      kept += text[at];
    } else if (at < field.cursorPosition()) {
      --cursor;
    }
  }
  if (kept == text) return;
  field.setText(kept);
  field.setCursorPosition(static_cast<int>(cursor));
}

QLabel* LabelFor(QWidget* field, const QString& text) {
  auto* label = new QLabel(text);
  label->setBuddy(field);
  return label;
}

}  // namespace

FrmRegistration::FrmRegistration(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmRegistration");
  setWindowTitle("Registration Details");
  setWindowIcon(ProgramIcon());

  for (std::size_t at = 0; at < Text1_.size(); ++at) {
    auto* field = new PlainField(this);
    field->setObjectName(IndexedName("Text1", static_cast<int>(at)));
    Text1_.at(at) = field;
    if (at < FirstNumber) continue;
    field->TakePastedNumber(NumberForm::Whole);
    field->installEventFilter(this);
    field->setMaxLength(LongestNumber);
    field->setAlignment(Qt::AlignRight);
    connect(field, &QLineEdit::textEdited, this,
            [field] { Guard([field] { KeepNumber(*field); }); });
  }
  SSCommand1_ = AddButton("SSCommand1", "Continue");
  connect(SSCommand1_, &QPushButton::clicked, this, [this] { Guard([this] { Continue(); }); });
  PressByEnter(*SSCommand1_);

  auto* intro = new QLabel(
      "Please enter your company details. These will appear on the drawings and reports:");
  intro->setObjectName("lblIntro");
  auto* reason = new QLabel(
      "It is asked once, before the first sheet: each sheet and report names the company that "
      "detailed "
      "it. Margins keep what is drawn on your printer's paper. All of it can be changed later, by "
      "Help, "
      "Registration Details, and stays on this computer.");
  reason->setObjectName("lblReason");
  reason->setWordWrap(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(SSCommand1_);

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(intro);
  layout->addWidget(reason);
  layout->addWidget(CompanyFields());
  layout->addWidget(MarginFields());
  layout->addWidget(SeparationField());
  layout->addStretch();
  layout->addLayout(buttons);

  ShowSettings();
  Text1_.at(0)->setFocus();
}

QWidget* FrmRegistration::CompanyFields() {
  auto* fields = new QWidget;
  auto* form = new QFormLayout(fields);
  form->setContentsMargins(0, 0, 0, 0);
  form->addRow("Company Name", Text1_.at(0));
  form->addRow("Address Details", Text1_.at(1));
  return fields;
}

QWidget* FrmRegistration::MarginFields() {
  auto* frame = new QGroupBox("Preferred margins for drawings (mm)");
  frame->setObjectName("fraMargins");
  auto* grid = new QGridLayout(frame);
  constexpr std::array<const char*, 4> Sides = {"Left", "Right", "Top", "Bottom"};
  for (int side = 0; side < 4; ++side) {
    QLineEdit* field = Text1_.at(FirstNumber + static_cast<std::size_t>(side));
    // Left and right in the first line, top and bottom below them.
    const int row = side / 2;
    const int column = side % 2 * 3;
    grid->addWidget(LabelFor(field, Sides.at(static_cast<std::size_t>(side))), row, column);
    grid->addWidget(field, row, column + 1);
  }
  grid->setColumnMinimumWidth(2, fontMetrics().averageCharWidth() * 4);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(4, 1);
  lblMargins_ = new QLabel;
  lblMargins_->setObjectName("lblMargins");
  lblMargins_->setWordWrap(true);
  lblMargins_->hide();
  grid->addWidget(lblMargins_, 2, 0, 1, 5);
  for (const std::size_t side : {LeftSide, BottomSide}) {
    connect(Text1_.at(side), &QLineEdit::textChanged, this,
            [this] { Guard([this] { ShowMarginNote(); }); });
  }
  return frame;
}

QWidget* FrmRegistration::SeparationField() {
  auto* line = new QWidget;
  auto* layout = new QHBoxLayout(line);
  layout->setContentsMargins(0, 0, 0, 0);
  QLineEdit* field = Text1_.at(Separation);
  layout->addWidget(LabelFor(field, "Minimum separation of holes on drawings (mm)"));
  layout->addWidget(field);
  field->setFixedWidth(fontMetrics().averageCharWidth() * 12);
  layout->addStretch();
  return line;
}

void FrmRegistration::ShowSettings() {
  const std::array<std::string, 7> texts = {
      CompanyName,
      CompanyDetails,
      FormatNumber(static_cast<double>(LeftMargin), 0),
      FormatNumber(static_cast<double>(RightMargin), 0),
      FormatNumber(static_cast<double>(TopMargin), 0),
      FormatNumber(static_cast<double>(BottomMargin), 0),
      FormatNumber(MinHoleSep, 0),
  };
  for (std::size_t at = 0; at < texts.size(); ++at) {
    Text1_.at(at)->setText(ToQt(texts.at(at)));
    Text1_.at(at)->setCursorPosition(0);
  }
}

void FrmRegistration::ShowMarginNote() {
  const StripMargins fitting = FittingStripMargins(PresentSource());
  const auto marginOf = [this](std::size_t side) { return Val(FromQt(Text1_.at(side)->text())); };
  QStringList notes;
  const double left = marginOf(LeftSide);
  if (left < fitting.LeastLeft || left > fitting.GreatestLeft) {
    notes += QString(
                 "The strip at the foot of the drawings leaves A4 paper: left margins of %1 to "
                 "%2 mm fit.")
                 .arg(fitting.LeastLeft)
                 .arg(fitting.GreatestLeft);
  }
  const double bottom = marginOf(BottomSide);
  const bool tooSmall = bottom < fitting.LeastBottom;
  if (tooSmall || bottom > fitting.GreatestBottom) {
    notes += QString(
                 "The strip at the foot of the drawings runs into %1: bottom margins of %2 to "
                 "%3 mm fit.")
                 .arg(tooSmall ? "the line below it" : "the deepest of them")
                 .arg(fitting.LeastBottom)
                 .arg(fitting.GreatestBottom);
  }
  lblMargins_->setText(notes.join("\n"));
  lblMargins_->setVisible(!notes.isEmpty());
}

bool FrmRegistration::eventFilter(QObject* watched, QEvent* event) {
  bool swallowed = false;
  GuardFocusChange([&] {
    if (event->type() == QEvent::KeyPress) {
      swallowed = TypesOtherThanNumber(*static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::FocusOut && watched == Text1_.at(Separation)) {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
        LimitSeparation();
      }
    }
  });
  return swallowed || PlainDialog::eventFilter(watched, event);
}

void FrmRegistration::LimitSeparation() {
  QLineEdit& field = *Text1_.at(Separation);
  if (Val(FromQt(field.text())) > GreatestSeparation) field.setText("9");
  if (Val(FromQt(field.text())) < LeastSeparation) field.setText("3");
}

void FrmRegistration::Continue() {
  // A press by a key of its own leaves no field.
  SSCommand1_->setFocus();
  LimitSeparation();

  const auto text = [this](std::size_t at) { return FromQt(Text1_.at(at)->text()); };
  Change(ChangeKind::Registration, 0, [&] {
    CompanyName = Trim(text(0));
    CompanyDetails = Trim(text(1));
    SaveRegistration();

    // All four or none: one that is too large leaves the dialog open.
    const std::array margins = {Whole(Val(text(2))), Whole(Val(text(3))), Whole(Val(text(4))),
                                Whole(Val(text(5)))};
    LeftMargin = margins[0];
    RightMargin = margins[1];
    TopMargin = margins[2];
    BottomMargin = margins[3];
    MinHoleSep = Val(text(Separation));
    SavePageSetup();
    SaveDrawingSettings();
  });
  accept();
}

}  // namespace orvane
