#include "ui/dialogs/frm_mitres.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "core/model.h"
#include "core/numbers.h"
#include "drawing/primitives.h"
#include "ui/controls/plain_field.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

constexpr double TwipsPerPixel = 15;  // of the device-independent pixels, 96 to the inch
constexpr double SketchPen = 1.5;     // pixels

}  // namespace

BeamPicture::BeamPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("Picture1");
  setAccessibleName("Sketch of the section with both ends cut");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(sizeHint() / 2);
}

QSize BeamPicture::sizeHint() const {
  // Wide enough for the steepest cuts of opposite sign.
  const int line = fontMetrics().lineSpacing();
  return {line * 26, line * 7};
}

void BeamPicture::ShowAngles(double left, double right) {
  left_ = left;
  right_ = right;
  update();
}

BeamSketch BeamPicture::Corners() const {
  return SketchBeam(width() * TwipsPerPixel, height() * TwipsPerPixel, DegToRad(left_),
                    DegToRad(right_));
}

void BeamPicture::paintEvent(QPaintEvent*) {
  Guard([&] {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Text), SketchPen));
    const BeamSketch beam = Corners();
    const std::array<QPointF, 4> corners = {
        QPointF(beam.TopLeft, beam.Top) / TwipsPerPixel,
        QPointF(beam.TopRight, beam.Top) / TwipsPerPixel,
        QPointF(beam.BottomRight, beam.Bottom) / TwipsPerPixel,
        QPointF(beam.BottomLeft, beam.Bottom) / TwipsPerPixel,
    };
    // Top, right end, bottom, left end.
    for (std::size_t side = 0; side < corners.size(); ++side) {
      painter.drawLine(corners.at(side), corners.at((side + 1) % corners.size()));
    }
  });
}

FrmMitres::FrmMitres(std::int16_t ItemIndex, QWidget* parent)
    : PlainDialog(parent), itemIndex_(ItemIndex) {
  setObjectName("frmMitres");
  setWindowTitle("Mitres");
  setWindowIcon(ProgramIcon());

  Picture1_ = new BeamPicture(this);
  const Item& item = Items.At(itemIndex_);
  const std::array angles = {item.MitreLeft, item.MitreRight};
  const std::array captions = {"&Left end", "&Right end"};
  // Each box stands under its end of the beam.
  auto* boxes = new QHBoxLayout;
  for (std::size_t end = 0; end < txtAngle_.size(); ++end) {
    auto* box = new PlainField(this);
    box->TakePastedNumber(NumberForm::Signed);
    box->setText(ToQt(MitreText(angles.at(end))));
    box->setObjectName(IndexedName("txtAngle", static_cast<int>(end)));
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    box->installEventFilter(this);
    auto* label = new QLabel(captions.at(end), this);
    label->setBuddy(box);
    if (end > 0) boxes->addStretch();
    boxes->addWidget(label);
    boxes->addWidget(box);
    txtAngle_.at(end) = box;
  }
  auto* note = new QLabel("Angles should be entered as +ve or -ve degrees.", this);
  note->setObjectName("Label1");

  QPushButton* ok = AddButton("SSCommand2(0)", "&OK");
  QPushButton* cancel = AddButton("SSCommand2(1)", "&Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Guard([this] { Store(); }); });
  connect(cancel, &QPushButton::clicked, this, [this] { Guard([this] { reject(); }); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);

  QVBoxLayout* layout = AddLayout();
  layout->addWidget(Picture1_, 1);
  layout->addLayout(boxes);
  layout->addWidget(note);
  layout->addLayout(buttons);

  DrawBeam();
  txtAngle_.front()->setFocus();
  txtAngle_.front()->selectAll();
}

void FrmMitres::DrawBeam() {
  Picture1_->ShowAngles(Val(FromQt(txtAngle_[0]->text())), Val(FromQt(txtAngle_[1]->text())));
}

void FrmMitres::LeaveBox(QLineEdit& box) {
  const QString text = ToQt(LeftMitreText(FromQt(box.text())));
  if (text != box.text()) box.setText(text);
  DrawBeam();
}

void FrmMitres::Store() {
  // A press by a key of its own leaves no box.
  for (QLineEdit* box : txtAngle_) LeaveBox(*box);
  StoreMitres(itemIndex_, FromQt(txtAngle_[0]->text()), FromQt(txtAngle_[1]->text()));
  accept();
}

bool FrmMitres::eventFilter(QObject* watched, QEvent* event) {
  auto* box = qobject_cast<QLineEdit*>(watched);
  if (box == nullptr) return PlainDialog::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut && isVisible()) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
      GuardFocusChange([this, box] { LeaveBox(*box); });
    }
  } else if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
      // The one that opened the dialog may be held down still.
      if (!key.isAutoRepeat()) Guard([this] { Store(); });
      return true;
    }
  }
  return PlainDialog::eventFilter(watched, event);
}

}  // namespace orvane
