// The main window's part in the outputs: the printing commands, their preview, the list of export
// errors.
#include <QApplication>
#include <vector>

#include "core/numbers.h"
#include "output/reports.h"
#include "project/changes.h"
#include "project/section_look.h"
#include "ui/dialogs/frm_errors.h"
#include "ui/frm_main.h"
#include "ui/platform/guard.h"

namespace orvane {

// A command that fails, and one that ends without having shown its preview, leaves none behind. The
// dialog of a long run takes all keys and clicks, but not what a program or the system calls for: a
// second run would draw on the surface of the first.
void FrmMain::Print(const std::function<void()>& command) {
  if (preview_) return;
  try {
    command();
  } catch (...) {
    DropPreview();
    Guard([this] { ShowSelectedRow(); });
    throw;
  }
  DropPreview();
}

void FrmMain::PrintChosen() {
  const std::vector<int> rows = sections_->ChosenRows();
  if (rows.size() == 1) return Print([&] { PrintCurrentDrawing(Int16(rows.front())); });
  if (!rows.empty()) Print([&] { PrintDrawings(rows); });
}

// The row that is being looked at, as it stands after what was done to all rows or to the sheets.
void FrmMain::ShowSelectedRow() {
  const std::int16_t row = Int16(SelectedRow());
  if (row >= 1) LookAndSay(row, [row] { Change(ChangeKind::ShowSection, row); });
}

void FrmMain::ShowExportErrors() {
  FrmErrors(this).exec();
}

PrintSurface& FrmMain::PreviewSurface() {
  if (!preview_) {
    // Before the dialog that it is asked for in, if any.
    QWidget* dialog = QApplication::activeModalWidget();
    auto preview = std::make_unique<FrmPreview>(dialog != nullptr ? dialog : this);
    PreparePreview(preview->Surface());
    preview_ = std::move(preview);
    printRun_ = std::make_unique<ProgressRun>(this, "Sheets drawn");
  }
  return preview_->Surface();
}

void FrmMain::ShowPreview(const std::string& document, const LayOutAgain& again) {
  printRun_.reset();
  const std::unique_ptr<FrmPreview> shown = std::move(preview_);
  if (!shown) return;
  Guard([this] { ShowSelectedRow(); });
  shown->DocumentName = document;
  shown->SaveFigures = saveFigures_;
  shown->Again = [&](PrintSurface& surface) {
    // It takes the keys and clicks that could ask for a second one meanwhile.
    printRun_ = std::make_unique<ProgressRun>(shown.get(), "Sheets drawn");
    try {
      const bool done = again(surface);
      printRun_.reset();
      return done;
    } catch (...) {
      printRun_.reset();
      throw;
    }
  };
  shown->exec();
}

void FrmMain::DropPreview() {
  printRun_.reset();
  preview_.reset();
}

bool FrmMain::GoesOn(int done, int count) {
  return !printRun_ || printRun_->GoesOn(done, count);
}

}  // namespace orvane
