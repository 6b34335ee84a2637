#include "project/saving.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/model.h"
#include "core/settings.h"
#include "core/text.h"
#include "core/text_file.h"
#include "project/history.h"
#include "project/job_difference.h"
#include "project/job_lock.h"
#include "project/left_unsaved.h"
#include "project/main_screen.h"
#include "project/project_backup.h"
#include "project/project_file.h"
#include "project/recent_files.h"
#include "project/recovery.h"
#include "project/unfit_texts.h"
#include "project/versions.h"

namespace orvane {

Boolean NotFullyRead = False;

namespace {

// The path to save under: the project's own, or one that the user chooses; none if he chose none.
std::optional<std::string> PathToSave(Boolean SaveAs) {
  const std::string own = PathOfJob();
  if (!own.empty() && SaveAs == False) return own;

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

// The contents that a path of the open job may have by our own doing: as it was read, or as a save
// that ended in an error may have left it all the same.
struct KnownContent {
  std::string Path;
  std::vector<ContentMark> Contents;
  bool IsOther = false;  // whatever stands there is somebody else's doing
};
KnownContent known;

bool IsKnown(const std::string& path, const FormerContent& former) {
  if (!former.Bytes || known.Path != path) return true;
  if (known.Contents.empty()) return !known.IsOther;
  const auto& contents = known.Contents;
  return std::find(contents.begin(), contents.end(), MarkOf(*former.Bytes)) != contents.end();
}

enum class OtherAnswer { OtherName, Overwrite, Cancel };

// What becomes of the content of a file that a save replaces.
std::string FateOf(const std::string& path, const std::string& content) {
  if (MakesBackup(path, content)) return "goes to " + FileName(path) + std::string(BackupEnding);
  return KeepsVersions() ? "makes no backup: it goes to the earlier versions alone"
                         : "is lost: it makes no backup";
}

// How that content differs from the open job, as a line of the question; none for one that doesn't
// read whole, of which nobody knows what it lacks.
std::string DifferenceLine(const std::string& theirs) {
  std::string line;
  const ProjectContent content = CheckProjectContent(theirs);
  if (content == ProjectContent::Cut || content == ProjectContent::Broken) return line;
  const auto compare = [&] {
    TextFile file(DecodeText(theirs));
    const Job job = ReadProject(file).Records;
    const JobDifference difference = DifferenceOf(OpenJob(), ViewOf(job));
    line = difference == JobDifference{}
               ? "\rIt holds the same as this project."
               : "\rIt differs from this project by " + Described(difference) + ".";
  };
  Tell(compare, [](const std::string&) {});
  return line;
}

// What is done about a job that somebody else has saved.
OtherAnswer AskAboutOther(const std::string& path, const std::string& theirs) {
  const int answer = TheDesktop().Choose(
      FileName(path) + " was changed on the disk after you opened it or saved it last." +
          DifferenceLine(theirs) + "\rIf you overwrite it, what stands there now " +
          FateOf(path, theirs) + ".",
      "Save Project", {"Save under another name", "Overwrite", "Cancel"});
  constexpr std::array meanings = {OtherAnswer::OtherName, OtherAnswer::Overwrite,
                                   OtherAnswer::Cancel};
  return meanings.at(static_cast<std::size_t>(answer));
}

// Where the job is written, and what is replaced there.
struct SavePlace {
  std::string Path;
  JobLock Lock;
  FormerContent Former;
};

// The place that this path is, or another one that the user chooses rather; none if it is to be
// left alone.
std::optional<SavePlace> PlaceToSave(std::string path) {
  while (true) {
    std::optional<JobLock> lock = LockToSave(path);
    if (!lock) return std::nullopt;
    // While the question stands, it may be saved once more: what is overwritten is what was asked
    // about.
    std::optional<ContentMark> overwritten;
    OtherAnswer answer = OtherAnswer::Overwrite;
    while (answer == OtherAnswer::Overwrite) {
      FormerContent former = ReadFormerContent(path);
      if (IsKnown(path, former) || MarkOf(*former.Bytes) == overwritten) {
        return SavePlace{path, *std::move(lock), std::move(former)};
      }
      answer = AskAboutOther(path, *former.Bytes);
      overwritten = MarkOf(*former.Bytes);
    }
    if (answer == OtherAnswer::Cancel) return std::nullopt;
    const std::optional<std::string> other = PathToSave(True);
    if (!other) return std::nullopt;
    path = *other;
  }
}

// Writes it; its content is known then.
std::string WriteThere(SavePlace& place, const std::string& text) {
  const ContentMark content = MarkOf(text);
  if (known.Path == place.Path) known.Contents.push_back(content);
  std::string note = WriteProjectText(place.Path, text, std::move(place.Former));
  KnowContent(place.Path, content);
  return note;
}

}  // namespace

std::string PathOfJob() {
  return NotFullyRead != False || Trim(ProjectFileName).empty() ? std::string() : ProjectFileName;
}

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

void KnowContent(const std::string& path, const ContentMark& content) {
  known = {path, {content}, false};
}

void KnowContentOf(const std::string& path) {
  const FormerContent content = ReadFormerContent(path);
  if (content.Bytes) {
    KnowContent(path, MarkOf(*content.Bytes));
  } else {
    ForgetContent();
  }
}

void KnowNothingOf(const std::string& path) {
  known = {path, {}, true};
}

std::string KnownMark() {
  const bool isKnown = known.Path == ProjectFileName && !known.Contents.empty();
  return isKnown ? MarkText(known.Contents.back()) : std::string();
}

void ForgetContent() {
  known = {};
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
    std::optional<SavePlace> place = PlaceToSave(*path);
    if (!place) return;
    const std::string note = WriteThere(*place, text);
    saving = Saving::Done;
    HoldJobLock(std::move(place->Lock));
    TakeFileName(place->Path);
    RemoveCopies();
    TheMainScreen().ShowJobNote(note);
    ForgetChanges();
    AddRecent(place->Path);
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
  const std::string copy = KeepUnsavedProject(PathOfJob(), KnownMark());
  if (!copy.empty()) {
    TheDesktop().ShowMessageBox("The project isn't saved. A copy of it stands in\r" + copy +
                                    "\rand is offered when the program is started again.",
                                title, Buttons::Ok, Icon::None);
    MarkCopied(copy);
    return true;
  }
  const Answer answer = TheDesktop().ShowMessageBox(
      "The project isn't saved, and no copy that opens could be put into your data folder "
      "either.\rLeave it all the same? What was changed in it is lost then.",
      title, Buttons::YesNo, Icon::None);
  if (answer != Answer::Yes) return false;
  MarkGivenUp();
  return true;
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
