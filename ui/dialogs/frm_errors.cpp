#include "ui/dialogs/frm_errors.h"

#include <QHBoxLayout>
#include <QListWidget>

#include "output/validation.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/qt_text.h"

namespace orvane {

FrmErrors::FrmErrors(QWidget* parent) : PlainDialog(parent) {
  setObjectName("frmErrors");
  setWindowTitle("Validation Errors");
  setWindowIcon(ProgramIcon());
  setSizeGripEnabled(true);

  auto* List1 = new QListWidget(this);
  List1->setObjectName("List1");
  List1->setAccessibleName("Faults");
  List1->setUniformItemSizes(true);
  List1->setSpacing(fontMetrics().height() / 8);
  List1->setTextElideMode(Qt::ElideNone);
  List1->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  QPushButton* SSCommand2 = AddButton("SSCommand2", "&Close");
  connect(SSCommand2, &QPushButton::clicked, this, [this] { Guard([this] { accept(); }); });

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(SSCommand2);
  QVBoxLayout* layout = AddLayout();
  layout->addWidget(List1);
  layout->addLayout(buttons);

  List1->clear();
  for (const std::string& line : ExportErrors) List1->addItem(ToQt(line));

  // Room for an ordinary line and a dozen of them.
  const QFontMetrics metrics(List1->font());
  resize(metrics.averageCharWidth() * 64, metrics.lineSpacing() * 20);
  SSCommand2->setFocus();
}

}  // namespace orvane
