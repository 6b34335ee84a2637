// The copy of the job that is kept while it is worked on, and what is offered of those that dead
// programs have left.
#include <QLabel>
#include <QLockFile>
#include <QTimer>
#include <QTreeWidget>
#include <cerrno>
#include <chrono>
#include <filesystem>

#include "core/files.h"
#include "project/history.h"
#include "project/lifecycle.h"
#include "project/project_file.h"
#include "project/recovery.h"
#include "project/saving.h"
#include "project/versions.h"
#include "tests/screens/sections_fixture.h"
#include "tests/support/failing_disk.h"
#include "ui/platform/end_watch.h"

namespace orvane::test {
namespace {

namespace fs = std::filesystem;
using Rows = std::vector<std::string>;

class RecoveryScreen : public SectionsTest {
 protected:
  // The copy.

  QTimer& Timer() { return Find<QTimer>("RecoveryTimer"); }
  // Some seconds go by at once.
  void LetTimeGoBy() {
    ASSERT_TRUE(Timer().isActive());
    const int interval = Timer().interval();
    ASSERT_LE(interval, 5000);
    Timer().setInterval(0);
    QCoreApplication::processEvents();
    Timer().setInterval(interval);
    platform.FinishApart();
    RunQueued();
  }
  Rows Folders() { return RecoveryFolders(platform.DataFolder); }
  // The copy in the only folder.
  std::optional<LeftJob> Copy() {
    platform.FinishApart();
    const Rows folders = Folders();
    EXPECT_LE(folders.size(), 1U);
    return folders.empty() ? std::nullopt : CopyIn(folders.front());
  }
  std::string CopiedText() { return ReadWholeFile(Copy().value().File); }

  // The window.

  std::string Note() { return FromQt(Find<QLabel>("lblJobNote").text()); }
  std::string Title() { return FromQt(main->windowTitle()); }
  std::string FileLabel() { return FromQt(Find<QLabel>("lblFilename(1)").text()); }
  // Two purlins, saved under a name; the cursor in that cell.
  void ShowSaved(int row = 1, int column = 3) {
    Put("Z", "P1", "Z14012", 6000, 2);
    Put("Z", "P2", "Z14012", 5400, 4);
    Show(row, column);
    ProjectFileName = TempPath("north.ovd");
    ASSERT_TRUE(SaveProject(False));
    Settle();
  }
  // As after the start.
  void ForgetJob() {
    dialogs.ExpectDialog("frmProjectDetails", [this](QWidget&) { Press(Qt::Key_Escape); });
    Press(Qt::Key_N, Qt::ControlModifier);
    Settle();
    ProjectDirty = False;
  }

  // What was left.

  // What a program that died has left: these purlins, under that path.
  std::string LeaveCopy(const std::string& path, const Rows& marks,
                        const std::string& known = KnownMark()) {
    const Table<Item> items = Items;
    Items.Clear();
    for (const std::string& mark : marks) Put("Z", mark, "Z14012", 7000);
    const std::string folder = MakeRecoveryFolder(platform.DataFolder, {{2024, 3, 5}, 9, 0, 0});
    KeepCopy(folder, path, known, ProjectText());
    Items = items;
    return folder;
  }
  // The rows that are offered, cell by cell but for the time.
  static Rows RowsOf(QWidget& dialog) {
    auto& list = Find<QTreeWidget>(dialog, "lvwRecovered");
    RunQueued();
    Rows rows;
    for (int at = 0; at < list.topLevelItemCount(); ++at) {
      const QTreeWidgetItem& row = *list.topLevelItem(at);
      rows.push_back(FromQt(row.text(0) + "|" + row.text(2) + "|" + row.text(3)));
    }
    return rows;
  }
  void Offer() {
    main->OfferRecovered();
    Settle();
  }
};

TEST_F(RecoveryScreen, Keys_of_a_cell_that_is_not_left_are_in_the_copy) {
  ShowSaved();
  EXPECT_FALSE(Timer().isActive());
  Retype("72");
  LetTimeGoBy();
  ASSERT_TRUE(Copy());
  EXPECT_EQ(Copy()->Path, ProjectFileName);
  EXPECT_EQ(CopiedText(), ProjectText());
  EXPECT_NE(CopiedText(), ReadWholeFile(ProjectFileName));
  Retype("7250");
  LetTimeGoBy();
  EXPECT_EQ(CopiedText(), ProjectText());
  EXPECT_EQ(Items.At(1).Length, 7250);
}

TEST_F(RecoveryScreen, A_key_does_not_put_the_copy_off) {
  ShowSaved();
  Type("1");
  const int id = Timer().timerId();
  Type("2");
  EXPECT_EQ(Timer().timerId(), id);  // a timer that begins anew has another one
}

TEST_F(RecoveryScreen, It_goes_with_a_save_and_with_the_last_step_taken_back) {
  ShowSaved();
  Retype("7250");
  LetTimeGoBy();
  ASSERT_TRUE(Copy());
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(Copy());
  EXPECT_FALSE(Timer().isActive());
  Retype("7300");
  LetTimeGoBy();
  ASSERT_TRUE(Copy());
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_FALSE(Copy());
}

TEST_F(RecoveryScreen, Another_job_that_is_opened_takes_it_away) {
  ShowSaved();
  Retype("7250");
  LetTimeGoBy();
  ASSERT_TRUE(Copy());
  OpenFile(ProjectFileName);
  Settle();
  EXPECT_FALSE(Copy());
}

TEST_F(RecoveryScreen, The_exit_leaves_no_folder) {
  ShowSaved();
  Retype("7250");
  LetTimeGoBy();
  ASSERT_EQ(Folders().size(), 1U);
  dialogs.ExpectBox("Save changes to current project?", "Exit", QMessageBox::No);
  main->close();
  Settle();
  EXPECT_TRUE(Folders().empty());
}

TEST_F(RecoveryScreen, A_job_without_a_name_has_a_copy_without_one) {
  Put("Z", "P1", "Z14012", 6000);
  Show(1, 3);
  Retype("7250");
  LetTimeGoBy();
  EXPECT_EQ(Copy()->Path, "");
  EXPECT_EQ(CopiedText(), ProjectText());
}

TEST_F(RecoveryScreen, The_end_of_the_session_writes_what_is_not_written_yet) {
  ShowSaved();
  const EndWatch watch([this] { main->KeepForRecovery(); });
  // The session's manager, whom nobody here asks anything.
  auto* manager = reinterpret_cast<QSessionManager*>(qGuiApp);
  emit qGuiApp->commitDataRequest(*manager);
  EXPECT_FALSE(Copy());  // nothing is missing in the file
  Retype("7250");
  emit qGuiApp->commitDataRequest(*manager);
  EXPECT_EQ(CopiedText(), ProjectText());
  EXPECT_FALSE(Timer().isActive());
}

TEST_F(RecoveryScreen, A_full_disk_is_told_and_no_folder_stays_on_it) {
  ShowSaved();
  platform.LaysLocks = false;
  Retype("7250");
  {
    const FailingDisk full({1, ENOSPC, true});
    LetTimeGoBy();
  }
  EXPECT_EQ(Note(), "No recovery copy of the job can be written: Disk full");
  EXPECT_EQ(Folders(), Rows());
  platform.LaysLocks = true;
  Retype("7251");
  LetTimeGoBy();
  EXPECT_EQ(Note(), "Recovery copies of the job are written again");
  EXPECT_EQ(CopiedText(), ProjectText());
}

TEST_F(RecoveryScreen, A_data_folder_that_takes_nothing_is_told_once_in_a_quiet_line) {
  ShowSaved();
  TempFile("data/recovery", "a file in its place");
  Retype("7250");
  LetTimeGoBy();
  EXPECT_EQ(Note(), "No recovery copy of the job can be written: Path not found");
  main->ShowJobNote("");
  Retype("7251");
  LetTimeGoBy();
  EXPECT_EQ(Note(), "");
  fs::remove(TempPath("data/recovery"));
  Retype("7252");
  LetTimeGoBy();
  EXPECT_EQ(Note(), "Recovery copies of the job are written again");
  EXPECT_EQ(CopiedText(), ProjectText());
}

TEST_F(RecoveryScreen, A_folder_that_somebody_has_removed_is_made_again) {
  ShowSaved();
  Retype("7250");
  LetTimeGoBy();
  fs::remove_all(TempPath("data/recovery"));
  Retype("7251");
  LetTimeGoBy();
  EXPECT_EQ(Note(), "");
  EXPECT_EQ(CopiedText(), ProjectText());
}

// --- What was left

TEST_F(RecoveryScreen, Without_anything_left_nothing_is_asked) {
  Offer();
  const std::string empty = TempPath("data/recovery/2024-03-05-090000");
  fs::create_directories(empty);
  Offer();
  EXPECT_EQ(Folders(), Rows{empty}) << "another program may be about to write its copy";
  fs::last_write_time(empty, fs::last_write_time(empty) - std::chrono::hours(2));
  Offer();
  EXPECT_TRUE(Folders().empty()) << "a folder without a copy is of no use";
}

TEST_F(RecoveryScreen, What_a_living_program_keeps_is_not_offered) {
  const std::string folder = LeaveCopy("", {"L1"});
  QLockFile living(ToQt(folder + "/lock"));
  living.setStaleLockTime(0);
  ASSERT_TRUE(living.tryLock(0));
  Offer();
  EXPECT_TRUE(CopyIn(folder));
  EXPECT_EQ(Items.UBound(), 0);
}

TEST_F(RecoveryScreen, A_recovered_job_opens_under_its_name_and_its_file_stays) {
  ShowSaved();
  const std::string path = ProjectFileName;
  const std::string saved = ReadWholeFile(path);
  const std::string folder = LeaveCopy(path, {"P1", "P3", "P4"});
  fs::last_write_time(path, fs::last_write_time(CopyIn(folder)->File) - std::chrono::seconds(1));
  ForgetJob();
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog), Rows{"north.ovd|3|2 sections added, 1 changed, 1 removed"});
    Press(Qt::Key_Return);
  });
  Offer();
  EXPECT_EQ(Marks(), (Rows{"P1", "P3", "P4"}));
  EXPECT_EQ(FileLabel(), path);
  EXPECT_EQ(Title(), "north.ovd* - Orvane Detailing System");
  EXPECT_EQ(ProjectDirty, True);
  EXPECT_EQ(ReadWholeFile(path), saved);
  // This program keeps it now.
  ASSERT_EQ(Folders().size(), 1U);
  EXPECT_NE(Folders().front(), folder);
  EXPECT_EQ(Copy()->Path, path);
  // Saving brings it into its file.
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Title(), "north.ovd - Orvane Detailing System");
  EXPECT_EQ(ReadWholeFile(path), ProjectText());
  EXPECT_FALSE(Copy());
}

TEST_F(RecoveryScreen, A_file_that_was_saved_later_is_told_and_not_replaced_without_a_question) {
  ShowSaved();
  const std::string path = ProjectFileName;
  const std::string saved = ReadWholeFile(path);
  const std::string folder = LeaveCopy(path, {"P1"});
  fs::last_write_time(path, fs::last_write_time(CopyIn(folder)->File) + std::chrono::seconds(1));
  ForgetJob();
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog), Rows{"north.ovd|1|1 section changed, 1 removed (its file was saved "
                                   "later than this copy)"});
    Press(Qt::Key_Return);
  });
  Offer();
  dialogs.ExpectDialog("MessageBox", [](QWidget& box) {
    EXPECT_EQ(box.windowTitle(), "Save Project");
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  Press(Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(ReadWholeFile(path), saved);
}

TEST_F(RecoveryScreen, A_file_that_somebody_else_has_saved_before_the_copy_is_told_too) {
  ShowSaved();
  const std::string path = ProjectFileName;
  const std::string folder = LeaveCopy(path, {"P1", "P2"}, "of another content");
  fs::last_write_time(path, fs::last_write_time(CopyIn(folder)->File) - std::chrono::seconds(1));
  ForgetJob();
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog),
              Rows{"north.ovd|2|2 sections changed (its file was changed by somebody else)"});
    Press(Qt::Key_Escape);
  });
  Offer();
}

TEST_F(RecoveryScreen, What_could_not_be_kept_as_a_version_stays_for_the_next_start) {
  ShowSaved();
  Retype("7250");
  LetTimeGoBy();
  ASSERT_TRUE(Copy());
  const std::string copied = CopiedText();
  KeepVersionsIn(platform.DataFolder);
  TempFile("data/versions", "a file in its place");
  OpenFile(ProjectFileName);
  Settle();
  ASSERT_TRUE(Copy());
  EXPECT_EQ(CopiedText(), copied);
  KeepVersionsIn({});
}

TEST_F(RecoveryScreen, A_copy_that_failed_is_tried_again_without_a_key) {
  ShowSaved();
  TempFile("data/recovery", "a file in its place");
  Retype("7250");
  LetTimeGoBy();
  fs::remove(TempPath("data/recovery"));
  LetTimeGoBy();
  EXPECT_EQ(CopiedText(), ProjectText());
}

TEST_F(RecoveryScreen, A_disk_that_takes_no_lock_hides_nothing) {
  LeaveCopy("", {"L1"});
  platform.LaysLocks = false;
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog), Rows{"Untitled|1|was never saved"});
    Press(Qt::Key_Return);
  });
  Offer();
  EXPECT_EQ(Marks(), Rows{"L1"});
}

TEST_F(RecoveryScreen, Several_are_offered_and_those_that_wait_are_offered_again) {
  const auto now = fs::file_time_type::clock::now();
  fs::last_write_time(CopyIn(LeaveCopy(TempPath("gone.ovd"), {"G1"}))->File, now);
  fs::last_write_time(CopyIn(LeaveCopy("", {"L1", "L2"}))->File, now + std::chrono::seconds(1));
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog), (Rows{"Untitled|2|was never saved", "gone.ovd|1|its file is gone"}));
    Press(Qt::Key_Escape);
  });
  Offer();
  EXPECT_EQ(Folders().size(), 2U);
  EXPECT_EQ(Items.UBound(), 0);
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    Press(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(RowsOf(dialog), Rows{"gone.ovd|1|its file is gone"});
    Press(Qt::Key_L, Qt::AltModifier);
  });
  Offer();
  EXPECT_EQ(Folders().size(), 1U);
  // What is discarded is an earlier version from then on.
  EXPECT_TRUE(VersionsOf("").empty());
  KeepVersionsIn(platform.DataFolder);
  // Behind the last one nothing is left to ask.
  dialogs.ExpectDialog("frmRecovery", [&](QWidget&) { Press(Qt::Key_D, Qt::AltModifier); });
  Offer();
  EXPECT_TRUE(Folders().empty());
  const std::vector<Version> kept = VersionsOf(TempPath("gone.ovd"));
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(kept.front().Kind, VersionKind::LeftUnsaved);
  EXPECT_EQ(kept.front().Sections, 1);
  KeepVersionsIn({});
}

TEST_F(RecoveryScreen, Those_that_still_wait_are_offered_by_the_tools_too) {
  LeaveCopy(TempPath("gone.ovd"), {"G1"});
  LeaveCopy("", {"L1", "L2"});
  dialogs.ExpectDialog("frmRecovery", [&](QWidget&) { Press(Qt::Key_R, Qt::AltModifier); });
  Offer();
  EXPECT_EQ(Folders().size(), 2U) << "one that waits, and the copy of the one that was recovered";
  const int first = Items.UBound();
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog).size(), 1U);
    dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::No);
    Press(Qt::Key_R, Qt::AltModifier);
  });
  Entry("mnuToolsRecover").trigger();
  Settle();
  EXPECT_EQ(first + Items.UBound(), 3) << "one section and two";
  dialogs.ExpectBox("No job was left to be recovered");
  Entry("mnuToolsRecover").trigger();
}

TEST_F(RecoveryScreen, Before_one_takes_the_place_of_a_changed_job_it_is_asked) {
  LeaveCopy("", {"L1"});
  Put("Z", "P1", "Z14012", 6000);
  Show(1, 1);
  Retype("P7");
  dialogs.ExpectDialog("frmRecovery", [&](QWidget&) { Press(Qt::Key_Return); });
  dialogs.ExpectBox("Save changes to current project?", "New Project", QMessageBox::Cancel);
  Offer();
  EXPECT_EQ(Marks(), Rows{"P7"});
  EXPECT_EQ(Folders().size(), 1U);
}

TEST_F(RecoveryScreen, A_copy_that_cannot_be_read_says_so_and_stays) {
  const std::string folder = LeaveCopy("", {"L1"});
  WriteWholeFile(CopyIn(folder)->File, "v1.07:1\r\n\"J\"\r\n");
  dialogs.ExpectDialog("frmRecovery", [&](QWidget& dialog) {
    EXPECT_EQ(RowsOf(dialog), Rows{"Untitled|?|the copy can't be read: Input past end of file"});
    Press(Qt::Key_Return);
  });
  dialogs.ExpectBox("Input past end of file");
  Offer();
  EXPECT_TRUE(CopyIn(folder));
}

}  // namespace
}  // namespace orvane::test
