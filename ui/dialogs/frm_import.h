// "Import Sections": what a list from elsewhere will do to the job, row by row, before it is done.
#pragma once

#include <QLabel>
#include <string>
#include <vector>

#include "project/section_list/section_list.h"
#include "project/section_list/section_plan.h"
#include "ui/controls/plain_combo.h"
#include "ui/dialogs/import_table.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// Nothing is done before OK, and then by who opened it: who accepted it applies Plan.
class FrmImport : public PlainDialog {
 public:
  // Rows go as PlanOf has them go from `firstRow` on.
  FrmImport(SectionList list, int firstRow, QWidget* parent = nullptr);

  const SectionPlan& Plan() const { return plan_; }

 protected:
  bool HasChanges() override { return mended_; }

 private:
  void BuildQuestions(QVBoxLayout& layout);
  void BuildButtons(QVBoxLayout& layout);
  void Replan();
  void ShowPlan();
  void ShowRow();
  void ShowQuestions();
  void ShowFamilies();
  void Mend(int row, int column, const std::string& text);
  void Tick(int row, ImportColumn::Shows what);
  void TellDigits();
  void TellFamily();
  void Ok();

  SectionList list_;
  const int firstRow_;
  ListAnswers answers_;
  SectionPlan plan_;
  bool mended_ = false;
  std::string sharedName_;                  // of the product that cboFamily asks for
  std::vector<std::string> sharedLetters_;  // what its entries stand for, behind the first
  ImportTable* table_ = nullptr;
  QLabel* lblDigits_ = nullptr;
  PlainCombo* cboDigits_ = nullptr;
  QLabel* lblFamily_ = nullptr;
  PlainCombo* cboFamily_ = nullptr;
  QLabel* lblRow_ = nullptr;
  QLabel* lblSummary_ = nullptr;
  QPushButton* cmdRefused_ = nullptr;
};

}  // namespace orvane
