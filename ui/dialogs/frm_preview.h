// "Print Preview": a document of pages, to be looked at and printed.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <functional>
#include <string>

#include "drawing/page_surface.h"
#include "output/output_screen.h"
#include "ui/controls/document_view.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// Holds the surface that a printing command draws on, from before it is shown until it is closed.
// What is drawn while it is shown doesn't show.
class FrmPreview : public PlainDialog {
 public:
  explicit FrmPreview(QWidget* parent = nullptr);

  PageSurface& Surface() { return surface_; }

  // What it is of the job, such as "sheets"; the printer's queue and a PDF show both.
  std::string DocumentName;

  // Writes the figures of the document to a file, by an entry of the menu that is there for it;
  // none for a document without.
  std::function<void()> SaveFigures;

  // Lays the document out on other paper, where the user chooses that in the printer's dialog.
  LayOutAgain Again;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildMenu();
  QAction* AddEntry(QMenu& menu, int index, const QString& caption);
  void AddSavingOfFigures();
  void TakeFirstSize();
  void Print();

  PageSurface surface_;
  QMenuBar* menuBar_ = nullptr;
  QMenu* mnuFile_ = nullptr;
  QAction* print_ = nullptr;
  DocumentView* VSPrinter1 = nullptr;
};

}  // namespace orvane
