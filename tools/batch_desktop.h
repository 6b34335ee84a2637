// The person in front of the screen, as the companion has him: standard error, and answers settled
// on the command line.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "core/headless_desktop.h"
#include "core/settings_file.h"
#include "output/output_screen.h"
#include "tools/batch_sheets.h"

namespace orvane {

// Lines for a person on standard error.
class Console {
 public:
  // On a terminal there is a progress line too, which the next line takes away.
  Console(std::ostream& stream, bool terminal) : stream_(&stream), terminal_(terminal) {}

  // Writes there from now on, which is no terminal.
  void Redirect(std::ostream& stream) {
    stream_ = &stream;
    terminal_ = false;
    progressShown_ = false;
  }

  // The job that is spoken of from now on: its name stands in front of each error, and of each
  // other line too if it is one of several.
  void NameJob(const std::string& job, bool several) {
    job_ = job;
    several_ = several;
  }

  // A text of one or more lines, each ended by a carriage return, a line feed or both. Control
  // characters, which a job's texts may hold, become blanks, so that they can't steer the terminal.
  void Say(std::string_view text);
  // The same of an error of the job.
  void SayError(std::string_view text);
  // A fault of a named file.
  void SayFault(const std::string& file, std::string_view description);
  // Lines as they stand.
  void Pass(std::string_view lines);

  // Does one step with a file; false, with the fault told under the file's name, if it failed.
  bool Try(const std::string& file, const std::function<void()>& step);

  void ShowProgress(int job, int jobs, const std::string& name);
  void ClearProgress();

 private:
  void WriteLines(const std::string& front, std::string_view text);
  void WriteLine(const std::string& front, std::string_view text);

  std::ostream* stream_;  // not owned
  bool terminal_;
  bool progressShown_ = false;
  std::string job_;
  bool several_ = false;
};

// Lets the console write into a stream for as long as this lives.
class ConsoleRedirection {
 public:
  ConsoleRedirection(Console& console, std::ostream& stream) : console_(console), former_(console) {
    console.Redirect(stream);
  }
  ~ConsoleRedirection() { console_ = former_; }
  ConsoleRedirection(const ConsoleRedirection&) = delete;
  ConsoleRedirection& operator=(const ConsoleRedirection&) = delete;

 private:
  Console& console_;
  const Console former_;
};

// The settings of a user's file, or the defaults without one. What is stored is remembered until
// the store goes; the file is never written.
class BatchSettings : public SettingsStore {
 public:
  explicit BatchSettings(const std::string& file);
  std::optional<std::string> Query(SettingsRoot root, const std::string& key,
                                   const std::string& name) override;
  bool Store(SettingsRoot root, const std::string& key, const std::string& name,
             const std::string& text) override;

 private:
  MemorySettings stored_;
  std::optional<FileSettings> file_;
};

// What the desktop answers, settled on the command line.
struct BatchAnswers {
  bool Sleeves = false;           // to each question
  std::optional<Moment> Created;  // the present moment; none for the clock's
  std::string SettingsFile;       // empty for the defaults
  std::string DateForm;           // empty for the system's
};

class BatchDesktop : public HeadlessDesktop {
 public:
  BatchDesktop(Console& console, const BatchAnswers& answers)
      : console_(console), answers_(answers), settings_(answers.SettingsFile) {}

  // Begins a job: the file that file dialogs choose from now on.
  void BeginJob(const std::string& chosenFile);

  // A message that the job has told already isn't told again: a sheet may repeat it line by line.

  void ShowError(const std::string& file, const std::string& description) override;
  Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                        Icon icon) override;
  std::optional<std::string> ShowOpenDialog(const FileDialog&) override { return chosenFile_; }
  std::optional<std::string> ShowSaveDialog(const FileDialog&) override { return chosenFile_; }
  std::string ShortDateForm() const override;
  SettingsStore& Settings() override { return settings_; }
  Moment Now() const override;

 private:
  Console& console_;
  BatchAnswers answers_;
  BatchSettings settings_;
  std::string chosenFile_;
  std::set<std::string> told_;
};

class BatchScreen : public OutputScreen {
 public:
  explicit BatchScreen(Console& console) : console_(console) {}

  // Sends what is previewed from now on into files: a document that would be shown is completed.
  void PreviewInto(DocumentWriter& writer, const DocumentFiles& files);

  void ShowExportErrors() override;
  PrintSurface& PreviewSurface() override;
  void ShowPreview(const std::string& document, const LayOutAgain& again) override;
  void DropPreview() override;
  bool GoesOn(int, int) override { return true; }

 private:
  Console& console_;
  DocumentWriter* writer_ = nullptr;  // none before PreviewInto; not owned
  DocumentFiles files_;
  PrintSurface* surface_ = nullptr;  // of the document in work
};

}  // namespace orvane
