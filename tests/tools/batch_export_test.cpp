#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/companion.h"

namespace orvane {

namespace {

using test::BytesOf;
using test::CamHeader;
using test::CreatedMoment;
using test::JobOf;
using test::Lines;
using test::Outcome;
using test::Purlin;
using test::PurlinBlock;
using test::SectionLines;
using test::SleeveList;
using test::SleeveTail;

class BatchExport : public test::CompanionTest {};

// The CAM file of a header and these lines.
std::string CamOf(const std::vector<std::string>& lines) {
  std::vector<std::string> all = CamHeader();
  all.insert(all.end(), lines.begin(), lines.end());
  return Lines(all);
}

// The text with its lines of a single blank emptied.
std::string WithoutBlankLines(std::string text) {
  const std::string blank = "\r\n \r\n";
  for (std::size_t at = 0; (at = text.find(blank, at)) != std::string::npos;) text.erase(at + 2, 1);
  return text;
}

const std::vector<std::string> SleeveBlock = {"SLEEVE", "S1", "Z20015", "10", ""};

// The lines of two blocks.
std::vector<std::string> Both(std::vector<std::string> first,
                              const std::vector<std::string>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST_F(BatchExport, A_job_with_sections_gives_the_CAM_file_alone) {
  File("a.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--created", CreatedMoment, "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Out, "");
  EXPECT_EQ(outcome.Err, "CAM export complete\n" + Path("a.xov") + "\n");
  EXPECT_EQ(BytesOf(Path("a.xov")), CamOf(PurlinBlock()));
  EXPECT_FALSE(Exists("a.xac"));
}

TEST_F(BatchExport, A_job_with_accessories_gives_the_list_beside_the_CAM_file) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  const Outcome outcome = Run({"--created", CreatedMoment, "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "CAM export complete\n" + Path("a.xov") + "\n" + Path("a.xac") + "\n");
  EXPECT_EQ(BytesOf(Path("a.xov")), CamOf(Both(PurlinBlock(), SleeveBlock)));
  EXPECT_EQ(BytesOf(Path("a.xac")), SleeveList());
}

TEST_F(BatchExport, An_empty_job_is_done_with_a_note_and_writes_nothing) {
  File("a.ovd", JobOf({}));
  const Outcome outcome = Run({"--out", "to", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "Nothing to export: the job has neither sections nor accessories\n");
  EXPECT_TRUE(std::filesystem::is_empty(Path("to")));
}

TEST_F(BatchExport, Without_a_moment_given_the_file_bears_the_present_one) {
  File("a.ovd", JobOf({Purlin()}));
  EXPECT_EQ(Run({"--cam", "a.ovd"}).Code, 0);
  const std::string cam = BytesOf(Path("a.xov"));
  const std::string head = "* Date:       05/03/24\r\n*\r\n* Created:    ";
  const std::size_t at = cam.find(head);
  ASSERT_NE(at, std::string::npos);
  const std::string created = cam.substr(at + head.size(), 24);
  EXPECT_EQ(cam.substr(at + head.size() + 24, 4), "\r\n\r\n");
  EXPECT_NE(created, "Tue Mar 05 2024 14:07:09");
  EXPECT_GE(created.substr(11, 4), "2024") << created;
}

TEST_F(BatchExport, The_out_folder_is_made_with_all_its_parents) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  EXPECT_EQ(Run({"--out", "deep/er/to", "--cam", "a.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("deep/er/to/a.xov"));
  EXPECT_TRUE(Exists("deep/er/to/a.xac"));
  EXPECT_FALSE(Exists("a.xov"));
}

TEST_F(BatchExport, A_point_in_the_out_folders_name_does_the_list_no_harm) {
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  EXPECT_EQ(Run({"--created", CreatedMoment, "--out", "out.v1", "--cam", "a.ovd"}).Code, 0);
  EXPECT_EQ(BytesOf(Path("out.v1/a.xac")), SleeveList());
  EXPECT_FALSE(Exists("out.xac"));
}

TEST_F(BatchExport, A_point_in_the_jobs_name_cuts_the_lists_name_there) {
  File("north.bay 2.ovd", JobOf({Purlin()}, SleeveTail()));
  EXPECT_EQ(Run({"--out", "to", "--cam", "north.bay 2.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("to/north.bay 2.xov"));
  EXPECT_TRUE(Exists("to/north.xac"));
}

TEST_F(BatchExport, Names_beyond_seven_bits_stay_as_they_are) {
  File("H\xc3\xbctte.ovd", JobOf({Purlin()}));
  const Outcome outcome = Run({"--out", "\xc3\xa4", "--cam", "H\xc3\xbctte.ovd"});
  EXPECT_EQ(outcome.Code, 0) << outcome.Err;
  EXPECT_TRUE(Exists("\xc3\xa4/H\xc3\xbctte.xov"));
}

TEST_F(BatchExport, Existing_factory_files_are_replaced_without_a_question) {
  File("a.ovd", JobOf({Purlin()}));
  File("a.xov", std::string(5000, '?'));
  EXPECT_EQ(Run({"--created", CreatedMoment, "--cam", "a.ovd"}).Code, 0);
  EXPECT_EQ(BytesOf(Path("a.xov")), CamOf(PurlinBlock()));
}

TEST_F(BatchExport, Two_jobs_are_exported_each_with_its_name_in_front_of_its_messages) {
  File("a.ovd", JobOf({Purlin()}));
  File("sub/b.ovd", JobOf({SectionLines("P7", "Z", "Z20015", "1000", "2", "Custom")}));
  const Outcome outcome =
      Run({"--created", CreatedMoment, "--out", "to", "--cam", "a.ovd", "sub/b.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err, "a.ovd: CAM export complete\na.ovd: " + Path("to/a.xov") +
                             "\nsub/b.ovd: CAM export complete\nsub/b.ovd: " + Path("to/b.xov") +
                             "\n");
  EXPECT_EQ(BytesOf(Path("to/a.xov")), CamOf(PurlinBlock()));
  EXPECT_EQ(BytesOf(Path("to/b.xov")),
            CamOf({"PURLIN", "P7", "Z20015", "2", "1000", "0", "0.0 0.0", "0", ""}));
}

TEST_F(BatchExport, A_job_sees_nothing_of_the_one_before_it) {
  // The second file is from before the type 2 accessories: it ends behind its type 1 lines, and the
  // flags of the accessories in use stay as they were. Those of the first job must not be there.
  File("a.ovd", JobOf({Purlin()}, SleeveTail()));
  File("b.ovd", JobOf({Purlin()}, {" 1 ", " 1 ", " 1 ", " 4 ", " 0 "}));
  EXPECT_EQ(Run({"--created", CreatedMoment, "--cam", "a.ovd", "b.ovd"}).Code, 0);
  EXPECT_TRUE(Exists("a.xac"));
  EXPECT_FALSE(Exists("b.xac"));
  EXPECT_EQ(BytesOf(Path("b.xov")), CamOf(PurlinBlock()));
}

TEST_F(BatchExport, A_refused_job_shows_the_lines_of_the_check) {
  File("a.ovd", JobOf({SectionLines("", "Z", "Z20015", "0", "0", "Pair"), Purlin(),
                       SectionLines("P3", "Z", "Z20015", "0", "1", "Pair")}));
  const Outcome outcome = Run({"--out", "to", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 1);
  EXPECT_EQ(outcome.Err,
            "a.ovd: Validation Errors\n"
            "a.ovd: Item 1:  No mark\n"
            "a.ovd: Item 1:  Zero length\n"
            "a.ovd: Item 1:  Zero quantity\n"
            "a.ovd: Item 3: P3 Zero length\n");
  EXPECT_TRUE(std::filesystem::is_empty(Path("to")));
}

TEST_F(BatchExport, A_missing_sleeve_is_asked_about_and_by_default_not_borne) {
  File("a.ovd", JobOf({SectionLines("P1", "Z", "Z20015", "6000", "5", "Sleeved")}));
  const std::string question =
      "Checking Data\n"
      "Item 1: P1 requires sleeves and none were found\n"
      "Do you wish to continue with the export? ";
  for (const std::vector<std::string>& choice :
       {std::vector<std::string>{}, std::vector<std::string>{"--sleeves", "no"}}) {
    std::vector<std::string> arguments = choice;
    arguments.insert(arguments.end(), {"--cam", "a.ovd"});
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err,
              question + "No\na.ovd: Validation Errors\na.ovd: Item 1: P1 No sleeves\n");
    EXPECT_FALSE(Exists("a.xov"));
  }
}

TEST_F(BatchExport, Yes_to_the_sleeves_goes_on_with_every_section) {
  File("a.ovd", JobOf({SectionLines("P1", "Z", "Z20015", "6000", "5", "Sleeved"),
                       SectionLines("P2", "Z", "Z20015", "6000", "5", "Sleeved")}));
  const Outcome outcome = Run({"--sleeves", "yes", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0);
  EXPECT_EQ(outcome.Err,
            "Checking Data\n"
            "Item 1: P1 requires sleeves and none were found\n"
            "Do you wish to continue with the export? Yes\n"
            "Checking Data\n"
            "Item 2: P2 requires sleeves and none were found\n"
            "Do you wish to continue with the export? Yes\n"
            "CAM export complete\n" +
                Path("a.xov") + "\n");
  EXPECT_TRUE(Exists("a.xov"));
}

TEST_F(BatchExport, Of_several_jobs_all_are_tried_and_the_worst_end_counts) {
  File("good.ovd", JobOf({Purlin()}));
  File("refused.ovd", JobOf({SectionLines("P1", "Z", "Z20015", "0", "5", "Pair")}));
  const Outcome outcome = Run({"--out", "to", "--cam", "refused.ovd", "missing.ovd", "good.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err,
            "refused.ovd: Validation Errors\n"
            "refused.ovd: Item 1: P1 Zero length\n"
            "missing.ovd: File not found\n"
            "good.ovd: CAM export complete\n"
            "good.ovd: " +
                Path("to/good.xov") + "\n");
  EXPECT_TRUE(Exists("to/good.xov"));
  EXPECT_EQ(Run({"--out", "to", "--cam", "good.ovd", "refused.ovd"}).Code, 1);
}

// On 100 mm the pattern's holes stand at 32, 68 and 68: its gaps are 32, 36, 0 and 32. Drawn at
// 1:10 with a separation of 4 mm none may be below 40, and the gap of 0 can't pay for the rest.
std::string CloseHoles() {
  return JobOf({SectionLines("P1", "Z", "Z20015", "100", "1", "Close")});
}

TEST_F(BatchExport, Before_any_drawing_the_gaps_are_left_alone) {
  File("a.ovd", CloseHoles());
  EXPECT_EQ(Run({"--cam", "a.ovd"}).Code, 0);
  EXPECT_EQ(Run({"--drawing-width", "0", "--cam", "a.ovd"}).Code, 0);
}

TEST_F(BatchExport, With_a_drawing_width_a_gap_that_cannot_be_widened_stops_the_export) {
  File("a.ovd", CloseHoles());
  const Outcome outcome = Run({"--drawing-width", "180", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 3);
  EXPECT_EQ(outcome.Err, "a.ovd: P1: Division by zero\n");
  EXPECT_FALSE(Exists("a.xov"));
}

TEST_F(BatchExport, The_settings_file_gives_the_least_separation_and_is_not_written) {
  File("a.ovd", CloseHoles());
  const std::string settings =
      "[SOFTWARE\\Lintaro\\Settings]\n"
      "CAMDirectory=/desk/cam/\n"
      "[SOFTWARE\\Lintaro\\Settings\\Drawings]\n"
      "MinHoleSep=3\n";
  File("set.txt", settings);
  // With 3 mm the least gap is 30: nothing is to be widened.
  const Outcome outcome =
      Run({"--drawing-width", "180", "--settings", "set.txt", "--out", "to", "--cam", "a.ovd"});
  EXPECT_EQ(outcome.Code, 0) << outcome.Err;
  EXPECT_EQ(BytesOf(Path("set.txt")), settings);
}

TEST_F(BatchExport, Resave_writes_the_job_again_to_the_byte) {
  const std::string job = JobOf({Purlin()}, SleeveTail());
  File("a.ovd", job);
  const Outcome alone = Run({"--resave", "b.ovd", "a.ovd"});
  EXPECT_EQ(alone.Code, 0);
  EXPECT_EQ(alone.Err, "");
  EXPECT_EQ(BytesOf(Path("b.ovd")), job);
  EXPECT_FALSE(Exists("a.xov"));

  // Together with an export, whose fresh holes are no part of what is saved; and a relative path is
  // meant from where the companion was started.
  EXPECT_EQ(Run({"--out", "to", "--resave", "sub.ovd", "--cam", "a.ovd"}).Code, 0);
  EXPECT_EQ(BytesOf(Path("sub.ovd")), job);
  EXPECT_TRUE(Exists("to/a.xov"));
}

TEST_F(BatchExport, Resave_over_the_job_itself_keeps_the_former_content_beside_it) {
  // An earlier version's stamp is not looked at; saving writes the present one.
  std::string old = JobOf({Purlin()});
  old.replace(0, 6, "v1.03:");
  File("a.ovd", old);
  EXPECT_EQ(Run({"--resave", "a.ovd", "a.ovd"}).Code, 0);
  EXPECT_EQ(BytesOf(Path("a.ovd")), JobOf({Purlin()}));
  EXPECT_EQ(BytesOf(Path("a.ovd.bak")), old);
}

TEST_F(BatchExport, A_pipe_is_a_job_and_is_read_once) {
  const std::string job = JobOf({Purlin()}, SleeveTail());
  File("a.txt", job);
  const std::string command = "cat a.txt | " ORVANE_BATCH " --catalogue '" + catalogue +
                              "' --created " + CreatedMoment + " --out to --cam /dev/stdin";
  const Outcome outcome = RunProgram("/bin/sh", {"-c", command});
  EXPECT_EQ(outcome.Code, 0) << outcome.Err;
  EXPECT_EQ(BytesOf(Path("to/stdin.xov")), CamOf(Both(PurlinBlock(), SleeveBlock)));
  EXPECT_EQ(BytesOf(Path("to/stdin.xac")), SleeveList());

  // What comes through a pipe is gone: a second look would find nothing, or wait for ever.
  ASSERT_EQ(mkfifo(Path("b.ovd").c_str(), 0600), 0);
  const std::string through = "cat a.txt > b.ovd & " ORVANE_BATCH " --catalogue '" + catalogue +
                              "' --created " + CreatedMoment + " --cam b.ovd";
  EXPECT_EQ(RunProgram("/bin/sh", {"-c", through}).Code, 0);
  EXPECT_EQ(BytesOf(Path("b.xov")), CamOf(Both(PurlinBlock(), SleeveBlock)));
}

TEST_F(BatchExport, A_job_from_another_office_is_read_by_the_form_of_its_date) {
  std::string job = JobOf({Purlin()});
  job.replace(job.find("05/03/2024"), 10, "3-5-2024");
  File("a.ovd", job);
  const Outcome unread = Run({"--created", "2026-11-22T06:00:00", "--cam", "a.ovd"});
  EXPECT_EQ(unread.Code, 0);
  EXPECT_EQ(unread.Err,
            "The date \"3-5-2024\" can't be read; today's is in its place\n"
            "CAM export complete\n" +
                Path("a.xov") + "\n");
  EXPECT_NE(BytesOf(Path("a.xov")).find("* Date:       22/11/26\r\n"), std::string::npos);

  EXPECT_EQ(Run({"--date-form", "M-d-yyyy", "--cam", "a.ovd"}).Code, 0);
  EXPECT_NE(BytesOf(Path("a.xov")).find("* Date:       05/03/24\r\n"), std::string::npos);
  EXPECT_EQ(Run({"--date-form", "d-M-yyyy", "--cam", "a.ovd"}).Code, 0);
  EXPECT_NE(BytesOf(Path("a.xov")).find("* Date:       03/05/24\r\n"), std::string::npos);
}

TEST_F(BatchExport, Several_jobs_at_a_time_give_the_same_files_and_words_in_the_same_order) {
  std::vector<std::string> jobs;
  for (int number = 1; number <= 23; ++number) {
    const std::string name = "jobs/j" + std::to_string(100 + number) + ".ovd";
    const std::string length = std::to_string(number % 7 == 0 ? 0 : 1000 + number);
    std::string job =
        JobOf({SectionLines("P" + std::to_string(number), "Z", "Z20015", length, "1", "Pair")});
    if (number % 5 == 0) job.resize(job.size() / 2);
    File(name, job);
    jobs.push_back(name);
  }
  jobs.insert(jobs.begin() + 3, "jobs/missing.ovd");
  const auto run = [&](const std::string& out, const std::string& workers) {
    std::vector<std::string> arguments = {"--created", CreatedMoment, "--jobs", workers,
                                          "--out",     out,           "--cam"};
    arguments.insert(arguments.end(), jobs.begin(), jobs.end());
    return Run(arguments);
  };
  const Outcome one = run("one", "1");
  EXPECT_EQ(one.Code, 3);
  for (const std::string workers : {"2", "5", "200"}) {
    std::filesystem::remove_all(Path("many"));
    Outcome many = run("many", workers);
    for (std::size_t at = 0; (at = many.Err.find("/many/")) != std::string::npos;) {
      many.Err.replace(at, 6, "/one/");
    }
    EXPECT_EQ(many.Code, 3);
    EXPECT_EQ(many.Err, one.Err) << workers;
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Path("one"))) {
      const std::string name = entry.path().filename().string();
      EXPECT_EQ(BytesOf(Path("many/" + name)), BytesOf(Path("one/" + name))) << name;
      ++files;
    }
    EXPECT_EQ(files, 23 - 3 - 4);  // without the sections of no length and the jobs cut off
  }
}

TEST_F(BatchExport, The_sample_jobs_give_the_factory_files_that_lie_beside_them) {
  const std::string samples = ORVANE_SOURCE_DIR "/samples/";
  const std::vector<std::string> names = {"cladding", "mezzanine", "portal-shed"};
  std::vector<std::string> arguments = {"--created", "2026-03-02T08:15:00", "--out", "to", "--cam"};
  for (const std::string& name : names) arguments.push_back(samples + name + ".ovd");
  EXPECT_EQ(RunProgram(ORVANE_BATCH, arguments).Code, 0);
  for (const std::string& name : names) {
    EXPECT_EQ(BytesOf(Path("to/" + name + ".xov")), BytesOf(samples + name + ".xov")) << name;
    EXPECT_EQ(BytesOf(Path("to/" + name + ".xac")), BytesOf(samples + name + ".xac")) << name;
    // A pattern hole that isn't countersunk is saved as one blank, and the blank is lost on
    // opening.
    const std::string job = samples + name + ".ovd";
    EXPECT_EQ(RunProgram(ORVANE_BATCH, {"--resave", "again.ovd", job}).Code, 0);
    EXPECT_EQ(BytesOf(Path("again.ovd")), WithoutBlankLines(BytesOf(job))) << name;
  }
}

}  // namespace

}  // namespace orvane
