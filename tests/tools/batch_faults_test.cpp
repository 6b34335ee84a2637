#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

using test::BytesOf;
using test::CamHeader;
using test::CreatedMoment;
using test::JobOf;
using test::Lines;
using test::Outcome;
using test::Purlin;
using test::RunAs;
using test::SleeveTail;

class BatchFaults : public test::CompanionTest {};

TEST_F(BatchFaults, A_missing_job_is_named_with_the_systems_description) {
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: File not found\n");
  EXPECT_EQ(Run({"--cam", "nowhere/a.ovd"}).Err, "nowhere/a.ovd: Path not found\n");
}

TEST_F(BatchFaults, A_folder_in_the_place_of_a_job_is_a_fault) {
  fs::create_directories(Path("a.ovd"));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Is a directory\n");
}

TEST_F(BatchFaults, A_job_that_is_cut_off_is_not_exported) {
  const std::string whole = JobOf({Purlin()});
  File("a.ovd", whole.substr(0, whole.find("Z20015")));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Input past end of file\n");
  EXPECT_FALSE(Exists("a.xov"));
}

TEST_F(BatchFaults, A_job_with_a_faulty_number_is_neither_exported_nor_saved_again) {
  std::string job = JobOf({Purlin()});
  job.replace(job.find(" 6000 "), 6, " long ");
  File("a.ovd", job);
  const Outcome outcome = Run({"--resave", "b.ovd", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Type mismatch\n");
  EXPECT_FALSE(Exists("a.xov"));
  EXPECT_FALSE(Exists("b.ovd"));
}

TEST_F(BatchFaults, Usage_faults_end_with_2_and_touch_nothing) {
  File("a.ovd", JobOf({Purlin()}));
  File("x/a.ovd", JobOf({Purlin()}));
  const Outcome clash = Run({"--out", "to", "--cam", "a.ovd", "x/a.ovd"});
  EXPECT_EQ(clash.Code, 2);
  EXPECT_EQ(clash.Out, "");
  EXPECT_EQ(clash.Err,
            "orvane-batch: a.ovd and x/a.ovd would both write a.xov\n"
            "Try orvane-batch --help.\n");
  EXPECT_FALSE(Exists("to"));
  EXPECT_EQ(Run({"a.ovd"}).Code, 2);
  EXPECT_EQ(RunProgram(ORVANE_BATCH, {}).Code, 2);
}

TEST_F(BatchFaults, An_export_never_writes_over_what_it_was_given) {
  File("a.xac", JobOf({Purlin()}, SleeveTail()));
  const Outcome job = Run({"--cam", "a.xac"});
  EXPECT_EQ(job.Code, 2);
  EXPECT_EQ(job.Err,
            "orvane-batch: the factory files of a.xac would overwrite a.xac\n"
            "Try orvane-batch --help.\n");
  EXPECT_EQ(BytesOf(Path("a.xac")), JobOf({Purlin()}, SleeveTail()));

  File("b.ovd", JobOf({Purlin()}));
  fs::create_directories(Path("to"));
  fs::create_directory_symlink(Path("to"), Path("same"));
  EXPECT_EQ(Run({"--out", "to", "--resave", "same/b.xov", "--cam", "b.ovd"}).Code, 2);
  EXPECT_EQ(Run({"--out", "to", "--resave", "b.xov", "--cam", "b.ovd"}).Code, 0);
}

TEST_F(BatchFaults, A_job_written_again_never_destroys_what_the_run_was_given) {
  const std::string job = JobOf({Purlin()});
  File("a.ovd", job);
  File("set.txt", "[SOFTWARE\\Lintaro\\Settings]\n");
  const Outcome settings = Run({"--settings", "set.txt", "--resave", "./set.txt", "a.ovd"});
  EXPECT_EQ(settings.Code, 2);
  EXPECT_EQ(settings.Err,
            "orvane-batch: --resave would overwrite set.txt\nTry orvane-batch --help.\n");
  EXPECT_EQ(BytesOf(Path("set.txt")), "[SOFTWARE\\Lintaro\\Settings]\n");

  const std::string dims = BytesOf(catalogue + "/dims.csv");
  EXPECT_EQ(Run({"--resave", "../catalogue/dims.csv", "a.ovd"}).Code, 2);
  EXPECT_EQ(BytesOf(catalogue + "/dims.csv"), dims);

  // A save over a.ovd would first put its content where the backup lies.
  File("a.ovd.bak", JobOf({}));
  const Outcome backup = Run({"--resave", "a.ovd", "a.ovd.bak"});
  EXPECT_EQ(backup.Code, 2);
  EXPECT_EQ(backup.Err,
            "orvane-batch: --resave would overwrite a.ovd.bak, the backup of its file\n"
            "Try orvane-batch --help.\n");
  EXPECT_EQ(BytesOf(Path("a.ovd")), job);
  EXPECT_EQ(BytesOf(Path("a.ovd.bak")), JobOf({}));
}

TEST_F(BatchFaults, A_job_whose_accessories_are_cut_off_is_told_of) {
  const std::string tail = "a.ovd: read, but accessory lines or marks may be missing at its end\n";
  // The last flag is gone, and with it the only one that was set.
  std::string job = JobOf({Purlin()}, SleeveTail());
  File("a.ovd", job.substr(0, job.size() - std::string("-1 \r\n").size()));
  const Outcome cut = Run({"--cam", "a.ovd"});
  EXPECT_EQ(cut.Code, 0);
  EXPECT_EQ(cut.Err, tail +
                         "CAM export complete\n"
                         "No accessory list: none of the job's accessories is marked as used\n");
  EXPECT_TRUE(Exists("a.xov"));
  EXPECT_FALSE(Exists("a.xac"));

  // A comma in an accessory's mark ends the value there and puts what follows out of step: the
  // sleeves are left without their product.
  job.replace(job.find("S1"), 2, "S1, bay 2");
  File("b.ovd", job);
  const Outcome comma = Run({"--cam", "b.ovd"});
  EXPECT_EQ(comma.Code, 3);
  EXPECT_EQ(comma.Err,
            "b.ovd: read, but accessory lines or marks may be missing at its end\n"
            "Sleeves S1: Subscript out of range\n");
}

TEST_F(BatchFaults, An_out_folder_that_cannot_be_made_is_a_fault) {
  File("a.ovd", JobOf({Purlin()}));
  File("to", "a file");
  const Outcome file = Run({"--out", "to", "--cam", "a.ovd"});
  EXPECT_EQ(file.Code, 3);
  EXPECT_EQ(file.Err, "to: Path not found\n");
  const Outcome below = Run({"--out", "to/deeper", "--cam", "a.ovd"});
  EXPECT_EQ(below.Code, 3);
  EXPECT_EQ(below.Err, "to/deeper: Path not found\n");
}

TEST_F(BatchFaults, A_read_only_out_folder_refuses_an_ordinary_user) {
  const std::string program = Install("catalogue");
  File("a.ovd", JobOf({Purlin()}));
  fs::create_directories(Path("locked"));
  fs::permissions(Path("locked"), fs::perms(0555));

  const Outcome inside =
      RunProgram(program, {"--out", "locked", "--cam", "a.ovd"}, RunAs::OrdinaryUser);
  EXPECT_EQ(inside.Code, 3);
  EXPECT_EQ(inside.Err, "Permission denied\n");
  EXPECT_TRUE(fs::is_empty(Path("locked")));

  const Outcome below =
      RunProgram(program, {"--out", "locked/new", "--cam", "a.ovd"}, RunAs::OrdinaryUser);
  EXPECT_EQ(below.Code, 3);
  EXPECT_EQ(below.Err, "locked/new: Permission denied\n");
}

TEST_F(BatchFaults, A_job_that_an_ordinary_user_may_not_read_is_a_fault) {
  const std::string program = Install("catalogue");
  File("a.ovd", JobOf({Purlin()}));
  fs::permissions(Path("a.ovd"), fs::perms(0000));
  const Outcome outcome = RunProgram(program, {"--cam", "a.ovd"}, RunAs::OrdinaryUser);
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: Permission denied\n");
}

TEST_F(BatchFaults, A_full_disk_ends_the_export_with_its_description) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  fs::create_symlink("/dev/full", Path("a.xov"));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "Disk full\n");
  EXPECT_FALSE(Exists("a.xac"));
}

TEST_F(BatchFaults, A_list_that_cannot_be_written_is_a_fault_although_the_export_goes_on) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  fs::create_directories(Path("a.xac"));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "Is a directory\nCAM export complete\n");
  EXPECT_TRUE(Exists("a.xov"));
}

TEST_F(BatchFaults, A_value_that_cannot_be_exported_leaves_the_file_as_far_as_it_came) {
  // Ten of a sleeve whose product is missing among its values.
  File("a.ovd", JobOf({}, {" 0 ", " 1 ", " 6 ", "S1", " 10 ", " 0 ",  //
                           " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", "-1 "}));
  const Outcome outcome = Run({"--created", CreatedMoment, "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "Sleeves S1: Subscript out of range\n");
  EXPECT_EQ(BytesOf(Path("a.xov")), Lines(CamHeader()));
}

TEST_F(BatchFaults, A_resave_that_fails_does_not_keep_the_export_back) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--resave", "nowhere/b.ovd", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "nowhere/b.ovd: Path not found\nCAM export complete\n");
  EXPECT_TRUE(Exists("a.xov"));

  const Outcome full = Run({"--resave", "/dev/full", "a.ovd"});
  EXPECT_EQ(full.Code, 3);
  EXPECT_EQ(full.Err, "/dev/full: Disk full\n");
}

TEST_F(BatchFaults, A_setting_that_no_value_can_hold_is_a_fault_of_the_settings_file) {
  File("a.ovd", JobOf({Purlin()}));
  File("set.txt", "[SOFTWARE\\Lintaro\\Settings\\PageSetup]\nTopMargin=99999\n");
  const Outcome outcome = Run({"--settings", "set.txt", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "set.txt: Overflow\n");
  EXPECT_FALSE(Exists("a.xov"));
}

TEST_F(BatchFaults, A_settings_file_that_is_not_there_is_a_fault) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--settings", "set.txt", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "set.txt: File not found\n");
  EXPECT_FALSE(Exists("a.xov"));
}

}  // namespace

}  // namespace orvane
