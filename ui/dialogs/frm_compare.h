// "Compare": what differs between another job and the open one, with the sheets of both.
#pragma once

#include <QLabel>
#include <QRadioButton>
#include <QSplitter>
#include <QTreeWidget>
#include <functional>
#include <optional>
#include <string>

#include "drawing/page_surface.h"
#include "output/job_compare.h"
#include "project/project_file.h"
#include "ui/controls/page_view.h"
#include "ui/platform/plain_dialog.h"

namespace orvane {

// A job that is compared, and what it is called.
struct ComparedJob {
  JobView Job;
  std::string Name;  // file name, for the list
  std::string Path;  // for paper
};

// The dialog only reads. The other job is the earlier one until they are swapped. Below the list
// stands the sheet of the section that is chosen in it, the earlier or the later one, with rings
// around what differs.
class FrmCompare : public PlainDialog {
 public:
  // The file holds `other`, which `note` may say something of; both stay the caller's.
  FrmCompare(const Job& other, const std::string& path, const std::string& note,
             QWidget* parent = nullptr);

  // Shows the preview of the revision list.
  std::function<void(const JobComparison& comparison, const std::string& before,
                     const std::string& after)>
      Print;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildAreas();
  void BuildButtons();
  void Compare();
  void FillList();
  const ComparedLine* Chosen() const;
  void ShowSheet();
  // The section of a line on the side that is shown; 0 for none.
  int RowOf(const ComparedLine& line) const;
  void DrawSheet(const ComparedLine& line, int row);
  std::vector<PageRing> RingsOn(const ComparedLine& chosen, const Item& drawn);
  std::optional<QRectF> PlaceOf(const ComparedLine& line, const Item& drawn);
  const ComparedJob& Before() const { return isSwapped_ ? open_ : other_; }
  const ComparedJob& After() const { return isSwapped_ ? other_ : open_; }
  const ComparedJob& Shown() const { return optOld_->isChecked() ? Before() : After(); }

  ComparedJob other_;
  ComparedJob open_;
  bool isSwapped_ = false;
  JobComparison comparison_;
  PageSurface sheet_;

  QLabel* summary_ = nullptr;    // lblSummary
  QLabel* note_ = nullptr;       // lblNote
  QTreeWidget* list_ = nullptr;  // lvwDifferences
  QSplitter* areas_ = nullptr;
  PageView* page_ = nullptr;     // VSPrinter1
  QLabel* sheetNote_ = nullptr;  // lblSheet
  QRadioButton* optOld_ = nullptr;
  QRadioButton* optNew_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
};

}  // namespace orvane
