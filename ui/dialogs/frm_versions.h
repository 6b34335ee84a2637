// "Earlier Versions": what saves have replaced of this job, and what was left unsaved.
#pragma once

#include <QTreeWidget>
#include <string>
#include <vector>

#include "project/versions.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// The dialog only reads: who accepted it opens Text, the content of the version that was chosen.
class FrmVersions : public PlainDialog {
 public:
  explicit FrmVersions(QWidget* parent = nullptr);

  const std::string& Text() const { return text_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void AddRows();
  void CompareNext();
  void Take();

  std::vector<Version> versions_;  // row by row
  int compared_ = 0;               // rows whose difference stands there
  std::string text_;
  QTreeWidget* list_ = nullptr;  // lvwVersions
};

}  // namespace orvane
