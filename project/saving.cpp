#include "project/saving.h"

#include <optional>
#include <vector>

#include "core/files.h"
#include "core/model.h"
#include "core/settings.h"
#include "core/text.h"
#include "project/history.h"
#include "project/left_unsaved.h"
#include "project/main_screen.h"
#include "project/project_file.h"
#include "project/project_recovery.h"
#include "project/recent_files.h"
#include "project/unfit_texts.h"

namespace orvane {

Boolean NotFullyRead = False;

namespace {

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

}  // namespace

FileDialog ProjectDialog(const std::string& title) {
  FileDialog dialog;
  dialog.Title = title;
  dialog.Filter = "Orvane Detail Projects (*.ovd)|*.ovd";
  dialog.DefaultExtension = ".ovd";
  dialog.FirstFolder = FolderOfPath(ProjectFileName);
  return dialog;
}

Answer AskToSave(const std::string& title) {
  return TheDesktop().ShowMessageBox("Save changes to current project?", title,
                                     Buttons::YesNoCancel, Icon::None);
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

bool SaveProject(Boolean SaveAs) {
  return Save(SaveAs) == Saving::Done;
}

bool MayGoSaved(const std::string& title) {
  const Saving saving = Save(False);
  if (saving == Saving::WentThere) return false;
  if (saving == Saving::Done) return true;
  if (KeepRecoveredProject()) {
    MarkCopied();
    return true;
  }
  return TheDesktop().ShowMessageBox(
             "The project isn't saved, and no copy that opens could be put into your data folder "
             "either.\rLeave it all the same? What was changed in it is lost then.",
             title, Buttons::YesNo, Icon::None) == Answer::Yes;
}

void TakeFileName(const std::string& path) {
  NotFullyRead = False;
  ProjectFileName = path;
  MarkSaved();
  TheMainScreen().ShowFileName(path);
}

void ForgetChanges() {
  ProjectDirty = False;
}

}  // namespace orvane
