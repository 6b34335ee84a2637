#include "project/lifecycle.h"

#include <optional>
#include <string>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/length_check.h"
#include "project/main_screen.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "project/sections.h"

namespace orvane {

namespace {

const std::string NoFile = "None";  // shown as the name of a project without one

// The question before another project takes the place of this one; true when the action goes on.
// The title is the same for both actions: what the user is asked is whether this project may go.
bool MayReplaceProject() {
  const std::string title = "New Project";
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave(title);
  if (answer == Answer::Cancel) return false;
  return answer == Answer::No || MayGoSaved(title);
}

// The file, before anything of it is read; none after its error was shown.
std::optional<TextFile> OpenAndTell(const std::string& path) {
  std::optional<TextFile> file;
  Tell([&] { file = TextFile::Open(path); });
  return file;
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

}  // namespace

void NewProject() {
  if (!MayReplaceProject()) return;
  MainScreen& screen = TheMainScreen();
  screen.ForgetEditors();

  Change(ChangeKind::NewProject, 0, [] { NewProjectTables(TheDesktop().Now().Day); });
  NotFullyRead = False;
  MarkSaved();
  screen.DisplayItems();
  screen.ClearDetailPanel();
  screen.EmptyHoleList();
  screen.ClearAccUsage();
  screen.ShowFileName(NoFile);
  screen.ShowJobNote({});
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
  // A file that is gone takes nothing off the screen.
  std::optional<TextFile> file = OpenAndTell(path);
  if (!file) return;
  MainScreen& screen = TheMainScreen();
  screen.ForgetEditors();
  CurrentItem = 0;  // its row may be gone before the sections are shown afresh

  screen.ShowJobNote({});
  ProjectNotes notes;
  const auto read = [&] { notes = ReadProjectFile(*file); };
  if (!Tell([&] { Change(ChangeKind::OpenProject, 0, read); })) {
    screen.DisplayItems();
    screen.ClearDetailPanel();
    screen.RefreshProjectDetails();
    screen.ClearDrawing();
    MarkNotFullyRead(True);
    return;
  }
  SweepLeftovers(path, BackupEnding);
  screen.DisplayItems();
  screen.ClearDetailPanel();
  screen.SetAccUsage();
  screen.RefreshProjectDetails();
  TakeFileName(path);
  screen.ShowJobNote(notes.Line());
  ShowFirstItem();
  AddRecent(path);
  // Opening counts as a change, so that leaving the project always brings the save prompt: looking
  // at a section already makes its holes afresh by the catalogue of today.
  Change(ChangeKind::ProjectReplaced);
}

void MarkNotFullyRead(Boolean isSo) {
  NotFullyRead = isSo;
  const std::string name = Trim(ProjectFileName).empty() ? NoFile : ProjectFileName;
  TheMainScreen().ShowFileName(name + (isSo == False ? "" : " (not fully read)"));
}

bool ExitProject() {
  if (!LengthsAllowExit()) return false;
  if (ProjectDirty == False) return true;
  const std::string title = "Exit";
  const Answer answer = AskToSave(title);
  if (answer == Answer::Cancel) return false;
  ForgetChanges();
  if (answer == Answer::No || MayGoSaved(title)) return true;
  ProjectDirty = True;
  return false;
}

}  // namespace orvane
