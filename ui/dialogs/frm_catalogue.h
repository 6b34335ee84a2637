// "Catalogue": the folder that the catalogue is taken from, and which file is used from where.
#pragma once

#include <QLabel>
#include <QTreeWidget>
#include <string>

#include "ui/controls/plain_field.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// "OK" stores the folder, which counts from the next start on: a job that is open was made of the
// catalogue in use.
class FrmCatalogue : public PlainDialog {
 public:
  explicit FrmCatalogue(QWidget* parent);

 protected:
  bool HasChanges() override;

 private:
  std::string Folder() const;
  void Browse();
  void TakeShipped();
  void CheckIt();
  void Take();
  void ShowFiles();

  const std::string stored_;
  PlainField* folder_ = nullptr;  // txtFolder
  QTreeWidget* files_ = nullptr;  // lvwFiles
  QLabel* note_ = nullptr;        // lblNote
};

}  // namespace orvane
