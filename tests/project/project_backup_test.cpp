#include "project/project_backup.h"

#include <sys/stat.h>

#include <filesystem>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "project/project_file.h"
#include "tests/project/small_project.h"

namespace orvane {

namespace {

using test::AsOrdinaryUser;
using test::BytesOf;
using test::ErrorOf;
using test::First;
using test::Joined;
using test::ProjectFileTest;
using test::SmallProjectLines;
using test::With;
namespace line = test::line;

class ProjectBackupTest : public ProjectFileTest {
 protected:
  // The files of the test: the project and its backup.
  std::string Job() { return TempPath("job.ovd"); }
  std::string Backup() { return TempPath("job.ovd.bak"); }

  // Nothing but the project and its backup stands in the folder.
  void ExpectNoLeftovers() {
    const std::filesystem::path folder = std::filesystem::path(Job()).parent_path();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const std::string path = entry.path().string();
      EXPECT_TRUE(path == Job() || path == Backup()) << path;
    }
  }

  // Saves the small project over a file of these bytes.
  void SaveOver(const std::string& bytes) {
    TempFile("job.ovd", bytes);
    FillSmallProject();
    saved = WriteProjectFile(Job());
    EXPECT_EQ(BytesOf(Job()), Joined(SmallProjectLines()));
    ExpectNoLeftovers();
  }

  std::string saved;  // what SaveOver told
};

std::string Whole() {
  return Joined(With(SmallProjectLines(), line::Notes, "\"the job before\""));
}

TEST_F(ProjectBackupTest, The_first_save_makes_no_backup) {
  FillSmallProject();
  WriteProjectFile(Job());
  EXPECT_EQ(BytesOf(Job()), Joined(SmallProjectLines()));
  EXPECT_FALSE(std::filesystem::exists(Backup()));
}

TEST_F(ProjectBackupTest, Each_save_keeps_the_content_before_it_byte_for_byte) {
  FillSmallProject();
  WriteProjectFile(Job());
  const std::string first = BytesOf(Job());
  Items.At(1).Notes = "second";
  WriteProjectFile(Job());
  EXPECT_EQ(BytesOf(Backup()), first);
  const std::string second = BytesOf(Job());
  Items.At(1).Notes = "third";
  WriteProjectFile(Job());
  EXPECT_EQ(BytesOf(Backup()), second);
}

TEST_F(ProjectBackupTest, A_backup_keeps_the_bytes_of_an_old_code_page_and_of_other_line_ends) {
  std::string bytes = Joined(SmallProjectLines(), "\n");
  bytes.replace(bytes.find("K. Müller"), std::string("K. Müller").size(), "K. M\xFCller");
  SaveOver(bytes);
  EXPECT_EQ(BytesOf(Backup()), bytes);
  SaveOver(Joined(SmallProjectLines(), "\r"));
  EXPECT_EQ(BytesOf(Backup()), Joined(SmallProjectLines(), "\r"));
}

TEST_F(ProjectBackupTest, Checking_a_file_changes_no_table) {
  FillEarlierProject();
  AccUsed.At(2) = False;
  EXPECT_EQ(CheckProjectContent(Whole()), ProjectContent::Whole);
  ExpectEarlierItems();
  ExpectEarlierLines1();
  ExpectEarlierLines2();
  ExpectFlags({-1, 0, -1, -1});
  EXPECT_EQ(txtProject.at(0), "old 0");
  EXPECT_EQ(DTPicker1, (Date{2019, 12, 31}));
}

TEST_F(ProjectBackupTest, A_file_cut_at_any_byte_is_not_whole) {
  const std::string whole = Joined(SmallProjectLines());
  EXPECT_EQ(CheckProjectContent(whole), ProjectContent::Whole);
  // The last type 1 line opens without its line end and the blank in front of that; from there on
  // a file opens wherever it is cut.
  const std::size_t opens = Joined(First(SmallProjectLines(), line::Lines1End)).size() - 3;
  // Behind the type 1 lines, and behind the type 2 lines and each flag, it ends as old ones did.
  std::set<std::size_t> ends = {Joined(First(SmallProjectLines(), line::Lines1End)).size()};
  for (int kept = line::Lines2End; kept < line::LastFlag; ++kept) {
    ends.insert(Joined(First(SmallProjectLines(), kept)).size());
  }
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const ProjectContent behind = ends.count(size) == 1 ? ProjectContent::Old : ProjectContent::Cut;
    EXPECT_EQ(CheckProjectContent(whole.substr(0, size)),
              size >= opens ? behind : ProjectContent::Broken)
        << "cut behind " << size << " bytes";
  }
}

TEST_F(ProjectBackupTest, A_file_that_does_not_read_back_is_not_whole) {
  struct Case {
    int Line;
    std::string Text;
  };
  const std::vector<Case> cases = {
      {line::ItemCount, "-1 "},
      {line::ItemCount, " 3 "},
      {line::Length, " 32768 "},
      {line::Length, "x"},
      {13, " 1E39 "},
      {27, " 1E309 "},
      {line::HoleCount, "-2 "},
      {line::Product, "A,B"},
      {line::Lines1Count, "x"},
      {line::Lines2Count, "x"},
      {line::Lines2Mark, "A,1"},
      {line::Lines2ValueCount, "-1 "},
      {line::FirstFlag, "x"},
      {line::LastFlag, "x"},
      {line::Mark, "\"never closed"},
      {line::Lines2End - 3, "x"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(CheckProjectContent(Joined(With(SmallProjectLines(), each.Line, each.Text))),
              each.Line <= line::Lines1End ? ProjectContent::Broken : ProjectContent::Cut)
        << each.Line << " " << each.Text;
  }
  EXPECT_EQ(CheckProjectContent(""), ProjectContent::Broken);
}

TEST_F(ProjectBackupTest, A_file_that_somebody_else_has_written_in_is_odd_and_still_backed_up) {
  for (const auto& [flag, text] : std::vector<std::pair<int, std::string>>{
           {line::LastFlag, " 1 "}, {line::FirstFlag, " 7 "}, {line::LastFlag, " 0 \r\nmore"}}) {
    const std::string odd = Joined(With(SmallProjectLines(), flag, text));
    EXPECT_EQ(CheckProjectContent(odd), ProjectContent::Odd) << text;
    TempFile("job.ovd.bak", "an older backup");
    SaveOver(odd);
    EXPECT_EQ(BytesOf(Backup()), odd);
  }
}

TEST_F(ProjectBackupTest, Blank_lines_at_the_end_are_nothing) {
  EXPECT_EQ(CheckProjectContent(Whole() + "\r\n"), ProjectContent::Whole);
  EXPECT_EQ(CheckProjectContent(Whole() + "\n \n\n"), ProjectContent::Whole);
  EXPECT_EQ(CheckProjectContent(Whole() + " "), ProjectContent::Cut);  // a line begun
}

TEST_F(ProjectBackupTest, A_file_of_another_catalogue_is_an_old_one) {
  SetCatalogue(1, 1);
  EXPECT_EQ(CheckProjectContent(Whole()), ProjectContent::Old);
  SetCatalogue(3, 2);
  EXPECT_EQ(CheckProjectContent(Whole()), ProjectContent::Old);
  SetCatalogue(0, 0);  // nothing tells how many there should be
  EXPECT_EQ(CheckProjectContent(Whole()), ProjectContent::Old);
  // A flag that the catalogue knows nothing of must be one all the same.
  SetCatalogue(1, 1);
  EXPECT_EQ(CheckProjectContent(Joined(With(SmallProjectLines(), line::LastFlag, "x"))),
            ProjectContent::Odd);
}

TEST_F(ProjectBackupTest, A_date_that_no_form_fits_makes_no_file_unsound) {
  EXPECT_EQ(CheckProjectContent(Joined(With(SmallProjectLines(), line::ProjectDate, "tomorrow"))),
            ProjectContent::Whole);
}

TEST_F(ProjectBackupTest, A_whole_file_replaces_the_backup) {
  TempFile("job.ovd.bak", "an older backup");
  SaveOver(Whole());
  EXPECT_EQ(BytesOf(Backup()), Whole());
}

TEST_F(ProjectBackupTest, A_half_written_file_never_replaces_a_backup) {
  TempFile("job.ovd.bak", "a good backup");
  for (std::size_t size = 0; size < Whole().size(); size += 7) {
    const std::string part = Whole().substr(0, size);
    if (CheckProjectContent(part) == ProjectContent::Old) continue;
    SaveOver(part);
    EXPECT_EQ(BytesOf(Backup()), "a good backup") << "cut behind " << size << " bytes";
  }
  for (int kept = 0; kept < line::Lines1End; ++kept) {
    SaveOver(Joined(First(SmallProjectLines(), kept)));
    EXPECT_EQ(BytesOf(Backup()), "a good backup") << "cut behind line " << kept;
  }
  for (int kept = line::Lines1End + 1; kept < line::Lines2End; ++kept) {
    SaveOver(Joined(First(SmallProjectLines(), kept)));
    EXPECT_EQ(BytesOf(Backup()), "a good backup") << "cut behind line " << kept;
  }
  SaveOver(Whole() + "no line end");
  EXPECT_EQ(BytesOf(Backup()), "a good backup");
}

TEST_F(ProjectBackupTest, A_half_written_file_makes_no_backup) {
  SaveOver(Whole().substr(0, Whole().size() / 2));
  EXPECT_FALSE(std::filesystem::exists(Backup()));
  SaveOver("");
  EXPECT_FALSE(std::filesystem::exists(Backup()));
}

TEST_F(ProjectBackupTest, A_file_that_ends_like_an_older_one_is_whole_for_the_backup) {
  const std::string old = Joined(First(SmallProjectLines(), line::Lines1End));
  SaveOver(old);
  EXPECT_EQ(BytesOf(Backup()), old);
  const std::string fewer = Joined(First(SmallProjectLines(), line::LastFlag - 1));
  SaveOver(fewer);
  EXPECT_EQ(BytesOf(Backup()), fewer);
  const std::string more = Joined(SmallProjectLines()) + " 0 \r\n-1 \r\n";
  SaveOver(more);
  EXPECT_EQ(BytesOf(Backup()), more);
}

TEST_F(ProjectBackupTest,
       A_file_that_opened_short_of_its_accessories_is_kept_before_the_next_save) {
  const std::string comma = Joined(With(SmallProjectLines(), line::Lines2Mark, "SL1, bay 2"));
  SaveOver(comma);
  EXPECT_EQ(BytesOf(Backup()), comma);
  SaveOver(Joined(With(SmallProjectLines(), line::Lines2Mark, "SL2, bay 3")));
  EXPECT_EQ(BytesOf(Backup()), comma);
}

TEST_F(ProjectBackupTest, A_backup_that_can_t_be_made_does_not_stop_the_saving) {
  std::filesystem::create_directory(Backup());
  SaveOver(Whole());
  EXPECT_EQ(saved,
            "Saved, but the version before is not kept as job.ovd.bak: a folder has that "
            "name");
  EXPECT_TRUE(std::filesystem::is_directory(Backup()));
  EXPECT_TRUE(std::filesystem::is_empty(Backup()));
}

TEST_F(ProjectBackupTest, A_link_or_a_pipe_of_the_backups_name_is_told_and_left_alone) {
  const std::string elsewhere = TempPath("elsewhere");
  std::filesystem::create_directory(elsewhere);
  TempFile("elsewhere/other.txt", "somebody's");
  std::filesystem::create_symlink("elsewhere/other.txt", Backup());
  TempFile("job.ovd", Whole());
  FillSmallProject();
  EXPECT_EQ(WriteProjectFile(Job()),
            "Saved, but the version before is not kept as job.ovd.bak: a link has that name");
  EXPECT_EQ(BytesOf(TempPath("elsewhere/other.txt")), "somebody's");
  EXPECT_TRUE(std::filesystem::is_symlink(Backup()));
  std::filesystem::remove(Backup());
  ASSERT_EQ(mkfifo(Backup().c_str(), 0600), 0);
  EXPECT_EQ(WriteProjectFile(Job()),
            "Saved, but the version before is not kept as job.ovd.bak: what has that name is no "
            "file");
  EXPECT_TRUE(std::filesystem::is_fifo(Backup()));
  EXPECT_EQ(BytesOf(Job()), Joined(SmallProjectLines()));
}

TEST_F(ProjectBackupTest, The_backup_of_a_private_job_is_private) {
  TempFile("job.ovd", Whole());
  TempFile("job.ovd.bak", "open to all");
  std::filesystem::permissions(Job(), std::filesystem::perms(0600));
  FillSmallProject();
  EXPECT_EQ(WriteProjectFile(Job()), "");
  EXPECT_EQ(std::filesystem::status(Backup()).permissions(), std::filesystem::perms(0600));
  EXPECT_EQ(std::filesystem::status(Job()).permissions(), std::filesystem::perms(0600));
  std::filesystem::remove(Backup());
  EXPECT_EQ(WriteProjectFile(Job()), "");
  EXPECT_EQ(std::filesystem::status(Backup()).permissions(), std::filesystem::perms(0600));
}

TEST_F(ProjectBackupTest, A_file_in_a_folder_that_takes_no_backup_is_not_written_in_its_place) {
  const std::string folder = TempPath("closed");
  std::filesystem::create_directory(folder);
  const std::string path = TempFile("closed/job.ovd", Whole());
  std::filesystem::permissions(path, std::filesystem::perms(0666));
  std::filesystem::permissions(folder, std::filesystem::perms(0555));
  FillSmallProject();
  EXPECT_EQ(AsOrdinaryUser([&] { return ErrorOf([&] { WriteProjectFile(path); }); }),
            "Permission denied. It can only be written in its place, and what it holds now is not "
            "kept first: Permission denied.\rSave under another name.");
  std::filesystem::permissions(folder, std::filesystem::perms(0755));
  EXPECT_EQ(BytesOf(path), Whole());
  EXPECT_FALSE(std::filesystem::exists(path + ".bak"));
}

TEST_F(ProjectBackupTest, A_file_that_can_be_written_but_not_read_is_saved_without_a_backup) {
  const std::string folder = TempPath("open");
  std::filesystem::create_directory(folder);
  std::filesystem::permissions(folder, std::filesystem::perms(0777));
  const std::string path = TempFile("open/job.ovd", Whole());
  std::filesystem::permissions(path, std::filesystem::perms(0222));
  FillSmallProject();
  EXPECT_EQ(AsOrdinaryUser([&]() -> std::string { return WriteProjectFile(path); }),
            "Saved, but the version before is not kept as job.ovd.bak: Permission denied");
  std::filesystem::permissions(path, std::filesystem::perms(0644));
  EXPECT_EQ(BytesOf(path), Joined(SmallProjectLines()));
  EXPECT_FALSE(std::filesystem::exists(path + ".bak"));
}

TEST_F(ProjectBackupTest, A_text_that_can_t_be_built_leaves_the_file_and_its_backup) {
  TempFile("job.ovd", Whole());
  TempFile("job.ovd.bak", "a good backup");
  FillSmallProject();
  Items.At(1).Holes.At(1).RelX = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }), "Overflow");
  FillSmallProject();
  AccLines1.Resize(40000);
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }), "Overflow");
  FillSmallProject();
  Items.At(2).Notches.Resize(32768);
  EXPECT_EQ(ErrorOf([&] { WriteProjectFile(Job()); }), "Overflow");
  EXPECT_EQ(BytesOf(Job()), Whole());
  EXPECT_EQ(BytesOf(Backup()), "a good backup");
}

TEST_F(ProjectBackupTest, A_failed_save_leaves_the_former_content_in_the_backup) {
  // A file that may be read but not written, in a folder that takes the backup.
  const std::string folder = TempPath("open");
  std::filesystem::create_directory(folder);
  std::filesystem::permissions(folder, std::filesystem::perms(0777));
  const std::string path = TempFile("open/job.ovd", Whole());
  std::filesystem::permissions(path, std::filesystem::perms(0444));
  FillSmallProject();
  EXPECT_EQ(AsOrdinaryUser([&] { return ErrorOf([&] { WriteProjectFile(path); }); }),
            "Permission denied");
  EXPECT_EQ(BytesOf(path), Whole());
  EXPECT_EQ(BytesOf(path + ".bak"), Whole());
}

}  // namespace

}  // namespace orvane
