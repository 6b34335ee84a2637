#include "project/lifecycle.h"

#include <optional>
#include <vector>

#include "core/desktop.h"
#include "core/file_replacement.h"
#include "core/files.h"
#include "core/model.h"
#include "core/settings.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/changes.h"
#include "project/history.h"
#include "project/length_check.h"
#include "project/main_screen.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/project_recovery.h"
#include "project/recent_files.h"
#include "project/sections.h"
#include "project/unfit_texts.h"

namespace orvane {

Boolean NotFullyRead = False;

namespace {

const std::string NoFile = "None";  // shown as the name of a project without one

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

// How a save ended.
enum class Saving {
  Done,
  Failed,    // or was cancelled
  WentThere  // the user went to a text that the file can't hold
};
Saving Save(Boolean SaveAs);

// The save that was asked for before the project goes; false if it mustn't go. It goes whatever
// becomes of the save, as long as the user's work doesn't go with it.
bool MayGoSaved(const std::string& title) {
  const Saving saving = Save(False);
  if (saving == Saving::WentThere) return false;
  if (saving == Saving::Done || KeepRecoveredProject()) return true;
  return TheDesktop().ShowMessageBox(
             "The project isn't saved, and no copy that opens could be put into your data folder "
             "either.\rLeave it all the same? What was changed in it is lost then.",
             title, Buttons::YesNo, Icon::None) == Answer::Yes;
}

// The question before another project takes the place of this one; true when the action goes on.
// The title is the same for both actions: what the user is asked is whether this project may go.
bool MayReplaceProject() {
  const std::string title = "New Project";
  if (ProjectDirty == False) return true;
  const Answer answer = AskToSave(title);
  if (answer == Answer::Cancel) return false;
  return answer == Answer::No || MayGoSaved(title);
}

// The changes are saved, or are to be lost.
void ForgetChanges() {
  ProjectDirty = False;
}

// The path to save under: the project's own, or one that the user chooses; none if he chose none.
std::optional<std::string> PathToSave(Boolean SaveAs) {
  const bool hasName = !Trim(ProjectFileName).empty() && NotFullyRead == False;
  if (hasName && SaveAs == False) return ProjectFileName;

  FileDialog dialog = ProjectDialog("Save Project");
  dialog.OverwritePrompt = true;
  dialog.InitialFolder = ProjectDirectory();
  std::optional<std::string> path = TheDesktop().ShowSaveDialog(dialog);
  if (!path || Trim(*path).empty()) return std::nullopt;
  StoreProjectDirectory(FolderOfPath(*path));
  return path;
}

// What the user wants done about texts that the file can't hold.
enum class UnfitAnswer { GoThere, Save, Cancel };

// A project that wouldn't open again isn't saved, whatever the user wants.
UnfitAnswer AskAboutTexts(const std::vector<UnfitText>& texts, FileFit fit) {
  const std::string what =
      fit == FileFit::Broken
          ? "With these texts the project could not be opened again. It isn't saved.\r"
          : "The project file can't hold these texts as they are:\r";
  std::vector<UnfitAnswer> meanings = {UnfitAnswer::GoThere, UnfitAnswer::Cancel};
  std::vector<std::string> answers = {"Go there", "Cancel"};
  if (fit == FileFit::Otherwise) {
    meanings.insert(meanings.begin() + 1, UnfitAnswer::Save);
    answers.insert(answers.begin() + 1, "Save all the same");
  }
  const int answer = TheDesktop().Choose(what + Described(texts), "Save Project", answers);
  return meanings.at(static_cast<std::size_t>(answer));
}

// The job stands in that file.
void TakeFileName(const std::string& path) {
  NotFullyRead = False;
  ProjectFileName = path;
  MarkSaved();
  TheMainScreen().ShowFileName(path);
}

Saving Save(Boolean SaveAs) {
  Saving saving = Saving::Failed;
  Tell([&] {
    const std::optional<std::string> path = PathToSave(SaveAs);
    if (!path) return;
    const std::string text = ProjectText();
    const FileFit fit = FitOf(text, OpenJob());
    if (fit != FileFit::Same) {
      const std::vector<UnfitText> texts = UnfitTexts();
      const UnfitAnswer answer = AskAboutTexts(texts, fit);
      if (answer == UnfitAnswer::GoThere) {
        saving = Saving::WentThere;
        if (!texts.empty()) TheMainScreen().GoTo(texts.front().Place);
      }
      if (answer != UnfitAnswer::Save) return;
    }
    const std::string note = WriteProjectText(*path, text);
    saving = Saving::Done;
    TakeFileName(*path);
    TheMainScreen().ShowJobNote(note);
    ForgetChanges();
    AddRecent(*path);
  });
  return saving;
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

bool SaveProject(Boolean SaveAs) {
  return Save(SaveAs) == Saving::Done;
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
