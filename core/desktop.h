// What the logic needs of the person in front of the screen and of the platform. The program
// implements it on its screens, the companion on standard error, the tests by script.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/file_lock.h"
#include "core/settings_store.h"

namespace orvane {

enum class Icon { None, Stop };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct FileDialog {
  std::string Title;
  std::string Filter;            // pairs of text and pattern, "CAM Files|*.xov"
  std::string DefaultExtension;  // added to a name that doesn't end in it, ".xov"
  std::string InitialFolder;     // empty for the dialog's own last folder
  bool OverwritePrompt = false;  // ask before an existing file is chosen
  bool FileMustExist = false;
  std::string FirstFolder;  // where InitialFolder is empty and there is no last one yet; empty
                            // for the current one
};

class Desktop : public Clock {
 public:
  // A message box. A carriage return in the text ends a line. A box that is closed without a button
  // gives No where there is one and no Cancel, else Cancel or Ok.
  virtual Answer ShowMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                                Icon icon) = 0;

  // A question with answers of its own, whose number from 0 it gives. The first is the one that
  // Enter gives at once, the last the one of a box that is closed without a button.
  virtual int Choose(const std::string& text, const std::string& title,
                     const std::vector<std::string>& answers) = 0;

  // A file dialog of the open or the save form; none when it was cancelled. Paths are UTF-8,
  // absolute and in the platform's own form.
  virtual std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) = 0;
  virtual std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) = 0;

  // A folder that is there, which is chosen from that one on; none when it was cancelled, and where
  // nobody can choose.
  virtual std::optional<std::string> ShowFolderDialog(const std::string& title,
                                                      const std::string& initialFolder);

  // Lets pending window events run.
  virtual void ProcessEvents() = 0;

  // The system's short date form as a pattern of d, dd, M, MM, yy and yyyy, such as "dd/MM/yyyy".
  virtual std::string ShortDateForm() const = 0;

  // Where settings are kept.
  virtual SettingsStore& Settings() = 0;

  // A folder of the user's own for data of the program, made if it isn't there; without a separator
  // at its end.
  virtual std::string UserDataFolder() = 0;

  // Runs an action apart from the windows' thread, behind those handed over before, so that nobody
  // waits for a disk. It touches no table and no screen, and what it raises is lost. Without a
  // thread for it, it is run at once.
  virtual void RunApart(std::function<void()> action);
  // Waits until all that was handed over has run.
  virtual void FinishApart() {}

  // Bytes made smaller, for files that nobody else reads; and as they were before. A desktop that
  // can't make them smaller leaves them as they are. Bytes that Compress hasn't made raise an
  // error.
  virtual std::string Compress(std::string_view bytes) { return std::string(bytes); }
  virtual std::string Decompress(std::string_view bytes) { return std::string(bytes); }

  // Lays a lock as that file. That of a program which has ended on this computer is nobody's and is
  // taken over; one of another computer stands for its holder however old it is. Without a place
  // to write there is neither a lock nor a holder, which is what a desktop without locks gives.
  virtual LaidLock LayLock(const std::string& path, LockOfOthers others);

  // Starts the help viewer on a file and does not wait for it.
  virtual void ShowHelp(const std::string& file) = 0;

  // Shows the description of an error: a plain message box with nothing else in it. `file` is what
  // it is an error of, empty where that isn't known, for those who tell of many files.
  virtual void ShowError(const std::string& file, const std::string& description);

  // A plain message box: no title of its own, no icon, one button.
  void Message(const std::string& text) { ShowMessageBox(text, "", Buttons::Ok, Icon::None); }
};

// The desktop that the system runs on, application-wide; installed first thing, and kept alive by
// who installs it until it is replaced or uninstalled. Without one, the logic can't speak, and
// asking for it is an error of the program.
void InstallDesktop(Desktop& desktop);
void UninstallDesktop();
Desktop& TheDesktop();

// Takes the description of an error.
using Teller = std::function<void(const std::string& description)>;
// Shows it as the desktop shows errors, as everything on the thread of the windows does.
void TellInMessageBox(const std::string& description);

// Runs the action; an error's description is told, as the desktop shows errors unless somebody else
// takes it, and the state stays as the action left it. True when none was raised.
bool Tell(const std::function<void()>& action);
bool Tell(const std::function<void()>& action, const Teller& tell);

}  // namespace orvane
