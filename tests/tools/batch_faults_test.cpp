#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

namespace fs = std::filesystem;

using test::BytesOf;
using test::CreatedMoment;
using test::JobOf;
using test::Outcome;
using test::Purlin;
using test::RunAs;
using test::SectionLines;
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
  const Outcome none = Run({"--out", "to", "a.ovd"});
  EXPECT_EQ(none.Code, 2);
  EXPECT_EQ(none.Out, "");
  EXPECT_EQ(none.Err,
            "orvane-batch: none of --cam, --sheets, --svg, --accessory-sheets, --summary, "
            "--section-list, --cutting-list, --check, --check-csv, --check-catalogue, --compare, "
            "--resave and --import is given\nTry "
            "orvane-batch --help.\n");
  EXPECT_FALSE(Exists("to"));
  EXPECT_EQ(RunProgram(ORVANE_BATCH, {}).Code, 2);
}

TEST_F(BatchFaults, Jobs_that_would_write_one_list_are_refused_by_name_and_the_others_done) {
  for (const char* name : {"north.v1.ovd", "north.v2.ovd", "south.ovd"}) {
    File(name, JobOf({Purlin()}, SleeveTail()));
  }
  const Outcome outcome =
      Run({"--out", "to", "--cam", "north.v1.ovd", "south.ovd", "north.v2.ovd"});
  EXPECT_EQ(outcome.Code, 2);
  EXPECT_EQ(outcome.Err,
            "north.v1.ovd: not done, since north.v2.ovd would write north.xac too\n"
            "south.ovd: CAM export complete\n"
            "south.ovd: " +
                Path("to/south.xov") + "\nsouth.ovd: " + Path("to/south.xac") + "\n" +
                "north.v2.ovd: not done, since north.v1.ovd would write north.xac too\n");
  EXPECT_FALSE(Exists("to/north.v1.xov"));
  EXPECT_FALSE(Exists("to/north.xac"));
}

TEST_F(BatchFaults, Jobs_whose_results_are_links_to_one_file_are_refused_too) {
  for (const char* name : {"north.ovd", "south.ovd", "west.ovd"}) File(name, JobOf({Purlin()}));
  File("to/line.xov", "the former file");
  fs::create_symlink("line.xov", Path("to/north.xov"));
  fs::create_symlink(Path("to/line.xov"), Path("to/south.xov"));
  const Outcome outcome = Run({"--out", "to", "--cam", "north.ovd", "south.ovd", "west.ovd"});
  EXPECT_EQ(outcome.Code, 2);
  EXPECT_EQ(outcome.Err,
            "north.ovd: not done, since south.ovd would write north.xov too\n"
            "south.ovd: not done, since north.ovd would write south.xov too\n"
            "west.ovd: CAM export complete\n"
            "west.ovd: " +
                Path("to/west.xov") + "\n");
  EXPECT_EQ(BytesOf(Path("to/line.xov")), "the former file");
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

TEST_F(BatchFaults, A_job_that_was_cut_or_damaged_behind_its_sections_is_not_exported) {
  const std::string whole = JobOf({Purlin()}, SleeveTail());
  const auto without = [&](std::size_t bytes) { return whole.substr(0, whole.size() - bytes); };
  const auto with = [&](const std::string& what, const std::string& instead) {
    std::string job = whole;
    return job.replace(job.rfind(what), what.size(), instead);
  };
  const std::vector<std::string> damaged = {
      without(1),                                  // half a line end
      without(2),                                  // no line end
      without(std::string("\r\n-1 \r\n").size()),  // ...nor at an older end
      with("-1 \r\n", " 7 \r\n"),                  // a flag that is none
      with("-1 \r\n", "x\r\n"),                    //
      whole.substr(0, whole.find("S1") + 4),       // a block that was begun
      whole.substr(0, whole.find(" 6 \r\n")),      // a count without its block
      with("S1", "S1, bay 2"),                     // a comma, and all out of step
  };
  for (const std::string& job : damaged) {
    File("a.ovd", job);
    const Outcome outcome = Run({"--cam", "--resave", "b.ovd", "a.ovd"});
    EXPECT_EQ(outcome.Code, 3) << job;
    EXPECT_EQ(outcome.Err,
              "a.ovd: not done, since it is cut off or damaged behind its sections; --allow-cut "
              "takes it as it is\n")
        << job;
    EXPECT_FALSE(Exists("a.xov"));
    EXPECT_FALSE(Exists("a.xac"));
    EXPECT_FALSE(Exists("b.ovd"));
  }
}

TEST_F(BatchFaults, Who_allows_it_gets_a_cut_job_as_far_as_it_goes) {
  const std::string tail = "a.ovd: read, but accessory lines or marks may be missing at its end\n";
  std::string job = JobOf({Purlin()}, SleeveTail());
  File("a.ovd", job.substr(0, job.size() - 2));
  const Outcome cut = Run({"--allow-cut", "--cam", "a.ovd"});
  EXPECT_EQ(cut.Code, 0);
  EXPECT_EQ(cut.Err, tail + "CAM export complete\n" + Path("a.xov") + "\n" + Path("a.xac") + "\n");

  // A comma in an accessory's mark ends the value there and puts what follows out of step: the
  // sleeves are left without their product.
  job.replace(job.find("S1"), 2, "S1, bay 2");
  File("b.ovd", job);
  const Outcome comma = Run({"--allow-cut", "--cam", "b.ovd"});
  EXPECT_EQ(comma.Code, 3);
  EXPECT_EQ(comma.Err, "b.ovd: read, but accessory lines or marks may be missing at its end\n" +
                           Path("b.xov") + ": Sleeves S1: Subscript out of range\n");
}

TEST_F(BatchFaults, A_job_that_ends_as_older_ones_do_is_exported_with_a_quiet_line) {
  const std::string older =
      "An older job: its accessory marks are not as many as the catalogue's accessories\n";
  const std::string whole = JobOf({Purlin()}, SleeveTail());
  // Without the flag of the sleeves, and with one more than the catalogue has accessories.
  File("a.ovd", whole.substr(0, whole.size() - std::string("-1 \r\n").size()));
  const Outcome fewer = Run({"--cam", "a.ovd"});
  EXPECT_EQ(fewer.Code, 0);
  EXPECT_EQ(fewer.Err,
            older + "CAM export complete\n" + Path("a.xov") +
                "\nNo accessory list: none of the job's accessories is marked as used\n");
  File("b.ovd", whole + " 0 \r\n");
  const Outcome more = Run({"--cam", "b.ovd"});
  EXPECT_EQ(more.Code, 0);
  EXPECT_EQ(more.Err,
            "1 accessory mark of this job isn't in the catalogue: it is kept, but can't be shown "
            "or edited\nCAM export complete\n" +
                Path("b.xov") + "\n" + Path("b.xac") + "\n");
  // From before the type 2 accessories.
  File("c.ovd", JobOf({Purlin()}, {" 0 "}));
  const Outcome before = Run({"--cam", "c.ovd"});
  EXPECT_EQ(before.Code, 0);
  EXPECT_EQ(before.Err, older + "CAM export complete\n" + Path("c.xov") + "\n");
}

TEST_F(BatchFaults, A_job_cut_within_a_letter_keeps_the_letters_before_it) {
  std::string job = JobOf({SectionLines("P\xC3\xBC", "Z", "Z20015", "6000", "5", "Pair")},
                          {" 1 ", " 1 ", " 1 ", " 4 ", " 0 \xC3"});
  job.resize(job.size() - 2);
  File("a.ovd", job);
  EXPECT_EQ(Run({"--allow-cut", "--cam", "a.ovd"}).Code, 0);
  EXPECT_NE(BytesOf(Path("a.xov")).find("\r\nP\xFC\r\n"), std::string::npos);
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
  EXPECT_EQ(inside.Err, Path("locked/a.xov") + ": Permission denied\n");
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

TEST_F(BatchFaults, A_device_or_a_pipe_under_a_results_name_is_told_and_not_waited_for) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  fs::create_symlink("/dev/full", Path("a.xov"));
  const Outcome device = Run({"--cam", "a.ovd"});
  EXPECT_EQ(device.Code, 3);
  EXPECT_EQ(device.Err, Path("a.xov") + ": Not a regular file\n");
  EXPECT_FALSE(Exists("a.xac"));
  fs::remove(Path("a.xov"));
  ASSERT_EQ(mkfifo(Path("a.xov").c_str(), 0600), 0);
  EXPECT_EQ(Run({"--cam", "a.ovd"}).Err, Path("a.xov") + ": Not a regular file\n");
  EXPECT_TRUE(fs::is_fifo(Path("a.xov")));
}

TEST_F(BatchFaults, A_list_that_cannot_be_written_is_a_fault_although_the_export_goes_on) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  fs::create_directories(Path("a.xac"));
  const Outcome outcome = Run({"--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, Path("a.xac") + ": Is a directory\n" +
                             "CAM file written, accessory list failed\n" + Path("a.xov") + "\n");
  EXPECT_TRUE(Exists("a.xov"));
}

TEST_F(BatchFaults, A_value_that_cannot_be_exported_leaves_the_former_file) {
  // Ten of a sleeve whose product is missing among its values.
  File("a.xov", "the former file");
  File("a.ovd", JobOf({}, {" 0 ", " 1 ", " 6 ", "S1", " 10 ", " 0 ",  //
                           " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", "-1 "}));
  const Outcome outcome = Run({"--created", CreatedMoment, "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, Path("a.xov") + ": Sleeves S1: Subscript out of range\n");
  EXPECT_EQ(BytesOf(Path("a.xov")), "the former file");
}

TEST_F(BatchFaults, A_resave_that_fails_does_not_keep_the_export_back) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--resave", "nowhere/b.ovd", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err,
            "nowhere/b.ovd: Path not found\nCAM export complete\n" + Path("a.xov") + "\n");
  EXPECT_TRUE(Exists("a.xov"));

  const Outcome full = Run({"--resave", "/dev/full", "a.ovd"});
  EXPECT_EQ(full.Code, 3);
  EXPECT_EQ(full.Err, "/dev/full: Not a regular file\n");
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
