// The main window's commands: what each menu entry, button and key chord does.
#include <QKeyEvent>

#include "core/catalogue_folder.h"
#include "core/desktop.h"
#include "core/numbers.h"
#include "core/section_families.h"
#include "output/cam_export.h"
#include "output/reports.h"
#include "project/lifecycle.h"
#include "project/recent_files.h"
#include "ui/dialogs/frm_about.h"
#include "ui/dialogs/frm_max_dims.h"
#include "ui/frm_main.h"
#include "ui/platform/help_key.h"

namespace orvane {

namespace {

// Commands whose result goes to the factory or on paper.
bool IsOutput(Command command) {
  switch (command) {
    case Command::ExportCam:
    case Command::PrintDrawing:
    case Command::PrintAllDrawings:
    case Command::PrintAccessorySheets:
    case Command::PrintSummary:
    case Command::CuttingList:
      return true;
    default:
      return false;
  }
}

// Commands that don't end the letters that a list waits with: those that take another job in place
// of this one, and its letters with it, as long as that can still be cancelled; those that take
// letters back; and those that are for a text where they aren't for rows.
bool KeepsLetters(Command command) {
  switch (command) {
    case Command::New:
    case Command::Open:
    case Command::Recent:
    case Command::Undo:
    case Command::Redo:
    case Command::Cut:
    case Command::Copy:
    case Command::Paste:
    case Command::PasteCell:
    case Command::EarlierVersions:
    case Command::RecoverJobs:
      return true;
    default:
      return false;
  }
}

}  // namespace

int FrmMain::SelectedRow() const {
  return sections_->Grid().Row();
}

// Each command checks for the row it needs; none of them is ever greyed.
void FrmMain::Dispatch(Command command, int number) {
  if (!KeepsLetters(command)) SettleFields();
  if (IsOutput(command) && LeadsToUndecided()) return;
  switch (command) {
    case Command::Exit:
      return Exit();
    case Command::New:
      return NewProject();
    case Command::Open:
      return OpenProject();
    case Command::Details:
      return ShowProjectDetails();
    case Command::Save:
      return static_cast<void>(SaveProject(False));
    case Command::SaveAs:
      return static_cast<void>(SaveProject(True));
    case Command::MaxDims:
      return static_cast<void>(FrmMaxDims(this).exec());
    case Command::Recent: {
      // A copy: opening puts the path in front and so moves the entries.
      const std::string path = RecentFiles.at(static_cast<std::size_t>(number) - 1);
      return OpenFile(path);
    }
    case Command::AddSection: {
      const SectionFamily& family = SectionFamilies.at(static_cast<std::size_t>(number) - 1);
      return sections_->AddSection(std::string(family.Letter));
    }
    case Command::NextSection:
      return sections_->NextSection(SelectedRow());
    case Command::FillSections:
      return FillChosen();
    case Command::ChangeSections:
      return ChangeChosen();
    case Command::Duplicate:
      return sections_->DuplicateChosen();
    case Command::OppositeHand:
      return sections_->CreateOppHandChosen();
    case Command::HolesAbsolute:
      return detail_->AddCustomHoles(AddAbsolute);
    case Command::HolesRelative:
      return detail_->AddCustomHoles(AddRelative);
    case Command::ConvertHoles:
      return sections_->ConvertChosen();
    case Command::Mitres:
      return EditMitres();
    case Command::Notches:
      return EditNotches();
    case Command::SortByMark:
      return sections_->SortItems(SortKey::Mark);
    case Command::SortBySection:
      return sections_->SortItems(SortKey::Product);
    case Command::SortByLength:
      return sections_->SortItems(SortKey::Length);
    case Command::Delete:
      return sections_->DeleteChosen();
    case Command::Undo:
      return TakeStep(true);
    case Command::Redo:
      return TakeStep(false);
    case Command::Cut:
    case Command::Copy:
    case Command::Paste:
    case Command::PasteCell:
      return UseClipboard(command);
    case Command::Find:
      return find_->Open();
    case Command::FindNext:
      return find_->Step(1);
    case Command::FindPrevious:
      return find_->Step(-1);
    case Command::EarlierVersions:
      return OpenEarlierVersion();
    case Command::RecoverJobs:
      return RecoverLeft();
    case Command::Check:
      return ShowCheck();
    case Command::ImportSections:
      return ImportSections();
    case Command::SectionList:
      return WriteSectionList();
    case Command::CuttingList:
      return ShowCuttingList();
    case Command::CompareJobs:
      return CompareWith();
    case Command::Catalogue:
      return ChooseCatalogue();
    case Command::CheckCatalogue:
      return ShowCatalogueCheck(OfficeFolder);
    case Command::ExportCam:
      return ExportCAM();
    case Command::ToggleDrawing:
      return ToggleDrawingArea();
    case Command::HelpIndex:
      return ShowHelp();
    case Command::About:
      return static_cast<void>(FrmAbout(this).exec());
    case Command::Registration:
      return ShowRegistration();
    case Command::PrintDrawing:
      return PrintChosen();
    case Command::PrintAllDrawings:
      return Print(PrintAllDrawings);
    case Command::PrintAccessorySheets:
      return Print(PrintAllAccessorySheets);
    case Command::PrintSummary:
      return Print([] {
        PrintContractSummary();
        PrintAccessoryReport();
      });
    case Command::PrintAccessoryList:  // the entry exists and has no effect
    case Command::EditHole:            // the hole list's own, as the next
    case Command::RemoveHole:
    case Command::EditAccessory:  // the accessory list's own, as the next
    case Command::ClearAccessory:
    case Command::None:
      return;
  }
}

void FrmMain::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || event->modifiers() != Qt::NoModifier ||
      event->isAutoRepeat() || !find_->isVisible()) {
    return QMainWindow::keyPressEvent(event);
  }
  find_->Close();
}

// What is typed over a list takes effect or ends before a command looks at the sections, as leaving
// the list would have it: a key or a button of the toolbar doesn't move the focus.
void FrmMain::SettleFields() {
  sections_->SettleProduct();
  detail_->SettleLists();
  accessories_->SettleSearch();
}

// No steel is ordered while it is open what a list was to choose: the cursor goes there, once.
bool FrmMain::LeadsToUndecided() {
  if (sections_->UndecidedRow() > 0) {
    sections_->EnterUndecided();
    return true;
  }
  const int row = detail_->UndecidedRow();
  if (row == 0) {
    if (!accessories_->IsUndecided()) return false;
    accessories_->EnterUndecided();
    return true;
  }
  if (row != SelectedRow()) sections_->GoTo(row, sections_->Grid().Col());
  // A refused cell keeps the cursor.
  if (row == SelectedRow()) detail_->EnterUndecided();
  return true;
}

}  // namespace orvane
