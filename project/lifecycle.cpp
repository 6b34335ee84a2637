#include "project/lifecycle.h"

#include <optional>

#include "core/desktop.h"
#include "core/files.h"
#include "core/model.h"
#include "core/settings.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/length_check.h"
#include "project/main_screen.h"
#include "project/project_file.h"
#include "project/project_recovery.h"
#include "project/recent_files.h"
#include "project/sections.h"

namespace orvane {

namespace {

FileDialog ProjectDialog(const std::string& title) {
  FileDialog dialog;
  dialog.Title = title;
  dialog.Filter = "Orvane Detail Projects (*.ovd)|*.ovd";
  dialog.DefaultExtension = ".ovd";
  dialog.FirstFolder = FolderOfPath(ProjectFileName);
  return dialog;
}

// Whether the changes are to be saved.
Answer AskToSave(const std::string& title) {
  return TheDesktop().ShowMessageBox("Save changes to current project?", title,
                                     Buttons::YesNoCancel, Icon::None);
}

// The save that was asked for before the project goes. It goes whatever becomes of the save; the
// user's work doesn't go with it.
void SaveBeforeItGoes() {
  if (!SaveProject(False)) KeepRecoveredProject();
}

// The question before another project takes the place of this one; true when the action goes on.
// The title is the same for both actions: what the user is asked is whether this project may go.
bool MayReplaceProject() {
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave("New Project");
  if (answer == Answer::Cancel) return false;
  if (answer == Answer::Yes) SaveBeforeItGoes();
  return true;
}

// The changes are saved, or are to be lost.
void ForgetChanges() {
  ProjectDirty = False;
}

// The path to save under: the project's own, or one that the user chooses; none if he chose none.
std::optional<std::string> PathToSave(Boolean SaveAs) {
  if (!Trim(ProjectFileName).empty() && SaveAs == False) return ProjectFileName;

  FileDialog dialog = ProjectDialog("Save Project");
  dialog.OverwritePrompt = true;
  dialog.InitialFolder = ProjectDirectory();
  std::optional<std::string> path = TheDesktop().ShowSaveDialog(dialog);
  if (!path || Trim(*path).empty()) return std::nullopt;
  StoreProjectDirectory(FolderOfPath(*path));
  return path;
}

// The job stands in that file.
void TakeFileName(const std::string& path) {
  ProjectFileName = path;
  MarkSaved();
  TheMainScreen().ShowFileName(path);
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
  MarkSaved();
  screen.DisplayItems();
  screen.ClearDetailPanel();
  screen.EmptyHoleList();
  screen.ClearAccUsage();
  screen.ShowFileName("None");
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
    return;
  }
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

bool SaveProject(Boolean SaveAs) {
  bool written = false;
  Tell([&] {
    const std::optional<std::string> path = PathToSave(SaveAs);
    if (!path) return;
    WriteProjectFile(*path);
    written = true;
    TakeFileName(*path);
    TheMainScreen().ShowJobNote({});
    ForgetChanges();
    AddRecent(*path);
  });
  return written;
}

bool ExitProject() {
  if (!LengthsAllowExit()) return false;
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave("Exit");
  if (answer == Answer::Cancel) return false;
  ForgetChanges();
  if (answer == Answer::Yes) SaveBeforeItGoes();
  return true;
}

}  // namespace orvane
