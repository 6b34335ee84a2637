// The main window's part in lists of sections: files of them, blocks that are pasted, what a job is
// to cut, and what differs from another one.
#include <optional>
#include <utility>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/text.h"
#include "core/text_file.h"
#include "output/cutting_list.h"
#include "output/list_reports.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/saving.h"
#include "project/section_list/apply_plan.h"
#include "project/section_list/section_list.h"
#include "project/section_list/section_table.h"
#include "ui/dialogs/frm_compare.h"
#include "ui/dialogs/frm_import.h"
#include "ui/frm_main.h"

namespace orvane {

namespace {

constexpr std::string_view ListFiles = "*.csv *.txt *.tsv";

FileDialog ListDialog(const std::string& title, std::string_view files) {
  FileDialog dialog;
  dialog.Title = title;
  dialog.Filter = "Section Lists|" + std::string(files);
  dialog.DefaultExtension = ".csv";
  dialog.FirstFolder = FolderOfPath(ProjectFileName);
  return dialog;
}

}  // namespace

// Shows the preview and does what it was accepted with, the cursor on the first row that is
// another.
void FrmMain::Import(SectionList list, int firstRow, ChangeKind kind) {
  FrmImport preview(std::move(list), firstRow, this);
  const bool accepted = preview.exec() == QDialog::Accepted;
  activateWindow();
  if (!accepted) return;
  // What the cell under the cursor holds is written through; the list may have been brought to
  // mend it.
  sections_->ForgetEditors();
  sections_->RunOnRows([&] {
    const std::vector<int> rows = ApplyPlan(preview.Plan(), kind);
    return rows.empty() ? 0 : rows.front();
  });
}

void FrmMain::ImportSections() {
  FileDialog dialog = ListDialog("Import Sections", ListFiles);
  dialog.FileMustExist = true;
  const std::optional<std::string> path = TheDesktop().ShowOpenDialog(dialog);
  if (!path || path->empty()) return;
  SectionList list = ListOfFile(ReadWholeFile(*path));
  if (list.Rows.empty()) return TheDesktop().Message("There are no sections in that list");
  Import(std::move(list), 0, ChangeKind::ImportSections);
}

void FrmMain::WriteSectionList() {
  FileDialog dialog = ListDialog("Section List", "*.csv");
  dialog.OverwritePrompt = true;
  const std::optional<std::string> path = TheDesktop().ShowSaveDialog(dialog);
  if (!path || path->empty()) return;
  ReplaceWholeFile(*path, SectionListFile());
}

void FrmMain::ShowCuttingList() {
  const CuttingList list = CuttingListOf(OpenJob());
  saveFigures_ = [&list] {
    FileDialog dialog = ListDialog("Cutting List", "*.csv");
    dialog.Filter = "Cutting Lists|*.csv";
    dialog.OverwritePrompt = true;
    const std::optional<std::string> path = TheDesktop().ShowSaveDialog(dialog);
    if (path && !path->empty()) ReplaceWholeFile(*path, CuttingListFile(list));
  };
  try {
    Print([&] { PrintCuttingList(list); });
  } catch (...) {
    saveFigures_ = nullptr;
    throw;
  }
  saveFigures_ = nullptr;
}

// The other job is only read: no lock is laid, and the open one stays as it is.
void FrmMain::CompareWith() {
  FileDialog dialog = ProjectDialog("Compare With");
  dialog.FileMustExist = true;
  const std::optional<std::string> path = TheDesktop().ShowOpenDialog(dialog);
  if (!path || path->empty()) return;
  const std::string bytes = ReadWholeFile(*path);
  TextFile file(DecodeText(bytes));
  const ReadJob other = ReadProject(file);
  const ProjectContent content = CheckProjectContent(bytes);
  std::string note = other.Notes.Line();
  if (content == ProjectContent::Cut || content == ProjectContent::Odd) {
    note = FileName(*path) +
           " is cut off or damaged behind its sections: what it lacks there shows as a difference.";
  }
  FrmCompare compare(other.Records, *path, note, this);
  compare.Print = [this](const JobComparison& comparison, const std::string& before,
                         const std::string& after) {
    Print([&] { PrintRevisionList(comparison, before, after); });
  };
  compare.exec();
  activateWindow();
}

bool FrmMain::PasteBlock(const std::string& text) {
  const FlexGrid& grid = sections_->Grid();
  const int column = grid.Row() < 1 ? 0 : grid.Col();
  if (!IsBlock(text, column)) return false;
  SettleFields();
  SectionList list = ListOfBlock(text, column);
  if (!list.Rows.empty()) Import(std::move(list), grid.Row(), ChangeKind::PasteSections);
  return true;
}

}  // namespace orvane
