#include "project/lifecycle.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/job_lock.h"
#include "project/left_unsaved.h"
#include "project/length_check.h"
#include "project/main_screen.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "project/sections.h"

namespace orvane {

namespace {

const std::string NoFile = "None";  // shown as the name of a project without one

// The bytes of a file, before anything of them is read; none after its error was shown.
std::optional<std::string> BytesOrTell(const std::string& path) {
  std::optional<std::string> bytes;
  Tell([&] { bytes = ReadWholeFile(path); });
  return bytes;
}

// Draws the first section. What its holes or its sheet raise is shown; the project is open all the
// same, and is treated as such.
void ShowFirstItem() {
  if (Items.Empty()) {
    TheMainScreen().ClearDrawing();
    return;
  }
  Tell([] { TheMainScreen().SelectFirstItem(); });
}

// The check at exit; one that can't be made is told and stops nobody.
bool LengthsAllowExit() {
  bool allowed = true;
  Tell([&] { allowed = CheckLength(); });
  return allowed;
}

// What is lost when another job takes the place of this one is kept as an earlier one of its
// file's. The line that tells why it couldn't be; empty for nothing.
std::string KeepWhatIsReplaced() {
  const std::string trouble = KeepUnsaved(PathOfJob());
  ForgetCopies();
  if (trouble.empty()) return {};
  return "What was changed in the project before could not be kept: " + trouble;
}

// What stands behind the name of the file while the tables hold something else than its job.
const char* Remark(JobInTables job) {
  switch (job) {
    case JobInTables::Saved:
      return "";
    case JobInTables::Pieces:
      return " (not fully read)";
    case JobInTables::Former:
      break;
  }
  return " (another project)";
}

void ShowWhoseJob(JobInTables job) {
  NotFullyRead = ToBoolean(job != JobInTables::Saved);
  const std::string name = Trim(ProjectFileName).empty() ? NoFile : ProjectFileName;
  TheMainScreen().ShowFileName(name + Remark(job));
}

// Reads a project into the model and shows it; what its file has to do with it is the caller's, and
// is done before the first sheet is drawn. False after an error of reading, which was told.
bool ShowWhatIsRead(TextFile& file, const std::function<void()>& takeName) {
  const std::string lost = KeepWhatIsReplaced();
  MainScreen& screen = TheMainScreen();
  screen.ForgetEditors();
  CurrentItem = 0;  // its row may be gone before the sections are shown afresh

  screen.ShowJobNote(lost);
  ProjectNotes notes;
  const auto read = [&] { notes = ReadProjectFile(file); };
  const bool whole = Tell([&] { Change(ChangeKind::OpenProject, 0, read); });
  screen.DisplayItems();
  screen.ClearDetailPanel();
  if (whole) screen.SetAccUsage();
  screen.RefreshProjectDetails();
  if (!whole) {
    screen.ClearDrawing();
    ShowWhoseJob(JobInTables::Pieces);
    DropJobLock();
    return false;
  }
  takeName();
  const std::string line = notes.Line();
  screen.ShowJobNote(line.empty() || lost.empty() ? line + lost : line + ". " + lost);
  ShowFirstItem();
  return true;
}

// Opening counts as a change, so that leaving the project always brings the save prompt: looking at
// a section already makes its holes afresh by the catalogue of today.
void CountAsChanged() {
  Change(ChangeKind::ProjectReplaced);
}

}  // namespace

// The title is the same for both actions: what the user is asked is whether this project may go.
bool MayReplaceProject() {
  const std::string title = "New Project";
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave(title);
  if (answer == Answer::Cancel) return false;
  return answer == Answer::No || MayGoSaved(title);
}

void NewProject() {
  if (!MayReplaceProject()) return;
  const std::string lost = KeepWhatIsReplaced();
  MainScreen& screen = TheMainScreen();
  screen.ForgetEditors();

  Change(ChangeKind::NewProject, 0, [] { NewProjectTables(TheDesktop().Now().Day); });
  NotFullyRead = False;
  DropJobLock();
  ForgetContent();
  MarkSaved();
  screen.DisplayItems();
  screen.ClearDetailPanel();
  screen.EmptyHoleList();
  screen.ClearAccUsage();
  screen.ShowFileName(NoFile);
  screen.ShowJobNote(lost);
  screen.ClearDrawing();
  screen.RefreshProjectDetails();
  screen.ShowProjectDetails();
  Change(ChangeKind::ProjectReplaced);
}

void OpenProject() {
  if (!MayReplaceProject()) return;
  FileDialog dialog = ProjectDialog("Open Project");
  dialog.FileMustExist = true;
  if (const std::optional<std::string> path = TheDesktop().ShowOpenDialog(dialog)) OpenFile(*path);
}

void OpenFile(const std::string& path) {
  if (Trim(path).empty()) return;
  LockedOpening opening = LockToOpen(path);
  if (opening.As == OpenAs::Nothing) return;
  // A file that is gone takes nothing off the screen.
  const std::optional<std::string> bytes = BytesOrTell(path);
  if (!bytes) return;
  if (opening.As == OpenAs::Copy) {
    OpenCopy(*bytes, {});
    return;
  }
  TextFile file(DecodeText(*bytes));
  const bool whole = ShowWhatIsRead(file, [&] {
    SweepLeftovers(path, BackupEnding);
    HoldJobLock(std::move(opening.Lock));
    KnowContent(path, MarkOf(*bytes));
    TakeFileName(path);
  });
  if (!whole) return;
  AddRecent(path);
  CountAsChanged();
}

bool OpenCopy(const std::string& bytes, const std::string& name, FileNow file) {
  LockedOpening opening;
  if (!name.empty()) opening = LockToOpen(name);
  if (opening.As == OpenAs::Nothing) return false;
  TextFile text(DecodeText(bytes));
  const bool whole = ShowWhatIsRead(text, [&] {
    HoldJobLock(std::move(opening.Lock));
    ProjectFileName = opening.As == OpenAs::Copy ? std::string() : name;
    if (file == FileNow::AsItWas) {
      KnowContentOf(ProjectFileName);
    } else {
      KnowNothingOf(ProjectFileName);
    }
    ShowWhoseJob(JobInTables::Saved);
    MarkUnsaved();
  });
  if (whole) CountAsChanged();
  return whole;
}

void FollowTakenOpening() {
  ShowWhoseJob(WhoseJob());
  if (NotFullyRead != False) return DropJobLock();
  if (LayJobLockAgain(ProjectFileName)) return;
  TheMainScreen().ShowJobNote(FileName(ProjectFileName) + " is open somewhere else too");
}

namespace {

const std::string ExitTitle = "Exit";

// The save prompt at the exit; false if the project stays.
bool MayExit() {
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave(ExitTitle);
  if (answer == Answer::Cancel) return false;
  ForgetChanges();
  if (answer == Answer::No || MayGoSaved(ExitTitle)) return true;
  ProjectDirty = True;
  return false;
}

// Keeps what is lost at the exit; false if it can't be kept and the project stays for it.
bool MayLose() {
  const std::string trouble = KeepUnsaved(PathOfJob());
  if (trouble.empty()) return true;
  const std::string question =
      "What was changed since the last save could not be kept: " + trouble +
      ".\rLeave it all the same?";
  if (TheDesktop().ShowMessageBox(question, ExitTitle, Buttons::YesNo, Icon::None) != Answer::Yes) {
    ProjectDirty = True;
    return false;
  }
  MarkGivenUp();
  return true;
}

}  // namespace

bool ExitProject() {
  if (!LengthsAllowExit() || !MayExit() || !MayLose()) return false;
  TheDesktop().FinishApart();
  return true;
}

}  // namespace orvane
