// "Check Catalogue": all that is found of the catalogue files, row by row.
#pragma once

#include <QLabel>
#include <QTreeWidget>
#include <string>

#include "ui/platform/plain_dialog.h"

namespace orvane {

// The dialog only reads, the files anew each time it looks: whoever edits them in a spreadsheet
// beside it looks again.
class FrmCatalogueCheck : public PlainDialog {
 public:
  // Of the catalogue that would be used if that were the office's folder.
  FrmCatalogueCheck(const std::string& officeFolder, QWidget* parent);

 private:
  void Look();

  const std::string folder_;
  QTreeWidget* list_ = nullptr;  // lvwCatalogueFindings
  QLabel* counts_ = nullptr;     // lblCounts
};

}  // namespace orvane
