// The main window's part in editing: the dialogs on the selected section, and the steps that are
// taken back and done again, and what recovery brings back.
#include <QLineEdit>
#include <optional>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/model.h"
#include "core/numbers.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/section_list/apply_plan.h"
#include "project/versions.h"
#include "ui/controls/plain_field.h"
#include "ui/dialogs/frm_change.h"
#include "ui/dialogs/frm_mitres.h"
#include "ui/dialogs/frm_notches.h"
#include "ui/dialogs/frm_recovery.h"
#include "ui/frm_main.h"
#include "ui/platform/guard.h"

namespace orvane {

void FrmMain::EditMitres() {
  EditSection([this](std::int16_t row) { FrmMitres(row, this).exec(); });
}

void FrmMain::EditNotches() {
  EditSection([this](std::int16_t row) { FrmNotches(row, this).exec(); });
}

// A dialog on the selected section, which is drawn afterwards whatever closed it.
void FrmMain::EditSection(const std::function<void(std::int16_t)>& edit) {
  if (SelectedRow() < 1) return;
  CurrentItem = Int16(SelectedRow());
  edit(CurrentItem);
  ShowSelectedRow();
}

// A field outside the tables takes its own keys back. One whose keys have become a step by now, as
// it was left or the job saved, takes that one back, which can be done again.
bool FrmMain::FieldTakes(bool back) const {
  auto* field = qobject_cast<QLineEdit*>(focusWidget());
  if (field == nullptr || sections_->isAncestorOf(field)) return false;
  // What is looked for is no part of the job: there its own keys alone are taken back.
  if (!find_->isAncestorOf(field)) {
    if (back ? !IsStepOpen() : !StepToRedo().empty()) return false;
    if (!(back ? field->isUndoAvailable() : field->isRedoAvailable())) return false;
  }
  if (back) {
    field->undo();
  } else {
    field->redo();
  }
  return true;
}

// Letters that a list waits with are a choice that wasn't made yet. False if there are none.
bool FrmMain::DropLetters() {
  const bool ofProduct = sections_->DropLetters();
  const bool ofPanel = detail_->DropLetters();
  const bool ofAccessory = accessories_->Typed().Pending();
  if (ofAccessory) accessories_->DropSearch();
  return ofProduct || ofPanel || ofAccessory;
}

void FrmMain::TakeStep(bool back) {
  if (FieldTakes(back)) return;
  if (DropLetters() && back) return;
  RestoredStep restored;
  if (!(back ? UndoStep(restored) : RedoStep(restored))) return;
  // Of openings only one that failed is a step.
  if (restored.Kind == ChangeKind::OpenProject) FollowTakenOpening();
  if (restored.Details) RefreshProjectDetails();
  if (restored.Accessories) accessories_->SetAccUsage();
  // Whoever took a hole back from the hole list goes on there.
  const QWidget* focus = focusWidget();
  const bool elsewhere = focus == accessories_ || focus == sheet_ || detail_->isAncestorOf(focus);
  sections_->ShowRestored(restored, !elsewhere);
}

// False where there is nothing of rows to be copied, cut or pasted.
bool FrmMain::UseRows(Command command) {
  switch (command) {
    case Command::Copy:
      return sections_->CopyRows();
    case Command::Cut:
      // Whoever is at the holes or the sheet doesn't mean the sections.
      return sections_->HasCursor() && sections_->CutRows();
    case Command::Paste:
      return sections_->PasteRows();
    default:
      return false;
  }
}

// A field beside the grid works with its own text, whatever is chosen there.
void FrmMain::UseClipboard(Command command) {
  auto* field = dynamic_cast<PlainField*>(focusWidget());
  const bool beside = field != nullptr && !sections_->isAncestorOf(field);
  if ((!beside && UseRows(command)) || field == nullptr) return;
  switch (command) {
    case Command::Copy:
      return field->copy();
    case Command::Cut:
      return field->cut();
    default:
      return field->PasteClipboard();
  }
}

void FrmMain::FillChosen() {
  const FlexGrid& grid = sections_->Grid();
  if (sections_->ChosenRows().size() < 2) return;
  const auto change = ChangeFromCell(grid.Row(), grid.Col());
  if (!change) return TheDesktop().Message("Each section has a mark of its own");
  ChangeRows(*change, ChangeKind::FillSections);
}

void FrmMain::ChangeChosen() {
  const std::vector<int> rows = sections_->ChosenRows();
  if (rows.empty()) return;
  FrmChange dialog(static_cast<int>(rows.size()), Items.At(SelectedRow()).SectionType, this);
  const bool accepted = dialog.exec() == QDialog::Accepted;
  activateWindow();
  if (accepted) ChangeRows(dialog.Chosen(), ChangeKind::ChangeSections);
}

// Holes placed by hand go only after a question, one for all sections; what is left as it is, is
// told.
void FrmMain::ChangeRows(const ChosenChange& change, ChangeKind kind) {
  const std::vector<int> rows = sections_->ChosenRows();
  SectionPlan plan = PlanOfChange(rows, change, false);
  if (const int held = HeldByHoles(plan); held > 0) {
    const Answer answer = TheDesktop().ShowMessageBox(
        Counted(held, "section") + (held == 1 ? " has" : " have") +
            " holes placed by hand, which the pattern would take the place of.\rRemove them?",
        "", Buttons::YesNoCancel, Icon::None);
    if (answer == Answer::Cancel) return;
    if (answer == Answer::Yes) plan = PlanOfChange(rows, change, true);
  }
  const bool ran = sections_->RunOnRows([&] {
    ApplyPlan(plan, kind);
    return 0;
  });
  const std::string left = LeftSections(plan);
  if (ran && !left.empty()) TheDesktop().Message("Left as they are:" + left);
}

void FrmMain::OfferRecovered() {
  OfferLeft();
}

// False if nothing was left.
bool FrmMain::OfferLeft() {
  if (!recovery_) return false;
  std::vector<LeftJob> left = recovery_->TakeLeft();
  const bool found = !left.empty();
  if (found) Guard([&] { Offer(std::move(left)); });
  recovery_->LetGo();
  return found;
}

void FrmMain::RecoverLeft() {
  if (!OfferLeft()) TheDesktop().Message("No job was left to be recovered");
}

void FrmMain::Offer(std::vector<LeftJob> left) {
  std::optional<LeftJob> job;
  {
    const auto discard = [this](const LeftJob& each) {
      if (KeepsVersions()) {
        KeepVersion(VersionOf(each.Path, VersionKind::LeftUnsaved, ReadWholeFile(each.File)));
      }
      recovery_->RemoveLeft(each);
    };
    FrmRecovery offer(std::move(left), discard, this);
    if (offer.exec() == QDialog::Accepted) job = offer.Chosen();
  }
  activateWindow();
  if (!job || !MayReplaceProject()) return;
  const FileNow file = job->IsOlder || job->IsChanged ? FileNow::Another : FileNow::AsItWas;
  if (!OpenCopy(ReadWholeFile(job->File), job->Path, file)) return;
  // It goes when the copy of this program has taken its place.
  if (recovery_->WriteNow()) recovery_->RemoveLeft(*job);
}

void FrmMain::KeepForRecovery() {
  if (recovery_) recovery_->WriteNow();
}

}  // namespace orvane
