// What the tests of the screens share: the real windows on a desktop whose clock stands still, and
// a script that answers the real dialogs as a person would.
#pragma once

#include <QtTest/QTest>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/catalogues.h"
#include "core/settings.h"
#include "tests/support/fixture.h"
#include "ui/dialogs/frm_project_details.h"
#include "ui/frm_main.h"
#include "ui/platform/qt_desktop.h"
#include "ui/platform/qt_text.h"

namespace orvane::test {

// The program's own desktop with real message boxes. File dialogs are answered by script as long as
// `RealFileDialogs` is false.
class TestDesktop : public QtDesktop {
 public:
  TestDesktop() : QtDesktop(std::make_unique<MemorySettings>()) {}

  Moment Present{{2024, 3, 5}, 14, 7, 9};
  std::string DataFolder;
  bool RealFileDialogs = false;
  bool LaysLocks = true;
  std::deque<std::optional<std::string>> Chosen;  // for the file dialogs, in order; none cancels
  // Answers all of them instead, for a test that can't foresee them.
  std::function<std::optional<std::string>()> AnyFile;
  std::vector<FileDialog> OpenDialogs;
  std::vector<FileDialog> SaveDialogs;
  std::vector<std::string> HelpFiles;

  std::optional<std::string> ShowOpenDialog(const FileDialog& dialog) override;
  std::optional<std::string> ShowSaveDialog(const FileDialog& dialog) override;
  // Answered from Chosen too.
  std::optional<std::string> ShowFolderDialog(const std::string& title,
                                              const std::string& initialFolder) override;
  std::string ShortDateForm() const override { return "dd/MM/yyyy"; }
  std::string UserDataFolder() override { return DataFolder; }
  void ShowHelp(const std::string& file) override { HelpFiles.push_back(file); }
  Moment Now() const override { return Present; }
  LaidLock LayLock(const std::string& path, LockOfOthers others) override {
    return LaysLocks ? QtDesktop::LayLock(path, others) : LaidLock();
  }

 private:
  std::optional<std::string> NextFile();
};

// Lets the application do all that is queued, and what that queues in its turn: by turns of its
// loop, not by time, so that it does the same however slow the machine is. What a timer of the
// toolkit does later is waited for by its effect.
void RunQueued();

// Answers modal windows in the order in which they were foreseen. One that wasn't foreseen fails
// the test and is closed; so does one that was foreseen and never came.
class DialogScript : public QObject {
 public:
  DialogScript();

  // A message box with exactly this text and title ("" for the application's name), answered by
  // that button.
  void ExpectBox(const std::string& text, const std::string& title = "",
                 QMessageBox::StandardButton answer = QMessageBox::Ok);
  // Any other dialog by its objectName; the action closes it as a person would.
  void ExpectDialog(const std::string& name, std::function<void(QWidget&)> action);

  bool Done() const { return steps_.empty() && !busy_; }
  // How many modal windows were answered so far, and the texts of the boxes.
  const std::vector<std::string>& Boxes() const { return boxes_; }
  std::string NextName() const { return steps_.empty() ? "" : steps_.front().Name; }
  // Leaves the windows to somebody else from now on.
  void Stop() { stopped_ = true; }
  // Leaves the windows of that name alone: they go by themselves.
  void Ignore(const std::string& name) { ignored_ = name; }
  // Answers the window that is open now; the script does so by itself in the application's loop.
  void Look();

 private:
  struct Step {
    std::string Name;
    std::function<void(QWidget&)> Action;
  };
  void LookAgainAndAgain();

  std::deque<Step> steps_;
  std::vector<std::string> boxes_;
  std::string ignored_;
  QPointer<QWidget> busyWith_;
  bool busy_ = false;
  bool stopped_ = false;
};

// The main window on the shipped catalogues, shown, active and empty as after the start.
class ScreenTest : public SystemTest {
 protected:
  ScreenTest();
  ~ScreenTest() override;
  void SetUp() override;
  void TearDown() override;

  // Makes, loads and shows the main window; SetUp does it unless a derived fixture overrides it.
  void StartMain();

  TestDesktop platform;
  DialogScript dialogs;
  std::unique_ptr<FrmProjectDetails> details;
  std::unique_ptr<FrmMain> main;

  // Controls of the main window, or of the active modal window, by objectName. A missing one fails
  // the test and throws.
  template <class Control = QWidget>
  Control& Find(const std::string& name) {
    return Find<Control>(*main, name);
  }
  template <class Control = QWidget>
  static Control& Find(QObject& parent, const std::string& name) {
    auto* control = dynamic_cast<Control*>(FindObject(parent, name));
    if (control == nullptr) throw std::runtime_error("no control " + name);
    return *control;
  }
  QAction& Entry(const std::string& name) { return Find<QAction>(*main, name); }
  FlexGrid& Sections() { return Find<FlexGrid>("MSFlexGrid1"); }

  // Keys go to whatever has the focus, as a person's do.
  void Type(const std::string& text);
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // objectName of what has the focus; empty for none.
  static std::string Focus();

  // Mouse on a cell of a grid.
  void ClickCell(FlexGrid& grid, int row, int column, Qt::MouseButton button = Qt::LeftButton);
  void Click(const std::string& name);
  // Chooses an entry of a combo box as a person does: opens the list, clicks the entry.
  void Choose(QComboBox& combo, int index);
  void Choose(const std::string& name, const std::string& text);

  // Lets queued work run until the foreseen dialogs are answered and nothing is left to do.
  void Settle();

  // The box that tells where a job stands that is left although its save came to nothing.
  void ExpectKeptAside(const std::string& title);
  std::string KeptAside() { return platform.DataFolder + "/recovery/2024-03-05-140709/job1.ovd"; }

  // Text of a cell of the sections grid.
  std::string Cell(int row, int column) { return Sections().TextMatrix(row, column); }

 private:
  static QObject* FindObject(QObject& parent, const std::string& name);
};

}  // namespace orvane::test
