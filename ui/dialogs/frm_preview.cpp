#include "ui/dialogs/frm_preview.h"

#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <QShowEvent>

#include "core/model.h"
#include "output/reports.h"
#include "ui/platform/guard.h"
#include "ui/platform/icons.h"
#include "ui/platform/printing.h"
#include "ui/platform/qt_font_metrics.h"
#include "ui/platform/qt_text.h"

namespace orvane {

namespace {

// The first size: most of the window that it comes from, or of the screen.
constexpr int FirstPercent = 92;

// What the printer's queue shows, and viewers of a PDF: the project's name, and what it is of it.
QString JobTitle(const std::string& document) {
  const QString name = QFileInfo(ToQt(ProjectFileName)).completeBaseName();
  const QString job = name.isEmpty() ? "Orvane Detail System" : name;
  return document.empty() ? job : job + ": " + ToQt(document);
}

}  // namespace

FrmPreview::FrmPreview(QWidget* parent) : PlainDialog(parent), surface_(SheetMetrics()) {
  setObjectName("frmPreview");
  setWindowTitle("Print Preview");
  setWindowIcon(ProgramIcon());
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  BuildMenu();
  VSPrinter1 = new DocumentView(this);
  VSPrinter1->setObjectName("VSPrinter1");
  VSPrinter1->AddCommand(print_);
  // All of the window's inside below the menu, at any size.
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setMenuBar(menuBar_);
  layout->addWidget(VSPrinter1);
  TakeFirstSize();
  VSPrinter1->setFocus();
}

void FrmPreview::BuildMenu() {
  menuBar_ = new QMenuBar(this);
  menuBar_->setNativeMenuBar(false);  // the system's bar is the main window's
  mnuFile_ = menuBar_->addMenu("&File");
  mnuFile_->setObjectName("mnuFile");
  print_ = AddEntry(*mnuFile_, 0, "&Print");
  print_->setIcon(LineIcon("print"));
  print_->setShortcut(QKeySequence("Ctrl+P"));
  print_->setAutoRepeat(false);  // the key that opened the preview may still be down
  connect(print_, &QAction::triggered, this, [this] { Guard([this] { Print(); }); });
  AddEntry(*mnuFile_, 1, "")->setSeparator(true);
  QAction* close = AddEntry(*mnuFile_, 2, "&Close");
  connect(close, &QAction::triggered, this, [this] { Guard([this] { reject(); }); });
}

QAction* FrmPreview::AddEntry(QMenu& menu, int index, const QString& caption) {
  QAction* action = menu.addAction(caption);
  action->setObjectName(IndexedName("mnuFile", index));
  action->setMenuRole(QAction::NoRole);
  return action;
}

void FrmPreview::AddSavingOfFigures() {
  auto* save = new QAction(LineIcon("save-as"), "&Save as CSV...", this);
  save->setObjectName("mnuFileSaveFigures");
  save->setMenuRole(QAction::NoRole);
  save->setShortcut(QKeySequence("Ctrl+S"));
  save->setAutoRepeat(false);
  connect(save, &QAction::triggered, this, [this] { Guard([this] { SaveFigures(); }); });
  mnuFile_->insertAction(mnuFile_->actions().at(1), save);
  VSPrinter1->AddCommand(save);
}

void FrmPreview::TakeFirstSize() {
  const QSize whole =
      parentWidget() != nullptr ? parentWidget()->window()->size() : screen()->availableSize();
  resize(whole * FirstPercent / 100);
}

void FrmPreview::showEvent(QShowEvent* event) {
  PlainDialog::showEvent(event);
  // Not when the window comes back from the desktop's bar.
  if (event->spontaneous()) return;
  if (SaveFigures) AddSavingOfFigures();
  Guard([this] { VSPrinter1->ShowDocument(&surface_.Result()); });
}

void FrmPreview::Print() {
  PrintDocument(surface_.Result(), this, JobTitle(DocumentName), [this](const Paper& paper) {
    PageSurface other(SheetMetrics(), paper);
    PreparePreview(other);
    std::optional<Document> document;
    if (Again && Again(other)) document = other.TakeResult();
    return document;
  });
}

}  // namespace orvane
