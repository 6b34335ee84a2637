// Errors that end an export, and what they leave behind.
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "tests/output/export_fixture.h"
#include "tests/support/failing_disk.h"

namespace orvane {

namespace {

using namespace test;
namespace fs = std::filesystem;

TEST_F(ExportRunTest, A_faulty_number_off_leaves_the_former_file_and_no_list) {
  AddChannel();
  AccLines2.Append(MakeLine2(8, "V1", 3, {"3 off", "0", "3000", "10", "10", "KT31", "KT31"}));
  AccUsed.At(8) = True;
  const std::string path = TempFile("a.xov", std::string(10000, 'x'));
  EXPECT_EQ(Export(path), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Accessory 8 V1: Type mismatch"}));
  EXPECT_EQ(BytesOf(path), std::string(10000, 'x'));
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, An_unknown_cleat_says_where_it_stands) {
  AddChannel();
  AccLines2.Append(MakeLine2(8, "V1", 3, {"3", "0", "3000", "10", "10", "", "KT31"}));
  AccUsed.At(8) = True;
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Accessory 8 V1: unknown cleat code \"\""}));
  EXPECT_EQ(Files(), TextList{});
}

TEST_F(ExportRunTest, A_missing_folder_ends_the_export_with_its_description) {
  AddChannel();
  AddListedAccessory();
  const std::string path = TempPath("no such folder/a.xov");
  EXPECT_EQ(Export(path), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Path not found"}));
  EXPECT_EQ(CamDirectorySetting(), path.substr(0, path.size() - 5));
  EXPECT_EQ(Files(), TextList{});
}

TEST_F(ExportRunTest, A_folder_under_the_files_name_ends_the_export) {
  AddChannel();
  AddListedAccessory();
  fs::create_directory(TempPath("a.xov"));
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Is a directory"}));
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, A_device_or_a_pipe_under_the_files_name_ends_the_export) {
  AddChannel();
  AddListedAccessory();
  EXPECT_EQ(Export("/dev/full"), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Not a regular file"}));
  EXPECT_FALSE(fs::exists("/dev/full.xac"));
  ASSERT_EQ(mkfifo(TempPath("a.xov").c_str(), 0600), 0);
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Not a regular file"}));
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, A_full_disk_ends_the_export) {
  AddChannel();
  AddListedAccessory();
  const std::string path = TempFile("a.xov", "the former file");
  const FailingDisk disk({3, ENOSPC, true});  // opened, made, and nothing fits
  EXPECT_EQ(Export(path), ExportOutcome::Failed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Disk full"}));
  EXPECT_EQ(BytesOf(path), "the former file");
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, After_any_fault_of_the_disk_each_factory_file_is_whole) {
  AddChannel();
  AddListedAccessory();
  ExportOutcome outcome = ExportOutcome::Done;
  const std::string formerCam(100000, 'c');
  const auto prepare = [&] {
    TempFile("a.xov", formerCam);
    TempFile("a.xac", "former list");
  };
  ForEachFault(
      prepare, [&] { outcome = Export(TempPath("a.xov")); },
      [&](const Fault& fault, const FailingDisk& disk) {
        const std::string where = "call " + std::to_string(fault.Call) + ", error " +
                                  std::to_string(fault.Error) + (fault.Stays ? ", stays" : "");
        const std::string cam = BytesOf(TempPath("a.xov"));
        const std::string list = BytesOf(TempPath("a.xac"));
        EXPECT_TRUE(cam == formerCam || cam == CamHeader + ChannelBlock) << where;
        EXPECT_TRUE(list == "former list" || list == ListHeader + ListBlock) << where;
        EXPECT_EQ(Files(), (TextList{"a.xac", "a.xov"})) << where;
        // Nobody is hurt by a former file that was looked at and couldn't be closed.
        const bool looked = disk.Calls.at(static_cast<std::size_t>(fault.Call - 1)) == "close";
        EXPECT_TRUE(outcome != ExportOutcome::Done || looked || fault.Heals()) << where;
        if (outcome == ExportOutcome::Done) {
          EXPECT_EQ(cam + list, CamHeader + ChannelBlock + ListHeader + ListBlock) << where;
        } else {
          EXPECT_GE(trace.size(), 2U) << where;
        }
      });
}

TEST_F(ExportRunTest, A_read_only_folder_ends_the_export) {
  AddChannel();
  AddListedAccessory();
  const std::string path = TempPath("a.xov");
  fs::permissions(fs::path(path).parent_path(), fs::perms(0555));
  const std::string seen = AsOrdinaryUser([&] {
    const bool failed = Export(path) == ExportOutcome::Failed;
    std::string text = failed ? "failed" : "not failed";
    for (const std::string& event : trace) text += "; " + event;
    return text;
  });
  fs::permissions(fs::path(path).parent_path(), fs::perms(0755));
  EXPECT_EQ(seen, "failed; open dialog; message: Permission denied");
  EXPECT_EQ(Files(), TextList{});
}

TEST_F(ExportRunTest, A_list_that_fails_alone_says_nothing_of_a_CAM_file) {
  AddListedAccessory();
  fs::create_directory(TempPath("a.xac"));
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::ListFailed);
  EXPECT_EQ(trace,
            (TextList{"open dialog", "message: Is a directory", "message: Accessory list failed"}));
}

TEST_F(ExportRunTest, A_list_that_cant_be_written_shows_its_error_and_that_it_failed) {
  AddChannel();
  AddListedAccessory();
  fs::create_directory(TempPath("a.xac"));
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::ListFailed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Is a directory", ListFailed()}));
  EXPECT_EQ(BytesOf(TempPath("a.xov")), CamHeader + ChannelBlock);
}

TEST_F(ExportRunTest, A_faulty_line_of_the_list_shows_its_error_and_that_it_failed) {
  AddChannel();
  AddListedAccessory();
  AccLines1.Append(MakeLine1(99, 1, 1));
  EXPECT_EQ(Export(TempPath("a.xov")), ExportOutcome::ListFailed);
  EXPECT_EQ(trace, (TextList{"open dialog", "message: Accessory 99: Subscript out of range",
                             ListFailed()}));
  EXPECT_EQ(Files(), TextList{"a.xov"});
}

TEST_F(ExportRunTest, An_error_of_the_check_is_shown_and_ends_the_export) {
  Item item = MakeItem("Z", "P1", 6000);
  item.PatternName = "Sleeved";
  Items.Append(item);
  AccLines2.Append(MakeLine2(6, "S1", 1, {}));
  trace.clear();
  EXPECT_EQ(RunExport(), ExportOutcome::Failed);
  EXPECT_EQ(trace, TextList{"message: Accessory 6 S1: Subscript out of range"});
}

TEST_F(ExportRunTest, The_list_is_named_by_the_first_point_of_the_whole_path) {
  AddChannel();
  AddListedAccessory();
  fs::create_directory(TempPath("v1.2"));
  EXPECT_EQ(Export(TempPath("v1.2/a.xov")), ExportOutcome::Done);
  EXPECT_EQ(Files(), (TextList{"v1.2", "v1.xac"}));
  EXPECT_EQ(BytesOf(TempPath("v1.2/a.xov")), CamHeader + ChannelBlock);
  EXPECT_EQ(BytesOf(TempPath("v1.xac")), ListHeader + ListBlock);
}

TEST_F(ExportRunTest, Paths_with_letters_beyond_ASCII_are_taken_as_they_are) {
  AddChannel();
  AddListedAccessory();
  EXPECT_EQ(Export(TempPath("h\u00e4lle \u0416.xov")), ExportOutcome::Done);
  EXPECT_EQ(Files(), (TextList{"h\u00e4lle \u0416.xac", "h\u00e4lle \u0416.xov"}));
}

}  // namespace

}  // namespace orvane
