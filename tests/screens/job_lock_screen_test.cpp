// The lock beside an open job, as real programs lay it and leave it.
#include <sys/wait.h>
#include <unistd.h>

#include <QLockFile>
#include <QSysInfo>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "project/job_lock.h"
#include "project/project_file.h"
#include "tests/screens/sections_fixture.h"
#include "ui/platform/qt_lock.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;

// Another program of this computer that holds a lock until it is killed.
class Holder {
 public:
  explicit Holder(const std::string& lock) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) {
      const LaidLock laid = LayLockFile(lock, LockOfOthers::Stands);
      const char held = laid.Lock ? 'y' : 'n';
      if (write(ends[1], &held, 1) != 1) _exit(1);
      while (true) pause();
    }
    close(ends[1]);
    char held = 'n';
    if (read(ends[0], &held, 1) != 1) held = 'n';
    close(ends[0]);
    EXPECT_EQ(held, 'y');
  }
  ~Holder() { Kill(); }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  void Kill() {
    if (child_ == 0) return;
    kill(child_, SIGKILL);
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    child_ = 0;
  }
  pid_t Process() const { return child_; }

 private:
  pid_t child_ = 0;
};

class JobLockScreen : public SectionsTest {
 protected:
  void SetUp() override {
    SectionsTest::SetUp();
    Put("Z", "A1", "Z14012", 6000, 3);
    WriteProjectFile(job);
    Items.Clear();
  }

  void Open() {
    platform.Chosen.push_back(job);
    Click("SSCommand1(2)");
    Settle();
  }
  // The question is answered by this button; its text is kept.
  void Answer(const std::string& caption) {
    dialogs.ExpectDialog("MessageBox", [this, caption](QWidget& window) {
      auto& box = dynamic_cast<QMessageBox&>(window);
      asked = FromQt(box.text());
      for (QAbstractButton* button : box.buttons()) {
        if (FromQt(button->text()) == caption) return button->click();
      }
      ADD_FAILURE() << "no button " << caption;
      box.reject();
    });
  }
  // The process that a lock file names; 0 without one.
  qint64 HolderOf(const std::string& path) {
    qint64 process = 0;
    QString computer;
    QString program;
    QLockFile(ToQt(path)).getLockInfo(&process, &computer, &program);
    return process;
  }
  // A lock of another computer, laid 400 days ago.
  void LayForeign() {
    TempFile(".job.ovd.lock", "4711\norvane\nOFFICE-7\n");
    fs::last_write_time(lock, fs::file_time_type::clock::now() - std::chrono::hours(24 * 400));
  }

  const std::string job = TempPath("job.ovd");
  const std::string lock = TempPath(".job.ovd.lock");
  std::string asked;
};

TEST_F(JobLockScreen, A_job_is_locked_while_it_is_open) {
  Open();
  EXPECT_EQ(HolderOf(lock), getpid());
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
  dialogs.ExpectDialog("frmProjectDetails", [](QWidget& dialog) { dialog.close(); });
  Entry("mnuProject(0)").trigger();
  Settle();
  EXPECT_FALSE(fs::exists(lock));
}

TEST_F(JobLockScreen, The_end_of_the_window_takes_the_lock_away) {
  Open();
  ASSERT_TRUE(fs::exists(lock));
  main.reset();
  EXPECT_FALSE(fs::exists(lock));
}

TEST_F(JobLockScreen, A_live_program_is_told_and_cancel_leaves_everything) {
  const Holder other(lock);
  Answer("Cancel");
  Open();
  EXPECT_EQ(asked.substr(0, 54), "job.ovd is open already, for less than a minute now.\n\n");
  EXPECT_NE(asked.find("\nComputer:  " + FromQt(QSysInfo::machineHostName()) + "\n"),
            std::string::npos);
  EXPECT_NE(asked.find("\nProgram:  "), std::string::npos);
  EXPECT_TRUE(Items.Empty());
  EXPECT_EQ(HolderOf(lock), other.Process());
}

TEST_F(JobLockScreen, A_live_programs_lock_stands_when_the_job_is_opened_all_the_same) {
  const Holder other(lock);
  Answer("Open all the same");
  Open();
  EXPECT_EQ(ProjectFileName, job);
  EXPECT_EQ(HolderOf(lock), other.Process());
  main.reset();
  EXPECT_EQ(HolderOf(lock), other.Process());
}

TEST_F(JobLockScreen, The_lock_of_a_killed_program_is_taken_over) {
  Holder other(lock);
  other.Kill();
  ASSERT_TRUE(fs::exists(lock));
  Open();
  EXPECT_EQ(ProjectFileName, job);
  EXPECT_EQ(HolderOf(lock), getpid());
}

TEST_F(JobLockScreen, No_age_makes_another_computers_lock_a_dead_one) {
  LayForeign();
  Answer("Open a copy");
  Open();
  EXPECT_EQ(asked.substr(0, 48), "job.ovd is open already, for 400 days now.\n\nUser");
  EXPECT_NE(asked.find("\nComputer:  OFFICE-7\nProgram:  orvane\n"), std::string::npos);
  EXPECT_EQ(Items.UBound(), 1);
  EXPECT_EQ(ProjectFileName, "");
  EXPECT_EQ(HolderOf(lock), 4711);
}

TEST_F(JobLockScreen, Another_computers_lock_is_ones_own_when_the_job_is_opened_all_the_same) {
  LayForeign();
  Answer("Open all the same");
  Open();
  EXPECT_EQ(ProjectFileName, job);
  EXPECT_EQ(HolderOf(lock), getpid());
}

TEST_F(JobLockScreen, Where_no_file_can_be_made_there_is_neither_a_lock_nor_a_holder) {
  const std::string folder = TempPath("closed");
  fs::create_directory(folder);
  fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
  const std::string outcome = AsOrdinaryUser([&] {
    const LaidLock laid = LayLockFile(folder + "/.job.ovd.lock", LockOfOthers::Stands);
    return std::string(laid.Lock ? "lock" : "none") + (laid.Holder ? ", held" : "");
  });
  fs::permissions(folder, fs::perms::owner_all);
  EXPECT_EQ(outcome, "none");
  EXPECT_TRUE(fs::is_empty(folder));
}

}  // namespace
}  // namespace orvane::test
