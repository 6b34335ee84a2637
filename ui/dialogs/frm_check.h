// "Check": all that the design check finds in the job. It stays open beside the main window and
// follows the changes.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <functional>
#include <vector>

#include "output/job_findings.h"
#include "ui/dialogs/findings_model.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

class FrmCheck : public PlainDialog {
 public:
  explicit FrmCheck(QWidget* parent);

  // Shows these; the finding that is current stays so.
  void ShowFindings(std::vector<Finding> findings, const FindingCounts& counts);

  // A finding was chosen: by a click, or by a key, with which the cursor goes there too.
  enum class ChosenBy { Click, Key };
  std::function<void(const Finding&, ChosenBy)> GoTo;
  // It is accepted with that word, or no longer; an error that they raise is told.
  std::function<void(const Finding&, const std::string& word)> Accept;
  std::function<void(const Finding&)> Forget;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ShowChosen();
  void MakeCurrent(int row);
  int Row() const;
  void GoThere(ChosenBy how);
  void AcceptCurrent();
  void ForgetCurrent();
  void ShowButtons();

  std::vector<Finding> all_;
  FindingsModel model_;
  QTreeView* list_ = nullptr;          // lvwFindings
  QLabel* counts_ = nullptr;           // lblCounts
  QLineEdit* word_ = nullptr;          // txtWord
  QCheckBox* showAccepted_ = nullptr;  // chkAccepted
  QPushButton* go_ = nullptr;
  QPushButton* accept_ = nullptr;
  QPushButton* forget_ = nullptr;
};

}  // namespace orvane
