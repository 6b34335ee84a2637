#include "ui/dialogs/frm_max_dims.h"

#include <QFocusEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "core/model.h"
#include "core/numbers.h"
#include "core/settings.h"
#include "project/changes.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The text becomes the whole number that it begins with.
void Rewrite(QLineEdit& field) {
  const QString text = ToQt(FormatNumber(Val(FromQt(field.text())), 0));
  if (text != field.text()) field.setText(text);
}

}  // namespace

FrmMaxDims::FrmMaxDims(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmMaxDims");
  setWindowTitle("Set Max Dims");
  setWindowIcon(ProgramIcon());

  auto* form = new QFormLayout;
  for (std::size_t row = 1; row < txtMaxDims_.size(); ++row) {
    auto* field = new PlainField(this);
    field->TakePastedNumber(NumberForm::Whole);
    field->setObjectName(IndexedName("txtMaxDims", static_cast<int>(row)));
    field->setAlignment(Qt::AlignRight);
    field->setText(ToQt(FormatNumber(MaxDims.At(static_cast<int>(row)), 0)));
    field->installEventFilter(this);
    form->addRow(ToQt(SectionFamilies.at(row - 1).LengthLabel), field);
    txtMaxDims_.at(row) = field;
  }
  auto* note = new QLabel("Lengths in mm");
  note->setObjectName("lblNote");

  SSCommand2_ = {AddButton("SSCommand2(0)", "Apply &Defaults"), AddButton("SSCommand2(1)", "&OK"),
                 AddButton("SSCommand2(2)", "&Cancel")};
  // A click on these two leaves no field: what stands there is dropped anyway.
  SSCommand2_.at(0)->setFocusPolicy(Qt::TabFocus);
  SSCommand2_.at(2)->setFocusPolicy(Qt::TabFocus);
  connect(SSCommand2_.at(0), &QPushButton::clicked, this,
          [this] { Guard([this] { ApplyDefaults(); }); });
  connect(SSCommand2_.at(1), &QPushButton::clicked, this, [this] { Guard([this] { Store(); }); });
  PressByEnter(*SSCommand2_.at(1));
  connect(SSCommand2_.at(2), &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(SSCommand2_.at(0));
  buttons->addSpacing(fontMetrics().averageCharWidth() * 4);
  buttons->addStretch();
  buttons->addWidget(SSCommand2_.at(1));
  buttons->addWidget(SSCommand2_.at(2));

  QVBoxLayout* layout = AddLayout();
  layout->addLayout(form);
  layout->addWidget(note);
  layout->addSpacing(layout->spacing());
  layout->addStretch();
  layout->addLayout(buttons);

  txtMaxDims_.at(1)->setFocus();
  txtMaxDims_.at(1)->selectAll();
}

bool FrmMaxDims::eventFilter(QObject* watched, QEvent* event) {
  auto* field = qobject_cast<QLineEdit*>(watched);
  if (event->type() == QEvent::FocusOut && field != nullptr && isVisible()) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
      GuardFocusChange([field] { Rewrite(*field); });
    }
  }
  return PlainDialog::eventFilter(watched, event);
}

void FrmMaxDims::ApplyDefaults() {
  for (std::size_t row = 1; row < txtMaxDims_.size(); ++row) {
    const double length = SectionFamilies.at(row - 1).DefaultMaxLength;
    txtMaxDims_.at(row)->setText(ToQt(FormatNumber(length, 0)));
  }
}

void FrmMaxDims::Store() {
  // A press by a key of its own leaves no field. The field is rewritten here rather than by the
  // change of focus, so that an error is told once and nothing is stored.
  if (auto* field = qobject_cast<QLineEdit*>(focusWidget())) Rewrite(*field);
  SSCommand2_.at(1)->setFocus();

  Change(ChangeKind::MaxDims, 0, [this] {
    for (std::size_t row = 1; row < txtMaxDims_.size(); ++row) {
      MaxDims.At(static_cast<int>(row)) = Val(FromQt(txtMaxDims_.at(row)->text()));
    }
    SaveMaxDims();
  });
  accept();
}

}  // namespace orvane
