#include "project/recent_files.h"

#include <string>

#include "core/settings.h"
#include "tests/project/lifecycle_fixture.h"

namespace orvane {

namespace {

using test::Log;
using test::StoredRecent;

class RecentFilesTest : public test::LifecycleTest {};

TEST_F(RecentFilesTest, A_path_goes_in_front_and_all_five_are_stored) {
  AddRecent("/jobs/a.ovd");
  EXPECT_EQ(Events(), (Log{"store Recent1=/jobs/a.ovd", "store Recent2=", "store Recent3=",
                           "store Recent4=", "store Recent5=", "ShowRecentFiles"}));
  AddRecent("/jobs/b.ovd");
  EXPECT_EQ(Events(), StoredRecent({"/jobs/b.ovd", "/jobs/a.ovd"}));
  EXPECT_EQ(Recent(), (Log{"/jobs/b.ovd", "/jobs/a.ovd", "", "", ""}));
}

TEST_F(RecentFilesTest, The_sixth_path_drops_the_oldest) {
  for (const std::string path : {"/1", "/2", "/3", "/4", "/5", "/6"}) AddRecent(path);
  EXPECT_EQ(Recent(), (Log{"/6", "/5", "/4", "/3", "/2"}));
  for (int number = 1; number <= 5; ++number) {
    EXPECT_EQ(RecentFile(number), "/" + std::to_string(7 - number));
  }
}

TEST_F(RecentFilesTest, The_first_entry_added_again_stores_and_shows_nothing) {
  RecentFiles = {"/a", "/b", "", "", ""};
  AddRecent("/a");
  EXPECT_EQ(Events(), Log{});
  EXPECT_EQ(Recent(), (Log{"/a", "/b", "", "", ""}));
}

TEST_F(RecentFilesTest, Paths_are_compared_exactly) {
  RecentFiles = {"/jobs/a.ovd", "", "", "", ""};
  AddRecent("/jobs/A.ovd");
  AddRecent("/jobs/A.ovd ");
  EXPECT_EQ(Recent(), (Log{"/jobs/A.ovd ", "/jobs/A.ovd", "/jobs/a.ovd", "", ""}));
}

TEST_F(RecentFilesTest, The_path_of_entry_3_then_stands_at_1_and_4) {
  RecentFiles = {"/a", "/b", "/c", "/d", "/e"};
  AddRecent(RecentFiles.at(2));
  EXPECT_EQ(Recent(), (Log{"/c", "/a", "/b", "/c", "/d"}));
  EXPECT_EQ(Events(), StoredRecent({"/c", "/a", "/b", "/c", "/d"}));
}

TEST_F(RecentFilesTest, The_list_is_read_with_empty_entries_for_what_is_not_stored) {
  StoreRecentFile(1, "/a");
  StoreRecentFile(3, "/c");
  StoreRecentFile(5, "/e");
  Events();
  RecentFiles = {"/old", "/old", "/old", "/old", "/old"};
  log.On["ShowRecentFiles"] = [this] { EXPECT_EQ(Recent(), (Log{"/a", "", "/c", "", "/e"})); };
  LoadRecent();
  EXPECT_EQ(Events(), Log{"ShowRecentFiles"});
}

TEST_F(RecentFilesTest, Building_the_menu_stores_nothing) {
  BuildRecent();
  EXPECT_EQ(Events(), Log{"ShowRecentFiles"});
}

TEST_F(RecentFilesTest, A_caption_shows_50_characters_whole_and_of_51_the_last_50) {
  const std::string tail(49, 'x');
  EXPECT_EQ(RecentCaption("/" + tail), "/" + tail);
  EXPECT_EQ(RecentCaption("a/" + tail), ".../" + tail);
  EXPECT_EQ(RecentCaption("/home/a/" + tail), ".../" + tail);
  EXPECT_EQ(RecentCaption(""), "");
}

TEST_F(RecentFilesTest, A_caption_counts_letters_and_not_bytes) {
  std::string letters;
  for (int count = 0; count < 50; ++count) letters += "ø";
  EXPECT_EQ(RecentCaption(letters), letters);
  EXPECT_EQ(RecentCaption("å" + letters), "..." + letters);
}

}  // namespace

}  // namespace orvane
