#include "ui/dialogs/frm_about.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/platform/dialog_place.h"
#include "ui/platform/guard.h"
#include "ui/platform/help_key.h"
#include "ui/platform/icons.h"

namespace orvane {

namespace {

QLabel* TextLine(const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

FrmAbout::FrmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  KeepPlace(*this);
  GiveHelpKey(*this);
  setWindowTitle("About Orvane Detail System");
  setWindowIcon(ProgramIcon());

  const int space = fontMetrics().height();
  auto* icon = new QLabel;
  icon->setObjectName("imgProgram");
  icon->setPixmap(ProgramIcon().pixmap(QSize(space * 6, space * 6), devicePixelRatioF()));

  QLabel* name = TextLine("lblName", "Orvane Detailing System");
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setWeight(QFont::DemiBold);
  name->setFont(large);

  auto* texts = new QVBoxLayout;
  texts->setSpacing(space / 3);
  texts->addStretch();
  texts->addWidget(name);
  texts->addWidget(TextLine("lblVersion", "Version " ORVANE_VERSION));
  texts->addSpacing(space / 2);
  texts->addWidget(TextLine("lblRights", "(c) Lintaro. All rights reserved."));
  texts->addWidget(TextLine("lblSales", "sales@lintaro.example"));
  texts->addStretch();

  auto* head = new QHBoxLayout;
  head->setSpacing(space * 2);
  head->addWidget(icon, 0, Qt::AlignVCenter);
  head->addLayout(texts, 1);

  auto* rule = new QFrame;
  rule->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));

  auto* SSCommand1 = new QPushButton("OK");
  SSCommand1->setObjectName("SSCommand1");
  SSCommand1->setDefault(true);
  connect(SSCommand1, &QPushButton::clicked, this, [this] { Guard([this] { accept(); }); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(SSCommand1);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 2, space * 2, space * 2, space);
  layout->setSpacing(space);
  layout->addLayout(head);
  layout->addSpacing(space / 2);
  layout->addWidget(rule);
  layout->addLayout(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  SSCommand1->setFocus();
}

}  // namespace orvane
